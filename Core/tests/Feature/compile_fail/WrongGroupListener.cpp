// Must not compile: a FeatureGroup's added-or-removed listener that takes one list only. The test
// that compiles it expects the one message of that event and no other error.
#include "Feature/FeatureGroup.h"

#include <memory>
#include <vector>

void listenWithTheWrongSignature(keo::Feature::FeatureGroup& group) {
    group._addFeatureAddedOrRemovedEventListener(
        [](const std::vector<std::shared_ptr<keo::Feature::Feature>>& /*added*/) {});
}
