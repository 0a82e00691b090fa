#include "Data/PolylineOutlineMaterialProperty.h"

#include "Data/FieldList.h"

namespace keo {

PolylineOutlineMaterialProperty::PolylineOutlineMaterialProperty() noexcept
    : PolylineOutlineMaterialProperty(ConstructorOptions{}) {}

PolylineOutlineMaterialProperty::PolylineOutlineMaterialProperty(
    const ConstructorOptions& options) noexcept
    : MaterialProperty(TYPE, options.color)
    , outlineColor_(options.outlineColor)
    , outlineWidth_(options.outlineWidth) {}

PolylineOutlineMaterialProperty::~PolylineOutlineMaterialProperty() = default;

void PolylineOutlineMaterialProperty::describe(FieldList& fields) const {
    MaterialProperty::describe(fields);
    fields.add("outlineColor", outlineColor_);
    fields.add("outlineWidth", outlineWidth_);
}

} // namespace keo
