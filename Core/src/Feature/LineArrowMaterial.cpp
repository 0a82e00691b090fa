#include "Feature/LineArrowMaterial.h"

#include "AssignSupport.h"
#include "MaterialSupport.h"

#include "Data/PolylineArrowMaterialProperty.h"

namespace keo::Feature {

LineArrowMaterial::LineArrowMaterial(const Color& color)
    : color_(color) {}

LineArrowMaterial::LineArrowMaterial(const LineArrowMaterial& other) = default;

LineArrowMaterial::~LineArrowMaterial() = default;

void LineArrowMaterial::assign(const Material& other) {
    detail::assignKind(*this, other, KEO_FEATURE_SITE("LineArrowMaterial::assign"),
                       [this](const LineArrowMaterial& source) { setColor(source.color_); });
}

std::shared_ptr<Material> LineArrowMaterial::clone() const {
    return std::make_shared<LineArrowMaterial>(*this);
}

Material::Type LineArrowMaterial::getType() const {
    return Type::LineArrow;
}

void LineArrowMaterial::setColor(const Color& color) {
    editField(color_, color);
}

void LineArrowMaterial::updateImplMaterial(bool highlight) const {
    const Color& shown = shownColor(color_, highlight);
    refreshMaterial<PolylineArrowMaterialProperty>(
        highlight, [&shown] { return PolylineArrowMaterialProperty::ConstructorOptions{shown}; },
        [](PolylineArrowMaterialProperty&) {},
        [&shown](PolylineArrowMaterialProperty& property) { property.setColor(shown); });
}

} // namespace keo::Feature
