#pragma once

#include "Common/Cartographic.h"
#include "Common/Ellipsoid.h"
#include "Common/Vector3.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace keo::Feature::detail {

/**
 * @brief @p positions as Cartesian points (ECEF metres) on WGS84, one per position, in order, each
 * at the height @p heightOf(position) gives (a raised copy without copying the positions first),
 * in a list with room for @p spare more (a closing point, say).
 */
template <typename HeightOf>
std::vector<Vector3<double>> toCartesianAt(const std::vector<Cartographic>& positions,
                                           HeightOf&& heightOf, std::size_t spare = 0) {
    std::vector<Vector3<double>> points;
    points.reserve(positions.size() + spare);
    for (const Cartographic& position : positions) {
        points.push_back(Ellipsoid::WGS84.cartographicToCartesian(
            Cartographic(position.longitude, position.latitude, heightOf(position))));
    }
    return points;
}

/**
 * @brief @p positions as Cartesian points (ECEF metres) on WGS84, one per position, in order, at
 * their own heights, in a list with room for @p spare more (a closing point, say).
 */
std::vector<Vector3<double>> toCartesian(const std::vector<Cartographic>& positions,
                                         std::size_t spare = 0);

/**
 * @brief The Cartesian points of a line's or a ring's vertices, converted at most once per
 * update call, when first needed; points converted earlier (and kept by a graphics component)
 * can be handed in instead.
 */
class LazyCartesian final {
public:
    /** @brief The points of @p positions, which must outlive this object. */
    explicit LazyCartesian(const std::vector<Cartographic>& positions) noexcept
        : positions_(positions) {}

    /** @brief The points, converted on the first call. */
    const std::vector<Vector3<double>>& get() {
        if (!points_) {
            points_ = toCartesian(positions_);
        }
        return *points_;
    }
    /** @brief Takes @p points (one per position) as the conversion, unless it was made already. */
    void reuse(const std::vector<Vector3<double>>& points) {
        if (!points_ && points.size() == positions_.size()) {
            points_ = points;
        }
    }

private:
    const std::vector<Cartographic>& positions_;
    std::optional<std::vector<Vector3<double>>> points_;
};

/** @brief The midpoint of @p from and @p to in Cartesian space (not on the ellipsoid). */
inline Vector3<double> midpoint(const Vector3<double>& from, const Vector3<double>& to) noexcept {
    return (from + to) * 0.5;
}

} // namespace keo::Feature::detail
