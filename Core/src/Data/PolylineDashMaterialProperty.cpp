#include "Data/PolylineDashMaterialProperty.h"

#include "Data/FieldList.h"

namespace keo {

PolylineDashMaterialProperty::PolylineDashMaterialProperty() noexcept
    : PolylineDashMaterialProperty(ConstructorOptions{}) {}

PolylineDashMaterialProperty::PolylineDashMaterialProperty(
    const ConstructorOptions& options) noexcept
    : MaterialProperty(TYPE, options.color)
    , gapColor_(options.gapColor)
    , dashLength_(options.dashLength)
    , dashPattern_(options.dashPattern) {}

PolylineDashMaterialProperty::~PolylineDashMaterialProperty() = default;

void PolylineDashMaterialProperty::describe(FieldList& fields) const {
    MaterialProperty::describe(fields);
    fields.add("gapColor", gapColor_);
    fields.add("dashLength", dashLength_);
    fields.add("dashPattern", unsigned{dashPattern_});
}

} // namespace keo
