#pragma once

#include "Common/Color.h"
#include "Feature/FeatureExport.h"
#include "Feature/Path.h"
#include "Feature/Symbol.h"
#include "Feature/detail/SubscriptionPair.h"

#include <memory>
#include <optional>

namespace keo {
class PolylineGraphics;
} // namespace keo

namespace keo::Feature {

class LengthLabelSymbol;
class Material;
struct SymbolContext;

/**
 * @brief A line: its material, width, an optional animated path along it, and optional length
 * labels. Edits of the material and of the length label symbol are relayed as edits of the line.
 */
class KEO_FEATURE_API LineSymbol final : public Symbol {
public:
    /** @brief A line 0.8 pixels wide (as a float), no material, path off, no length labels. */
    LineSymbol();
    /**
     * @brief Copies the values; the material and the length label symbol are cloned and relayed
     * anew; the copy gets fresh, empty events.
     */
    LineSymbol(const LineSymbol& other);
    ~LineSymbol() override;

    /**
     * @brief Copies a line symbol's values in field order: the material, the width and the path
     * by the edit rule, the length label symbol last. A held object of the source (the material,
     * the length label symbol) is copied into a new object and installed through its setter, so
     * the one held before is released with its subscription; an empty slot of the source empties
     * this one. Another kind only logs.
     */
    void assign(const Symbol& other) override;
    /** @brief A deep copy without listeners. */
    std::shared_ptr<Symbol> clone() const override;
    /** @brief Type::Line. */
    Type getType() const override;

    /** @brief The material painted on the line, or null (the renderer's default). */
    const std::shared_ptr<Material>& getMaterial() const noexcept { return material_; }
    /** @brief Sets the material (relayed; the same pointer changes nothing). */
    void setMaterial(std::shared_ptr<Material> material);
    /** @brief The line width, pixels (default 0.8f). */
    float getWidth() const noexcept { return width_; }
    /** @brief Sets the width, pixels (edit rule; stored as given). */
    void setWidth(float width);
    /** @brief The animated path. */
    const Path& getPath() const noexcept { return path_; }
    /**
     * @brief Sets the path. A path that differs only in its restart request changes nothing
     * (this is intended: a restart is asked for with restartPath); otherwise the whole path,
     * restart request included, is stored by the edit rule.
     */
    void setPath(const Path& path);
    /** @brief Asks the next update to start the path over (edit rule on the request flag). */
    void restartPath();
    /** @brief Clears the restart request without events, once the renderer has served it. */
    void _clearRestartRequest() noexcept { path_.restartRequest = false; }
    /** @brief The length labels, or null (none). */
    const std::shared_ptr<LengthLabelSymbol>& getLengthLabelSymbol() const noexcept {
        return lengthLabelSymbol_;
    }
    /** @brief Sets the length labels (relayed; the same pointer changes nothing). */
    void setLengthLabelSymbol(std::shared_ptr<LengthLabelSymbol> symbol);

    /**
     * @brief Writes the line's look into @p graphics: the width, the material (brought up to date
     * and shared, showing keo::Color::HIGHLIGHTCOLOR while the feature is highlighted; without a
     * material, the graphics' material is cleared, which draws the renderer's default) and the
     * context's distance display condition. Positions, path, height reference and draping belong
     * to the geometry that draws the line.
     */
    void _fill(PolylineGraphics& graphics, const SymbolContext& context) const;
    /**
     * @brief The one colour the line is painted with: its material's when that is a ColorMaterial
     * or a LineDashMaterial (the dash colour); empty for any other material or none.
     */
    std::optional<Color> _getSolidColor() const;

private:
    std::shared_ptr<Material> material_;
    float width_ = 0.8f;
    Path path_;
    std::shared_ptr<LengthLabelSymbol> lengthLabelSymbol_;
    detail::SubscriptionPair materialSubscription_;
    detail::SubscriptionPair lengthLabelSubscription_;
};

} // namespace keo::Feature
