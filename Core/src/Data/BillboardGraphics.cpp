#include "Data/BillboardGraphics.h"

#include "GraphicsSupport.h"

#include <utility>

namespace keo {

BillboardGraphics::BillboardGraphics()
    : BillboardGraphics(ConstructorOptions()) {}

BillboardGraphics::BillboardGraphics(const ConstructorOptions& options)
    : GeometryGraphics(Type::Billboard, options) {
    setImage(options.image);
    setWidth(options.width);
    setHeight(options.height);
    setScale(options.scale);
    setColor(options.color);
    setHorizontalOrigin(options.horizontalOrigin);
    setVerticalOrigin(options.verticalOrigin);
    setPixelOffset(options.pixelOffset);
}

BillboardGraphics::~BillboardGraphics() = default;

void BillboardGraphics::setImage(ImageSource image) noexcept {
    fields_.image = std::move(image);
}

void BillboardGraphics::setWidth(const std::optional<float>& width) noexcept {
    detail::assignNonNegative(fields_.width, width);
}

void BillboardGraphics::setHeight(const std::optional<float>& height) noexcept {
    detail::assignNonNegative(fields_.height, height);
}

void BillboardGraphics::setScale(float scale) noexcept {
    detail::assignNonNegative(fields_.scale, scale);
}

void BillboardGraphics::setHorizontalOrigin(HorizontalOrigin origin) noexcept {
    detail::assignIfValid(fields_.horizontalOrigin, origin);
}

void BillboardGraphics::setVerticalOrigin(VerticalOrigin origin) noexcept {
    detail::assignIfValid(fields_.verticalOrigin, origin);
}

void BillboardGraphics::setPixelOffset(const Vector2<float>& offset) noexcept {
    detail::assignUnlessNan(fields_.pixelOffset, offset);
}

void BillboardGraphics::describe(FieldList& fields, const TimePoint& time) const {
    GeometryGraphics::describe(fields, time);
    detail::addField(fields, "image", fields_.image);
    detail::addField(fields, "width", fields_.width);
    detail::addField(fields, "height", fields_.height);
    detail::addField(fields, "scale", fields_.scale);
    detail::addField(fields, "color", fields_.color);
    detail::addField(fields, "horizontalOrigin", fields_.horizontalOrigin);
    detail::addField(fields, "verticalOrigin", fields_.verticalOrigin);
    detail::addField(fields, "pixelOffset", fields_.pixelOffset);
}

} // namespace keo
