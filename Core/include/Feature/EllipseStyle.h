#pragma once

#include "Feature/FeatureExport.h"
#include "Feature/Style.h"
#include "Feature/detail/SubscriptionPair.h"

#include <memory>

namespace keo::Feature {

class EllipseSymbol;

/**
 * @brief The style of an ellipse feature: its EllipseSymbol (fill and material), plus what every
 * style has (label symbol, height reference, shadows). Edits of the symbol, and of its material,
 * reach the style's listeners as one edit of the style.
 *
 * A Feature logs this style on an ellipse geometry as not matching its geometry (see
 * Feature::setGeometry) and draws it all the same: this is intended.
 */
class KEO_FEATURE_API EllipseStyle final : public Style {
public:
    /** @brief A style without symbol, with the Style defaults. */
    EllipseStyle();
    /**
     * @brief Copies the Style base (label symbol cloned) and installs a copy of the other's
     * ellipse symbol, if it has one. Fresh, empty events.
     */
    EllipseStyle(const EllipseStyle& other);
    ~EllipseStyle() override;

    /**
     * @brief Copies @p other: the Style base, then a copy of its ellipse symbol installed through
     * setEllipseSymbol (none empties the slot; a held symbol is replaced, never assigned in place,
     * so a filled slot always raises a change). A style of another kind is not copied: a warning
     * is logged and nothing changes.
     */
    void assign(const Style& other) override;
    /** @brief A copy made by the copy constructor. */
    std::shared_ptr<Style> clone() const override;
    /** @brief This style. */
    const EllipseStyle* asEllipseStyle() const override;
    using Style::asEllipseStyle;

    /** @brief The ellipse symbol, or null. */
    const std::shared_ptr<EllipseSymbol>& getEllipseSymbol() const noexcept { return ellipse_; }
    /**
     * @brief Sets the ellipse symbol (null empties the slot). The held pointer changes nothing;
     * otherwise the old symbol is no longer relayed, the pointer is stored by the edit rule, and
     * the new symbol's events are relayed as this style's.
     */
    void setEllipseSymbol(std::shared_ptr<EllipseSymbol> symbol);

private:
    std::shared_ptr<EllipseSymbol> ellipse_;
    detail::SubscriptionPair ellipseSubscription_;
};

} // namespace keo::Feature
