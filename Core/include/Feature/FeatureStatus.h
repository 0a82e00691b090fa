#pragma once

#include <cstdint>

namespace keo::Feature {

/** @brief What happened to a feature-tree node since its status was last reset. */
enum class FeatureStatus : std::int32_t {
    None = 0,     ///< Nothing changed since the status was last reset.
    Modified = 1, ///< At least one change since the last reset.
    Added = 2,    ///< Joined a tree of another layer (set by FeatureGroup::add and insert).
    Removed = 3,  ///< Removed from its group (set by FeatureGroup::remove and removeAll).
};

} // namespace keo::Feature
