#pragma once

#include "Common/Color.h"
#include "Source/ResolvedMaterial.h"

namespace keo::Source {

/** @brief The resolved style of a flat polygon: its fill and its outline. */
struct ResolvedPolygonStyle final {
    /** @brief Whether the inside is filled (default true). */
    bool filled = true;
    /** @brief The material of the fill (default solid opaque white). */
    ResolvedMaterial fill;
    /** @brief Whether the rings are outlined (default true). */
    bool outline = true;
    /** @brief The colour of the outline (default opaque black). */
    keo::Color outlineColor = keo::Color::BLACK;
    /** @brief The width of the outline, pixels (default 1). */
    float outlineWidth = 1.0f;

    /** @brief Exact equality of every field. */
    bool operator==(const ResolvedPolygonStyle& o) const noexcept {
        return filled == o.filled && fill == o.fill && outline == o.outline &&
               outlineColor == o.outlineColor && outlineWidth == o.outlineWidth;
    }
    /** @brief Negation of operator==. */
    bool operator!=(const ResolvedPolygonStyle& o) const noexcept { return !(*this == o); }
};

} // namespace keo::Source
