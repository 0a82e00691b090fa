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

/** @brief The kinds of graphics whose warning for a downgraded height reference names them. */
enum class DrapedKind { Polyline, Polygon, Rectangle };

/**
 * @brief The warning logged when a @p kind is given the relative @p heightReference and drawn
 * with the matching clamped one (ellipses use the polygon's words); null for any other value.
 */
constexpr const char* downgradeWarning(DrapedKind kind, HeightReference heightReference) noexcept {
    // Rows: polyline, polygon, rectangle; columns: relative to ground, terrain, 3D Tiles.
    constexpr const char* WARNINGS[3][3] = {
        {"折线不支持相对于地表的高度参考，改为使用贴合地表的高度参考。",
         "折线不支持相对于地形的高度参考，改为使用贴合地形的高度参考。",
         "折线不支持相对于3DTiles的高度参考，改为使用贴合3DTiles的高度参考。"},
        {"多边形不支持相对于地表的高度参考，改为使用贴合地表的高度参考。",
         "多边形不支持相对于地形的高度参考，改为使用贴合地形的高度参考。",
         "多边形不支持相对于3DTiles的高度参考，改为使用贴合3DTiles的高度参考。"},
        {"矩形不支持相对于地表的高度参考，改为使用贴合地表的高度参考。",
         "矩形不支持相对于地形的高度参考，改为使用贴合地形的高度参考。",
         "矩形不支持相对于3DTiles的高度参考，改为使用贴合3DTiles的高度参考。"},
    };
    const auto row = static_cast<int>(kind);
    switch (heightReference) {
    case HeightReference::RelativeToGround:
        return WARNINGS[row][0];
    case HeightReference::RelativeToTerrain:
        return WARNINGS[row][1];
    case HeightReference::RelativeTo3DTiles:
        return WARNINGS[row][2];
    default:
        return nullptr;
    }
}

} // namespace keo::Feature::detail
