#include "Feature/LineDashMaterial.h"

#include "AssignSupport.h"
#include "MaterialSupport.h"

#include "Data/PolylineDashMaterialProperty.h"

namespace keo::Feature {

LineDashMaterial::LineDashMaterial(const Color& color, const Color& gapColor,
                                   unsigned short dashPattern, float dashLength)
    : color_(color)
    , gapColor_(gapColor)
    , dashPattern_(dashPattern)
    , dashLength_(dashLength) {}

LineDashMaterial::LineDashMaterial(const LineDashMaterial& other) = default;

LineDashMaterial::~LineDashMaterial() = default;

void LineDashMaterial::assign(const Material& other) {
    detail::assignKind(*this, other, KEO_FEATURE_SITE("LineDashMaterial::assign"),
                       [this](const LineDashMaterial& source) {
                           setColor(source.color_);
                           setGapColor(source.gapColor_);
                           setDashPattern(source.dashPattern_);
                           setDashLength(source.dashLength_);
                       });
}

std::shared_ptr<Material> LineDashMaterial::clone() const {
    return std::make_shared<LineDashMaterial>(*this);
}

Material::Type LineDashMaterial::getType() const {
    return Type::LineDash;
}

void LineDashMaterial::setColor(const Color& color) {
    editField(color_, color);
}

void LineDashMaterial::setGapColor(const Color& gapColor) {
    editField(gapColor_, gapColor);
}

void LineDashMaterial::setDashPattern(unsigned short dashPattern) {
    editField(dashPattern_, dashPattern);
}

void LineDashMaterial::setDashLength(float dashLength) {
    editField(dashLength_, dashLength);
}

void LineDashMaterial::updateImplMaterial(bool highlight) const {
    const Color& shown = shownColor(color_, highlight);
    const Color& shownGap = shownColor(gapColor_, highlight);
    refreshMaterial<PolylineDashMaterialProperty>(
        highlight,
        [&] {
            PolylineDashMaterialProperty::ConstructorOptions options;
            options.color = shown;
            options.gapColor = shownGap;
            options.dashLength = dashLength_;
            options.dashPattern = dashPattern_;
            return options;
        },
        [&](PolylineDashMaterialProperty& property) {
            property.setGapColor(shownGap);
            property.setDashPattern(dashPattern_);
            property.setDashLength(dashLength_);
        },
        [&shown](PolylineDashMaterialProperty& property) { property.setColor(shown); });
}

} // namespace keo::Feature
