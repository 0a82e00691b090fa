#pragma once

namespace keo::detail {

/** @brief Lower-case hexadecimal digits, indexed by value. */
inline constexpr char HEX_DIGITS[] = "0123456789abcdef";

/** @brief The value of a hexadecimal digit of either case, or -1 for any other character. */
constexpr int hexDigitValue(char c) noexcept {
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    if (c >= 'a' && c <= 'f') {
        return c - 'a' + 10;
    }
    if (c >= 'A' && c <= 'F') {
        return c - 'A' + 10;
    }
    return -1;
}

} // namespace keo::detail
