#pragma once

#include <cstddef>
#include <cstdint>

namespace keo {

/** @brief How a label's glyphs are painted. */
enum class LabelStyle : std::uint8_t {
    Fill = 0,           ///< Filled with the fill colour only.
    Outline = 1,        ///< Outlined with the outline colour only.
    FillAndOutline = 2, ///< Filled, then outlined.
};

/**
 * @brief The name of @p value as scene dumps write it ("fill", "outline",
 * "fillAndOutline"), or null for a value outside the enumeration.
 */
constexpr const char* toString(LabelStyle value) noexcept {
    constexpr const char* NAMES[] = {"fill", "outline", "fillAndOutline"};
    const auto index = static_cast<std::size_t>(value);
    return index < sizeof NAMES / sizeof NAMES[0] ? NAMES[index] : nullptr;
}

/** @brief Whether @p value is one of the three named styles (0 to 2). */
constexpr bool isValid(LabelStyle value) noexcept {
    return static_cast<std::uint8_t>(value) <=
           static_cast<std::uint8_t>(LabelStyle::FillAndOutline);
}

} // namespace keo
