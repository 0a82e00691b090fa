#pragma once

#include "Source/ReadOptions.h"
#include "Source/StyleSheet.h"

#include "Feature/FeatureCollection.h"
#include "Feature/FeatureGroup.h"

#include <memory>

namespace keo::Source {

/** @brief What VectorSource::loadFile and loadText read, how they style it and where it goes. */
struct LoadOptions final {
    /** @brief The layer, id, name and area fields, and the strict option (reading and styling). */
    ReadOptions read;
    /** @brief The style sheet; null: StyleSheet::defaultSheet(). */
    std::shared_ptr<const StyleSheet> styleSheet;
    /** @brief The group the features are added to, in source order; null: a new group. */
    std::shared_ptr<keo::Feature::FeatureGroup> group;
    /** @brief A collection the features are also added to; null: none. */
    std::shared_ptr<keo::Feature::FeatureCollection> collection;
};

} // namespace keo::Source
