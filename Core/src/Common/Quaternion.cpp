#include "Common/Quaternion.h"

#include "Common/Matrix3.h"

#include <cmath>

namespace keo {

Quaternion Quaternion::fromAxisAngle(const Vector3<double>& axis, Radian angle) noexcept {
    const double length = axis.magnitude();
    if (!(length > 0.0)) {
        return identity();
    }
    const double half = angle.value() / 2.0;
    const double s = std::sin(half) / length;
    return {axis.x * s, axis.y * s, axis.z * s, std::cos(half)};
}

Quaternion Quaternion::fromRotationMatrix(const Matrix3& m) noexcept {
    // Shepperd's method: take the square root of the largest of the four diagonal combinations,
    // so the divisor below is never small and no precision is lost near 180-degree rotations.
    const double trace = m(0, 0) + m(1, 1) + m(2, 2);
    Quaternion q;
    if (trace > 0.0) {
        const double s = std::sqrt(trace + 1.0) * 2.0; // 4w
        q = {(m(2, 1) - m(1, 2)) / s, (m(0, 2) - m(2, 0)) / s, (m(1, 0) - m(0, 1)) / s, 0.25 * s};
    } else if (m(0, 0) > m(1, 1) && m(0, 0) > m(2, 2)) {
        const double s = std::sqrt(1.0 + m(0, 0) - m(1, 1) - m(2, 2)) * 2.0; // 4x
        q = {0.25 * s, (m(0, 1) + m(1, 0)) / s, (m(0, 2) + m(2, 0)) / s, (m(2, 1) - m(1, 2)) / s};
    } else if (m(1, 1) > m(2, 2)) {
        const double s = std::sqrt(1.0 + m(1, 1) - m(0, 0) - m(2, 2)) * 2.0; // 4y
        q = {(m(0, 1) + m(1, 0)) / s, 0.25 * s, (m(1, 2) + m(2, 1)) / s, (m(0, 2) - m(2, 0)) / s};
    } else {
        const double s = std::sqrt(1.0 + m(2, 2) - m(0, 0) - m(1, 1)) * 2.0; // 4z
        q = {(m(0, 2) + m(2, 0)) / s, (m(1, 2) + m(2, 1)) / s, 0.25 * s, (m(1, 0) - m(0, 1)) / s};
    }
    return q.normalize();
}

Quaternion Quaternion::fromHeadingPitchRoll(const HeadingPitchRoll& hpr) noexcept {
    const Vector3<double> xAxis(1.0, 0.0, 0.0);
    const Vector3<double> yAxis(0.0, 1.0, 0.0);
    const Vector3<double> zAxis(0.0, 0.0, 1.0);
    return fromAxisAngle(zAxis, -hpr.heading) * fromAxisAngle(yAxis, -hpr.pitch) *
           fromAxisAngle(xAxis, hpr.roll);
}

Quaternion Quaternion::operator*(const Quaternion& o) const noexcept {
    return {w * o.x + x * o.w + y * o.z - z * o.y, w * o.y - x * o.z + y * o.w + z * o.x,
            w * o.z + x * o.y - y * o.x + z * o.w, w * o.w - x * o.x - y * o.y - z * o.z};
}

double Quaternion::magnitude() const noexcept {
    return std::sqrt(x * x + y * y + z * z + w * w);
}

Quaternion Quaternion::normalize() const noexcept {
    const double m = magnitude();
    if (!(m > 0.0)) {
        return identity();
    }
    return {x / m, y / m, z / m, w / m};
}

Vector3<double> Quaternion::rotate(const Vector3<double>& v) const noexcept {
    // v' = v + 2 w (u × v) + 2 u × (u × v) with u = (x, y, z): the expanded form of q v q*.
    const Vector3<double> u(x, y, z);
    const Vector3<double> t = u.cross(v) * 2.0;
    return v + t * w + u.cross(t);
}

bool Quaternion::equalsRotationEpsilon(const Quaternion& o, double epsilon) const noexcept {
    const auto near = [epsilon](const Quaternion& a, const Quaternion& b) {
        return std::abs(a.x - b.x) <= epsilon && std::abs(a.y - b.y) <= epsilon &&
               std::abs(a.z - b.z) <= epsilon && std::abs(a.w - b.w) <= epsilon;
    };
    return near(*this, o) || near(*this, Quaternion(-o.x, -o.y, -o.z, -o.w));
}

} // namespace keo
