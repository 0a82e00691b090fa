#include "Data/PointGraphics.h"

#include "GraphicsSupport.h"

namespace keo {

PointGraphics::PointGraphics()
    : PointGraphics(ConstructorOptions()) {}

PointGraphics::PointGraphics(const ConstructorOptions& options)
    : GeometryGraphics(Type::Point, options) {
    setPixelSize(options.pixelSize);
    setColor(options.color);
    setOutlineColor(options.outlineColor);
    setOutlineWidth(options.outlineWidth);
}

PointGraphics::~PointGraphics() = default;

void PointGraphics::setPixelSize(float size) noexcept {
    detail::assignNonNegative(fields_.pixelSize, size);
}

void PointGraphics::setOutlineWidth(float width) noexcept {
    detail::assignNonNegative(fields_.outlineWidth, width);
}

void PointGraphics::describe(FieldList& fields, const TimePoint& time) const {
    GeometryGraphics::describe(fields, time);
    detail::addField(fields, "pixelSize", fields_.pixelSize);
    detail::addField(fields, "color", fields_.color);
    detail::addField(fields, "outlineColor", fields_.outlineColor);
    detail::addField(fields, "outlineWidth", fields_.outlineWidth);
}

} // namespace keo
