#pragma once

#include "Common/CommonExport.h"
#include "Common/Matrix3.h"
#include "Common/Vector3.h"
#include "Common/Vector4.h"

#include <array>

namespace keo {

/**
 * @brief A 4x4 matrix of doubles for affine transforms (rotation and translation in metres),
 * stored column-major.
 */
class KEO_COMMON_API Matrix4 final {
public:
    /** @brief The zero matrix. */
    constexpr Matrix4() noexcept = default;
    /**
     * @brief The affine transform with @p rotation as its upper-left 3x3 part, @p translation
     * (metres) as its fourth column and (0, 0, 0, 1) as its last row.
     */
    explicit Matrix4(const Matrix3& rotation,
                     const Vector3<double>& translation = Vector3<double>()) noexcept;

    /** @brief The identity matrix. */
    static Matrix4 identity() noexcept { return Matrix4(Matrix3::identity()); }
    /** @brief The matrix of the given sixteen values in column-major order. */
    static Matrix4 fromColumnMajor(const std::array<double, 16>& values) noexcept;

    /** @brief The value at @p row and @p column (each 0 to 3; not checked). */
    constexpr double operator()(int row, int column) const noexcept {
        return m_[static_cast<std::size_t>(column * 4 + row)];
    }
    /** @brief The sixteen values in column-major order. */
    constexpr const std::array<double, 16>& values() const noexcept { return m_; }
    /** @brief The upper-left 3x3 part. */
    Matrix3 getRotation() const noexcept;
    /** @brief The fourth column's first three values, metres. */
    Vector3<double> getTranslation() const noexcept;

    /** @brief The matrix product this × @p o. */
    Matrix4 operator*(const Matrix4& o) const noexcept;
    /** @brief The product of this matrix with a column vector. */
    Vector4<double> operator*(const Vector4<double>& v) const noexcept;
    /** @brief The transform of a point (w = 1): rotation, then translation. */
    Vector3<double> multiplyByPoint(const Vector3<double>& point) const noexcept;

    /** @brief Exact equality of the sixteen values. */
    bool operator==(const Matrix4& o) const noexcept { return m_ == o.m_; }
    /** @brief Negation of operator==. */
    bool operator!=(const Matrix4& o) const noexcept { return !(*this == o); }

private:
    std::array<double, 16> m_{};
};

} // namespace keo
