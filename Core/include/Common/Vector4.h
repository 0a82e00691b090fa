#pragma once

#include <cmath>

namespace keo {

/**
 * @brief A four-component vector of T (float for paddings and homogeneous values, double for
 * homogeneous coordinates).
 *
 * A plain value: the components are public. Equality is exact and component-wise, so a NaN
 * component makes a vector unequal to every vector, itself included.
 */
template <typename T>
struct Vector4 final {
    /** @brief First component. */
    T x{};
    /** @brief Second component. */
    T y{};
    /** @brief Third component. */
    T z{};
    /** @brief Fourth component. */
    T w{};

    /** @brief The zero vector. */
    constexpr Vector4() noexcept = default;
    /** @brief A vector of the four given components. */
    constexpr Vector4(T x_, T y_, T z_, T w_) noexcept
        : x(x_)
        , y(y_)
        , z(z_)
        , w(w_) {}

    /** @brief Exact component-wise equality. */
    constexpr bool operator==(const Vector4& o) const noexcept {
        return x == o.x && y == o.y && z == o.z && w == o.w;
    }
    /** @brief Negation of operator==. */
    constexpr bool operator!=(const Vector4& o) const noexcept { return !(*this == o); }

    /** @brief Component-wise sum. */
    constexpr Vector4 operator+(const Vector4& o) const noexcept {
        return {x + o.x, y + o.y, z + o.z, w + o.w};
    }
    /** @brief Component-wise difference. */
    constexpr Vector4 operator-(const Vector4& o) const noexcept {
        return {x - o.x, y - o.y, z - o.z, w - o.w};
    }
    /** @brief The opposite vector. */
    constexpr Vector4 operator-() const noexcept { return {-x, -y, -z, -w}; }
    /** @brief Every component multiplied by @p s. */
    constexpr Vector4 operator*(T s) const noexcept { return {x * s, y * s, z * s, w * s}; }
    /** @brief Every component divided by @p s (IEEE rules for a zero divisor). */
    constexpr Vector4 operator/(T s) const noexcept { return {x / s, y / s, z / s, w / s}; }

    /** @brief Dot product. */
    constexpr T dot(const Vector4& o) const noexcept {
        return x * o.x + y * o.y + z * o.z + w * o.w;
    }
    /** @brief Squared Euclidean length. */
    constexpr T magnitudeSquared() const noexcept { return dot(*this); }
    /** @brief Euclidean length. */
    T magnitude() const noexcept { return std::sqrt(magnitudeSquared()); }
    /**
     * @brief The unit vector of the same direction; the zero vector and a vector with a NaN
     * component are returned unchanged.
     */
    Vector4 normalize() const noexcept {
        const T m = magnitude();
        return m > T(0) ? *this / m : *this;
    }
    /** @brief Euclidean distance between this point and @p o. */
    T distance(const Vector4& o) const noexcept { return (*this - o).magnitude(); }
};

/** @brief Every component of @p v multiplied by @p s. */
template <typename T>
constexpr Vector4<T> operator*(T s, const Vector4<T>& v) noexcept {
    return v * s;
}

} // namespace keo
