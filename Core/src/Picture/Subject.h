#pragma once

#include "Common/Vector3.h"
#include "Data/TimePoint.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace keo {
class Entity;
class GeometryGraphics;
} // namespace keo

namespace keo::Picture::detail {

/**
 * @brief One entity to draw, with its positions evaluated at the picture's time, in ECEF metres,
 * heights already applied (clamped kinds on the ellipsoid, areas at their height, walls with
 * their foot and top) and positions with a NaN or infinite coordinate removed.
 *
 * The rings depend on the kind: a line's vertices; a polygon's outer ring followed by its holes
 * and their islands; the corners of a rectangle or the outline of an ellipse; a wall's foot and
 * top (two rings of equal length); a polyline volume's path. Kinds drawn at a single point have
 * no rings.
 */
struct Subject {
    const Entity* entity = nullptr;
    const GeometryGraphics* graphics = nullptr;
    /** @brief The entity's position, when it has a finite one. */
    std::optional<Vector3<double>> anchor;
    std::vector<std::vector<Vector3<double>>> rings;

    /** @brief The point the camera's distance is measured to: the anchor, else the centre. */
    std::optional<Vector3<double>> reference() const;
};

/** @brief What evaluating an entity gave. */
enum class Evaluation {
    Ready,      ///< The subject is ready to draw.
    NoPosition, ///< The kind needs the entity's position, and it has none at the time.
};

/**
 * @brief Fills @p subject's anchor and rings from its entity and graphics at @p time; adds the
 * positions it had to skip to @p invalid.
 */
Evaluation evaluateSubject(Subject& subject, const TimePoint& time, std::size_t& invalid);

} // namespace keo::Picture::detail
