#pragma once

#include "Common/Color.h"
#include "Common/Vector2.h"
#include "Common/Vector4.h"
#include "Data/DataExport.h"
#include "Data/GeometryGraphics.h"
#include "Data/HorizontalOrigin.h"
#include "Data/ImageSource.h"
#include "Data/LabelStyle.h"
#include "Data/VerticalOrigin.h"

#include <memory>
#include <string>

namespace keo {

/**
 * @brief A text drawn facing the camera at its entity's position.
 *
 * The text (UTF-8) is set in the font at the font size in pixels, multiplied by the scale, and
 * painted as the label style says: filled, outlined or both. A background box (or image) may be
 * drawn behind it, grown by the padding. The origins say which point of the text sits on the
 * anchor: the entity's position on screen moved by the pixel offset (x to the right, y up).
 */
class KEO_DATA_API LabelGraphics final : public GeometryGraphics {
public:
    /** @brief The label's own fields, with their defaults. */
    struct Fields {
        /** @brief The text, UTF-8; empty: nothing is drawn. */
        std::string text;
        /** @brief The font family. */
        std::string font = "sans-serif";
        /** @brief The font size, pixels. */
        float fontSize = 30.0f;
        /** @brief Factor applied to the text size. */
        float scale = 1.0f;
        /** @brief How the glyphs are painted. */
        LabelStyle style = LabelStyle::Fill;
        /** @brief Fill colour of the glyphs. */
        Color fillColor = Color(1.0f, 1.0f, 1.0f, 1.0f);
        /** @brief Outline colour of the glyphs. */
        Color outlineColor = Color(0.0f, 0.0f, 0.0f, 1.0f);
        /** @brief Outline width of the glyphs, pixels. */
        float outlineWidth = 1.0f;
        /** @brief Whether the background box is drawn. */
        bool showBackground = false;
        /** @brief Colour of the background box: dark grey, 80 % opaque. */
        Color backgroundColor = Color(0.165f, 0.165f, 0.165f, 0.8f);
        /** @brief Space around the text inside the box, pixels: left, top, right, bottom. */
        Vector4<float> backgroundPadding = Vector4<float>(7.0f, 5.0f, 7.0f, 5.0f);
        /** @brief Image stretched over the background box; an empty URI: none. */
        ImageSource backgroundImage;
        /** @brief Offset of the anchor from the entity's position on screen, pixels. */
        Vector2<float> pixelOffset;
        /** @brief Which horizontal point of the text sits on the anchor. */
        HorizontalOrigin horizontalOrigin = HorizontalOrigin::Center;
        /** @brief Which vertical point of the text sits on the anchor. */
        VerticalOrigin verticalOrigin = VerticalOrigin::Center;
        /** @brief Whether the label hides when it overlaps another label that avoids overlaps. */
        bool avoidance = true;
        /** @brief Whether the label is drawn over terrain and models instead of behind them. */
        bool overlay = false;
    };
    /** @brief Everything a label is made from: common and label fields. */
    struct ConstructorOptions : CommonOptions, Fields {};

    /** @brief A label of the default options (no text). */
    LabelGraphics();
    /** @brief A label of @p options; values follow the setters' rules. */
    explicit LabelGraphics(const ConstructorOptions& options);
    ~LabelGraphics() override;

    /** @brief Whether @p type is Type::Label. */
    static constexpr bool isKindOf(Type type) noexcept { return type == Type::Label; }

    /** @brief The text (default empty). */
    const std::string& getText() const noexcept { return fields_.text; }
    /** @brief Sets the text, UTF-8 (stored as given). */
    void setText(std::string text) noexcept;
    /** @brief The font family (default "sans-serif"). */
    const std::string& getFont() const noexcept { return fields_.font; }
    /** @brief Sets the font family (stored as given; an unknown font falls back to the default). */
    void setFont(std::string font) noexcept;
    /** @brief The font size, pixels (default 30). */
    float getFontSize() const noexcept { return fields_.fontSize; }
    /** @brief Sets the font size, pixels; NaN is ignored, a negative size becomes 0. */
    void setFontSize(float size) noexcept;
    /** @brief The scale (default 1). */
    float getScale() const noexcept { return fields_.scale; }
    /** @brief Sets the scale; NaN is ignored, a negative scale becomes 0. */
    void setScale(float scale) noexcept;
    /** @brief The label style (default Fill). */
    LabelStyle getStyle() const noexcept { return fields_.style; }
    /** @brief Sets the label style; a value outside LabelStyle is ignored. */
    void setStyle(LabelStyle style) noexcept;
    /** @brief The fill colour (default opaque white). */
    const Color& getFillColor() const noexcept { return fields_.fillColor; }
    /** @brief Sets the fill colour (stored as given). */
    void setFillColor(const Color& color) noexcept { fields_.fillColor = color; }
    /** @brief The outline colour (default opaque black). */
    const Color& getOutlineColor() const noexcept { return fields_.outlineColor; }
    /** @brief Sets the outline colour (stored as given). */
    void setOutlineColor(const Color& color) noexcept { fields_.outlineColor = color; }
    /** @brief The outline width, pixels (default 1). */
    float getOutlineWidth() const noexcept { return fields_.outlineWidth; }
    /** @brief Sets the outline width, pixels; NaN is ignored, a negative width becomes 0. */
    void setOutlineWidth(float width) noexcept;
    /** @brief Whether the background box is drawn (default false). */
    bool getShowBackground() const noexcept { return fields_.showBackground; }
    /** @brief Draws the background box, or not. */
    void setShowBackground(bool show) noexcept { fields_.showBackground = show; }
    /** @brief The background colour (default dark grey, 80 % opaque). */
    const Color& getBackgroundColor() const noexcept { return background().color; }
    /** @brief Sets the background colour (stored as given). */
    void setBackgroundColor(const Color& color);
    /** @brief The background padding, pixels (default (7, 5, 7, 5)). */
    const Vector4<float>& getBackgroundPadding() const noexcept { return background().padding; }
    /**
     * @brief Sets the background padding (left, top, right, bottom), pixels; a padding with a NaN
     * is ignored, negative components become 0.
     */
    void setBackgroundPadding(const Vector4<float>& padding);
    /** @brief The background image (default an empty URI: none). */
    const ImageSource& getBackgroundImage() const noexcept { return background().image; }
    /** @brief Sets the background image: a URI or a decoded image (shared with the caller). */
    void setBackgroundImage(ImageSource image);
    /** @brief The pixel offset (default (0, 0)). */
    const Vector2<float>& getPixelOffset() const noexcept { return fields_.pixelOffset; }
    /** @brief Sets the pixel offset (x right, y up); an offset with a NaN is ignored. */
    void setPixelOffset(const Vector2<float>& offset) noexcept;
    /** @brief The horizontal origin (default Center). */
    HorizontalOrigin getHorizontalOrigin() const noexcept { return fields_.horizontalOrigin; }
    /** @brief Sets the horizontal origin; a value outside HorizontalOrigin is ignored. */
    void setHorizontalOrigin(HorizontalOrigin origin) noexcept;
    /** @brief The vertical origin (default Center). */
    VerticalOrigin getVerticalOrigin() const noexcept { return fields_.verticalOrigin; }
    /** @brief Sets the vertical origin; a value outside VerticalOrigin is ignored. */
    void setVerticalOrigin(VerticalOrigin origin) noexcept;
    /** @brief Whether the label takes part in overlap avoidance (default true). */
    bool getAvoidance() const noexcept { return fields_.avoidance; }
    /** @brief Lets the label take part in overlap avoidance, or not. */
    void setAvoidance(bool avoidance) noexcept { fields_.avoidance = avoidance; }
    /** @brief Whether the label is drawn over terrain and models (default false). */
    bool isOverlay() const noexcept { return fields_.overlay; }
    /** @brief Draws the label over terrain and models, or lets them hide it. */
    void setOverlay(bool overlay) noexcept { fields_.overlay = overlay; }

    /** @brief Writes the common fields, then the label's. */
    void describe(FieldList& fields, const TimePoint& time) const override;

private:
    // The background box's look: held apart and made when a value other than the default is
    // first set, since most labels never show a box.
    struct Background {
        Color color = Fields().backgroundColor;
        Vector4<float> padding = Fields().backgroundPadding;
        ImageSource image;
    };
    // The label's fields but the background's look, ordered to leave no padding.
    struct Stored {
        std::string text;
        std::string font = Fields().font;
        Color fillColor = Fields().fillColor;
        Color outlineColor = Fields().outlineColor;
        float fontSize = Fields().fontSize;
        float scale = Fields().scale;
        float outlineWidth = Fields().outlineWidth;
        Vector2<float> pixelOffset;
        LabelStyle style = LabelStyle::Fill;
        HorizontalOrigin horizontalOrigin = HorizontalOrigin::Center;
        VerticalOrigin verticalOrigin = VerticalOrigin::Center;
        bool showBackground = false;
        bool avoidance = true;
        bool overlay = false;
    };

    const Background& background() const noexcept;
    Background& ownBackground();

    Stored fields_;
    std::unique_ptr<Background> background_;
};

} // namespace keo
