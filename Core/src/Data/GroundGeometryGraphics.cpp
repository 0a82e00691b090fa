#include "Data/GroundGeometryGraphics.h"

#include "GraphicsSupport.h"

namespace keo {

GroundGeometryGraphics::GroundGeometryGraphics(Type type, const CommonOptions& common,
                                               const FillOptions& fill, const GroundOptions& ground)
    : FilledGeometryGraphics(type, common, fill) {
    setHeight(ground.height);
    setExtrudedHeight(ground.extrudedHeight);
    setGranularity(ground.granularity);
    setStRotation(ground.stRotation);
}

GroundGeometryGraphics::~GroundGeometryGraphics() = default;

void GroundGeometryGraphics::setHeight(double height) noexcept {
    detail::assignUnlessNan(ground_.height, height);
}

void GroundGeometryGraphics::setExtrudedHeight(const std::optional<double>& height) noexcept {
    if (!height) {
        ground_.extrudedHeight.reset();
    } else if (!detail::isNan(*height)) {
        ground_.extrudedHeight = height;
    }
}

void GroundGeometryGraphics::setGranularity(double granularity) noexcept {
    detail::assignPositive(ground_.granularity, granularity);
}

void GroundGeometryGraphics::setStRotation(Radian rotation) noexcept {
    detail::assignUnlessNan(ground_.stRotation, rotation);
}

void GroundGeometryGraphics::describe(FieldList& fields, const TimePoint& time) const {
    FilledGeometryGraphics::describe(fields, time);
    detail::addField(fields, "height", ground_.height);
    detail::addField(fields, "extrudedHeight", ground_.extrudedHeight);
    detail::addField(fields, "granularity", ground_.granularity);
    detail::addField(fields, "stRotation", ground_.stRotation);
}

} // namespace keo
