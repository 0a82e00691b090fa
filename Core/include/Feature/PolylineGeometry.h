#pragma once

#include "Common/Cartographic.h"
#include "Feature/FeatureExport.h"
#include "Feature/Geometry.h"

#include <memory>
#include <vector>

namespace keo {
class Entity;
} // namespace keo

namespace keo::Feature {

class Feature;
class Style;

/**
 * @brief An open line through two or more positions (WGS84 longitude and latitude in radians,
 * height in metres), drawn with the symbols of a PolylineStyle.
 *
 * The update writes, on the feature's root entity:
 * - the main line as the root's own keo::PolylineGraphics (the style's line symbol; without one,
 *   a default line 1 pixel wide when nothing else is drawn);
 * - "overlay-line-symbol" (keo::PolylineGraphics), the overlay line symbol;
 * - "extrusion-wall-symbol" (keo::WallGraphics) and "extrusion-roof-symbol"
 *   (keo::PolylineGraphics), the extrusion symbol's body (a PolygonSymbol) and tail (a
 *   LineSymbol): a wall standing on the line and a line along its top;
 * - "line-volume-symbol" (keo::PolylineVolumeGraphics), the line volume symbol;
 * - "length-label-segment-" and the index (one per segment, at its midpoint) and
 *   "length-label-total" (at the last vertex, "总长：" before the length, anchored by its left
 *   bottom corner 10 pixels right of and above the vertex) (keo::LabelGraphics), from the line
 *   symbol's LengthLabelSymbol; the lengths are geodesic on WGS84 when the style's height
 *   reference is not Absolute (also without a style), straight chords when it is;
 * - the label "label-symbol" at the point halfway along the line (by chord lengths), with its
 *   "hint-line"; a line of length 0 puts it at the Earth's centre (0, 0, 0), which is intended.
 * A line symbol whose path is enabled hands its positions to the renderer as a
 * keo::PathPositionArrayProperty that moves along the vertices.
 *
 * The default line is white (PolylineGraphics::getDefaultMaterial) and is only given to a root
 * without graphics: when the line symbol is hidden or removed and nothing else is drawn, the line
 * keeps the look it was last drawn with. This is intended: the default line only fills a root
 * that has no graphics, it never replaces a line drawn before.
 *
 * Lines cannot follow heights relative to a surface: the relative height references are drawn
 * as the matching clamped ones, with a warning each time the style is applied (see
 * setPolylineHeightReference). A line of fewer than 2 positions is not drawn: both update steps
 * log "折线的顶点数量不能少于2个。" and return false, leaving the entities as they were.
 *
 * Setters follow the edit rule: nothing when the value is equal; otherwise changed-lock true,
 * store, changed-lock false, definition-changed.
 */
class KEO_FEATURE_API PolylineGeometry final : public Geometry {
public:
    /** @brief A line without positions; shadow-volume height scale 1. */
    PolylineGeometry();
    /** @brief A line through @p positions (copied as they are, not checked); scale 1. */
    explicit PolylineGeometry(const std::vector<Cartographic>& positions);
    /**
     * @brief Copies the distance display condition (not the anchor), the positions and the scale;
     * fresh, empty events.
     */
    PolylineGeometry(const PolylineGeometry& other);
    ~PolylineGeometry() override;

    /**
     * @brief Copies @p other's distance display condition, positions and scale through the
     * setters. A geometry of another kind is not copied: a warning is logged and nothing changes.
     */
    void assign(const Geometry& other) override;
    /** @brief A copy made by the copy constructor. */
    std::unique_ptr<Geometry> clone() const override;
    /** @brief Type::Polyline. */
    Type getType() const override;
    /** @brief The positions: the feature's extent is taken from them. */
    const std::vector<Cartographic>* _getCartographicPositions() const override;

    /** @brief The vertices in order (WGS84, radians and metres). */
    const std::vector<Cartographic>& getPositions() const noexcept { return positions_; }
    /**
     * @brief Sets the vertices (edit rule: equal when of the same count and every position equal,
     * or when @p positions is the stored list itself).
     */
    void setPositions(const std::vector<Cartographic>& positions);
    /** @brief The height scale of the shadow volume of the main and overlay lines (default 1). */
    double getShadowVolumeHeightScale() const noexcept { return shadowVolumeHeightScale_; }
    /** @brief Sets the shadow-volume height scale (edit rule; a NaN always counts as a change). */
    void setShadowVolumeHeightScale(double scale);

    /**
     * @brief The length of the line in space, metres: the sum of the straight (chord) distances
     * between consecutive vertices on WGS84; 0 with fewer than 2 vertices.
     */
    double getSpaceLength() const;
    /**
     * @brief The point at @p distance metres along the line, measured as getSpaceLength does:
     * a vertex exactly as stored when the distance to it equals @p distance within 1e-10 m (the
     * first vertex is never compared), the last vertex at or beyond the end and for a NaN
     * distance, otherwise a point between two vertices (on the chord, converted back to
     * longitude, latitude and height); a negative distance gives a point before the first vertex
     * on the first chord's extension. With fewer than 2 vertices ("折线的顶点数量不能少于2个。"),
     * or when the point cannot be converted back ("世界坐标转经纬度错误。"), a warning is logged
     * and a zero Cartographic returned.
     */
    Cartographic getSpacePoint(double distance) const;

    /**
     * @brief Refreshes the positions of what the style step built: the main and overlay lines
     * (as paths where their symbol asks for one), the wall, the line volume, the label and its
     * hint line, the length labels; then the shadow-volume scale. Returns false (with a warning,
     * nothing touched) for fewer than 2 positions.
     */
    bool _updateGeometry(Entity& entity, const Style* style) override;
    /**
     * @brief Builds, refreshes or removes every child of the style's symbols and the length
     * labels, the label, the default line when nothing else is drawn, and applies the height
     * reference (3 without a style), the shadow-volume scale and the shadows. Returns false (with
     * a warning, nothing touched) for fewer than 2 positions.
     */
    bool _updateStyle(Entity& entity, const Feature& feature, const Style* style) override;

private:
    void storePositions(const std::vector<Cartographic>& positions);

    std::vector<Cartographic> positions_;
    double shadowVolumeHeightScale_ = 1.0;
};

} // namespace keo::Feature
