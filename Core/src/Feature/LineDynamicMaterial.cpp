#include "Feature/LineDynamicMaterial.h"

#include "AssignSupport.h"
#include "MaterialSupport.h"

#include "Data/PolylineDynamicMaterialProperty.h"

namespace keo::Feature {

LineDynamicMaterial::LineDynamicMaterial() = default;

LineDynamicMaterial::LineDynamicMaterial(const std::string& image, const Color& color, float rate,
                                         float tileLength)
    : image_(image)
    , tileLength_(tileLength)
    , color_(color)
    , rate_(rate) {}

LineDynamicMaterial::LineDynamicMaterial(const LineDynamicMaterial& other) = default;

LineDynamicMaterial::~LineDynamicMaterial() = default;

void LineDynamicMaterial::assign(const Material& other) {
    detail::assignKind(*this, other, KEO_FEATURE_SITE("LineDynamicMaterial::assign"),
                       [this](const LineDynamicMaterial& source) {
                           setImage(source.image_);
                           setTileLength(source.tileLength_);
                           setColor(source.color_);
                           setRate(source.rate_);
                       });
}

std::shared_ptr<Material> LineDynamicMaterial::clone() const {
    return std::make_shared<LineDynamicMaterial>(*this);
}

Material::Type LineDynamicMaterial::getType() const {
    return Type::LineDynamic;
}

void LineDynamicMaterial::setImage(const ImageSource& image) {
    editField(image_, image);
}

void LineDynamicMaterial::setTileLength(float tileLength) {
    editField(tileLength_, tileLength);
}

void LineDynamicMaterial::setColor(const Color& color) {
    editField(color_, color);
}

void LineDynamicMaterial::setRate(float rate) {
    editField(rate_, rate);
}

void LineDynamicMaterial::updateImplMaterial(bool highlight) const {
    const Color& shown = shownColor(color_, highlight);
    refreshMaterial<PolylineDynamicMaterialProperty>(
        highlight,
        [&] {
            PolylineDynamicMaterialProperty::ConstructorOptions options;
            options.rate = rate_;
            options.image = image_;
            options.textureSize = tileLength_;
            options.color = shown;
            return options;
        },
        [this](PolylineDynamicMaterialProperty& property) {
            property.setRate(rate_);
            property.setImage(image_);
            property.setTextureSize(tileLength_);
        },
        [&shown](PolylineDynamicMaterialProperty& property) { property.setColor(shown); });
}

} // namespace keo::Feature
