#pragma once

#include "CartesianPoints.h"
#include "Feature/ExtrusionSymbol.h"

#include <optional>
#include <vector>

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

/**
 * @brief The roof of an extrusion of @p height metres over @p positions, in Cartesian points: each
 * vertex raised to its extrusionTop, or left at its own height where the reference gives none.
 */
inline std::vector<Vector3<double>> extrusionRoof(const std::vector<Cartographic>& positions,
                                                  double height,
                                                  ExtrusionSymbol::HeightReference reference) {
    return toCartesianAt(positions, [height, reference](const Cartographic& vertex) {
        return extrusionTop(vertex.height, height, reference).value_or(vertex.height);
    });
}

} // namespace keo::Feature::detail
