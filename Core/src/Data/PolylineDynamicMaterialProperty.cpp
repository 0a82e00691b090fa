#include "Data/PolylineDynamicMaterialProperty.h"

#include "Data/FieldList.h"

namespace keo {

PolylineDynamicMaterialProperty::PolylineDynamicMaterialProperty()
    : PolylineDynamicMaterialProperty(ConstructorOptions{}) {}

PolylineDynamicMaterialProperty::PolylineDynamicMaterialProperty(const ConstructorOptions& options)
    : MaterialProperty(TYPE, options.color)
    , rate_(options.rate)
    , image_(options.image)
    , textureSize_(options.textureSize) {}

PolylineDynamicMaterialProperty::~PolylineDynamicMaterialProperty() = default;

double PolylineDynamicMaterialProperty::getTextureOffset(const TimePoint& time) const noexcept {
    return cycleFraction(static_cast<double>(rate_) / 60.0, time);
}

void PolylineDynamicMaterialProperty::describe(FieldList& fields) const {
    MaterialProperty::describe(fields);
    fields.add("rate", rate_);
    describeImage(fields, "image", image_);
    fields.add("textureSize", textureSize_);
}

} // namespace keo
