#include "Common/Matrix3.h"

#include "Common/Quaternion.h"

#include <cmath>

namespace keo {

Matrix3 Matrix3::fromColumns(const Vector3<double>& c0, const Vector3<double>& c1,
                             const Vector3<double>& c2) noexcept {
    return {c0.x, c1.x, c2.x, c0.y, c1.y, c2.y, c0.z, c1.z, c2.z};
}

Matrix3 Matrix3::fromHeadingPitchRoll(const HeadingPitchRoll& hpr) noexcept {
    // Closed form of Rz(psi) · Ry(theta) · Rx(phi) with psi = -heading, theta = -pitch,
    // phi = roll: one sine and cosine per angle instead of two matrix products.
    const double cosTheta = std::cos(-hpr.pitch.value());
    const double sinTheta = std::sin(-hpr.pitch.value());
    const double cosPsi = std::cos(-hpr.heading.value());
    const double sinPsi = std::sin(-hpr.heading.value());
    const double cosPhi = std::cos(hpr.roll.value());
    const double sinPhi = std::sin(hpr.roll.value());
    return {cosTheta * cosPsi,
            -cosPhi * sinPsi + sinPhi * sinTheta * cosPsi,
            sinPhi * sinPsi + cosPhi * sinTheta * cosPsi,
            cosTheta * sinPsi,
            cosPhi * cosPsi + sinPhi * sinTheta * sinPsi,
            -sinPhi * cosPsi + cosPhi * sinTheta * sinPsi,
            -sinTheta,
            sinPhi * cosTheta,
            cosPhi * cosTheta};
}

Matrix3 Matrix3::fromQuaternion(const Quaternion& quaternion) noexcept {
    const Quaternion q = quaternion.normalize();
    const double xx = q.x * q.x, yy = q.y * q.y, zz = q.z * q.z;
    const double xy = q.x * q.y, xz = q.x * q.z, yz = q.y * q.z;
    const double wx = q.w * q.x, wy = q.w * q.y, wz = q.w * q.z;
    return {1.0 - 2.0 * (yy + zz), 2.0 * (xy - wz),       2.0 * (xz + wy),
            2.0 * (xy + wz),       1.0 - 2.0 * (xx + zz), 2.0 * (yz - wx),
            2.0 * (xz - wy),       2.0 * (yz + wx),       1.0 - 2.0 * (xx + yy)};
}

Matrix3 Matrix3::fromRotationX(Radian angle) noexcept {
    const double c = std::cos(angle.value());
    const double s = std::sin(angle.value());
    return {1.0, 0.0, 0.0, 0.0, c, -s, 0.0, s, c};
}

Matrix3 Matrix3::fromRotationY(Radian angle) noexcept {
    const double c = std::cos(angle.value());
    const double s = std::sin(angle.value());
    return {c, 0.0, s, 0.0, 1.0, 0.0, -s, 0.0, c};
}

Matrix3 Matrix3::fromRotationZ(Radian angle) noexcept {
    const double c = std::cos(angle.value());
    const double s = std::sin(angle.value());
    return {c, -s, 0.0, s, c, 0.0, 0.0, 0.0, 1.0};
}

Vector3<double> Matrix3::getColumn(int index) const noexcept {
    return {(*this)(0, index), (*this)(1, index), (*this)(2, index)};
}

Matrix3 Matrix3::operator*(const Matrix3& o) const noexcept {
    Matrix3 r;
    for (int column = 0; column < 3; ++column) {
        const Vector3<double> c = *this * o.getColumn(column);
        const auto base = static_cast<std::size_t>(column * 3);
        r.m_[base] = c.x;
        r.m_[base + 1] = c.y;
        r.m_[base + 2] = c.z;
    }
    return r;
}

Vector3<double> Matrix3::operator*(const Vector3<double>& v) const noexcept {
    return {m_[0] * v.x + m_[3] * v.y + m_[6] * v.z, m_[1] * v.x + m_[4] * v.y + m_[7] * v.z,
            m_[2] * v.x + m_[5] * v.y + m_[8] * v.z};
}

Matrix3 Matrix3::transpose() const noexcept {
    return {m_[0], m_[1], m_[2], m_[3], m_[4], m_[5], m_[6], m_[7], m_[8]};
}

double Matrix3::determinant() const noexcept {
    return getColumn(0).dot(getColumn(1).cross(getColumn(2)));
}

bool Matrix3::equalsEpsilon(const Matrix3& o, double epsilon) const noexcept {
    for (std::size_t i = 0; i < m_.size(); ++i) {
        if (!(std::abs(m_[i] - o.m_[i]) <= epsilon)) {
            return false;
        }
    }
    return true;
}

} // namespace keo
