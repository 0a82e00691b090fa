#include "Data/PolygonGraphics.h"

#include "GraphicsSupport.h"

#include <utility>

namespace keo {

PolygonGraphics::PolygonGraphics()
    : PolygonGraphics(ConstructorOptions()) {}

PolygonGraphics::PolygonGraphics(const ConstructorOptions& options)
    : GroundGeometryGraphics(Type::Polygon, options, options, options) {
    setHierarchy(options.hierarchy);
    setPerPositionHeight(options.perPositionHeight);
    setShadowVolumeHeightScale(options.shadowVolumeHeightScale);
}

PolygonGraphics::~PolygonGraphics() = default;

void PolygonGraphics::setHierarchy(PolygonHierarchy hierarchy) noexcept {
    fields_.hierarchy = std::move(hierarchy);
}

void PolygonGraphics::setShadowVolumeHeightScale(double scale) noexcept {
    detail::assignNonNegative(fields_.shadowVolumeHeightScale, scale);
}

void PolygonGraphics::describe(FieldList& fields, const TimePoint& time) const {
    GroundGeometryGraphics::describe(fields, time);
    detail::addField(fields, "hierarchy", fields_.hierarchy);
    detail::addField(fields, "perPositionHeight", fields_.perPositionHeight);
    detail::addField(fields, "shadowVolumeHeightScale", fields_.shadowVolumeHeightScale);
}

} // namespace keo
