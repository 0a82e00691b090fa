#pragma once

#include "Common/Cartographic.h"
#include "Feature/FeatureExport.h"
#include "Feature/Geometry.h"

#include <memory>

namespace keo {
class Entity;
class PositionProperty;
} // namespace keo

namespace keo::Feature {

class Feature;
class Style;

/**
 * @brief A feature placed at one position (a keo::PositionProperty, Cartesian ECEF metres on
 * WGS84, constant or time-varying) and drawn with the symbols of a PointStyle.
 *
 * The update writes, on the feature's root entity:
 * - the dot of the point symbol as the root's own keo::PointGraphics;
 * - a child "billboard-symbol" (keo::BillboardGraphics) for a shown billboard symbol;
 * - a child "model-symbol" (keo::ModelGraphics) for a shown model symbol with a model;
 * - a child "particle-system--symbol" (keo::ParticleSystemGraphics) for a shown particle system
 *   symbol with an image;
 * - the label "label-symbol" and its "hint-line" (see Geometry::updateLabel).
 * A hidden or removed symbol drops its child. A shown model symbol without a model, or particle
 * system symbol without an image, makes no child and leaves an existing one as it was, not
 * updated.
 * Every child follows the point's position; the model and the particles also turn along the path
 * of a moving point. The label rides on top of a loaded model. Colours show
 * Color::HIGHLIGHTCOLOR while the feature is highlighted (the particles keep their own), and the
 * graphics are shown within the intersection of the feature's and the geometry's distance display
 * conditions.
 *
 * Setters follow the edit rule: nothing when the value is equal; otherwise changed-lock true,
 * store, changed-lock false, definition-changed.
 */
class KEO_FEATURE_API PointGeometry final : public Geometry {
public:
    /**
     * @brief A point without position. @p overlay tells whether its label is drawn over terrain
     * and models; it is fixed for the life of the geometry.
     */
    explicit PointGeometry(bool overlay);
    /**
     * @brief A point at @p position (WGS84, radians and metres), held as a constant position at
     * its Cartesian point; the label is not an overlay.
     */
    explicit PointGeometry(const Cartographic& position);
    /**
     * @brief Copies the distance display condition (not the anchor), the position (the property
     * is shared: position properties are immutable) and the overlay flag; fresh, empty events.
     */
    PointGeometry(const PointGeometry& other);
    ~PointGeometry() override;

    /**
     * @brief Copies @p other's distance display condition and position through the setters; the
     * overlay flag stays as constructed. A geometry of another kind is not copied: a warning is
     * logged and nothing changes.
     */
    void assign(const Geometry& other) override;
    /** @brief A copy made by the copy constructor. */
    std::unique_ptr<Geometry> clone() const override;
    /** @brief Type::Point. */
    Type getType() const override;
    /** @brief The overlay flag: a point decides whether its label is drawn over everything. */
    std::optional<bool> _isLabelOverlay() const override;

    /** @brief The position, or null when the point has none. */
    const PositionProperty* getPosition() const noexcept { return position_.get(); }
    /** @brief Whether the label is drawn over terrain and models (set at construction). */
    bool isOverlay() const noexcept { return overlay_; }

    /**
     * @brief Moves the point to @p position (WGS84, radians and metres), held as a new constant
     * position. Nothing happens when the held position is constant and already at exactly that
     * Cartesian point.
     */
    void setPosition(const Cartographic& position);
    /**
     * @brief Sets the position property (shared with the caller; null removes the position).
     * Nothing happens for the held pointer, or when both are present and the held property
     * equals @p position (same kind and values; two callback positions never do).
     */
    void setPosition(std::shared_ptr<PositionProperty> position);

    /**
     * @brief Gives the root entity @p entity and its point children the position, and the label
     * and its hint line theirs (on top of a model when there is one). Returns true.
     */
    bool _updateGeometry(Entity& entity, const Style* style) override;
    /**
     * @brief Draws the label, then @p style's symbols on @p entity and its children (created and
     * dropped as the symbols come and go, reported to @p feature), then brings every position up
     * to date and applies the style's shadows (none without a style). Without a point style
     * (no style, or one of another kind) the billboard and model children are dropped and the
     * root's graphics cleared; a particle child is kept as it is. This is intended: that child
     * belongs to the particle symbol, not to the point's look. A hidden or removed point symbol
     * clears the root's dot when something else is drawn.
     *
     * Returns whether anything is drawn: a "label-symbol" child or a shown symbol. When nothing
     * is and the root has no graphics, the root first gets a default dot (a keo::PointGraphics of
     * the default options: white, 1 pixel) and false is returned. A Feature that gets false
     * tears its entities down (see Feature::_updateEntityInCull), which clears that dot again:
     * through a feature, a point with nothing to draw shows nothing, and the default dot is only
     * seen by callers that run this step themselves.
     */
    bool _updateStyle(Entity& entity, const Feature& feature, const Style* style) override;

private:
    enum class Pass { Geometry, Style };

    void storePosition(std::shared_ptr<PositionProperty> position);
    void propagatePosition(Entity& entity, Pass pass);

    std::shared_ptr<PositionProperty> position_;
    bool overlay_ = false;
};

} // namespace keo::Feature
