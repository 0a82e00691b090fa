#include "Data/FilledGeometryGraphics.h"

#include "GraphicsSupport.h"

namespace keo {

FilledGeometryGraphics::FilledGeometryGraphics(Type type, const CommonOptions& common,
                                               const FillOptions& fill)
    : GeometryGraphics(type, common) {
    setFill(fill.fill);
    setOutline(fill.outline);
    setOutlineColor(fill.outlineColor);
    setOutlineWidth(fill.outlineWidth);
}

FilledGeometryGraphics::~FilledGeometryGraphics() = default;

void FilledGeometryGraphics::setOutlineWidth(float width) noexcept {
    detail::assignNonNegative(fill_.outlineWidth, width);
}

void FilledGeometryGraphics::describe(FieldList& fields, const TimePoint& time) const {
    GeometryGraphics::describe(fields, time);
    detail::addField(fields, "fill", fill_.fill);
    detail::addField(fields, "outline", fill_.outline);
    detail::addField(fields, "outlineColor", fill_.outlineColor);
    detail::addField(fields, "outlineWidth", fill_.outlineWidth);
}

} // namespace keo
