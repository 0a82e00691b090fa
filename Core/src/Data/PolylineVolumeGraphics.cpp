#include "Data/PolylineVolumeGraphics.h"

#include "GraphicsSupport.h"

#include <utility>

namespace keo {

PolylineVolumeGraphics::PolylineVolumeGraphics()
    : PolylineVolumeGraphics(ConstructorOptions()) {}

PolylineVolumeGraphics::PolylineVolumeGraphics(const ConstructorOptions& options)
    : FilledGeometryGraphics(Type::PolylineVolume, options, options)
    , fields_(options) {}

PolylineVolumeGraphics::~PolylineVolumeGraphics() = default;

void PolylineVolumeGraphics::setPositions(std::vector<Vector3<double>> positions) noexcept {
    fields_.positions = std::move(positions);
}

void PolylineVolumeGraphics::setShape(std::vector<Vector2<double>> shape) noexcept {
    fields_.shape = std::move(shape);
}

void PolylineVolumeGraphics::describe(FieldList& fields, const TimePoint& time) const {
    FilledGeometryGraphics::describe(fields, time);
    detail::addField(fields, "positions", fields_.positions);
    detail::addField(fields, "shape", fields_.shape);
    detail::addField(fields, "closeStart", fields_.closeStart);
    detail::addField(fields, "closeEnd", fields_.closeEnd);
}

} // namespace keo
