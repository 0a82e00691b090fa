#include "Data/VelocityOrientationProperty.h"

#include "Common/Ellipsoid.h"
#include "Common/Matrix3.h"

#include <cmath>
#include <utility>

namespace keo {

namespace {

// The rotation whose columns are the local x, y and z axes expressed in ECEF.
Quaternion fromAxes(const Vector3<double>& x, const Vector3<double>& y,
                    const Vector3<double>& z) noexcept {
    return Quaternion::fromRotationMatrix(Matrix3::fromColumns(x, y, z));
}

// Below this length an axis is taken as degenerate (a unit vector nearly parallel to another).
constexpr double DEGENERATE_AXIS = 1e-9;

// The east-north-up frame over the unit surface normal up; on the polar axis east is +y.
Quaternion eastNorthUpOf(const Vector3<double>& up) noexcept {
    Vector3<double> east{-up.y, up.x, 0.0};
    if (east.magnitude() < DEGENERATE_AXIS) {
        east = {0.0, 1.0, 0.0};
    }
    east = east.normalize();
    return fromAxes(east, up.cross(east), up);
}

} // namespace

VelocityOrientationProperty::VelocityOrientationProperty(
    std::shared_ptr<PositionProperty> position) noexcept
    : position_(std::move(position)) {}

VelocityOrientationProperty::~VelocityOrientationProperty() = default;

bool VelocityOrientationProperty::isConstant() const noexcept {
    return position_ == nullptr || position_->isConstant();
}

std::optional<Quaternion>
VelocityOrientationProperty::eastNorthUp(const Vector3<double>& position) noexcept {
    const std::optional<Vector3<double>> up = Ellipsoid::WGS84.geodeticSurfaceNormal(position);
    if (!up) {
        return std::nullopt;
    }
    return eastNorthUpOf(*up);
}

std::optional<Quaternion> VelocityOrientationProperty::getValue(const TimePoint& time) const {
    if (position_ == nullptr) {
        return std::nullopt;
    }
    const std::optional<Vector3<double>> here = position_->getValue(time);
    if (!here) {
        return std::nullopt;
    }
    const std::optional<Vector3<double>> normal = Ellipsoid::WGS84.geodeticSurfaceNormal(*here);
    if (!normal) {
        return std::nullopt;
    }
    const Vector3<double> up = *normal;
    Vector3<double> velocity;
    if (const auto ahead = position_->getValue(time + STEP_SECONDS)) {
        velocity = *ahead - *here;
    } else if (const auto behind = position_->getValue(time - STEP_SECONDS)) {
        velocity = *here - *behind;
    }
    const double displacement = velocity.magnitude();
    if (!std::isfinite(displacement) || displacement < MINIMUM_DISPLACEMENT) {
        return eastNorthUpOf(up);
    }
    const Vector3<double> x = velocity / displacement;
    const Vector3<double> z = up - x * up.dot(x);
    const double zLength = z.magnitude();
    if (zLength < DEGENERATE_AXIS) {
        return eastNorthUpOf(up);
    }
    const Vector3<double> unitZ = z / zLength;
    return fromAxes(x, unitZ.cross(x), unitZ);
}

} // namespace keo
