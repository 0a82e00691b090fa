#include "Data/WallDynamicMaterialProperty.h"

#include "Data/FieldList.h"

#include <cmath>

namespace keo {

WallDynamicMaterialProperty::WallDynamicMaterialProperty()
    : WallDynamicMaterialProperty(ConstructorOptions{}) {}

WallDynamicMaterialProperty::WallDynamicMaterialProperty(const ConstructorOptions& options)
    : MaterialProperty(TYPE, options.color)
    , rate_(options.rate)
    , image_(options.image)
    , repeat_(options.repeat)
    , movementDirection_(options.movementDirection)
    , dynamic_(options.dynamic) {}

WallDynamicMaterialProperty::~WallDynamicMaterialProperty() = default;

Vector2<float> WallDynamicMaterialProperty::getTextureOffset(const TimePoint& time) const noexcept {
    const Vector2<double> direction{static_cast<double>(movementDirection_.x),
                                    static_cast<double>(movementDirection_.y)};
    const double length = direction.magnitude();
    if (!dynamic_ || !std::isfinite(length) || !(length > 0.0)) {
        return {0.0f, 0.0f};
    }
    const double fraction = cycleFraction(static_cast<double>(rate_) / 60.0, time);
    const Vector2<double> offset = direction * (fraction / length);
    return {static_cast<float>(offset.x), static_cast<float>(offset.y)};
}

void WallDynamicMaterialProperty::describe(FieldList& fields) const {
    MaterialProperty::describe(fields);
    fields.add("rate", rate_);
    describeImage(fields, "image", image_);
    fields.add("repeat", repeat_);
    fields.add("movementDirection", movementDirection_);
    fields.add("dynamic", dynamic_);
}

} // namespace keo
