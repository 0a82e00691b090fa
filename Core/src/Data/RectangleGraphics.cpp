#include "Data/RectangleGraphics.h"

#include "GraphicsSupport.h"

namespace keo {

RectangleGraphics::RectangleGraphics()
    : RectangleGraphics(ConstructorOptions()) {}

RectangleGraphics::RectangleGraphics(const ConstructorOptions& options)
    : GroundGeometryGraphics(Type::Rectangle, options, options, options) {
    setCoordinates(options.coordinates);
    setRotation(options.rotation);
}

RectangleGraphics::~RectangleGraphics() = default;

void RectangleGraphics::setCoordinates(const GlobeRectangle& coordinates) noexcept {
    fields_.coordinates = coordinates;
}

void RectangleGraphics::setRotation(Radian rotation) noexcept {
    detail::assignUnlessNan(fields_.rotation, rotation);
}

void RectangleGraphics::describe(FieldList& fields, const TimePoint& time) const {
    GroundGeometryGraphics::describe(fields, time);
    detail::addField(fields, "coordinates", fields_.coordinates);
    detail::addField(fields, "rotation", fields_.rotation);
}

} // namespace keo
