#include "Data/MaterialProperty.h"

#include "Common/Math.h"
#include "Data/CircleWaveMaterialProperty.h"
#include "Data/ColorMaterialProperty.h"
#include "Data/FieldList.h"
#include "Data/Image.h"
#include "Data/ImageMaterialProperty.h"
#include "Data/PolylineArrowMaterialProperty.h"
#include "Data/PolylineDashMaterialProperty.h"
#include "Data/PolylineDynamicMaterialProperty.h"
#include "Data/PolylineGlowMaterialProperty.h"
#include "Data/PolylineOutlineMaterialProperty.h"
#include "Data/WallDynamicMaterialProperty.h"

#include <cmath>
#include <type_traits>

namespace keo {

namespace {

// The property as the kind Kind when its type matches, else null; keeps the constness of self.
template <typename Kind, typename Self>
auto castTo(Self* self) noexcept {
    using Result = std::conditional_t<std::is_const_v<Self>, const Kind*, Kind*>;
    return self->getType() == Kind::TYPE ? static_cast<Result>(self) : nullptr;
}

} // namespace

MaterialProperty::MaterialProperty(Type type, const Color& color) noexcept
    : type_(type)
    , color_(color) {}

MaterialProperty::~MaterialProperty() = default;

const char* MaterialProperty::typeName(Type type) noexcept {
    switch (type) {
    case Type::Color:
        return "ColorMaterialProperty";
    case Type::Image:
        return "ImageMaterialProperty";
    case Type::CircleWave:
        return "CircleWaveMaterialProperty";
    case Type::PolylineArrow:
        return "PolylineArrowMaterialProperty";
    case Type::PolylineDash:
        return "PolylineDashMaterialProperty";
    case Type::PolylineDynamic:
        return "PolylineDynamicMaterialProperty";
    case Type::PolylineGlow:
        return "PolylineGlowMaterialProperty";
    case Type::PolylineOutline:
        return "PolylineOutlineMaterialProperty";
    case Type::WallDynamic:
        return "WallDynamicMaterialProperty";
    }
    return "MaterialProperty";
}

double MaterialProperty::cycleFraction(double cyclesPerSecond, const TimePoint& time) noexcept {
    const double cycles = cyclesPerSecond * time.seconds();
    if (!std::isfinite(cycles)) {
        return 0.0;
    }
    const double fraction = cycles - std::floor(cycles);
    // Rounding can give exactly 1 for a tiny negative cycle count; that is the start of a cycle.
    return fraction < 1.0 ? fraction : 0.0;
}

float MaterialProperty::getBreathingAlpha(const TimePoint& time) const noexcept {
    if (!enableBreathing_ || !std::isfinite(breathingRate_) || !(breathingRate_ > 0.0f) ||
        !std::isfinite(time.seconds())) {
        return 1.0f;
    }
    const double fraction = cycleFraction(static_cast<double>(breathingRate_) / 60.0, time);
    return static_cast<float>(0.5 * (1.0 + std::cos(Math::TWO_PI * fraction)));
}

void MaterialProperty::describe(FieldList& fields) const {
    fields.add("color", color_);
    fields.add("enableBreathing", enableBreathing_);
    fields.add("breathingRate", breathingRate_);
}

void MaterialProperty::describeImage(FieldList& fields, std::string_view name,
                                     const ImageSource& image) {
    if (const auto* uri = std::get_if<std::string>(&image)) {
        fields.add(name, std::string_view(*uri));
        return;
    }
    const auto* decoded = std::get_if<std::shared_ptr<Image>>(&image);
    if (decoded == nullptr || *decoded == nullptr) {
        fields.addNull(name);
        return;
    }
    fields.addJson(name, "{\"width\": " + std::to_string((*decoded)->getWidth()) +
                             ", \"height\": " + std::to_string((*decoded)->getHeight()) + "}");
}

ColorMaterialProperty* MaterialProperty::asColorMaterialProperty() noexcept {
    return castTo<ColorMaterialProperty>(this);
}
const ColorMaterialProperty* MaterialProperty::asColorMaterialProperty() const noexcept {
    return castTo<ColorMaterialProperty>(this);
}
ImageMaterialProperty* MaterialProperty::asImageMaterialProperty() noexcept {
    return castTo<ImageMaterialProperty>(this);
}
const ImageMaterialProperty* MaterialProperty::asImageMaterialProperty() const noexcept {
    return castTo<ImageMaterialProperty>(this);
}
CircleWaveMaterialProperty* MaterialProperty::asCircleWaveMaterialProperty() noexcept {
    return castTo<CircleWaveMaterialProperty>(this);
}
const CircleWaveMaterialProperty* MaterialProperty::asCircleWaveMaterialProperty() const noexcept {
    return castTo<CircleWaveMaterialProperty>(this);
}
PolylineArrowMaterialProperty* MaterialProperty::asPolylineArrowMaterialProperty() noexcept {
    return castTo<PolylineArrowMaterialProperty>(this);
}
const PolylineArrowMaterialProperty*
MaterialProperty::asPolylineArrowMaterialProperty() const noexcept {
    return castTo<PolylineArrowMaterialProperty>(this);
}
PolylineDashMaterialProperty* MaterialProperty::asPolylineDashMaterialProperty() noexcept {
    return castTo<PolylineDashMaterialProperty>(this);
}
const PolylineDashMaterialProperty*
MaterialProperty::asPolylineDashMaterialProperty() const noexcept {
    return castTo<PolylineDashMaterialProperty>(this);
}
PolylineDynamicMaterialProperty* MaterialProperty::asPolylineDynamicMaterialProperty() noexcept {
    return castTo<PolylineDynamicMaterialProperty>(this);
}
const PolylineDynamicMaterialProperty*
MaterialProperty::asPolylineDynamicMaterialProperty() const noexcept {
    return castTo<PolylineDynamicMaterialProperty>(this);
}
PolylineGlowMaterialProperty* MaterialProperty::asPolylineGlowMaterialProperty() noexcept {
    return castTo<PolylineGlowMaterialProperty>(this);
}
const PolylineGlowMaterialProperty*
MaterialProperty::asPolylineGlowMaterialProperty() const noexcept {
    return castTo<PolylineGlowMaterialProperty>(this);
}
PolylineOutlineMaterialProperty* MaterialProperty::asPolylineOutlineMaterialProperty() noexcept {
    return castTo<PolylineOutlineMaterialProperty>(this);
}
const PolylineOutlineMaterialProperty*
MaterialProperty::asPolylineOutlineMaterialProperty() const noexcept {
    return castTo<PolylineOutlineMaterialProperty>(this);
}
WallDynamicMaterialProperty* MaterialProperty::asWallDynamicMaterialProperty() noexcept {
    return castTo<WallDynamicMaterialProperty>(this);
}
const WallDynamicMaterialProperty*
MaterialProperty::asWallDynamicMaterialProperty() const noexcept {
    return castTo<WallDynamicMaterialProperty>(this);
}

} // namespace keo
