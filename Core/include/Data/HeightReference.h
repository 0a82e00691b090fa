#pragma once

#include <cstddef>
#include <cstdint>

namespace keo {

/**
 * @brief Where a graphics component's heights are measured from.
 *
 * "Clamp" kinds put the graphics on the surface and ignore their heights; "relative" kinds add the
 * heights to the surface height below each point. The ground surface is terrain and 3D Tiles
 * together.
 */
enum class HeightReference : std::uint8_t {
    Absolute = 0,          ///< Heights are above the WGS84 ellipsoid, metres.
    ClampToGround = 1,     ///< On the ground surface (terrain and 3D Tiles).
    RelativeToGround = 2,  ///< Heights are above the ground surface.
    ClampToTerrain = 3,    ///< On the terrain.
    RelativeToTerrain = 4, ///< Heights are above the terrain.
    ClampTo3DTiles = 5,    ///< On the 3D Tiles.
    RelativeTo3DTiles = 6, ///< Heights are above the 3D Tiles.
};

/**
 * @brief The name of @p value as scene dumps write it ("absolute", "clampToGround",
 * "relativeToGround", "clampToTerrain", "relativeToTerrain", "clampTo3DTiles",
 * "relativeTo3DTiles"), or null for a value outside the enumeration.
 */
constexpr const char* toString(HeightReference value) noexcept {
    constexpr const char* NAMES[] = {"absolute",         "clampToGround",     "relativeToGround",
                                     "clampToTerrain",   "relativeToTerrain", "clampTo3DTiles",
                                     "relativeTo3DTiles"};
    const auto index = static_cast<std::size_t>(value);
    return index < sizeof NAMES / sizeof NAMES[0] ? NAMES[index] : nullptr;
}

/** @brief Whether @p value is one of the seven named height references (0 to 6). */
constexpr bool isValid(HeightReference value) noexcept {
    return static_cast<std::uint8_t>(value) <=
           static_cast<std::uint8_t>(HeightReference::RelativeTo3DTiles);
}

} // namespace keo
