#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace keo::Source::detail {

/**
 * @brief @p value in its shortest form that reads back as the same double: integers without a
 * fraction ("3"), fixed notation from 1e-6 up to 1e21, exponent notation outside ("1e+21"),
 * "NaN", "Infinity", "-Infinity".
 */
std::string shortestText(double value);

/** @brief The float @p value in its shortest form that reads back as the same float ("0.8"). */
std::string shortestFloatText(float value);

/**
 * @brief @p value with at least @p minDigits and at most @p maxDigits fraction digits (both
 * 0..20, min not above max): rounded half away from zero on its shortest decimal form (so 0.125
 * with two digits is "0.13", as the decimal text reads, not "0.12" as the nearest double would),
 * trailing zeros dropped down to @p minDigits. Non-finite values give shortestText.
 */
std::string formatFixed(double value, int minDigits, int maxDigits);

/**
 * @brief The number that the whole of @p text spells (leading and trailing blanks allowed, a
 * decimal or exponent form, "Infinity", "-Infinity", "NaN"); empty for any other text.
 */
std::optional<double> parseNumber(std::string_view text) noexcept;

} // namespace keo::Source::detail
