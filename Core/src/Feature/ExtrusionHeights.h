#pragma once

#include "Feature/ExtrusionSymbol.h"

#include <optional>

namespace keo::Feature::detail {

/**
 * @brief The height of the top of an extrusion of @p height metres over a vertex at
 * @p vertexHeight metres: raised by it (Relative) or at it (Absolute); empty for any other
 * height reference (a polyline then leaves its wall without heights, a polygon extrudes to the
 * height as for Absolute).
 */
inline std::optional<double> extrusionTop(double vertexHeight, double height,
                                          ExtrusionSymbol::HeightReference reference) noexcept {
    switch (reference) {
    case ExtrusionSymbol::HeightReference::Relative:
        return vertexHeight + height;
    case ExtrusionSymbol::HeightReference::Absolute:
        return height;
    }
    return std::nullopt;
}

} // namespace keo::Feature::detail
