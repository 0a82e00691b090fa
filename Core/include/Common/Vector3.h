#pragma once

#include <cmath>

namespace keo {

/**
 * @brief A three-component vector of T (double for Cartesian positions in metres, float for
 * graphics values, Radian for rotations).
 *
 * A plain value: the components are public. Equality is exact and component-wise, so a NaN
 * component makes a vector unequal to every vector, itself included. The arithmetic and metric
 * operations are available for floating-point T; for other T only those that T supports compile.
 */
template <typename T>
struct Vector3 final {
    /** @brief First component. */
    T x{};
    /** @brief Second component. */
    T y{};
    /** @brief Third component. */
    T z{};

    /** @brief The zero vector. */
    constexpr Vector3() noexcept = default;
    /** @brief A vector of the three given components. */
    constexpr Vector3(T x_, T y_, T z_) noexcept
        : x(x_)
        , y(y_)
        , z(z_) {}

    /** @brief Exact component-wise equality. */
    constexpr bool operator==(const Vector3& o) const noexcept {
        return x == o.x && y == o.y && z == o.z;
    }
    /** @brief Negation of operator==. */
    constexpr bool operator!=(const Vector3& o) const noexcept { return !(*this == o); }

    /** @brief Component-wise sum. */
    constexpr Vector3 operator+(const Vector3& o) const noexcept {
        return {x + o.x, y + o.y, z + o.z};
    }
    /** @brief Component-wise difference. */
    constexpr Vector3 operator-(const Vector3& o) const noexcept {
        return {x - o.x, y - o.y, z - o.z};
    }
    /** @brief The opposite vector. */
    constexpr Vector3 operator-() const noexcept { return {-x, -y, -z}; }
    /** @brief Every component multiplied by @p s. */
    constexpr Vector3 operator*(T s) const noexcept { return {x * s, y * s, z * s}; }
    /** @brief Every component divided by @p s (IEEE rules for a zero divisor). */
    constexpr Vector3 operator/(T s) const noexcept { return {x / s, y / s, z / s}; }
    /** @brief Adds @p o in place. */
    constexpr Vector3& operator+=(const Vector3& o) noexcept { return *this = *this + o; }
    /** @brief Subtracts @p o in place. */
    constexpr Vector3& operator-=(const Vector3& o) noexcept { return *this = *this - o; }
    /** @brief Scales in place. */
    constexpr Vector3& operator*=(T s) noexcept { return *this = *this * s; }
    /** @brief Divides in place. */
    constexpr Vector3& operator/=(T s) noexcept { return *this = *this / s; }

    /** @brief Component-wise product. */
    constexpr Vector3 multiplyComponents(const Vector3& o) const noexcept {
        return {x * o.x, y * o.y, z * o.z};
    }
    /** @brief Dot product. */
    constexpr T dot(const Vector3& o) const noexcept { return x * o.x + y * o.y + z * o.z; }
    /** @brief Cross product this × @p o (right-handed). */
    constexpr Vector3 cross(const Vector3& o) const noexcept {
        return {y * o.z - z * o.y, z * o.x - x * o.z, x * o.y - y * o.x};
    }
    /** @brief Squared Euclidean length. */
    constexpr T magnitudeSquared() const noexcept { return dot(*this); }
    /** @brief Euclidean length. */
    T magnitude() const noexcept { return std::sqrt(magnitudeSquared()); }
    /**
     * @brief The unit vector of the same direction.
     *
     * A vector of length zero has no direction: it is returned unchanged (the zero vector), and so
     * is a vector with a NaN component. A vector with an infinite component gives NaN for that
     * component (and 0 for the finite ones).
     */
    Vector3 normalize() const noexcept {
        const T m = magnitude();
        return m > T(0) ? *this / m : *this;
    }
    /** @brief Squared distance between this point and @p o. */
    constexpr T distanceSquared(const Vector3& o) const noexcept {
        return (*this - o).magnitudeSquared();
    }
    /** @brief Euclidean distance between this point and @p o. */
    T distance(const Vector3& o) const noexcept { return (*this - o).magnitude(); }
};

/** @brief Every component of @p v multiplied by @p s. */
template <typename T>
constexpr Vector3<T> operator*(T s, const Vector3<T>& v) noexcept {
    return v * s;
}

} // namespace keo
