#include "Data/EllipseGraphics.h"

#include "GraphicsSupport.h"

namespace keo {

EllipseGraphics::EllipseGraphics()
    : EllipseGraphics(ConstructorOptions()) {}

EllipseGraphics::EllipseGraphics(const ConstructorOptions& options)
    : GroundGeometryGraphics(Type::Ellipse, options, options, options) {
    setSemiMajorAxis(options.semiMajorAxis);
    setSemiMinorAxis(options.semiMinorAxis);
    setRotation(options.rotation);
}

EllipseGraphics::~EllipseGraphics() = default;

void EllipseGraphics::setSemiMajorAxis(double length) noexcept {
    detail::assignNonNegative(fields_.semiMajorAxis, length);
}

void EllipseGraphics::setSemiMinorAxis(double length) noexcept {
    detail::assignNonNegative(fields_.semiMinorAxis, length);
}

void EllipseGraphics::setRotation(Radian rotation) noexcept {
    detail::assignUnlessNan(fields_.rotation, rotation);
}

void EllipseGraphics::describe(FieldList& fields, const TimePoint& time) const {
    GroundGeometryGraphics::describe(fields, time);
    detail::addField(fields, "semiMajorAxis", fields_.semiMajorAxis);
    detail::addField(fields, "semiMinorAxis", fields_.semiMinorAxis);
    detail::addField(fields, "rotation", fields_.rotation);
}

} // namespace keo
