#include "Feature/ColorMaterial.h"

#include "AssignSupport.h"
#include "MaterialSupport.h"

#include "Data/ColorMaterialProperty.h"

namespace keo::Feature {

ColorMaterial::ColorMaterial() = default;

ColorMaterial::ColorMaterial(const Color& color)
    : color_(color) {}

ColorMaterial::ColorMaterial(const ColorMaterial& other) = default;

ColorMaterial::~ColorMaterial() = default;

void ColorMaterial::assign(const Material& other) {
    detail::assignKind(*this, other, KEO_FEATURE_SITE("ColorMaterial::assign"),
                       [this](const ColorMaterial& source) { setColor(source.color_); });
}

std::shared_ptr<Material> ColorMaterial::clone() const {
    return std::make_shared<ColorMaterial>(*this);
}

Material::Type ColorMaterial::getType() const {
    return Type::Color;
}

void ColorMaterial::setColor(const Color& color) {
    editField(color_, color);
}

void ColorMaterial::updateImplMaterial(bool highlight) const {
    const Color& shown = shownColor(color_, highlight);
    refreshMaterial<ColorMaterialProperty>(
        highlight, [&shown] { return shown; }, [](ColorMaterialProperty&) {},
        [&shown](ColorMaterialProperty& property) { property.setColor(shown); });
}

} // namespace keo::Feature
