#pragma once

#include "Feature/FeatureExport.h"
#include "Feature/Style.h"
#include "Feature/detail/SubscriptionPair.h"

#include <memory>

namespace keo::Feature {

class BillboardSymbol;
class ModelSymbol;
class ParticleSystemSymbol;
class PointSymbol;

/**
 * @brief The style of a point feature: up to four independent symbols, a dot (PointSymbol), an
 * image (BillboardSymbol), a 3D model (ModelSymbol) and a particle system
 * (ParticleSystemSymbol), plus what every style has (label symbol, height reference, shadows).
 * A default point style holds no symbol and draws nothing of its own.
 *
 * The style relays the two change events of each symbol it holds as its own: an edit made
 * directly on a held symbol reaches the style's listeners as changed-lock true, changed-lock
 * false and one definition change. A copy holds copies of the symbols (never the source's) and
 * relays their events.
 */
class KEO_FEATURE_API PointStyle final : public Style {
public:
    /** @brief A style without symbols, with the Style defaults. */
    PointStyle();
    /**
     * @brief Copies the Style base (label symbol cloned), then for each symbol slot of @p other
     * that holds a symbol, in the order point, billboard, model, particle system, installs a copy
     * of that symbol (a particle system copy gets its own emitter); empty slots stay empty.
     * Fresh, empty events.
     */
    PointStyle(const PointStyle& other);
    ~PointStyle() override;

    /**
     * @brief Copies @p other through the setters: the Style base first, then each slot in the
     * order point, billboard, model, particle system. When both styles hold a symbol in a slot,
     * the held symbol is assigned from the other's in place (same object, listeners kept);
     * otherwise the slot is set to a clone of the other's symbol, or emptied. A style of another
     * kind is not copied: a warning is logged and nothing changes.
     */
    void assign(const Style& other) override;
    /** @brief A copy made by the copy constructor. */
    std::shared_ptr<Style> clone() const override;
    /** @brief This style. */
    const PointStyle* asPointStyle() const override;
    using Style::asPointStyle;

    /** @brief The dot symbol, or null. */
    const std::shared_ptr<PointSymbol>& getPointSymbol() noexcept { return point_; }
    /** @brief The dot symbol, or null (the symbol itself stays editable). */
    const std::shared_ptr<PointSymbol>& getPointSymbol() const noexcept { return point_; }
    /** @brief The image symbol, or null. */
    const std::shared_ptr<BillboardSymbol>& getBillboardSymbol() noexcept { return billboard_; }
    /** @brief The image symbol, or null. */
    const BillboardSymbol* getBillboardSymbol() const noexcept { return billboard_.get(); }
    /** @brief The model symbol, or null. */
    const std::shared_ptr<ModelSymbol>& getModelSymbol() noexcept { return model_; }
    /** @brief The model symbol, or null. */
    const ModelSymbol* getModelSymbol() const noexcept { return model_.get(); }
    /** @brief The particle system symbol, or null. */
    const std::shared_ptr<ParticleSystemSymbol>& getParticleSystemSymbol() noexcept {
        return particleSystem_;
    }
    /** @brief The particle system symbol, or null. */
    const ParticleSystemSymbol* getParticleSystemSymbol() const noexcept {
        return particleSystem_.get();
    }

    /**
     * @brief Sets the dot symbol (null empties the slot). The held pointer changes nothing;
     * otherwise the old symbol's events are no longer relayed, the pointer is stored by the edit
     * rule, and the new symbol's events are relayed as this style's.
     */
    void setPointSymbol(std::shared_ptr<PointSymbol> symbol);
    /** @brief Sets the image symbol; as setPointSymbol. */
    void setBillboardSymbol(std::shared_ptr<BillboardSymbol> symbol);
    /** @brief Sets the model symbol; as setPointSymbol. */
    void setModelSymbol(std::shared_ptr<ModelSymbol> symbol);
    /** @brief Sets the particle system symbol; as setPointSymbol. */
    void setParticleSystemSymbol(std::shared_ptr<ParticleSystemSymbol> symbol);

private:
    // Runs step(slot, otherSlot, subscription) for each symbol slot, in the order point,
    // billboard, model, particle system.
    template <typename Step>
    void forEachSlot(const PointStyle& other, Step&& step);

    std::shared_ptr<PointSymbol> point_;
    std::shared_ptr<BillboardSymbol> billboard_;
    std::shared_ptr<ModelSymbol> model_;
    std::shared_ptr<ParticleSystemSymbol> particleSystem_;
    detail::SubscriptionPair pointSubscription_;
    detail::SubscriptionPair billboardSubscription_;
    detail::SubscriptionPair modelSubscription_;
    detail::SubscriptionPair particleSystemSubscription_;
};

} // namespace keo::Feature
