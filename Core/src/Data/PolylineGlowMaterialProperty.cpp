#include "Data/PolylineGlowMaterialProperty.h"

#include "Data/FieldList.h"

namespace keo {

PolylineGlowMaterialProperty::PolylineGlowMaterialProperty() noexcept
    : PolylineGlowMaterialProperty(ConstructorOptions{}) {}

PolylineGlowMaterialProperty::PolylineGlowMaterialProperty(
    const ConstructorOptions& options) noexcept
    : MaterialProperty(TYPE, options.color)
    , glowPower_(options.glowPower)
    , taperPower_(options.taperPower) {}

PolylineGlowMaterialProperty::~PolylineGlowMaterialProperty() = default;

void PolylineGlowMaterialProperty::describe(FieldList& fields) const {
    MaterialProperty::describe(fields);
    fields.add("glowPower", glowPower_);
    fields.add("taperPower", taperPower_);
}

} // namespace keo
