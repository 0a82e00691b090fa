#include "Data/LabelGraphics.h"

#include "GraphicsSupport.h"

#include <utility>

namespace keo {

LabelGraphics::LabelGraphics()
    : LabelGraphics(ConstructorOptions()) {}

LabelGraphics::LabelGraphics(const ConstructorOptions& options)
    : GeometryGraphics(Type::Label, options) {
    setText(options.text);
    setFont(options.font);
    setFontSize(options.fontSize);
    setScale(options.scale);
    setStyle(options.style);
    setFillColor(options.fillColor);
    setOutlineColor(options.outlineColor);
    setOutlineWidth(options.outlineWidth);
    setShowBackground(options.showBackground);
    setBackgroundColor(options.backgroundColor);
    setBackgroundPadding(options.backgroundPadding);
    setBackgroundImage(options.backgroundImage);
    setPixelOffset(options.pixelOffset);
    setHorizontalOrigin(options.horizontalOrigin);
    setVerticalOrigin(options.verticalOrigin);
    setAvoidance(options.avoidance);
    setOverlay(options.overlay);
}

LabelGraphics::~LabelGraphics() = default;

void LabelGraphics::setText(std::string text) noexcept {
    fields_.text = std::move(text);
}

void LabelGraphics::setFont(std::string font) noexcept {
    fields_.font = std::move(font);
}

void LabelGraphics::setFontSize(float size) noexcept {
    detail::assignNonNegative(fields_.fontSize, size);
}

void LabelGraphics::setScale(float scale) noexcept {
    detail::assignNonNegative(fields_.scale, scale);
}

void LabelGraphics::setStyle(LabelStyle style) noexcept {
    detail::assignIfValid(fields_.style, style);
}

void LabelGraphics::setOutlineWidth(float width) noexcept {
    detail::assignNonNegative(fields_.outlineWidth, width);
}

const LabelGraphics::Background& LabelGraphics::background() const noexcept {
    static const Background none;
    return background_ ? *background_ : none;
}

LabelGraphics::Background& LabelGraphics::ownBackground() {
    if (!background_) {
        background_ = std::make_unique<Background>();
    }
    return *background_;
}

void LabelGraphics::setBackgroundColor(const Color& color) {
    if (background_ || color != background().color) {
        ownBackground().color = color;
    }
}

void LabelGraphics::setBackgroundPadding(const Vector4<float>& padding) {
    Vector4<float> stored = background().padding;
    detail::assignNonNegative(stored, padding);
    if (background_ || stored != background().padding) {
        ownBackground().padding = stored;
    }
}

void LabelGraphics::setBackgroundImage(ImageSource image) {
    if (background_ || image != background().image) {
        ownBackground().image = std::move(image);
    }
}

void LabelGraphics::setPixelOffset(const Vector2<float>& offset) noexcept {
    detail::assignUnlessNan(fields_.pixelOffset, offset);
}

void LabelGraphics::setHorizontalOrigin(HorizontalOrigin origin) noexcept {
    detail::assignIfValid(fields_.horizontalOrigin, origin);
}

void LabelGraphics::setVerticalOrigin(VerticalOrigin origin) noexcept {
    detail::assignIfValid(fields_.verticalOrigin, origin);
}

void LabelGraphics::describe(FieldList& fields, const TimePoint& time) const {
    GeometryGraphics::describe(fields, time);
    detail::addField(fields, "text", fields_.text);
    detail::addField(fields, "font", fields_.font);
    detail::addField(fields, "fontSize", fields_.fontSize);
    detail::addField(fields, "scale", fields_.scale);
    detail::addField(fields, "style", fields_.style);
    detail::addField(fields, "fillColor", fields_.fillColor);
    detail::addField(fields, "outlineColor", fields_.outlineColor);
    detail::addField(fields, "outlineWidth", fields_.outlineWidth);
    detail::addField(fields, "showBackground", fields_.showBackground);
    detail::addField(fields, "backgroundColor", background().color);
    detail::addField(fields, "backgroundPadding", background().padding);
    detail::addField(fields, "backgroundImage", background().image);
    detail::addField(fields, "pixelOffset", fields_.pixelOffset);
    detail::addField(fields, "horizontalOrigin", fields_.horizontalOrigin);
    detail::addField(fields, "verticalOrigin", fields_.verticalOrigin);
    detail::addField(fields, "avoidance", fields_.avoidance);
    detail::addField(fields, "overlay", fields_.overlay);
}

} // namespace keo
