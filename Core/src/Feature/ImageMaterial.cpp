#include "Feature/ImageMaterial.h"

#include "AssignSupport.h"
#include "MaterialSupport.h"
#include "TileRepeat.h"

#include "Common/Matrix2.h"
#include "Data/ImageMaterialProperty.h"

namespace keo::Feature {

ImageMaterial::ImageMaterial() = default;

ImageMaterial::ImageMaterial(const std::string& image, const Vector2<float>& tileSize,
                             const Color& color)
    : image_(image)
    , tileSize_(tileSize)
    , color_(color) {}

ImageMaterial::ImageMaterial(const ImageMaterial& other)
    : Material(other)
    , image_(other.image_)
    , tileSize_(other.tileSize_)
    , tileSizeUnit_(other.tileSizeUnit_)
    , offset_(other.offset_)
    , rotation_(other.rotation_)
    , color_(other.color_) {}

ImageMaterial::~ImageMaterial() = default;

void ImageMaterial::assign(const Material& other) {
    detail::assignKind(*this, other, KEO_FEATURE_SITE("ImageMaterial::assign"),
                       [this](const ImageMaterial& source) {
                           setImage(source.image_);
                           setTileSize(source.tileSize_);
                           setTileSizeUnit(source.tileSizeUnit_);
                           setOffset(source.offset_);
                           setRotation(source.rotation_);
                           setColor(source.color_);
                       });
}

std::shared_ptr<Material> ImageMaterial::clone() const {
    return std::make_shared<ImageMaterial>(*this);
}

Material::Type ImageMaterial::getType() const {
    return Type::Image;
}

void ImageMaterial::update(GeometryGraphics& graphics, bool highlight) const {
    repeat_ = detail::tileRepeat(graphics, tileSize_, tileSizeUnit_, repeat_);
    Material::update(graphics, highlight);
}

void ImageMaterial::setImage(const ImageSource& image) {
    editField(image_, image);
}

void ImageMaterial::setTileSize(const Vector2<float>& tileSize) {
    editField(tileSize_, tileSize);
}

void ImageMaterial::setTileSizeUnit(ImageTileSizeUnit unit) {
    editField(tileSizeUnit_, unit);
}

void ImageMaterial::setOffset(const Vector2<float>& offset) {
    editField(offset_, offset);
}

void ImageMaterial::setRotation(const Radian& rotation) {
    editField(rotation_, rotation);
}

void ImageMaterial::setColor(const Color& color) {
    editField(color_, color);
}

void ImageMaterial::updateImplMaterial(bool highlight) const {
    const Color& shown = shownColor(color_, highlight);
    refreshMaterial<ImageMaterialProperty>(
        highlight,
        [&] {
            ImageMaterialProperty::ConstructorOptions options;
            options.image = image_;
            options.repeat = repeat_;
            options.offset = offset_;
            options.matrix = Matrix2::fromRotation(rotation_);
            options.color = shown;
            return options;
        },
        [this](ImageMaterialProperty& property) {
            property.setImage(image_);
            property.setOffset(offset_);
            // A refresh turns the texture by the opposite angle to the first build; both signs
            // are intended (see the class description).
            property.setMatrix(Matrix2::fromRotation(-rotation_));
        },
        [&](ImageMaterialProperty& property) {
            property.setRepeat(repeat_);
            property.setColor(shown);
        });
}

} // namespace keo::Feature
