#include "DecimalText.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <string_view>

namespace keo::Feature::detail {

namespace {

constexpr int DEFAULT_PLACES = 6;

// The shortest round-trip digits of a finite, positive value as a digit string and a decimal
// exponent: value = 0.d1d2d3... x 10^pointPosition.
struct Digits {
    std::string digits;
    int pointPosition = 0;
};

Digits shortestDigits(double positive) {
    std::array<char, 64> buffer{};
    // Scientific form "d.ddde±XX": the shortest digits that read back as the same double.
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), positive,
                                      std::chars_format::scientific);
    const std::string_view text(buffer.data(),
                                static_cast<std::size_t>(result.ptr - buffer.data()));
    const std::size_t e = text.find('e');
    Digits out;
    for (const char c : text.substr(0, e)) {
        if (c != '.') {
            out.digits.push_back(c);
        }
    }
    out.pointPosition = std::atoi(std::string(text.substr(e + 1)).c_str()) + 1;
    return out;
}

} // namespace

std::string formatShortest(double value, bool asFloat) {
    std::array<char, 64> buffer{};
    const auto result =
        asFloat
            ? std::to_chars(buffer.data(), buffer.data() + buffer.size(), static_cast<float>(value))
            : std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return std::string(buffer.data(), result.ptr);
}

std::string formatFixed(double value, int places) {
    if (std::isnan(value)) {
        return "nan";
    }
    if (std::isinf(value)) {
        return value < 0 ? "-inf" : "inf";
    }
    if (places < 0) {
        places = DEFAULT_PLACES;
    }
    const bool negative = std::signbit(value);
    std::string digits;    // the kept digits, integer part first
    int integerDigits = 1; // how many of them stand before the point
    if (value != 0.0) {
        Digits d = shortestDigits(std::fabs(value));
        // Keep the digits down to the last decimal place; the first dropped digit decides the
        // rounding (half away from zero: 5 and above round the magnitude up).
        const int keep = d.pointPosition + places;
        if (keep >= 0) {
            const auto kept = static_cast<std::size_t>(keep);
            const bool roundUp = kept < d.digits.size() && d.digits[kept] >= '5';
            d.digits.resize(kept, '0');
            if (roundUp) {
                auto it = d.digits.rbegin();
                for (; it != d.digits.rend() && *it == '9'; ++it) {
                    *it = '0';
                }
                if (it != d.digits.rend()) {
                    ++*it;
                } else {
                    d.digits.insert(d.digits.begin(), '1');
                    ++d.pointPosition;
                }
            }
            digits = std::move(d.digits);
            integerDigits = d.pointPosition;
        }
        // keep < 0: the value is below half a unit of the last place; it rounds to zero.
    }
    // Pad so that there is at least one integer digit and exactly `places` decimals.
    if (integerDigits < 1) {
        digits.insert(0, static_cast<std::size_t>(1 - integerDigits), '0');
        integerDigits = 1;
    }
    digits.resize(static_cast<std::size_t>(integerDigits + places), '0');
    std::string text = negative ? "-" : "";
    text.append(digits, 0, static_cast<std::size_t>(integerDigits));
    if (places > 0) {
        text.push_back('.');
        text.append(digits, static_cast<std::size_t>(integerDigits), std::string::npos);
    }
    return text;
}

} // namespace keo::Feature::detail
