#pragma once

#include "Common/CommonExport.h"
#include "Common/HeadingPitchRoll.h"
#include "Common/Vector3.h"

#include <array>

namespace keo {

class Quaternion;

/**
 * @brief A 3x3 matrix of doubles, stored column-major; the constructor takes the values in the
 * order they are read, row by row.
 */
class KEO_COMMON_API Matrix3 final {
public:
    /** @brief The zero matrix. */
    constexpr Matrix3() noexcept = default;
    /** @brief The matrix of the given values, row by row (cRrR: column C, row R). */
    constexpr Matrix3(double c0r0, double c1r0, double c2r0, double c0r1, double c1r1, double c2r1,
                      double c0r2, double c1r2, double c2r2) noexcept
        : m_{c0r0, c0r1, c0r2, c1r0, c1r1, c1r2, c2r0, c2r1, c2r2} {}

    /** @brief The identity matrix. */
    static constexpr Matrix3 identity() noexcept {
        return {1.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 1.0};
    }
    /** @brief The matrix whose columns are @p c0, @p c1 and @p c2. */
    static Matrix3 fromColumns(const Vector3<double>& c0, const Vector3<double>& c1,
                               const Vector3<double>& c2) noexcept;
    /**
     * @brief The rotation of a heading, pitch and roll: Rz(-heading) · Ry(-pitch) · Rx(roll), so
     * roll is applied first, then pitch, then heading.
     */
    static Matrix3 fromHeadingPitchRoll(const HeadingPitchRoll& hpr) noexcept;
    /** @brief The rotation of a unit quaternion (the quaternion is normalised first). */
    static Matrix3 fromQuaternion(const Quaternion& q) noexcept;
    /** @brief The counter-clockwise rotation by @p angle about the x axis. */
    static Matrix3 fromRotationX(Radian angle) noexcept;
    /** @brief The counter-clockwise rotation by @p angle about the y axis. */
    static Matrix3 fromRotationY(Radian angle) noexcept;
    /** @brief The counter-clockwise rotation by @p angle about the z axis. */
    static Matrix3 fromRotationZ(Radian angle) noexcept;

    /** @brief The value at @p row and @p column (each 0 to 2; not checked). */
    constexpr double operator()(int row, int column) const noexcept {
        return m_[static_cast<std::size_t>(column * 3 + row)];
    }
    /** @brief The column @p index (0 to 2; not checked). */
    Vector3<double> getColumn(int index) const noexcept;
    /** @brief The nine values in column-major order. */
    constexpr const std::array<double, 9>& values() const noexcept { return m_; }

    /** @brief The matrix product this × @p o. */
    Matrix3 operator*(const Matrix3& o) const noexcept;
    /** @brief The product of this matrix with a column vector. */
    Vector3<double> operator*(const Vector3<double>& v) const noexcept;
    /** @brief The transpose (the inverse of a rotation). */
    Matrix3 transpose() const noexcept;
    /** @brief The determinant. */
    double determinant() const noexcept;

    /** @brief Exact equality of the nine values. */
    bool operator==(const Matrix3& o) const noexcept { return m_ == o.m_; }
    /** @brief Negation of operator==. */
    bool operator!=(const Matrix3& o) const noexcept { return !(*this == o); }
    /** @brief Whether every value differs from @p o's by at most @p epsilon (NaN never does). */
    bool equalsEpsilon(const Matrix3& o, double epsilon) const noexcept;

private:
    std::array<double, 9> m_{};
};

} // namespace keo
