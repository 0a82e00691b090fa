#include "CollectionWatch.h"

#include "Feature/FeatureCollection.h"

namespace keo::scene {

CollectionWatch::CollectionWatch(Feature::FeatureCollection& collection)
    : listener_(collection.getCollectionChanged()->addEventListener(
          [this](Feature::FeatureCollection*, const Feature::FeatureCollection::FeatureList& added,
                 const Feature::FeatureCollection::FeatureList& removed,
                 const Feature::FeatureCollection::ChangedList& changed) {
              ++counts_.notifications;
              counts_.added += added.size();
              counts_.removed += removed.size();
              counts_.changed += changed.size();
          })) {}

CollectionWatch::~CollectionWatch() = default;

CollectionCounts CollectionWatch::take() noexcept {
    const CollectionCounts counts = counts_;
    counts_ = CollectionCounts();
    return counts;
}

} // namespace keo::scene
