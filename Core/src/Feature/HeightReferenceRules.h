#pragma once

#include "Data/ClassificationType.h"
#include "Data/HeightReference.h"

#include <optional>

namespace keo::Feature::detail {

/**
 * @brief How line and area graphics show a height reference: an absolute height is drawn at its
 * own heights (not draped); the clamped kinds are draped on the surfaces they name (ground:
 * terrain and 3D Tiles; terrain; 3D Tiles); a relative kind cannot be followed by a draped
 * graphics and is drawn as the matching clamped kind.
 */
struct DrapeRule {
    /** @brief Whether the graphics are draped (clamped) rather than drawn at their heights. */
    bool clamped = false;
    /** @brief The surfaces draped on; empty when not draped. */
    std::optional<ClassificationType> classification;
    /** @brief Whether the height reference was a relative kind downgraded to its clamped kind. */
    bool downgraded = false;
};

/** @brief The drape rule of @p heightReference; empty for a value outside 0 to 6. */
constexpr std::optional<DrapeRule> drapeRule(HeightReference heightReference) noexcept {
    switch (heightReference) {
    case HeightReference::Absolute:
        return DrapeRule{false, std::nullopt, false};
    case HeightReference::ClampToGround:
        return DrapeRule{true, ClassificationType::Both, false};
    case HeightReference::RelativeToGround:
        return DrapeRule{true, ClassificationType::Both, true};
    case HeightReference::ClampToTerrain:
        return DrapeRule{true, ClassificationType::Terrain, false};
    case HeightReference::RelativeToTerrain:
        return DrapeRule{true, ClassificationType::Terrain, true};
    case HeightReference::ClampTo3DTiles:
        return DrapeRule{true, ClassificationType::Tiles3D, false};
    case HeightReference::RelativeTo3DTiles:
        return DrapeRule{true, ClassificationType::Tiles3D, true};
    }
    return std::nullopt;
}

} // namespace keo::Feature::detail
