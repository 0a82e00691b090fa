#include "Common/Color.h"

#include "HexDigits.h"

#include <algorithm>
#include <cmath>

namespace keo {

const Color Color::WHITE(1.0f, 1.0f, 1.0f, 1.0f);
const Color Color::BLACK(0.0f, 0.0f, 0.0f, 1.0f);
const Color Color::TRANSPARENT(0.0f, 0.0f, 0.0f, 0.0f);
const Color Color::RED(1.0f, 0.0f, 0.0f, 1.0f);
const Color Color::GREEN(0.0f, 1.0f, 0.0f, 1.0f);
const Color Color::BLUE(0.0f, 0.0f, 1.0f, 1.0f);
const Color Color::YELLOW(1.0f, 1.0f, 0.0f, 1.0f);
const Color Color::HIGHLIGHTCOLOR(0.0f, 1.0f, 1.0f, 1.0f);

namespace {

std::uint8_t toByte(float component) noexcept {
    if (!(component > 0.0f)) { // also NaN
        return 0;
    }
    const float clamped = std::min(component, 1.0f);
    return static_cast<std::uint8_t>(std::lround(clamped * 255.0f));
}

} // namespace

std::optional<Color> Color::fromCssHex(std::string_view text) noexcept {
    if (text.empty() || text.front() != '#') {
        return std::nullopt;
    }
    const std::string_view digits = text.substr(1);
    const std::size_t n = digits.size();
    if (n != 3 && n != 4 && n != 6 && n != 8) {
        return std::nullopt;
    }
    int values[8] = {};
    for (std::size_t i = 0; i < n; ++i) {
        values[i] = detail::hexDigitValue(digits[i]);
        if (values[i] < 0) {
            return std::nullopt;
        }
    }
    std::uint8_t bytes[4] = {0, 0, 0, 255};
    const bool shortForm = n <= 4;
    const std::size_t components = shortForm ? n : n / 2;
    for (std::size_t c = 0; c < components; ++c) {
        // A short-form digit d stands for the byte 0xdd.
        const int value = shortForm ? values[c] * 17 : values[2 * c] * 16 + values[2 * c + 1];
        bytes[c] = static_cast<std::uint8_t>(value);
    }
    return fromBytes(bytes[0], bytes[1], bytes[2], bytes[3]);
}

std::string Color::toCssHex() const {
    const std::uint8_t bytes[4] = {toByte(r), toByte(g), toByte(b), toByte(a)};
    const std::size_t count = bytes[3] == 255 ? 3 : 4;
    std::string text = "#";
    for (std::size_t i = 0; i < count; ++i) {
        text += detail::HEX_DIGITS[bytes[i] >> 4];
        text += detail::HEX_DIGITS[bytes[i] & 0xF];
    }
    return text;
}

} // namespace keo
