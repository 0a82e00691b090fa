#pragma once

#include "Common/CommonExport.h"
#include "Common/Vector3.h"

#include <vector>

namespace keo {

/**
 * @brief A sphere that encloses a set of Cartesian points: centre (ECEF, metres) and radius
 * (metres).
 */
class KEO_COMMON_API BoundingSphere final {
public:
    /** @brief The sphere at the origin with radius 0. */
    constexpr BoundingSphere() noexcept = default;
    /** @brief A sphere of the given centre and radius (metres). */
    constexpr BoundingSphere(const Vector3<double>& center, double radius) noexcept
        : center_(center)
        , radius_(radius) {}

    /**
     * @brief A tight sphere enclosing every point: the smaller of Ritter's sphere and the sphere
     * about the centre of the points' axis-aligned box. Points with a NaN or infinite coordinate
     * are skipped; a list without a finite point gives the default sphere.
     */
    static BoundingSphere fromPoints(const std::vector<Vector3<double>>& points) noexcept;

    /** @brief The centre, metres. */
    constexpr const Vector3<double>& getCenter() const noexcept { return center_; }
    /** @brief The radius, metres. */
    constexpr double getRadius() const noexcept { return radius_; }
    /** @brief Whether @p point lies inside or on the sphere. */
    bool contains(const Vector3<double>& point) const noexcept;

    /** @brief Exact equality of centre and radius. */
    constexpr bool operator==(const BoundingSphere& o) const noexcept {
        return center_ == o.center_ && radius_ == o.radius_;
    }
    /** @brief Negation of operator==. */
    constexpr bool operator!=(const BoundingSphere& o) const noexcept { return !(*this == o); }

private:
    Vector3<double> center_{};
    double radius_ = 0.0;
};

} // namespace keo
