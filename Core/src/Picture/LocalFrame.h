#pragma once

#include "Common/Cartographic.h"
#include "Common/Vector3.h"

#include <cmath>

namespace keo::Picture::detail {

/**
 * @brief The local tangent plane at a point of the WGS84 surface: east, north and up axes in
 * metres from that point. Pictures are drawn in this frame, so that the map view is a plain
 * orthographic projection and the oblique camera is placed by heading and pitch.
 */
class LocalFrame final {
public:
    /** @brief The frame at the surface point below @p origin (its height is ignored). */
    explicit LocalFrame(const Cartographic& origin) noexcept;

    /** @brief An ECEF position (metres) in this frame: east, north and up metres. */
    Vector3<double> toLocal(const Vector3<double>& ecef) const noexcept;
    /** @brief An ECEF direction in this frame (rotated only). */
    Vector3<double> directionToLocal(const Vector3<double>& direction) const noexcept;
    /** @brief The frame's origin, ECEF metres. */
    const Vector3<double>& origin() const noexcept { return origin_; }

private:
    Vector3<double> origin_;
    Vector3<double> east_;
    Vector3<double> north_;
    Vector3<double> up_;
};

/**
 * @brief The east, north and up unit vectors (ECEF) of the surface below @p ecef, in that order
 * in @p axes. At the Earth's centre or for non-finite input, the axes of the origin (x, y, z).
 */
void eastNorthUpAxes(const Vector3<double>& ecef, Vector3<double> (&axes)[3]) noexcept;

/**
 * @brief @p ecef moved along the surface normal to @p height metres above the ellipsoid;
 * unchanged when it has no geodetic position.
 */
Vector3<double> atHeight(const Vector3<double>& ecef, double height) noexcept;

/** @brief Whether every coordinate of @p v is finite. */
inline bool isFinite(const Vector3<double>& v) noexcept {
    return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
}

} // namespace keo::Picture::detail
