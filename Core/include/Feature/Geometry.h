#pragma once

#include "Common/Cartographic.h"
#include "Common/Vector3.h"
#include "Data/DistanceDisplayCondition.h"
#include "Feature/ChangeEvents.h"
#include "Feature/FeatureExport.h"
#include "Feature/FunctionWrapper.h"
#include "Feature/Publisher.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace keo {
class Entity;
} // namespace keo

namespace keo::Feature {

class Feature;
class Style;

/**
 * @brief The base of every geometry kind (point, polyline, polygon, rectangle, ellipse, multi).
 *
 * A geometry holds what all kinds share (a distance display condition and its anchor, and the two
 * change events) and writes a feature's entity graphics through the update protocol:
 * - `_updateGeometry(root, style)` writes the kind's shape into the feature's root entity; the
 *   feature calls it only when the geometry changed;
 * - `_updateStyle(root, feature, style)` applies the style's symbols and materials and then the
 *   label (`updateLabel`); the feature calls it on every dirty update.
 * Both run under the feature's lock and return false when the input cannot be drawn; the feature
 * then tears its child entities down. A kind keeps no pointer to entities between calls: child
 * entities are found again by name.
 *
 * Every setter follows the edit rule: nothing when the value is equal; otherwise changed-lock
 * true, store, changed-lock false, definition-changed.
 */
class KEO_FEATURE_API Geometry : public ChangeEvents<std::function<void()>> {
public:
    /** @brief The geometry kinds, one code per class. */
    enum class Type : std::uint16_t {
        Base = 0,        ///< The base class, no kind.
        Multi = 1,       ///< MultiGeometry
        Point = 300,     ///< PointGeometry
        Polyline = 301,  ///< PolylineGeometry
        Polygon = 302,   ///< PolygonGeometry
        Rectangle = 303, ///< RectangleGeometry
        Ellipse = 304,   ///< EllipseGeometry
    };

    virtual ~Geometry();
    Geometry& operator=(const Geometry&) = delete;

    /**
     * @brief Copies @p other's distance display condition by the edit rule (the anchor is not
     * copied). A geometry of another kind is not copied: a warning is logged and nothing changes.
     * Pure, with a body: each kind checks its own kind, calls this, then copies its own fields.
     */
    virtual void assign(const Geometry& other) = 0;
    /** @brief A deep copy of the same kind, without listeners and without anchor. */
    virtual std::unique_ptr<Geometry> clone() const = 0;
    /** @brief The kind of the geometry (Type::Base for the base). */
    virtual Type getType() const;
    /**
     * @brief Writes the kind's shape into the feature's root entity @p entity, given the
     * feature's style (may be null). Returns false when the geometry cannot be drawn.
     */
    virtual bool _updateGeometry(keo::Entity& entity, const Style* style) = 0;
    /**
     * @brief Applies @p style (may be null) and the label to the feature's root entity
     * @p entity, reporting child entities to @p feature. Returns false on failure.
     */
    virtual bool _updateStyle(keo::Entity& entity, const Feature& feature, const Style* style) = 0;
    /**
     * @brief The vertices (WGS84, radians and metres) from which the feature computes the extent
     * of a line or area kind; null for the base and for kinds whose extent is not taken from
     * their vertices.
     */
    virtual const std::vector<Cartographic>* _getCartographicPositions() const;
    /**
     * @brief Whether the label step draws the label over terrain and models (true) or not
     * (false); empty, the base's answer, leaves the label graphics' own setting as it is.
     */
    virtual std::optional<bool> _isLabelOverlay() const;

    /** @brief The camera distances at which the geometry is shown; empty: at every distance. */
    const std::optional<DistanceDisplayCondition>& getDistanceDisplayCondition() const noexcept {
        return distanceDisplayCondition_;
    }
    /**
     * @brief Sets the distance display condition (edit rule). Equal means both empty or both
     * engaged with equal near and far, so a NaN distance always counts as a change.
     */
    void setDistanceDisplayCondition(const std::optional<DistanceDisplayCondition>& condition);
    /**
     * @brief The point (Cartesian ECEF, metres) that the distance display condition is measured
     * from, when a kind has stored one during its update; empty otherwise. The polyline (its
     * halfway point), the polygon (its label point) and the ellipse (its centre) store it at every
     * styling step; a point stores its position when its label has a hint line and no model.
     * Not copied and not assigned.
     */
    const std::optional<Vector3<double>>& getDistanceDisplayConditionAnchor() const noexcept {
        return distanceDisplayConditionAnchor_;
    }

    /** @brief Raises the definition-changed event. */
    void _raiseDefinitionChangedEvent();

    /**
     * @brief The label step of every kind's `_updateStyle`, on the feature's root entity.
     *
     * With an enabled label symbol in @p style and a non-empty text, the "label-symbol" child of
     * @p entity is found or created (and reported to @p feature) and its label graphics are filled
     * from the symbol: the text is the symbol's own text source (see LabelSymbol), else the
     * feature's label text, else its name; the fill colour is Color::HIGHLIGHTCOLOR while the
     * feature is highlighted; the distance display condition is the intersection of the
     * feature's and the symbol's. The symbol's hint line is drawn by a "hint-line" child of the
     * label (see LabelSymbol::setShowHintLine). The label is drawn over terrain and models as
     * _isLabelOverlay says (a PointGeometry that is an overlay); kinds that answer nothing leave
     * the label's overlay setting as it is. Otherwise an existing "label-symbol" child is
     * detached and reported removed. Returns true.
     */
    bool updateLabel(keo::Entity& entity, const Feature& feature, const Style* style) const;

protected:
    /** @brief A geometry without distance display condition, with fresh events. */
    Geometry();
    /** @brief Copies the distance display condition (not the anchor); fresh, empty events. */
    Geometry(const Geometry& other);

    /** @brief Stores (or clears, with an empty value) the anchor; no event. */
    void setDistanceDisplayConditionAnchor(const std::optional<Vector3<double>>& anchor) noexcept {
        distanceDisplayConditionAnchor_ = anchor;
    }

private:
    std::optional<DistanceDisplayCondition> distanceDisplayCondition_;
    std::optional<Vector3<double>> distanceDisplayConditionAnchor_;
};

/**
 * @brief Sets the shadow mode @p shadows (0 disabled, 1 enabled, 2 cast only, 3 receive only) on
 * the geometry graphics of @p entity, if it has any, and of every descendant, depth first. A value
 * outside 0 to 3 is ignored by the graphics (their mode stays as it was).
 */
KEO_FEATURE_API void applyShadowsToEntity(keo::Entity& entity, int shadows);

} // namespace keo::Feature
