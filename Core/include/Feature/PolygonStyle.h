#pragma once

#include "Feature/FeatureExport.h"
#include "Feature/Style.h"
#include "Feature/detail/SubscriptionPair.h"

#include <memory>

namespace keo::Feature {

class ExtrusionSymbol;
class PolygonSymbol;

/**
 * @brief The style of a polygon feature (and of a rectangle): its surface (PolygonSymbol: fill,
 * outline, per-edge length labels) and an optional extrusion (ExtrusionSymbol: a wall, a roof and
 * the roof's outline), plus what every style has (label symbol, height reference, shadows).
 *
 * The style relays the two change events of each symbol it holds as its own, so an edit deep
 * inside (the material of the body symbol of the extrusion) reaches the style's listeners as
 * changed-lock true, changed-lock false and one definition change. A replaced symbol is no longer
 * heard.
 */
class KEO_FEATURE_API PolygonStyle final : public Style {
public:
    /** @brief A style without symbols, with the Style defaults. */
    PolygonStyle();
    /**
     * @brief Copies the Style base (label symbol cloned), then installs a copy of the polygon
     * symbol and of the extrusion symbol of @p other, where it has them. Fresh, empty events.
     */
    PolygonStyle(const PolygonStyle& other);
    ~PolygonStyle() override;

    /**
     * @brief Copies @p other: the Style base first, then the polygon symbol and the extrusion
     * symbol, each assigned in place when both styles hold one, else set to a clone of the
     * other's or emptied through its setter. A style of another kind is not copied: a warning is
     * logged and nothing changes.
     */
    void assign(const Style& other) override;
    /** @brief A copy made by the copy constructor. */
    std::shared_ptr<Style> clone() const override;
    /** @brief This style. */
    const PolygonStyle* asPolygonStyle() const override;
    using Style::asPolygonStyle;

    /** @brief The surface symbol, or null. */
    const std::shared_ptr<PolygonSymbol>& getPolygonSymbol() const noexcept { return polygon_; }
    /**
     * @brief Sets the surface symbol (null empties the slot). The held pointer changes nothing;
     * otherwise the old symbol is no longer relayed, the pointer is stored by the edit rule, and
     * the new symbol's events are relayed as this style's.
     */
    void setPolygonSymbol(std::shared_ptr<PolygonSymbol> symbol);
    /** @brief The extrusion, or null. */
    const std::shared_ptr<ExtrusionSymbol>& getExtrusionSymbol() noexcept { return extrusion_; }
    /** @brief The extrusion, or null. */
    const ExtrusionSymbol* getExtrusionSymbol() const noexcept { return extrusion_.get(); }
    /** @brief Sets the extrusion; as setPolygonSymbol. */
    void setExtrusionSymbol(std::shared_ptr<ExtrusionSymbol> symbol);

private:
    std::shared_ptr<PolygonSymbol> polygon_;
    std::shared_ptr<ExtrusionSymbol> extrusion_;
    detail::SubscriptionPair polygonSubscription_;
    detail::SubscriptionPair extrusionSubscription_;
};

} // namespace keo::Feature
