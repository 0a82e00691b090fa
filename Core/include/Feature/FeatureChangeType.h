#pragma once

namespace keo::Feature {

/**
 * @brief The kinds of change a feature-tree node records, as bits of an int (a node's change
 * type is the OR of the bits recorded since it was last reset).
 */
enum FeatureChangeType : int {
    ShowChanged = 0x1,      ///< The show flag changed.
    AttributeChanged = 0x8, ///< An attribute was set, set to null or replaced.
    ContentChanged = 0x400, ///< Name, description, user data, geometry or style changed.
};

} // namespace keo::Feature
