#pragma once

#include "Common/GlobeRectangle.h"
#include "Common/Radian.h"
#include "Feature/FeatureExport.h"
#include "Feature/Geometry.h"

#include <memory>

namespace keo {
class Entity;
} // namespace keo

namespace keo::Feature {

class Feature;
class Style;

/**
 * @brief An area bounded by two meridians and two parallels (a keo::GlobeRectangle, radians),
 * optionally rotated, drawn from a PolygonStyle as keo::RectangleGraphics on the feature's root
 * entity.
 *
 * The update writes:
 * - the rectangle as the root's own keo::RectangleGraphics, its texture turned with it, while the
 *   style's polygon symbol is present (not shown while the symbol is hidden): fill and material
 *   from the symbol;
 * - "extrusion-wall-symbol" (keo::WallGraphics) while the style's extrusion symbol is present and
 *   shown: a wall on the five corners south-west, south-east, north-east, north-west and
 *   south-west again, at height 0 and not rotated, from 0 up to the extrusion's height (or down
 *   to it, for a negative one), with the body symbol's look when it is a shown PolygonSymbol.
 *   The wall stands on the unturned corners even when the rectangle is rotated: this is
 *   intended;
 * - the label "label-symbol", with its "hint-line", at the rectangle's centre.
 * Without a polygon symbol the root has no graphics (there is no default rectangle). The relative
 * height references are drawn as the matching clamped ones, with the rectangle's own warning.
 *
 * An empty rectangle (see keo::GlobeRectangle::isEmpty, the default) cannot be drawn: both update
 * steps throw keo::InvalidParametersException (code 2, "矩形的范围错误." in the GBK code page,
 * function "RectangleGeometry::update") and change nothing; the exception goes through
 * Feature::_updateEntityInCull to the rendering side. The one GBK message is intended.
 *
 * setCoordinates notifies even for equal coordinates; setRotate follows the edit rule.
 */
class KEO_FEATURE_API RectangleGeometry final : public Geometry {
public:
    /** @brief The empty rectangle (GlobeRectangle::EMPTY), not rotated. */
    RectangleGeometry();
    /** @brief The rectangle @p coordinates, not rotated. */
    explicit RectangleGeometry(const GlobeRectangle& coordinates);
    /**
     * @brief Copies the distance display condition (not the anchor), the coordinates and the
     * rotation; fresh, empty events.
     */
    RectangleGeometry(const RectangleGeometry& other);
    ~RectangleGeometry() override;

    /**
     * @brief Copies @p other's distance display condition, then its coordinates (always
     * notifying), then its rotation (edit rule). A geometry of another kind is not copied: a
     * warning is logged and nothing changes.
     */
    void assign(const Geometry& other) override;
    /** @brief A copy made by the copy constructor. */
    std::unique_ptr<Geometry> clone() const override;
    /** @brief Type::Rectangle. */
    Type getType() const override;

    /** @brief The rectangle: west, south, east, north, radians. */
    const GlobeRectangle& getCoordinates() const noexcept { return coordinates_; }
    /**
     * @brief Sets the rectangle. Nothing happens when @p coordinates is the stored rectangle
     * itself; any other value, even an equal one, raises changed-lock true, changed-lock false
     * and definition-changed.
     */
    void setCoordinates(const GlobeRectangle& coordinates);
    /** @brief The rotation about the centre, counter-clockwise from north (default 0). */
    const Radian& getRotate() const noexcept { return rotate_; }
    /** @brief Sets the rotation (edit rule: nothing for an exactly equal angle). */
    void setRotate(const Radian& rotate);

    /**
     * @brief Refreshes the rectangle graphics (coordinates, rotation and texture rotation), the
     * wall's corners and the label's position. Graphics of another kind are removed.
     * @throws keo::InvalidParametersException for an empty rectangle (nothing changed).
     */
    bool _updateGeometry(Entity& entity, const Style* style) override;
    /**
     * @brief Draws the polygon symbol and the extrusion, applies the height reference (3 without
     * a style) with its warnings, places the label and applies the shadows. Returns true.
     * @throws keo::InvalidParametersException for an empty rectangle (nothing changed).
     */
    bool _updateStyle(Entity& entity, const Feature& feature, const Style* style) override;

private:
    GlobeRectangle coordinates_ = GlobeRectangle::EMPTY;
    Radian rotate_{0.0};
};

} // namespace keo::Feature
