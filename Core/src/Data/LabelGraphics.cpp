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

void LabelGraphics::setBackgroundPadding(const Vector4<float>& padding) noexcept {
    detail::assignNonNegative(fields_.backgroundPadding, padding);
}

void LabelGraphics::setBackgroundImage(ImageSource image) noexcept {
    fields_.backgroundImage = std::move(image);
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
    detail::addField(fields, "backgroundColor", fields_.backgroundColor);
    detail::addField(fields, "backgroundPadding", fields_.backgroundPadding);
    detail::addField(fields, "backgroundImage", fields_.backgroundImage);
    detail::addField(fields, "pixelOffset", fields_.pixelOffset);
    detail::addField(fields, "horizontalOrigin", fields_.horizontalOrigin);
    detail::addField(fields, "verticalOrigin", fields_.verticalOrigin);
    detail::addField(fields, "avoidance", fields_.avoidance);
    detail::addField(fields, "overlay", fields_.overlay);
}

} // namespace keo
