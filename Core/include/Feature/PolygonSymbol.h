#pragma once

#include "Feature/FeatureExport.h"
#include "Feature/Symbol.h"
#include "Feature/detail/SubscriptionPair.h"

#include <memory>

namespace keo {
class FilledGeometryGraphics;
class WallGraphics;
} // namespace keo

namespace keo::Feature {

class LengthLabelSymbol;
class LineSymbol;
class Material;
struct SymbolContext;

/**
 * @brief The look of a surface: a polygon's area, an extrusion's wall or roof. It holds the fill
 * material and fill switch, an outline (a LineSymbol: its width and material) and per-edge
 * length labels (a LengthLabelSymbol).
 *
 * Edits of the three held objects are relayed as edits of the symbol. A length label symbol held
 * here never shows a total: setting one switches its total off (the symbol itself is changed,
 * with its events), so a polygon shows the lengths of its edges only.
 */
class KEO_FEATURE_API PolygonSymbol final : public Symbol {
public:
    /** @brief Filled, without material, outline or length labels. */
    PolygonSymbol();
    /** @brief As the default constructor, then setMaterial(@p material). */
    explicit PolygonSymbol(std::shared_ptr<Material> material);
    /**
     * @brief Copies the values; the material is cloned, the outline and the length label symbol
     * are copied (the length labels' total switched off as setLengthLabelSymbol does); each copy
     * is relayed anew; fresh, empty events.
     */
    PolygonSymbol(const PolygonSymbol& other);
    ~PolygonSymbol() override;

    /**
     * @brief Copies a polygon symbol's values: the material (assigned in place when both hold
     * one of the same material kind, else a clone or null through setMaterial), the outline and
     * the length labels (assigned in place when both hold one, else a clone or null through their
     * setters), then the fill switch by the edit rule. Another kind only logs.
     */
    void assign(const Symbol& other) override;
    /** @brief A deep copy without listeners. */
    std::shared_ptr<Symbol> clone() const override;
    /** @brief Type::Polygon. */
    Type getType() const override;

    /** @brief The material painting the surface, or null. */
    const std::shared_ptr<Material>& getMaterial() const noexcept { return material_; }
    /** @brief Sets the material (relayed; the same pointer changes nothing). */
    void setMaterial(std::shared_ptr<Material> material);
    /** @brief Whether the surface is filled (default true). */
    bool isFill() const noexcept { return fill_; }
    /** @brief Fills the surface or not (edit rule). */
    void setFill(bool fill);
    /** @brief The outline, or null (none). */
    const std::shared_ptr<LineSymbol>& getOutLineSymbol() noexcept { return outline_; }
    /** @brief The outline, or null (none). */
    const LineSymbol* getOutLineSymbol() const noexcept { return outline_.get(); }
    /** @brief Sets the outline (relayed; the same pointer changes nothing). */
    void setOutLineSymbol(std::shared_ptr<LineSymbol> symbol);
    /**
     * @brief The per-edge length labels, or null (none). Turning the held symbol's total back on
     * shows nothing more: a polygon draws no total label.
     */
    const std::shared_ptr<LengthLabelSymbol>& getLengthLabelSymbol() const noexcept {
        return lengthLabel_;
    }
    /**
     * @brief Sets the per-edge length labels (relayed; the same pointer changes nothing). A new
     * symbol that shows a total has it switched off first (the symbol raises its own events for
     * that), so a polygon never shows a total.
     */
    void setLengthLabelSymbol(std::shared_ptr<LengthLabelSymbol> symbol);

    /**
     * @brief Writes the symbol as the body of an extrusion into @p graphics: the fill switch; the
     * outline on, with the outline symbol's width and colour, when the outline symbol is present
     * and shown, else off; the context's distance display condition; and, when the symbol has a
     * material, the material (brought up to date and shared, keo::Color::HIGHLIGHTCOLOR while the
     * feature is highlighted). Without a material the graphics keep theirs.
     *
     * The outline colour is that of the outline symbol's material when it is a ColorMaterial or
     * a LineDashMaterial (its dash colour). Without such a colour (no material, or a material of
     * another kind) the outline width still applies and the outline is drawn in light green
     * (0.5, 1, 0.5, 1); this is intended. The outline colour does not follow highlighting.
     */
    void _fillWall(WallGraphics& graphics, const SymbolContext& context) const;
    /**
     * @brief Writes the symbol as a surface into @p graphics (a polygon's area, a roof, a
     * rectangle): the fill switch, the outline off (outlines are lines of their own), the
     * context's distance display condition and, when the symbol has a material, the material
     * (brought up to date and shared; keo::Color::HIGHLIGHTCOLOR while the feature is
     * highlighted). Without a material the graphics keep theirs.
     */
    void _fill(FilledGeometryGraphics& graphics, const SymbolContext& context) const;

private:
    std::shared_ptr<Material> material_;
    bool fill_ = true;
    std::shared_ptr<LineSymbol> outline_;
    std::shared_ptr<LengthLabelSymbol> lengthLabel_;
    detail::SubscriptionPair materialSubscription_;
    detail::SubscriptionPair outlineSubscription_;
    detail::SubscriptionPair lengthLabelSubscription_;
};

} // namespace keo::Feature
