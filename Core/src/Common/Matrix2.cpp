#include "Common/Matrix2.h"

#include <cmath>

namespace keo {

Matrix2 Matrix2::fromRotation(Radian angle) noexcept {
    const double c = std::cos(angle.value());
    const double s = std::sin(angle.value());
    return {c, -s, s, c};
}

Matrix2 Matrix2::operator*(const Matrix2& o) const noexcept {
    const Matrix2& a = *this;
    return {a(0, 0) * o(0, 0) + a(0, 1) * o(1, 0), a(0, 0) * o(0, 1) + a(0, 1) * o(1, 1),
            a(1, 0) * o(0, 0) + a(1, 1) * o(1, 0), a(1, 0) * o(0, 1) + a(1, 1) * o(1, 1)};
}

Vector2<double> Matrix2::operator*(const Vector2<double>& v) const noexcept {
    const Matrix2& a = *this;
    return {a(0, 0) * v.x + a(0, 1) * v.y, a(1, 0) * v.x + a(1, 1) * v.y};
}

Matrix2 Matrix2::transpose() const noexcept {
    const Matrix2& a = *this;
    return {a(0, 0), a(1, 0), a(0, 1), a(1, 1)};
}

} // namespace keo
