#pragma once

#include <cstddef>
#include <cstdint>

namespace keo {

/**
 * @brief Which vertical point of a billboard or label sits on its anchor (the entity's position
 * plus the pixel offset).
 */
enum class VerticalOrigin : std::uint8_t {
    Center = 0,   ///< The vertical centre: the image or text is centred on the anchor.
    Bottom = 1,   ///< The bottom edge: the image or text rises above the anchor.
    Baseline = 2, ///< The text baseline (the bottom edge for an image).
    Top = 3,      ///< The top edge: the image or text hangs below the anchor.
};

/**
 * @brief The name of @p value as scene dumps write it ("center", "bottom",
 * "baseline", "top"), or null for a value outside the enumeration.
 */
constexpr const char* toString(VerticalOrigin value) noexcept {
    constexpr const char* NAMES[] = {"center", "bottom", "baseline", "top"};
    const auto index = static_cast<std::size_t>(value);
    return index < sizeof NAMES / sizeof NAMES[0] ? NAMES[index] : nullptr;
}

/** @brief Whether @p value is one of the four named origins (0 to 3). */
constexpr bool isValid(VerticalOrigin value) noexcept {
    return static_cast<std::uint8_t>(value) <= static_cast<std::uint8_t>(VerticalOrigin::Top);
}

} // namespace keo
