#pragma once

#include "Common/CommonExport.h"
#include "Common/Radian.h"
#include "Common/Vector2.h"

#include <array>

namespace keo {

/**
 * @brief A 2x2 matrix of doubles, stored column-major; the constructor takes the values in the
 * order they are read, row by row.
 */
class KEO_COMMON_API Matrix2 final {
public:
    /** @brief The zero matrix. */
    constexpr Matrix2() noexcept = default;
    /** @brief The matrix [[column0Row0, column1Row0], [column0Row1, column1Row1]]. */
    constexpr Matrix2(double column0Row0, double column1Row0, double column0Row1,
                      double column1Row1) noexcept
        : m_{column0Row0, column0Row1, column1Row0, column1Row1} {}

    /** @brief The identity matrix. */
    static constexpr Matrix2 identity() noexcept { return {1.0, 0.0, 0.0, 1.0}; }
    /**
     * @brief The counter-clockwise rotation by @p angle: [[cos, -sin], [sin, cos]]; a point
     * (1, 0) is turned to (cos, sin).
     */
    static Matrix2 fromRotation(Radian angle) noexcept;

    /** @brief The value at @p row and @p column (each 0 or 1; not checked). */
    constexpr double operator()(int row, int column) const noexcept {
        return m_[static_cast<std::size_t>(column * 2 + row)];
    }
    /** @brief The four values in column-major order. */
    constexpr const std::array<double, 4>& values() const noexcept { return m_; }

    /** @brief The matrix product this × @p o. */
    Matrix2 operator*(const Matrix2& o) const noexcept;
    /** @brief The product of this matrix with a column vector. */
    Vector2<double> operator*(const Vector2<double>& v) const noexcept;
    /** @brief The transpose. */
    Matrix2 transpose() const noexcept;

    /** @brief Exact equality of the four values. */
    constexpr bool operator==(const Matrix2& o) const noexcept {
        return m_[0] == o.m_[0] && m_[1] == o.m_[1] && m_[2] == o.m_[2] && m_[3] == o.m_[3];
    }
    /** @brief Negation of operator==. */
    constexpr bool operator!=(const Matrix2& o) const noexcept { return !(*this == o); }

private:
    std::array<double, 4> m_{};
};

} // namespace keo
