#pragma once

#include "Common/Vector3.h"

#include <utility>
#include <vector>

namespace keo {

/**
 * @brief The outline of a polygon in Cartesian positions (ECEF, metres): an outer ring and its
 * holes, each hole itself a hierarchy that may hold islands of its own.
 *
 * A plain value, copied deeply. A ring need not repeat its first position at the end. Positions
 * are stored as given; a ring with fewer than three positions encloses no area and is drawn as
 * nothing.
 */
struct PolygonHierarchy final {
    /** @brief The ring's positions in order, ECEF metres. */
    std::vector<Vector3<double>> positions;
    /** @brief The holes, in order. */
    std::vector<PolygonHierarchy> holes;

    /** @brief An empty ring without holes. */
    PolygonHierarchy() = default;
    /** @brief A ring of @p ring's positions without holes. */
    explicit PolygonHierarchy(std::vector<Vector3<double>> ring)
        : positions(std::move(ring)) {}
    /** @brief A ring of @p ring's positions with the holes @p ringHoles. */
    PolygonHierarchy(std::vector<Vector3<double>> ring, std::vector<PolygonHierarchy> ringHoles)
        : positions(std::move(ring))
        , holes(std::move(ringHoles)) {}

    /** @brief Exact equality of every position of the ring and of every hole, in order. */
    bool operator==(const PolygonHierarchy& o) const {
        return positions == o.positions && holes == o.holes;
    }
    /** @brief Negation of operator==. */
    bool operator!=(const PolygonHierarchy& o) const { return !(*this == o); }
};

} // namespace keo
