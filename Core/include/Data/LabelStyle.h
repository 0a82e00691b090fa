#pragma once

#include <cstdint>

namespace keo {

/** @brief How a label's glyphs are painted. */
enum class LabelStyle : std::uint8_t {
    Fill = 0,           ///< Filled with the fill colour only.
    Outline = 1,        ///< Outlined with the outline colour only.
    FillAndOutline = 2, ///< Filled, then outlined.
};

/** @brief Whether @p value is one of the three named styles (0 to 2). */
constexpr bool isValid(LabelStyle value) noexcept {
    return static_cast<std::uint8_t>(value) <=
           static_cast<std::uint8_t>(LabelStyle::FillAndOutline);
}

} // namespace keo
