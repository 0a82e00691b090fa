#pragma once

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

/** @brief Whether @p value is one of the four named origins (0 to 3). */
constexpr bool isValid(VerticalOrigin value) noexcept {
    return static_cast<std::uint8_t>(value) <= static_cast<std::uint8_t>(VerticalOrigin::Top);
}

} // namespace keo
