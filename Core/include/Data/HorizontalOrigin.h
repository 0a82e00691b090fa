#pragma once

#include <cstddef>
#include <cstdint>

namespace keo {

/**
 * @brief Which horizontal point of a billboard or label sits on its anchor (the entity's
 * position plus the pixel offset).
 */
enum class HorizontalOrigin : std::uint8_t {
    Center = 0, ///< The horizontal centre: the image or text is centred on the anchor.
    Left = 1,   ///< The left edge: the image or text extends to the right of the anchor.
    Right = 2,  ///< The right edge: the image or text extends to the left of the anchor.
};

/**
 * @brief The name of @p value as scene dumps write it ("center", "left", "right"),
 * or null for a value outside the enumeration.
 */
constexpr const char* toString(HorizontalOrigin value) noexcept {
    constexpr const char* NAMES[] = {"center", "left", "right"};
    const auto index = static_cast<std::size_t>(value);
    return index < sizeof NAMES / sizeof NAMES[0] ? NAMES[index] : nullptr;
}

/** @brief Whether @p value is one of the three named origins (0 to 2). */
constexpr bool isValid(HorizontalOrigin value) noexcept {
    return static_cast<std::uint8_t>(value) <= static_cast<std::uint8_t>(HorizontalOrigin::Right);
}

} // namespace keo
