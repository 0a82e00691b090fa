#include "Feature/LineGlowMaterial.h"

#include "AssignSupport.h"
#include "MaterialSupport.h"

#include "Data/PolylineGlowMaterialProperty.h"

namespace keo::Feature {

LineGlowMaterial::LineGlowMaterial(const Color& color, float glowPower, float taperPower)
    : color_(color)
    , glowPower_(glowPower)
    , taperPower_(taperPower) {}

LineGlowMaterial::LineGlowMaterial(const LineGlowMaterial& other) = default;

LineGlowMaterial::~LineGlowMaterial() = default;

void LineGlowMaterial::assign(const Material& other) {
    detail::assignKind(*this, other, KEO_FEATURE_SITE("LineGlowMaterial::assign"),
                       [this](const LineGlowMaterial& source) {
                           setColor(source.color_);
                           setGlowPower(source.glowPower_);
                           setTaperPower(source.taperPower_);
                       });
}

std::shared_ptr<Material> LineGlowMaterial::clone() const {
    return std::make_shared<LineGlowMaterial>(*this);
}

Material::Type LineGlowMaterial::getType() const {
    return Type::LineGlow;
}

void LineGlowMaterial::setColor(const Color& color) {
    editField(color_, color);
}

void LineGlowMaterial::setGlowPower(float glowPower) {
    editField(glowPower_, glowPower);
}

void LineGlowMaterial::setTaperPower(float taperPower) {
    editField(taperPower_, taperPower);
}

void LineGlowMaterial::updateImplMaterial(bool highlight) const {
    const Color& shown = shownColor(color_, highlight);
    refreshMaterial<PolylineGlowMaterialProperty>(
        highlight,
        [&] {
            return PolylineGlowMaterialProperty::ConstructorOptions{shown, glowPower_, taperPower_};
        },
        [this](PolylineGlowMaterialProperty& property) {
            property.setGlowPower(glowPower_);
            property.setTaperPower(taperPower_);
        },
        [&shown](PolylineGlowMaterialProperty& property) { property.setColor(shown); });
}

} // namespace keo::Feature
