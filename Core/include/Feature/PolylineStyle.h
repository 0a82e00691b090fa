#pragma once

#include "Feature/FeatureExport.h"
#include "Feature/Style.h"
#include "Feature/detail/SubscriptionPair.h"

#include <memory>

namespace keo::Feature {

class ExtrusionSymbol;
class LineSymbol;
class LineVolumeSymbol;

/**
 * @brief The style of a polyline feature: up to four symbols, the main line (LineSymbol), an
 * extrusion standing on the line as a wall with a roof line (ExtrusionSymbol), an overlay line
 * drawn over the main one (a second LineSymbol) and a line volume swept along the line
 * (LineVolumeSymbol), plus what every style has (label symbol, height reference, shadows). A
 * default polyline style holds no symbol; the polyline then draws a default line.
 *
 * The style relays the two change events of each symbol it holds as its own: an edit made
 * directly on a held symbol, or deeper (the material of its line symbol), reaches the style's
 * listeners as changed-lock true, changed-lock false and one definition change. A replaced symbol
 * is no longer heard.
 */
class KEO_FEATURE_API PolylineStyle final : public Style {
public:
    /** @brief A style without symbols, with the Style defaults. */
    PolylineStyle();
    /**
     * @brief Copies the Style base (label symbol cloned), then installs a copy of each symbol of
     * @p other, in the order line, extrusion, overlay line, line volume; empty slots stay empty.
     * Fresh, empty events.
     */
    PolylineStyle(const PolylineStyle& other);
    ~PolylineStyle() override;

    /**
     * @brief Copies @p other: the Style base first, then each slot in the order line, extrusion,
     * overlay line, line volume: a copy of the other's symbol is installed through the slot's
     * setter (the symbol held before is released with its subscription), an empty slot empties
     * this one. So every slot that @p other fills raises a change, even when the values are
     * equal, and listeners on the symbols held before no longer hear this style. This is
     * intended: the line styles never assign a held symbol in place, unlike the point and
     * polygon styles. A style of another kind is not copied: a warning is logged and nothing
     * changes.
     */
    void assign(const Style& other) override;
    /** @brief A copy made by the copy constructor. */
    std::shared_ptr<Style> clone() const override;
    /** @brief This style. */
    const PolylineStyle* asPolylineStyle() const override;
    using Style::asPolylineStyle;

    /** @brief The main line, or null (the polyline draws a default line). */
    const std::shared_ptr<LineSymbol>& getLineSymbol() const noexcept { return line_; }
    /**
     * @brief Sets the main line (null empties the slot). The held pointer changes nothing;
     * otherwise the old symbol is no longer relayed, the pointer is stored by the edit rule, and
     * the new symbol's events are relayed as this style's.
     */
    void setLineSymbol(std::shared_ptr<LineSymbol> symbol);
    /** @brief The extrusion (a wall on the line and a roof line on top), or null. */
    const std::shared_ptr<ExtrusionSymbol>& getExtrusionSymbol() const noexcept {
        return extrusion_;
    }
    /** @brief Sets the extrusion; as setLineSymbol. */
    void setExtrusionSymbol(std::shared_ptr<ExtrusionSymbol> symbol);
    /** @brief The overlay line, drawn by the child "overlay-line-symbol", or null. */
    const std::shared_ptr<LineSymbol>& getOverlayLineSymbol() const noexcept {
        return overlayLine_;
    }
    /** @brief Sets the overlay line; as setLineSymbol. */
    void setOverlayLineSymbol(std::shared_ptr<LineSymbol> symbol);
    /** @brief The line volume, drawn by the child "line-volume-symbol", or null. */
    const std::shared_ptr<LineVolumeSymbol>& getLineVolumeSymbol() const noexcept {
        return lineVolume_;
    }
    /** @brief Sets the line volume; as setLineSymbol. */
    void setLineVolumeSymbol(std::shared_ptr<LineVolumeSymbol> symbol);

private:
    // Runs step(slot, otherSlot, subscription) for each symbol slot, in the order line,
    // extrusion, overlay line, line volume.
    template <typename Step>
    void forEachSlot(const PolylineStyle& other, Step&& step);

    std::shared_ptr<LineSymbol> line_;
    std::shared_ptr<ExtrusionSymbol> extrusion_;
    detail::SubscriptionPair lineSubscription_;
    detail::SubscriptionPair extrusionSubscription_;
    std::shared_ptr<LineSymbol> overlayLine_;
    detail::SubscriptionPair overlayLineSubscription_;
    std::shared_ptr<LineVolumeSymbol> lineVolume_;
    detail::SubscriptionPair lineVolumeSubscription_;
};

} // namespace keo::Feature
