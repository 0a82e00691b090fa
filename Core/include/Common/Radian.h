#pragma once

namespace keo {

class Degree;

/**
 * @brief An angle in radians.
 *
 * A distinct type from Degree so that units never mix silently: conversion between the two is
 * explicit in both directions. The value is a plain double and is never normalised.
 */
class Radian final {
public:
    /** @brief The zero angle. */
    constexpr Radian() noexcept = default;
    /** @brief An angle of @p radians radians. */
    constexpr explicit Radian(double radians) noexcept
        : value_(radians) {}
    /** @brief Converts an angle in degrees (defined in Degree.h). */
    constexpr explicit Radian(const Degree& degrees) noexcept;

    /** @brief The angle in radians. */
    constexpr double value() const noexcept { return value_; }

    /** @brief Sum of two angles. */
    constexpr Radian operator+(Radian other) const noexcept {
        return Radian(value_ + other.value_);
    }
    /** @brief Difference of two angles. */
    constexpr Radian operator-(Radian other) const noexcept {
        return Radian(value_ - other.value_);
    }
    /** @brief The opposite angle. */
    constexpr Radian operator-() const noexcept { return Radian(-value_); }
    /** @brief The angle scaled by @p factor. */
    constexpr Radian operator*(double factor) const noexcept { return Radian(value_ * factor); }
    /** @brief The angle divided by @p divisor (IEEE rules: division by zero gives an infinity or
     * NaN). */
    constexpr Radian operator/(double divisor) const noexcept { return Radian(value_ / divisor); }
    /** @brief The ratio of two angles. */
    constexpr double operator/(Radian other) const noexcept { return value_ / other.value_; }
    /** @brief Adds @p other in place. */
    constexpr Radian& operator+=(Radian other) noexcept {
        value_ += other.value_;
        return *this;
    }
    /** @brief Subtracts @p other in place. */
    constexpr Radian& operator-=(Radian other) noexcept {
        value_ -= other.value_;
        return *this;
    }
    /** @brief Scales in place. */
    constexpr Radian& operator*=(double factor) noexcept {
        value_ *= factor;
        return *this;
    }
    /** @brief Divides in place. */
    constexpr Radian& operator/=(double divisor) noexcept {
        value_ /= divisor;
        return *this;
    }

    /** @brief Exact comparison of the values (a NaN angle equals nothing, itself included). */
    constexpr bool operator==(Radian other) const noexcept { return value_ == other.value_; }
    /** @brief Negation of operator==. */
    constexpr bool operator!=(Radian other) const noexcept { return value_ != other.value_; }
    /** @brief Ordering of the values. */
    constexpr bool operator<(Radian other) const noexcept { return value_ < other.value_; }
    /** @brief Ordering of the values. */
    constexpr bool operator<=(Radian other) const noexcept { return value_ <= other.value_; }
    /** @brief Ordering of the values. */
    constexpr bool operator>(Radian other) const noexcept { return value_ > other.value_; }
    /** @brief Ordering of the values. */
    constexpr bool operator>=(Radian other) const noexcept { return value_ >= other.value_; }

private:
    double value_ = 0.0;
};

/** @brief The angle scaled by @p factor. */
constexpr Radian operator*(double factor, Radian angle) noexcept {
    return angle * factor;
}

} // namespace keo

// Degree completes the conversions between the two units.
#include "Common/Degree.h"
