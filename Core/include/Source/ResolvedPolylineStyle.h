#pragma once

#include "Source/ResolvedMaterial.h"

namespace keo::Source {

/** @brief The resolved style of a line: its width and material. */
struct ResolvedPolylineStyle final {
    /** @brief The width, pixels (default 2). */
    float width = 2.0f;
    /** @brief The material (default solid opaque white). */
    ResolvedMaterial material;

    /** @brief Exact equality of every field. */
    bool operator==(const ResolvedPolylineStyle& o) const noexcept {
        return width == o.width && material == o.material;
    }
    /** @brief Negation of operator==. */
    bool operator!=(const ResolvedPolylineStyle& o) const noexcept { return !(*this == o); }
};

} // namespace keo::Source
