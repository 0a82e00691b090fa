#pragma once

#include "Common/Color.h"
#include "Feature/FeatureExport.h"
#include "Feature/Symbol.h"

#include <memory>

namespace keo {
class PointGraphics;
} // namespace keo

namespace keo::Feature {

struct SymbolContext;

/**
 * @brief A plain dot drawn at a point feature's position, with an outline.
 *
 * Every setter follows the edit rule: no event for an equal value (exact comparison, so NaN is
 * always a change). Any value is stored as given, without range checks.
 */
class KEO_FEATURE_API PointSymbol final : public Symbol {
public:
    /** @brief A dot of size 0 pixels, white, with a black outline 1 pixel wide. */
    PointSymbol();
    /** @brief Copies every field; fresh, empty events. */
    PointSymbol(const PointSymbol& other);
    ~PointSymbol() override;

    /**
     * @brief Copies @p other's fields through the setters: enabled, pixel size, colour, outline
     * colour, outline width. A symbol of another kind is not copied: a warning is logged and
     * nothing changes.
     */
    void assign(const Symbol& other) override;
    /** @brief A copy made by the copy constructor. */
    std::shared_ptr<Symbol> clone() const override;
    /** @brief Type::Point. */
    Type getType() const override;

    /** @brief The diameter of the dot, pixels. */
    float getPixelSize() const noexcept { return pixelSize_; }
    /** @brief Sets the diameter of the dot, pixels. */
    void setPixelSize(float size);
    /** @brief The colour of the dot. */
    const Color& getColor() const noexcept { return color_; }
    /** @brief Sets the colour of the dot. */
    void setColor(const Color& color);
    /** @brief The colour of the outline. */
    const Color& getOutlineColor() const noexcept { return outlineColor_; }
    /** @brief Sets the colour of the outline. */
    void setOutlineColor(const Color& color);
    /** @brief The width of the outline, pixels. */
    float getOutlineWidth() const noexcept { return outlineWidth_; }
    /** @brief Sets the width of the outline, pixels. */
    void setOutlineWidth(float width);

    /**
     * @brief Writes the dot into @p graphics: pixel size, colour (keo::Color::HIGHLIGHTCOLOR
     * while the feature is highlighted), the context's height reference and distance display
     * condition. The outline colour and width are the symbol's own values for the application;
     * the dot is drawn without them.
     */
    void _fill(PointGraphics& graphics, const SymbolContext& context) const;

private:
    float pixelSize_ = 0.0f;
    Color color_ = Color::WHITE;
    Color outlineColor_ = Color::BLACK;
    float outlineWidth_ = 1.0f;
};

} // namespace keo::Feature
