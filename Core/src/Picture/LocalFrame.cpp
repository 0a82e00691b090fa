#include "LocalFrame.h"

#include "Common/Ellipsoid.h"

#include <cmath>

namespace keo::Picture::detail {

void eastNorthUpAxes(const Vector3<double>& ecef, Vector3<double> (&axes)[3]) noexcept {
    const auto up = Ellipsoid::WGS84.geodeticSurfaceNormal(ecef);
    if (!up || !isFinite(*up)) {
        axes[0] = {1.0, 0.0, 0.0};
        axes[1] = {0.0, 1.0, 0.0};
        axes[2] = {0.0, 0.0, 1.0};
        return;
    }
    // East is the z axis crossed with up; at a pole that vanishes and any horizontal axis will do.
    Vector3<double> east(-up->y, up->x, 0.0);
    east = east.magnitude() > 1e-12 ? east.normalize() : Vector3<double>(0.0, 1.0, 0.0);
    axes[0] = east;
    axes[1] = up->cross(east);
    axes[2] = *up;
}

Vector3<double> atHeight(const Vector3<double>& ecef, double height) noexcept {
    auto place = Ellipsoid::WGS84.cartesianToCartographic(ecef);
    if (!place) {
        return ecef;
    }
    place->height = height;
    return Ellipsoid::WGS84.cartographicToCartesian(*place);
}

LocalFrame::LocalFrame(const Cartographic& origin) noexcept {
    origin_ = Ellipsoid::WGS84.cartographicToCartesian(
        Cartographic(origin.longitude, origin.latitude, 0.0));
    Vector3<double> axes[3];
    eastNorthUpAxes(origin_, axes);
    east_ = axes[0];
    north_ = axes[1];
    up_ = axes[2];
}

Vector3<double> LocalFrame::toLocal(const Vector3<double>& ecef) const noexcept {
    return directionToLocal(ecef - origin_);
}

Vector3<double> LocalFrame::directionToLocal(const Vector3<double>& direction) const noexcept {
    return {direction.dot(east_), direction.dot(north_), direction.dot(up_)};
}

} // namespace keo::Picture::detail
