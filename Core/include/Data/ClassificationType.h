#pragma once

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

/** @brief Whether @p value is one of the three named classification types (0 to 2). */
constexpr bool isValid(ClassificationType value) noexcept {
    return static_cast<std::uint8_t>(value) <= static_cast<std::uint8_t>(ClassificationType::Both);
}

} // namespace keo
