#include "Data/ColorMaterialProperty.h"

namespace keo {

ColorMaterialProperty::ColorMaterialProperty() noexcept
    : ColorMaterialProperty(ConstructorOptions{}) {}

ColorMaterialProperty::ColorMaterialProperty(const Color& color) noexcept
    : MaterialProperty(TYPE, color) {}

ColorMaterialProperty::ColorMaterialProperty(const ConstructorOptions& options) noexcept
    : MaterialProperty(TYPE, options.color) {}

ColorMaterialProperty::~ColorMaterialProperty() = default;

} // namespace keo
