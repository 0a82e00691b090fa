#include "Common/Matrix4.h"

namespace keo {

Matrix4::Matrix4(const Matrix3& rotation, const Vector3<double>& translation) noexcept {
    for (int column = 0; column < 3; ++column) {
        for (int row = 0; row < 3; ++row) {
            m_[static_cast<std::size_t>(column * 4 + row)] = rotation(row, column);
        }
    }
    m_[12] = translation.x;
    m_[13] = translation.y;
    m_[14] = translation.z;
    m_[15] = 1.0;
}

Matrix4 Matrix4::fromColumnMajor(const std::array<double, 16>& values) noexcept {
    Matrix4 r;
    r.m_ = values;
    return r;
}

Matrix3 Matrix4::getRotation() const noexcept {
    const Matrix4& a = *this;
    return {a(0, 0), a(0, 1), a(0, 2), a(1, 0), a(1, 1), a(1, 2), a(2, 0), a(2, 1), a(2, 2)};
}

Vector3<double> Matrix4::getTranslation() const noexcept {
    return {m_[12], m_[13], m_[14]};
}

Matrix4 Matrix4::operator*(const Matrix4& o) const noexcept {
    Matrix4 r;
    for (int column = 0; column < 4; ++column) {
        const Vector4<double> c =
            *this * Vector4<double>(o(0, column), o(1, column), o(2, column), o(3, column));
        const auto base = static_cast<std::size_t>(column * 4);
        r.m_[base] = c.x;
        r.m_[base + 1] = c.y;
        r.m_[base + 2] = c.z;
        r.m_[base + 3] = c.w;
    }
    return r;
}

Vector4<double> Matrix4::operator*(const Vector4<double>& v) const noexcept {
    Vector4<double> r;
    r.x = m_[0] * v.x + m_[4] * v.y + m_[8] * v.z + m_[12] * v.w;
    r.y = m_[1] * v.x + m_[5] * v.y + m_[9] * v.z + m_[13] * v.w;
    r.z = m_[2] * v.x + m_[6] * v.y + m_[10] * v.z + m_[14] * v.w;
    r.w = m_[3] * v.x + m_[7] * v.y + m_[11] * v.z + m_[15] * v.w;
    return r;
}

Vector3<double> Matrix4::multiplyByPoint(const Vector3<double>& point) const noexcept {
    const Vector4<double> r = *this * Vector4<double>(point.x, point.y, point.z, 1.0);
    return {r.x, r.y, r.z};
}

} // namespace keo
