#pragma once

#include "Common/Cartographic.h"
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
 * @brief A filled ellipse on the globe: a centre (WGS84 longitude and latitude in radians, height
 * in metres) and two semi-axes in metres, drawn as keo::EllipseGraphics on the feature's root
 * entity from the symbol of an EllipseStyle (a default ellipse when nothing else is drawn), with
 * the label at the centre.
 *
 * The ellipse is drawn only while both semi-axes are greater than 0 (a NaN axis passes the test;
 * the major axis need not be the larger): otherwise both update steps log
 * "椭圆半轴长不能为0.0。" and return false, leaving the entities as they were. An ellipse cannot
 * follow heights relative to a surface: those are drawn as the matching clamped kinds, with the
 * polygon's warning ("多边形不支持..."); this is intended, the ellipse shares the wording of filled
 * areas. With Absolute the ellipse lies at the centre's height.
 *
 * The default ellipse (a keo::EllipseGraphics of the default options with the two semi-axes) is
 * only given to a root without graphics: when the ellipse symbol is hidden or removed and the
 * label is not drawn, the ellipse keeps the look it was last drawn with (intended, as for the
 * polyline's default line); with a label it is cleared and the label shown alone. A Feature
 * logs an EllipseStyle on an ellipse as not matching (see Feature::setGeometry) and draws it all
 * the same.
 *
 * Unlike the other geometries, every setter raises its events on every call, even with the value
 * held (only setCenter with the stored centre itself does nothing): each set rebuilds the ellipse.
 * This is intended.
 */
class KEO_FEATURE_API EllipseGeometry final : public Geometry {
public:
    /** @brief Centre (0, 0, 0), both semi-axes 0 (not drawn until they are set). */
    EllipseGeometry();
    /** @brief An ellipse at @p center with the semi-axes @p semiMajorAxis, @p semiMinorAxis (m). */
    EllipseGeometry(const Cartographic& center, double semiMajorAxis, double semiMinorAxis);
    /**
     * @brief Copies the distance display condition (not the anchor), the centre and the axes;
     * fresh, empty events.
     */
    EllipseGeometry(const EllipseGeometry& other);
    ~EllipseGeometry() override;

    /**
     * @brief Copies @p other's distance display condition, then its centre and axes through the
     * setters (which always notify). A geometry of another kind is not copied: a warning is logged
     * and nothing changes.
     */
    void assign(const Geometry& other) override;
    /** @brief A copy made by the copy constructor. */
    std::unique_ptr<Geometry> clone() const override;
    /** @brief Type::Ellipse. */
    Type getType() const override;

    /** @brief The centre (WGS84, radians and metres). */
    const Cartographic& getCenter() const noexcept { return center_; }
    /** @brief Sets the centre; raises the events on every call but with the stored centre itself.
     */
    void setCenter(const Cartographic& center);
    /** @brief The semi-major axis, metres. */
    double getSemiMajorAxis() const noexcept { return semiMajorAxis_; }
    /** @brief Sets the semi-major axis, metres; raises the events on every call. */
    void setSemiMajorAxis(double length);
    /** @brief The semi-minor axis, metres. */
    double getSemiMinorAxis() const noexcept { return semiMinorAxis_; }
    /** @brief Sets the semi-minor axis, metres; raises the events on every call. */
    void setSemiMinorAxis(double length);

    /**
     * @brief Moves the root to the centre, gives its ellipse graphics (if any) the axes, and
     * places the anchor (once one is held), the label and its hint line at the centre. Graphics of
     * another kind are removed. Returns false (with a warning) for an axis not above 0.
     */
    bool _updateGeometry(Entity& entity, const Style* style) override;
    /**
     * @brief Draws the ellipse symbol (or a default ellipse when nothing else is drawn), then the
     * height reference (3 without a style) with its warnings, the distance display condition, the
     * anchor, the label's first position and the shadows. Returns false (with a warning) for an
     * axis not above 0.
     */
    bool _updateStyle(Entity& entity, const Feature& feature, const Style* style) override;

private:
    Cartographic center_;
    double semiMajorAxis_ = 0.0;
    double semiMinorAxis_ = 0.0;
};

} // namespace keo::Feature
