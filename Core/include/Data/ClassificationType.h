#pragma once

#include <cstddef>
#include <cstdint>

namespace keo {

/**
 * @brief Which surfaces a ground-clamped graphics component is draped on. A graphics component
 * holds it as an optional value: empty means the graphics is not draped at all and is drawn at
 * its own heights.
 */
enum class ClassificationType : std::uint8_t {
    Terrain = 0, ///< Draped on the terrain only.
    Tiles3D = 1, ///< Draped on 3D Tiles only.
    Both = 2,    ///< Draped on terrain and 3D Tiles.
};

/**
 * @brief The name of @p value as scene dumps write it ("terrain", "tiles3D",
 * "both"), or null for a value outside the enumeration.
 */
constexpr const char* toString(ClassificationType value) noexcept {
    constexpr const char* NAMES[] = {"terrain", "tiles3D", "both"};
    const auto index = static_cast<std::size_t>(value);
    return index < sizeof NAMES / sizeof NAMES[0] ? NAMES[index] : nullptr;
}

/** @brief Whether @p value is one of the three named classification types (0 to 2). */
constexpr bool isValid(ClassificationType value) noexcept {
    return static_cast<std::uint8_t>(value) <= static_cast<std::uint8_t>(ClassificationType::Both);
}

} // namespace keo
