#pragma once

#include "Data/DataExport.h"
#include "Data/GroundGeometryGraphics.h"
#include "Data/PolygonHierarchy.h"

#include <memory>

namespace keo {

/**
 * @brief A filled polygon with holes, given by a PolygonHierarchy of Cartesian positions (ECEF,
 * metres). Without per-position heights the polygon lies at the area height; with them, each
 * vertex stays at its own height.
 */
class KEO_DATA_API PolygonGraphics final : public GroundGeometryGraphics {
public:
    /** @brief The polygon's own fields, with their defaults. */
    struct Fields {
        /** @brief The outer ring and its holes, ECEF metres. */
        PolygonHierarchy hierarchy;
        /** @brief Whether each vertex keeps its own height instead of the area height. */
        bool perPositionHeight = false;
        /** @brief Scale of the height of the shadow volume used to drape the polygon. */
        double shadowVolumeHeightScale = 1.0;
    };
    /** @brief Everything a polygon is made from: common, fill, area and polygon fields. */
    struct ConstructorOptions : CommonOptions, FillOptions, GroundOptions, Fields {};

    /** @brief A polygon of the default options (an empty hierarchy). */
    PolygonGraphics();
    /** @brief A polygon of @p options; values follow the setters' rules. */
    explicit PolygonGraphics(const ConstructorOptions& options);
    ~PolygonGraphics() override;

    /** @brief Whether @p type is Type::Polygon. */
    static constexpr bool isKindOf(Type type) noexcept { return type == Type::Polygon; }

    /** @brief The outer ring and its holes (default empty). */
    const PolygonHierarchy& getHierarchy() const noexcept { return *hierarchy_; }
    /**
     * @brief The outer ring and its holes as held (never null): an outline may read a ring
     * through it (ClosedRingPositionArrayProperty) instead of a copy of its own. The held
     * hierarchy never changes; setHierarchy puts a new one in its place.
     */
    const std::shared_ptr<const PolygonHierarchy>& getSharedHierarchy() const noexcept {
        return hierarchy_;
    }
    /**
     * @brief Sets the outer ring and its holes (stored as given; a ring of fewer than three
     * positions encloses nothing).
     */
    void setHierarchy(PolygonHierarchy hierarchy);
    /**
     * @brief Shares @p hierarchy, which its holders must never change in place (null sets the
     * empty hierarchy): whoever converted the rings once can hand them to several graphics.
     */
    void setHierarchy(std::shared_ptr<const PolygonHierarchy> hierarchy);
    /** @brief Whether vertices keep their own heights (default false). */
    bool isPerPositionHeight() const noexcept { return perPositionHeight_; }
    /** @brief Lets vertices keep their own heights, or not. */
    void setPerPositionHeight(bool perPositionHeight) noexcept {
        perPositionHeight_ = perPositionHeight;
    }
    /** @brief The shadow volume's height scale (default 1). */
    double getShadowVolumeHeightScale() const noexcept { return shadowVolumeHeightScale_; }
    /** @brief Sets the shadow volume's height scale; NaN is ignored, a negative scale becomes 0. */
    void setShadowVolumeHeightScale(double scale) noexcept;

    /** @brief Writes the area fields, then the hierarchy and the polygon's switches. */
    void describe(FieldList& fields, const TimePoint& time) const override;

private:
    // Shared and never changed in place, so that outlines can read its rings.
    std::shared_ptr<const PolygonHierarchy> hierarchy_;
    double shadowVolumeHeightScale_ = 1.0;
    bool perPositionHeight_ = false;
};

} // namespace keo
