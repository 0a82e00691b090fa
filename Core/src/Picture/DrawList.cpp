#include "DrawList.h"

#include <algorithm>

namespace keo::Picture::detail {

void DrawList::sort() {
    std::sort(items_.begin(), items_.end(), [](const DrawItem& a, const DrawItem& b) {
        if (a.layer != b.layer) {
            return a.layer < b.layer;
        }
        if (a.depth != b.depth) {
            return a.depth > b.depth;
        }
        return a.order < b.order;
    });
}

} // namespace keo::Picture::detail
