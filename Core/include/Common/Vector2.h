#pragma once

#include <cmath>

namespace keo {

/**
 * @brief A two-component vector of T (float for pixel offsets, sizes and texture values, double
 * for planar shapes in metres).
 *
 * A plain value: the components are public. Equality is exact and component-wise, so a NaN
 * component makes a vector unequal to every vector, itself included.
 */
template <typename T>
struct Vector2 final {
    /** @brief First component. */
    T x{};
    /** @brief Second component. */
    T y{};

    /** @brief The zero vector. */
    constexpr Vector2() noexcept = default;
    /** @brief A vector of the two given components. */
    constexpr Vector2(T x_, T y_) noexcept
        : x(x_)
        , y(y_) {}

    /** @brief Exact component-wise equality. */
    constexpr bool operator==(const Vector2& o) const noexcept { return x == o.x && y == o.y; }
    /** @brief Negation of operator==. */
    constexpr bool operator!=(const Vector2& o) const noexcept { return !(*this == o); }

    /** @brief Component-wise sum. */
    constexpr Vector2 operator+(const Vector2& o) const noexcept { return {x + o.x, y + o.y}; }
    /** @brief Component-wise difference. */
    constexpr Vector2 operator-(const Vector2& o) const noexcept { return {x - o.x, y - o.y}; }
    /** @brief The opposite vector. */
    constexpr Vector2 operator-() const noexcept { return {-x, -y}; }
    /** @brief Every component multiplied by @p s. */
    constexpr Vector2 operator*(T s) const noexcept { return {x * s, y * s}; }
    /** @brief Every component divided by @p s (IEEE rules for a zero divisor). */
    constexpr Vector2 operator/(T s) const noexcept { return {x / s, y / s}; }
    /** @brief Adds @p o in place. */
    constexpr Vector2& operator+=(const Vector2& o) noexcept { return *this = *this + o; }
    /** @brief Subtracts @p o in place. */
    constexpr Vector2& operator-=(const Vector2& o) noexcept { return *this = *this - o; }
    /** @brief Scales in place. */
    constexpr Vector2& operator*=(T s) noexcept { return *this = *this * s; }
    /** @brief Divides in place. */
    constexpr Vector2& operator/=(T s) noexcept { return *this = *this / s; }

    /** @brief Dot product. */
    constexpr T dot(const Vector2& o) const noexcept { return x * o.x + y * o.y; }
    /** @brief The z component of the 3D cross product of (x, y, 0) and (o.x, o.y, 0). */
    constexpr T cross(const Vector2& o) const noexcept { return x * o.y - y * o.x; }
    /** @brief Squared Euclidean length. */
    constexpr T magnitudeSquared() const noexcept { return dot(*this); }
    /** @brief Euclidean length. */
    T magnitude() const noexcept { return std::sqrt(magnitudeSquared()); }
    /**
     * @brief The unit vector of the same direction; the zero vector and a vector with a NaN
     * component are returned unchanged.
     */
    Vector2 normalize() const noexcept {
        const T m = magnitude();
        return m > T(0) ? *this / m : *this;
    }
    /** @brief Euclidean distance between this point and @p o. */
    T distance(const Vector2& o) const noexcept { return (*this - o).magnitude(); }
};

/** @brief Every component of @p v multiplied by @p s. */
template <typename T>
constexpr Vector2<T> operator*(T s, const Vector2<T>& v) noexcept {
    return v * s;
}

} // namespace keo
