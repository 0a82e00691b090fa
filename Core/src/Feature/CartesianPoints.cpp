#include "CartesianPoints.h"

namespace keo::Feature::detail {

std::vector<Vector3<double>> toCartesian(const std::vector<Cartographic>& positions,
                                         std::size_t spare) {
    return toCartesianAt(
        positions, [](const Cartographic& position) { return position.height; }, spare);
}

} // namespace keo::Feature::detail
