#include "NumberText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <string>
#include <system_error>

namespace keo::Source::detail {

namespace {

constexpr double FIXED_LOW = 1e-6;
constexpr double FIXED_HIGH = 1e21;
constexpr std::size_t BUFFER_SIZE = 400;

std::string nonFiniteText(double value) {
    if (std::isnan(value)) {
        return "NaN";
    }
    return value < 0 ? "-Infinity" : "Infinity";
}

std::string toChars(double value, std::chars_format format) {
    char buffer[BUFFER_SIZE];
    const auto result = std::to_chars(buffer, buffer + BUFFER_SIZE, value, format);
    return std::string(buffer, result.ptr);
}

// Adds one to the number that the decimal digits of digits spell, carrying to the left; a carry
// out of the first digit prepends a '1'.
void incrementDigits(std::string& digits) {
    for (std::size_t i = digits.size(); i-- > 0;) {
        if (digits[i] != '9') {
            ++digits[i];
            return;
        }
        digits[i] = '0';
    }
    digits.insert(0, 1, '1');
}

} // namespace

std::string shortestText(double value) {
    if (!std::isfinite(value)) {
        return nonFiniteText(value);
    }
    if (value == 0.0) {
        return "0";
    }
    const double magnitude = std::fabs(value);
    if (magnitude >= FIXED_LOW && magnitude < FIXED_HIGH) {
        return toChars(value, std::chars_format::fixed);
    }
    return toChars(value, std::chars_format::scientific);
}

std::string shortestFloatText(float value) {
    if (!std::isfinite(value)) {
        return nonFiniteText(static_cast<double>(value));
    }
    char buffer[BUFFER_SIZE];
    const auto result =
        std::to_chars(buffer, buffer + BUFFER_SIZE, value, std::chars_format::general);
    return std::string(buffer, result.ptr);
}

std::string formatFixed(double value, int minDigits, int maxDigits) {
    if (!std::isfinite(value)) {
        return nonFiniteText(value);
    }
    // The shortest fixed form holds the decimal digits that identify the double; rounding works
    // on its magnitude, so rounding up goes away from zero.
    std::string text = toChars(std::fabs(value), std::chars_format::fixed);
    const std::size_t point = text.find('.');
    std::string whole = text.substr(0, point);
    std::string fraction = point == std::string::npos ? std::string() : text.substr(point + 1);
    const auto most = static_cast<std::size_t>(maxDigits);
    if (fraction.size() > most) {
        const bool roundUp = fraction[most] >= '5';
        fraction.resize(most);
        if (roundUp) {
            std::string digits = whole + fraction;
            incrementDigits(digits);
            whole = digits.substr(0, digits.size() - most);
            fraction = digits.substr(digits.size() - most);
        }
    }
    const auto least = static_cast<std::size_t>(minDigits);
    while (fraction.size() > least && fraction.back() == '0') {
        fraction.pop_back();
    }
    fraction.append(least - std::min(least, fraction.size()), '0');
    std::string result = fraction.empty() ? whole : whole + "." + fraction;
    const bool zero = result.find_first_not_of("0.") == std::string::npos;
    return value < 0 && !zero ? "-" + result : result;
}

std::optional<double> parseNumber(std::string_view text) noexcept {
    const std::size_t first = text.find_first_not_of(" \t\n\r");
    if (first == std::string_view::npos) {
        return std::nullopt;
    }
    const std::size_t last = text.find_last_not_of(" \t\n\r");
    text = text.substr(first, last - first + 1);
    if (text == "Infinity" || text == "+Infinity") {
        return HUGE_VAL;
    }
    if (text == "-Infinity") {
        return -HUGE_VAL;
    }
    if (text == "NaN") {
        return std::nan("");
    }
    if (!text.empty() && text.front() == '+') {
        text.remove_prefix(1);
    }
    double value = 0.0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec != std::errc() || result.ptr != text.data() + text.size()) {
        return std::nullopt;
    }
    return value;
}

} // namespace keo::Source::detail
