#pragma once

#include "Source/ResolvedMaterial.h"

namespace keo::Source {

/**
 * @brief The resolved extrusion of a polygon: a solid from the base height up to the top height,
 * both in metres above the height reference, and the material of its walls and top.
 */
struct ResolvedExtrusionStyle final {
    /** @brief The height of the top, metres (default 0). */
    double height = 0.0;
    /** @brief The height of the base, metres (default 0). */
    double base = 0.0;
    /** @brief The material (default solid opaque white). */
    ResolvedMaterial material;

    /** @brief Exact equality of every field. */
    bool operator==(const ResolvedExtrusionStyle& o) const noexcept {
        return height == o.height && base == o.base && material == o.material;
    }
    /** @brief Negation of operator==. */
    bool operator!=(const ResolvedExtrusionStyle& o) const noexcept { return !(*this == o); }
};

} // namespace keo::Source
