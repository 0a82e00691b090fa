#pragma once

#include "Feature/FeatureExport.h"
#include "Feature/Symbol.h"
#include "Feature/detail/SubscriptionPair.h"

#include <memory>

namespace keo {
class EllipseGraphics;
} // namespace keo

namespace keo::Feature {

class Material;
struct SymbolContext;

/**
 * @brief The look of an ellipse: whether it is filled, and the material it is painted with.
 * Edits of the material are relayed as edits of the symbol.
 */
class KEO_FEATURE_API EllipseSymbol final : public Symbol {
public:
    /** @brief Filled, without material (the renderer's default). */
    EllipseSymbol();
    /** @brief As the default constructor, then setMaterial(@p material). */
    explicit EllipseSymbol(std::shared_ptr<Material> material);
    /** @brief Copies the values; the material is cloned and relayed anew; fresh, empty events. */
    EllipseSymbol(const EllipseSymbol& other);
    ~EllipseSymbol() override;

    /**
     * @brief Copies an ellipse symbol's values: the material (a clone of the other's installed
     * through setMaterial, or none), then the fill by the edit rule. Another kind only logs.
     */
    void assign(const Symbol& other) override;
    /** @brief A deep copy without listeners. */
    std::shared_ptr<Symbol> clone() const override;
    /** @brief Type::Ellipse. */
    Type getType() const override;

    /** @brief The material painting the ellipse, or null. */
    const std::shared_ptr<Material>& getMaterial() const noexcept { return material_; }
    /** @brief Sets the material (relayed; the same pointer changes nothing). */
    void setMaterial(std::shared_ptr<Material> material);
    /** @brief Whether the ellipse is filled (default true). */
    bool isFill() const noexcept { return fill_; }
    /** @brief Fills the ellipse or not (edit rule). */
    void setFill(bool fill);

    /**
     * @brief Writes the ellipse's look into @p graphics: the fill switch, the outline off, and the
     * material (brought up to date and shared, keo::Color::HIGHLIGHTCOLOR while the feature is
     * highlighted; without one the graphics' material is cleared, which draws the renderer's
     * default).
     */
    void _fill(EllipseGraphics& graphics, const SymbolContext& context) const;

private:
    std::shared_ptr<Material> material_;
    bool fill_ = true;
    detail::SubscriptionPair materialSubscription_;
};

} // namespace keo::Feature
