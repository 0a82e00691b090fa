#include "Data/PolylineArrowMaterialProperty.h"

namespace keo {

PolylineArrowMaterialProperty::PolylineArrowMaterialProperty() noexcept
    : PolylineArrowMaterialProperty(ConstructorOptions{}) {}

PolylineArrowMaterialProperty::PolylineArrowMaterialProperty(
    const ConstructorOptions& options) noexcept
    : MaterialProperty(TYPE, options.color) {}

PolylineArrowMaterialProperty::~PolylineArrowMaterialProperty() = default;

} // namespace keo
