#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/**
 * @file
 * @brief The names of the child entities that features build under their root entity.
 *
 * A feature draws with its root entity and with named children of it, found again by name on
 * every update (keo::Entity::getChildByName). The names are a contract with the rendering side
 * and with user code, which may look children up by them: they never change.
 *
 * The names, with their graphics and what builds them:
 * - "label-symbol", keo::LabelGraphics: every kind with a shown label symbol and a text;
 * - "hint-line" (child of "label-symbol"), keo::PolylineGraphics: a label that asks for it;
 * - "billboard-symbol", keo::BillboardGraphics: a point with a shown billboard symbol;
 * - "model-symbol", keo::ModelGraphics: a point with a shown model symbol with a model;
 * - "particle-system--symbol", keo::ParticleSystemGraphics: a point with a shown particle system
 *   symbol with an image;
 * - "overlay-line-symbol", keo::PolylineGraphics: a polyline's overlay line;
 * - "line-volume-symbol", keo::PolylineVolumeGraphics: a polyline's line volume;
 * - "length-label-total", keo::LabelGraphics: the total length label of a polyline (a polygon
 *   never shows a total);
 * - "length-label-segment-" and the index, keo::LabelGraphics: the length label of one segment of
 *   a polyline or edge of a polygon;
 * - "outline-symbol", keo::PolylineGraphics: a polygon's outline;
 * - "outline-hole-symbol-" and the index, keo::PolylineGraphics: the outline of a polygon's hole;
 * - "extrusion-wall-symbol", keo::WallGraphics: the wall of an extrusion;
 * - "extrusion-roof-symbol", keo::PolylineGraphics (a polyline's) or keo::PolygonGraphics (a
 *   polygon's): the roof of an extrusion;
 * - "extrusion-roof-outline-symbol", keo::PolylineGraphics: the outline of an extruded polygon's
 *   roof.
 *
 * Indices are decimal, without leading zeros. A multi geometry draws each component into an
 * unnamed child, found by its position (see MultiGeometry).
 */
namespace keo::Feature::ChildEntityName {

/** @brief The text label of a feature. */
inline constexpr std::string_view LABEL = "label-symbol";
/** @brief The leader from the labelled point to its label; a child of LABEL. */
inline constexpr std::string_view HINT_LINE = "hint-line";
/** @brief The image of a point. */
inline constexpr std::string_view BILLBOARD = "billboard-symbol";
/** @brief The 3D model of a point. */
inline constexpr std::string_view MODEL = "model-symbol";
/** @brief The particle system of a point (the double dash is part of the name). */
inline constexpr std::string_view PARTICLE_SYSTEM = "particle-system--symbol";
/** @brief The second line a polyline draws over its main one. */
inline constexpr std::string_view OVERLAY_LINE = "overlay-line-symbol";
/** @brief The 2D shape swept along a polyline. */
inline constexpr std::string_view LINE_VOLUME = "line-volume-symbol";
/** @brief The total length label of a polyline. */
inline constexpr std::string_view LENGTH_LABEL_TOTAL = "length-label-total";
/** @brief The name of a segment's length label, before the segment's index. */
inline constexpr std::string_view LENGTH_LABEL_SEGMENT_PREFIX = "length-label-segment-";
/** @brief The outline of a polygon's outer ring. */
inline constexpr std::string_view OUTLINE = "outline-symbol";
/** @brief The name of a hole's outline, before the hole's index. */
inline constexpr std::string_view OUTLINE_HOLE_PREFIX = "outline-hole-symbol-";
/** @brief The wall of an extrusion. */
inline constexpr std::string_view EXTRUSION_WALL = "extrusion-wall-symbol";
/** @brief The roof of an extrusion. */
inline constexpr std::string_view EXTRUSION_ROOF = "extrusion-roof-symbol";
/** @brief The outline of an extruded polygon's roof. */
inline constexpr std::string_view EXTRUSION_ROOF_OUTLINE = "extrusion-roof-outline-symbol";

/** @brief @p prefix followed by @p index in decimal, made at its final size. */
inline std::string numbered(std::string_view prefix, std::size_t index) {
    const std::string number = std::to_string(index);
    std::string name;
    name.reserve(prefix.size() + number.size());
    name.append(prefix).append(number);
    return name;
}

/** @brief The name of the length label of segment @p index (0 for the first segment). */
inline std::string lengthLabelSegment(std::size_t index) {
    return numbered(LENGTH_LABEL_SEGMENT_PREFIX, index);
}

/** @brief The name of the outline of hole @p index (0 for the first hole). */
inline std::string outlineHole(std::size_t index) {
    return numbered(OUTLINE_HOLE_PREFIX, index);
}

} // namespace keo::Feature::ChildEntityName
