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
 * @brief A plain dot drawn at a point feature's position. It also holds an outline colour and
 * width, which are stored for the application but not drawn: the point geometry draws the dot
 * without an outline.
 *
 * Every setter follows the edit rule: no event for an equal value (exact comparison, so NaN is
 * always a change). Any value is stored as given, without range checks.
 */
class KEO_FEATURE_API PointSymbol final : public Symbol {
public:
    /**
     * @brief A dot of size 0 pixels, white, with an outline colour black and width 1 (not drawn).
     * A dot of 0 pixels cannot be seen: this is intended, the default size is 0, so set a pixel
     * size to show the dot.
     */
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

    /** @brief The diameter of the dot, pixels (default 0: not visible). */
    float getPixelSize() const noexcept { return pixelSize_; }
    /** @brief Sets the diameter of the dot, pixels. */
    void setPixelSize(float size);
    /** @brief The colour of the dot. */
    const Color& getColor() const noexcept { return color_; }
    /** @brief Sets the colour of the dot. */
    void setColor(const Color& color);
    /** @brief The colour of the outline (default black; stored, not drawn). */
    const Color& getOutlineColor() const noexcept { return outlineColor_; }
    /** @brief Sets the colour of the outline (edit rule; the dot is drawn without it). */
    void setOutlineColor(const Color& color);
    /** @brief The width of the outline, pixels (default 1; stored, not drawn). */
    float getOutlineWidth() const noexcept { return outlineWidth_; }
    /** @brief Sets the width of the outline, pixels (edit rule; the dot is drawn without it). */
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
