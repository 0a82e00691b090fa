#pragma once

#include "Data/HeightReference.h"
#include "Feature/ChangeEvents.h"
#include "Feature/FeatureExport.h"
#include "Feature/FunctionWrapper.h"
#include "Feature/Publisher.h"
#include "Feature/detail/SubscriptionPair.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace keo::Feature {

class LabelSymbol;
class PointStyle;
class PolylineStyle;
class PolygonStyle;
class EllipseStyle;

/**
 * @brief The base of every style kind (point, polyline, polygon, ellipse): the symbols a feature
 * is drawn with, plus what all kinds share: the height reference, the shadow mode and an optional
 * label symbol.
 *
 * Every setter follows the edit rule: nothing when the value is equal; otherwise changed-lock
 * true, store, changed-lock false, definition-changed (raised with the style itself). A style
 * relays the events of the symbols it holds as its own, so an edit of a held symbol reaches the
 * feature as an edit of the style. A copy gets fresh, empty events and deep copies of the
 * symbols, subscribed anew.
 */
class KEO_FEATURE_API Style : public ChangeEvents<std::function<void(const Style*)>> {
public:
    /** @brief The style kinds, one code per class. */
    enum class Type : std::uint8_t {
        Point = 1,    ///< PointStyle
        Polyline = 2, ///< PolylineStyle
        Polygon = 3,  ///< PolygonStyle
        Ellipse = 4,  ///< EllipseStyle
    };

    virtual ~Style();
    Style& operator=(const Style&) = delete;

    /**
     * @brief Copies @p other's label symbol (in place when both hold one, else a clone or null),
     * height reference and shadow mode, each by the edit rule; the name is not copied. A style of
     * another kind is not copied: a warning is logged and nothing changes. Each kind copies its
     * own symbols after.
     */
    virtual void assign(const Style& other);
    /** @brief A deep copy of the same kind, without listeners. */
    virtual std::shared_ptr<Style> clone() const = 0;
    /** @brief This style as a PointStyle, or null for another kind. */
    virtual const PointStyle* asPointStyle() const;
    /** @brief This style as a PolylineStyle, or null for another kind. */
    virtual const PolylineStyle* asPolylineStyle() const;
    /** @brief This style as a PolygonStyle, or null for another kind. */
    virtual const PolygonStyle* asPolygonStyle() const;
    /** @brief This style as an EllipseStyle, or null for another kind. */
    virtual const EllipseStyle* asEllipseStyle() const;

    /** @brief This style as a PointStyle, or null for another kind. */
    PointStyle* asPointStyle();
    /** @brief This style as a PolylineStyle, or null for another kind. */
    PolylineStyle* asPolylineStyle();
    /** @brief This style as a PolygonStyle, or null for another kind. */
    PolygonStyle* asPolygonStyle();
    /** @brief This style as an EllipseStyle, or null for another kind. */
    EllipseStyle* asEllipseStyle();

    /** @brief The kind, fixed at construction. */
    Type getType() const noexcept { return type_; }

    /** @brief A free name of the style for the application's own use (empty by default). */
    const std::string& getName() const noexcept { return name_; }
    /** @brief Sets the name (edit rule); the library never reads it. */
    void setName(const std::string& name);

    /** @brief Where the feature's heights are measured from (default Absolute). */
    HeightReference getHeightReference() const noexcept { return heightReference_; }
    /**
     * @brief Sets the height reference (edit rule). Line and area geometries draw the relative
     * kinds as the matching clamped kind, with a warning.
     */
    void setHeightReference(HeightReference heightReference);

    /** @brief The shadow mode of the feature's graphics (0 disabled, the default). */
    int getShadows() const noexcept { return shadows_; }
    /**
     * @brief Sets the shadow mode: 0 disabled, 1 enabled, 2 cast only, 3 receive only (edit
     * rule). Other values are stored; the graphics ignore them.
     */
    void setShadows(int shadows);

    /** @brief The label symbol, or null (no label). */
    const std::shared_ptr<LabelSymbol>& getLabelSymbol() noexcept { return labelSymbol_; }
    /** @brief The label symbol, or null (no label). */
    std::shared_ptr<const LabelSymbol> getLabelSymbol() const noexcept { return labelSymbol_; }
    /**
     * @brief Sets the label symbol (null removes it). The same pointer changes nothing; otherwise
     * the old symbol's events are no longer relayed, the new pointer is stored by the edit rule,
     * and the new symbol's events are relayed as this style's.
     */
    void setLabelSymbol(std::shared_ptr<LabelSymbol> symbol);

    /** @brief Raises the definition-changed event with this style. */
    void _raiseDefinitionChangedEvent();

protected:
    /** @brief A style of kind @p type with the defaults and fresh events. */
    explicit Style(Type type);
    /**
     * @brief Copies the kind, name, height reference and shadow mode, and a clone of the label
     * symbol (subscribed anew); fresh, empty events.
     */
    Style(const Style& other);

private:
    Type type_;
    std::string name_;
    HeightReference heightReference_ = HeightReference::Absolute;
    int shadows_ = 0;
    std::shared_ptr<LabelSymbol> labelSymbol_;
    detail::SubscriptionPair labelSubscription_;
};

} // namespace keo::Feature
