#pragma once

#include "Common/CommonExport.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace keo {

/**
 * @brief A colour as four floats red, green, blue and alpha, each nominally in 0..1 (not
 * clamped: values are stored as given).
 *
 * Equality is exact and component-wise, so a NaN component equals nothing.
 */
class KEO_COMMON_API Color final {
public:
    /** @brief Red, 0..1. */
    float r = 1.0f;
    /** @brief Green, 0..1. */
    float g = 1.0f;
    /** @brief Blue, 0..1. */
    float b = 1.0f;
    /** @brief Alpha (opacity), 0 transparent .. 1 opaque. */
    float a = 1.0f;

    /** @brief Opaque white. */
    constexpr Color() noexcept = default;
    /** @brief A colour of the four given components. */
    constexpr Color(float red, float green, float blue, float alpha = 1.0f) noexcept
        : r(red)
        , g(green)
        , b(blue)
        , a(alpha) {}

    /** @brief (1, 1, 1, 1). */
    static const Color WHITE;
    /** @brief (0, 0, 0, 1). */
    static const Color BLACK;
    /** @brief (0, 0, 0, 0). */
    static const Color TRANSPARENT;
    /** @brief (1, 0, 0, 1). */
    static const Color RED;
    /** @brief (0, 1, 0, 1). */
    static const Color GREEN;
    /** @brief (0, 0, 1, 1). */
    static const Color BLUE;
    /** @brief (1, 1, 0, 1). */
    static const Color YELLOW;
    /**
     * @brief The kit-wide selection colour that a highlighted feature shows in place of its own
     * colours: opaque cyan (0, 1, 1, 1), "#00ffff", distinct from every other named colour.
     */
    static const Color HIGHLIGHTCOLOR;

    /** @brief A colour from bytes 0..255 (divided by 255). */
    static constexpr Color fromBytes(std::uint8_t red, std::uint8_t green, std::uint8_t blue,
                                     std::uint8_t alpha = 255) noexcept {
        return {static_cast<float>(red) / 255.0f, static_cast<float>(green) / 255.0f,
                static_cast<float>(blue) / 255.0f, static_cast<float>(alpha) / 255.0f};
    }
    /**
     * @brief A colour from CSS hexadecimal text: "#rrggbb", "#rrggbbaa", or the short forms
     * "#rgb" and "#rgba"; digits in either case. Empty for any other text.
     */
    static std::optional<Color> fromCssHex(std::string_view text) noexcept;
    /**
     * @brief The colour as lower-case CSS hexadecimal text: "#rrggbb" when alpha rounds to 255,
     * else "#rrggbbaa". Each component is clamped to 0..1 and rounded to the nearest byte; NaN
     * gives 0.
     */
    std::string toCssHex() const;

    /** @brief The same colour with alpha @p alpha. */
    constexpr Color withAlpha(float alpha) const noexcept { return {r, g, b, alpha}; }

    /** @brief Exact component-wise equality. */
    constexpr bool operator==(const Color& o) const noexcept {
        return r == o.r && g == o.g && b == o.b && a == o.a;
    }
    /** @brief Negation of operator==. */
    constexpr bool operator!=(const Color& o) const noexcept { return !(*this == o); }
};

} // namespace keo
