#pragma once

#include "Common/Color.h"
#include "Common/Vector2.h"
#include "Common/Vector4.h"
#include "Data/DistanceDisplayCondition.h"
#include "Data/HorizontalOrigin.h"
#include "Data/ImageSource.h"
#include "Data/VerticalOrigin.h"
#include "Feature/FeatureExport.h"
#include "Feature/Symbol.h"
#include "Feature/detail/SubscriptionPair.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace keo {
class Image;
class LabelGraphics;
class PolylineGraphics;
} // namespace keo

namespace keo::Feature {

class Feature;
class LineSymbol;
struct SymbolContext;

/**
 * @brief The text label that any feature can carry: where its text comes from, font and size,
 * fill and outline, an optional background box or image, placement, collision avoidance, a
 * distance display condition and an optional hint line (a leader from the label to the point it
 * names).
 *
 * The text: with a field name, the feature's attribute of that name written as text; without
 * one, the feature's label text, else its name (see Geometry::updateLabel). Every setter follows
 * the edit rule (strings by content; the background image as a string only equals the same
 * string, as an image only the same image object; NaN never equals).
 */
class KEO_FEATURE_API LabelSymbol final : public Symbol {
public:
    /** @brief How the hint line runs from the labelled point to the label (screen space). */
    enum class HintLineMode : std::uint8_t {
        /** @brief One straight segment from the point to the label's anchor. */
        Straight = 0,
        /** @brief Up (or down) from the point to the label's height, then across to the label. */
        Elbow = 1,
    };

    /**
     * @brief A label of the defaults: no field name, default font, size 12, scale 1, white text
     * with a black outline 1 pixel wide, no background (dark grey, 80 % opaque, padding
     * (7, 5, 7, 5) when shown), no offset, origins 0, taking part in avoidance, no hint line.
     */
    LabelSymbol();
    /**
     * @brief Copies the values; the hint line symbol is cloned and relayed anew; the copy gets
     * fresh, empty events.
     */
    LabelSymbol(const LabelSymbol& other);
    ~LabelSymbol() override;

    /**
     * @brief Copies a label symbol's values by the edit rule, in the field order, the hint line
     * symbol last (assigned in place when both hold one). Another kind only logs.
     */
    void assign(const Symbol& other) override;
    /** @brief A deep copy without listeners. */
    std::shared_ptr<Symbol> clone() const override;
    /** @brief Type::Label. */
    Type getType() const override;

    /** @brief The name of the feature attribute that gives the text; empty: the feature's text. */
    const std::string& getFieldName() const noexcept { return fieldName_; }
    /** @brief Sets the attribute name (edit rule). */
    void setFieldName(const std::string& name);
    /** @brief The font handed to the label graphics; empty: the label's default font. */
    const std::string& getFont() const noexcept { return font_; }
    /** @brief Sets the font (edit rule). */
    void setFont(const std::string& font);
    /** @brief The text size, pixels (default 12). */
    float getSize() const noexcept { return size_; }
    /** @brief Sets the text size, pixels (edit rule; stored as given). */
    void setSize(float size);
    /** @brief The scale factor (default 1). */
    float getScale() const noexcept { return scale_; }
    /** @brief Sets the scale factor (edit rule). */
    void setScale(float scale);
    /** @brief Whether the text is outlined (default true). */
    bool isShowOutline() const noexcept { return showOutline_; }
    /** @brief Turns the outline on or off (edit rule). */
    void setShowOutline(bool show);
    /** @brief Whether a background box is drawn (default false). */
    bool isShowBackground() const noexcept { return showBackground_; }
    /** @brief Turns the background on or off (edit rule). */
    void setShowBackground(bool show);
    /** @brief The text colour (default white). */
    const Color& getFillColor() const noexcept { return fillColor_; }
    /** @brief Sets the text colour (edit rule). */
    void setFillColor(const Color& color);
    /** @brief The outline colour (default black). */
    const Color& getOutlineColor() const noexcept { return outlineColor_; }
    /** @brief Sets the outline colour (edit rule). */
    void setOutlineColor(const Color& color);
    /** @brief The outline width, pixels (default 1). */
    float getOutlineWidth() const noexcept { return outlineWidth_; }
    /** @brief Sets the outline width, pixels (edit rule). */
    void setOutlineWidth(float width);
    /** @brief The background colour (default (0.165, 0.165, 0.165, 0.8)). */
    const Color& getBackgroundColor() const noexcept { return backgroundColor_; }
    /** @brief Sets the background colour (edit rule). */
    void setBackgroundColor(const Color& color);
    /** @brief The background padding, pixels: left, top, right, bottom (default (7, 5, 7, 5)). */
    const Vector4<float>& getBackgroundPadding() const noexcept { return backgroundPadding_; }
    /** @brief Sets the background padding (edit rule). */
    void setBackgroundPadding(const Vector4<float>& padding);
    /** @brief The offset of the label from its point, pixels right and up (default (0, 0)). */
    const Vector2<float>& getPixelOffset() const noexcept { return pixelOffset_; }
    /** @brief Sets the pixel offset (edit rule). */
    void setPixelOffset(const Vector2<float>& offset);
    /** @brief The horizontal origin (default value 0, centre). */
    HorizontalOrigin getHorizontalOrigin() const noexcept { return horizontalOrigin_; }
    /** @brief Sets the horizontal origin (edit rule). */
    void setHorizontalOrigin(const HorizontalOrigin& origin);
    /** @brief The vertical origin (default value 0, centre). */
    VerticalOrigin getVerticalOrigin() const noexcept { return verticalOrigin_; }
    /** @brief Sets the vertical origin (edit rule). */
    void setVerticalOrigin(const VerticalOrigin& origin);
    /** @brief Whether the label takes part in collision avoidance (default true). */
    bool getAvoidance() const noexcept { return avoidance_; }
    /** @brief Sets collision avoidance (edit rule). */
    void setAvoidance(bool avoidance);
    /** @brief The background image (default the empty path). */
    const ImageSource& getBackgroundImage() const noexcept { return backgroundImage_; }
    /** @brief Sets a background image path: equal only to the same path held as a path. */
    void setBackgroundImage(const std::string& path);
    /** @brief Sets a background image: equal only to the same image object. */
    void setBackgroundImage(std::shared_ptr<Image> image);
    /**
     * @brief Whether a hint line is drawn from the labelled point to the label (default false).
     * It is drawn with the hint line symbol's width and material, or 1 pixel wide in white
     * without one.
     */
    bool isShowHintLine() const noexcept { return showHintLine_; }
    /** @brief Turns the hint line on or off (edit rule). */
    void setShowHintLine(bool show);
    /** @brief How the hint line runs (default Straight). */
    HintLineMode getHintLineMode() const noexcept { return hintLineMode_; }
    /** @brief Sets how the hint line runs (edit rule; any 8-bit value is stored, others draw
     * Straight). */
    void setHintLineMode(HintLineMode mode);
    /** @brief The line symbol of the hint line, or null. */
    const std::shared_ptr<LineSymbol>& getHintLineSymbol() noexcept { return hintLineSymbol_; }
    /** @brief The line symbol of the hint line, or null. */
    const LineSymbol* getHintLineSymbol() const noexcept { return hintLineSymbol_.get(); }
    /**
     * @brief Sets the hint line symbol (null removes it): the same pointer changes nothing;
     * otherwise the old symbol is no longer relayed, the pointer is stored by the edit rule, and
     * the new symbol's events are relayed as this label's.
     */
    void setHintLineSymbol(std::shared_ptr<LineSymbol> symbol);
    /** @brief The camera distances at which the label is shown; empty: at every distance. */
    const std::optional<DistanceDisplayCondition>& getDistanceDisplayCondition() const noexcept {
        return distanceDisplayCondition_;
    }
    /** @brief Sets the distance display condition (edit rule; a NaN always counts as a change). */
    void setDistanceDisplayCondition(const std::optional<DistanceDisplayCondition>& condition);

    /**
     * @brief The text this label shows for @p feature. With a field name: the attribute of that
     * name as text (a string as it is, an integer in decimal, a floating value in its shortest
     * exact form, a bool as "true" or "false"); empty for a null, missing or other-typed
     * attribute. Without a field name: the feature's label text, else its name.
     */
    std::string _getText(const Feature& feature) const;
    /**
     * @brief Writes the label into @p graphics with the text @p text: font, size, scale, style
     * (fill and outline when the outline is shown, else fill), fill colour
     * (keo::Color::HIGHLIGHTCOLOR while the feature is highlighted), outline colour and width,
     * background (shown, colour, padding, image), pixel offset, origins, avoidance, the context's
     * height reference, and the distance display condition: the context's intersected with this
     * symbol's own (the larger near, the smaller far; whichever is present when one is missing).
     */
    void _fill(LabelGraphics& graphics, const SymbolContext& context, std::string text) const;
    /**
     * @brief Writes the hint line into @p graphics: the hint line symbol's width and material
     * (see LineSymbol::_fill), or 1 pixel and white without one (or without its material); the
     * screen-space vertices from the point to the label's pixel offset (with a bend for
     * HintLineMode::Elbow); the context's height reference, draped on the surfaces it names
     * (none for Absolute); the label's distance display condition (as _fill).
     */
    void _fillHintLine(PolylineGraphics& graphics, const SymbolContext& context) const;

private:
    std::optional<DistanceDisplayCondition> shownWithin(const SymbolContext& context) const;
    std::vector<Vector2<float>> hintLineOffsets() const;

    std::string fieldName_;
    std::string font_;
    float size_ = 12.0f;
    float scale_ = 1.0f;
    bool showOutline_ = true;
    bool showBackground_ = false;
    Color fillColor_ = Color::WHITE;
    Color outlineColor_ = Color::BLACK;
    float outlineWidth_ = 1.0f;
    Color backgroundColor_{0.165f, 0.165f, 0.165f, 0.8f};
    Vector4<float> backgroundPadding_{7.0f, 5.0f, 7.0f, 5.0f};
    Vector2<float> pixelOffset_{0.0f, 0.0f};
    HorizontalOrigin horizontalOrigin_{};
    VerticalOrigin verticalOrigin_{};
    bool avoidance_ = true;
    ImageSource backgroundImage_;
    bool showHintLine_ = false;
    HintLineMode hintLineMode_ = HintLineMode::Straight;
    std::shared_ptr<LineSymbol> hintLineSymbol_;
    std::optional<DistanceDisplayCondition> distanceDisplayCondition_;
    detail::SubscriptionPair hintLineSubscription_;
};

} // namespace keo::Feature
