#include "Feature/LineOutlineMaterial.h"

#include "AssignSupport.h"
#include "MaterialSupport.h"

#include "Data/PolylineOutlineMaterialProperty.h"

namespace keo::Feature {

LineOutlineMaterial::LineOutlineMaterial(const Color& color, const Color& outlineColor,
                                         float outlineWidth)
    : color_(color)
    , outlineColor_(outlineColor)
    , outlineWidth_(outlineWidth) {}

LineOutlineMaterial::LineOutlineMaterial(const LineOutlineMaterial& other) = default;

LineOutlineMaterial::~LineOutlineMaterial() = default;

void LineOutlineMaterial::assign(const Material& other) {
    detail::assignKind(*this, other, KEO_FEATURE_SITE("LineOutlineMaterial::assign"),
                       [this](const LineOutlineMaterial& source) {
                           setColor(source.color_);
                           setOutlineColor(source.outlineColor_);
                           setOutlineWidth(source.outlineWidth_);
                       });
}

std::shared_ptr<Material> LineOutlineMaterial::clone() const {
    return std::make_shared<LineOutlineMaterial>(*this);
}

Material::Type LineOutlineMaterial::getType() const {
    return Type::LineOutline;
}

void LineOutlineMaterial::setColor(const Color& color) {
    editField(color_, color);
}

void LineOutlineMaterial::setOutlineColor(const Color& outlineColor) {
    editField(outlineColor_, outlineColor);
}

void LineOutlineMaterial::setOutlineWidth(float outlineWidth) {
    editField(outlineWidth_, outlineWidth);
}

void LineOutlineMaterial::updateImplMaterial(bool highlight) const {
    const Color& shown = shownColor(color_, highlight);
    const Color& shownOutline = shownColor(outlineColor_, highlight);
    refreshMaterial<PolylineOutlineMaterialProperty>(
        highlight,
        [&] {
            return PolylineOutlineMaterialProperty::ConstructorOptions{shown, shownOutline,
                                                                       outlineWidth_};
        },
        [&](PolylineOutlineMaterialProperty& property) {
            property.setOutlineColor(shownOutline);
            property.setOutlineWidth(outlineWidth_);
        },
        [&shown](PolylineOutlineMaterialProperty& property) { property.setColor(shown); });
}

} // namespace keo::Feature
