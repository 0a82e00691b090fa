#pragma once

#include "Common/Radian.h"

namespace keo {

/**
 * @brief An angle in degrees.
 *
 * A distinct type from Radian; conversion between the two is explicit in both directions and uses
 * the factor pi / 180 (and its inverse). The value is a plain double and is never normalised.
 */
class Degree final {
public:
    /** @brief The zero angle. */
    constexpr Degree() noexcept = default;
    /** @brief An angle of @p degrees degrees. */
    constexpr explicit Degree(double degrees) noexcept
        : value_(degrees) {}
    /** @brief Converts an angle in radians. */
    constexpr explicit Degree(const Radian& radians) noexcept
        : value_(radians.value() * DEGREES_PER_RADIAN) {}

    /** @brief The angle in degrees. */
    constexpr double value() const noexcept { return value_; }

    /** @brief Sum of two angles. */
    constexpr Degree operator+(Degree other) const noexcept {
        return Degree(value_ + other.value_);
    }
    /** @brief Difference of two angles. */
    constexpr Degree operator-(Degree other) const noexcept {
        return Degree(value_ - other.value_);
    }
    /** @brief The opposite angle. */
    constexpr Degree operator-() const noexcept { return Degree(-value_); }
    /** @brief The angle scaled by @p factor. */
    constexpr Degree operator*(double factor) const noexcept { return Degree(value_ * factor); }
    /** @brief The angle divided by @p divisor (IEEE rules: division by zero gives an infinity or
     * NaN). */
    constexpr Degree operator/(double divisor) const noexcept { return Degree(value_ / divisor); }
    /** @brief The ratio of two angles. */
    constexpr double operator/(Degree other) const noexcept { return value_ / other.value_; }
    /** @brief Adds @p other in place. */
    constexpr Degree& operator+=(Degree other) noexcept {
        value_ += other.value_;
        return *this;
    }
    /** @brief Subtracts @p other in place. */
    constexpr Degree& operator-=(Degree other) noexcept {
        value_ -= other.value_;
        return *this;
    }
    /** @brief Scales in place. */
    constexpr Degree& operator*=(double factor) noexcept {
        value_ *= factor;
        return *this;
    }
    /** @brief Divides in place. */
    constexpr Degree& operator/=(double divisor) noexcept {
        value_ /= divisor;
        return *this;
    }

    /** @brief Exact comparison of the values (a NaN angle equals nothing, itself included). */
    constexpr bool operator==(Degree other) const noexcept { return value_ == other.value_; }
    /** @brief Negation of operator==. */
    constexpr bool operator!=(Degree other) const noexcept { return value_ != other.value_; }
    /** @brief Ordering of the values. */
    constexpr bool operator<(Degree other) const noexcept { return value_ < other.value_; }
    /** @brief Ordering of the values. */
    constexpr bool operator<=(Degree other) const noexcept { return value_ <= other.value_; }
    /** @brief Ordering of the values. */
    constexpr bool operator>(Degree other) const noexcept { return value_ > other.value_; }
    /** @brief Ordering of the values. */
    constexpr bool operator>=(Degree other) const noexcept { return value_ >= other.value_; }

    /** @brief Degrees in one radian, 180 / pi. */
    static constexpr double DEGREES_PER_RADIAN = 57.295779513082320876798154814105;
    /** @brief Radians in one degree, pi / 180. */
    static constexpr double RADIANS_PER_DEGREE = 0.017453292519943295769236907684886;

private:
    double value_ = 0.0;
};

/** @brief The angle scaled by @p factor. */
constexpr Degree operator*(double factor, Degree angle) noexcept {
    return angle * factor;
}

constexpr Radian::Radian(const Degree& degrees) noexcept
    : value_(degrees.value() * Degree::RADIANS_PER_DEGREE) {}

} // namespace keo
