#pragma once

#include "Common/Cartographic.h"
#include "Common/Vector3.h"
#include "Data/HeightReference.h"
#include "Data/PolygonHierarchy.h"
#include "Feature/FeatureExport.h"
#include "Feature/Geometry.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace keo {
class Entity;
class PolylineGraphics;
} // namespace keo

namespace keo::Feature {

class Feature;
class PolygonSymbol;
class Style;

/**
 * @brief A filled area: an outer ring of positions (WGS84 longitude and latitude in radians,
 * height in metres) with holes, each hole a ring that may hold holes of its own; drawn with the
 * symbols of a PolygonStyle.
 *
 * The update writes, on the feature's root entity:
 * - the area as the root's own keo::PolygonGraphics (always; filled by the style's polygon
 *   symbol, with the renderer's default without one, not shown while the symbol is hidden);
 * - "outline-symbol" (keo::PolylineGraphics), the outer ring closed, from the polygon symbol's
 *   outline, and "outline-hole-symbol-" with an index per hole (depth first, holes of holes
 *   included), each drawn in the outline's width with a new keo::ColorMaterialProperty of the
 *   outline material's colour (that of a ColorMaterial or LineDashMaterial; white for any other
 *   material or none);
 * - "length-label-segment-" with an index per edge of the outer ring (keo::LabelGraphics), from
 *   the polygon symbol's length labels (never a total);
 * - "extrusion-wall-symbol" (keo::WallGraphics), "extrusion-roof-symbol" (keo::PolygonGraphics)
 *   and "extrusion-roof-outline-symbol" (keo::PolylineGraphics) from the style's extrusion symbol:
 *   a wall around the outer ring, a roof, its outline;
 * - the label "label-symbol", with its "hint-line", at a point inside the outer ring
 *   (_computeLabelPosition).
 *
 * A filled polygon cannot follow heights relative to a surface: the relative height references
 * are drawn as the matching clamped ones, with a warning each time the style is applied. With
 * Absolute the area keeps each vertex's own height (per-position height); clamped, it lies on the
 * surfaces named. The edge lengths are geodesic on WGS84 unless the height reference is Absolute.
 * An outer ring of fewer than 3 stored positions is not drawn: both update steps log
 * "折线的顶点数量不能少于3个。" and return false. The message speaks of a line: this is intended,
 * the polygon shares the line's wording.
 *
 * setHierarchy notifies even for an equal hierarchy; the other setters follow the edit rule.
 */
class KEO_FEATURE_API PolygonGeometry final : public Geometry {
public:
    /** @brief One ring and its holes, each hole a Hierarchy of its own. */
    struct Hierarchy {
        /**
         * @brief The ring's positions in order (WGS84, radians and metres); the first need not be
         * repeated at the end, both open and closed rings are accepted.
         */
        std::vector<Cartographic> positions;
        /** @brief The holes, in order. */
        std::vector<Hierarchy> holes;
    };

    /** @brief An empty outer ring without holes; shadow-volume height scale 1. */
    PolygonGeometry();
    /** @brief The hierarchy @p hierarchy, copied deeply and not checked; scale 1. */
    explicit PolygonGeometry(const Hierarchy& hierarchy);
    /**
     * @brief Copies the distance display condition (not the anchor), the hierarchy and the scale;
     * fresh, empty events.
     */
    PolygonGeometry(const PolygonGeometry& other);
    ~PolygonGeometry() override;

    /**
     * @brief Copies @p other's distance display condition, then its hierarchy (which always
     * notifies), then its scale (edit rule). A geometry of another kind is not copied: a warning
     * is logged and nothing changes.
     */
    void assign(const Geometry& other) override;
    /** @brief A copy made by the copy constructor. */
    std::unique_ptr<Geometry> clone() const override;
    /** @brief Type::Polygon. */
    Type getType() const override;
    /** @brief The outer ring: the feature's extent is taken from it. */
    const std::vector<Cartographic>* _getCartographicPositions() const override;

    /** @brief The outer ring and its holes. */
    const Hierarchy& getHierarchy() const noexcept { return hierarchy_; }
    /**
     * @brief Replaces the outer ring and the holes. Nothing happens when @p hierarchy is the
     * stored hierarchy itself; any other hierarchy, even an equal one, raises changed-lock true,
     * changed-lock false and definition-changed.
     */
    void setHierarchy(const Hierarchy& hierarchy);
    /** @brief The height scale of the shadow volume of the area and its outlines (default 1). */
    double getShadowVolumeHeightScale() const noexcept { return shadowVolumeHeightScale_; }
    /** @brief Sets the shadow-volume height scale (edit rule; a NaN always counts as a change). */
    void setShadowVolumeHeightScale(double scale);

    /**
     * @brief Refreshes the positions of what the style step built: the area's hierarchy, the
     * wall, the anchor (once one is held), the label and its hint line, the edge labels and the
     * shadow-volume scale. Graphics of another kind on the root are removed; no area graphics are
     * made here. Returns false (with a warning, nothing touched) for an outer ring under 3
     * positions.
     */
    bool _updateGeometry(Entity& entity, const Style* style) override;
    /**
     * @brief Builds, refreshes or removes the extrusion, the area, its outlines and edge labels
     * and the label, then applies the height reference (3 without a style), the shadow-volume
     * scale and the shadows. Returns false (with a warning, nothing touched) for an outer ring
     * under 3 positions.
     * @throws std::invalid_argument ("invalid stoul argument") or std::out_of_range ("stoul
     *         argument out of range") when the root holds a child named "length-label-segment-"
     *         followed by something that is not a number, or a number too large: this library
     *         never makes one.
     */
    bool _updateStyle(Entity& entity, const Feature& feature, const Style* style) override;

    /** @brief @p ring as Cartesian points (ECEF metres) on WGS84, one per position, in order. */
    static std::vector<Vector3<double>> _toCartesianRing(const std::vector<Cartographic>& ring);
    /** @brief @p hierarchy in Cartesian points, holes and holes of holes included. */
    static PolygonHierarchy _toPolygonHierarchy(const Hierarchy& hierarchy);

    /**
     * @brief A point inside @p ring (Cartesian, WGS84) for its label: on the parallel through
     * the middle of the ring's latitudes, the midpoint of the widest span between two crossings
     * of that parallel with the ring that lies inside the ring (of equal widths, the westernmost);
     * the middle of the longitudes when none does. Its height is that of the highest vertex. The
     * origin for an empty ring. Longitudes are taken continuous along the ring, so a ring across
     * the antimeridian is measured as one piece. A scan over the sorted crossings: O(n log n).
     */
    static Vector3<double> _computeLabelPosition(const std::vector<Cartographic>& ring);
    /**
     * @brief Whether the point (@p x, @p y) lies inside the ring given by the pairs (x, y) of
     * @p flat from index @p start up to (not including) index @p end (both even): a winding-number
     * test, inside when the ring winds around the point. An empty range is outside.
     */
    static bool _isInsideRing(const std::vector<double>& flat, std::size_t start, std::size_t end,
                              double x, double y) noexcept;
    /**
     * @brief The number of edges of @p ring whose length labels are drawn: the stored positions,
     * one less when the last repeats the first (within 1e-10); 0 under 2 positions.
     */
    static std::size_t _countEdges(const std::vector<Cartographic>& ring) noexcept;
    /** @brief Moves the edge labels of @p entity to the midpoints of the edges of @p ring. */
    static void _updateSegmentLabelPositions(Entity& entity, const std::vector<Cartographic>& ring);
    /**
     * @brief Gives the outline @p graphics (if any) the height reference @p heightReference:
     * absolute, or clamped to the surfaces it names (relative kinds as the matching clamped ones,
     * without a warning); nothing for a value past 6.
     */
    static void _applyOutlineHeightReference(PolylineGraphics* graphics,
                                             HeightReference heightReference) noexcept;

private:
    // The hierarchy in Cartesian points, converted on first need after each edit and shared with
    // the area graphics drawn from it (never changed in place).
    const std::shared_ptr<const PolygonHierarchy>& cartesianHierarchy() const;

    Hierarchy hierarchy_;
    mutable std::shared_ptr<const PolygonHierarchy> cartesian_;
    double shadowVolumeHeightScale_ = 1.0;
};

} // namespace keo::Feature
