#include "Feature/PolygonDynamicMaterial.h"

#include "AssignSupport.h"
#include "MaterialSupport.h"
#include "TileRepeat.h"

#include "Data/WallDynamicMaterialProperty.h"

namespace keo::Feature {

PolygonDynamicMaterial::PolygonDynamicMaterial() = default;

PolygonDynamicMaterial::PolygonDynamicMaterial(const std::string& image, const Color& color,
                                               float rate, const Vector2<float>& tileSize,
                                               const Vector2<float>& repeat)
    : image_(image)
    , repeat_(repeat)
    , tileSize_(tileSize)
    , color_(color)
    , rate_(rate) {}

PolygonDynamicMaterial::PolygonDynamicMaterial(const PolygonDynamicMaterial& other) = default;

PolygonDynamicMaterial::~PolygonDynamicMaterial() = default;

void PolygonDynamicMaterial::assign(const Material& other) {
    detail::assignKind(*this, other, KEO_FEATURE_SITE("PolygonDynamicMaterial::assign"),
                       [this](const PolygonDynamicMaterial& source) {
                           setImage(source.image_);
                           setTileSize(source.tileSize_);
                           setTileSizeUnit(source.tileSizeUnit_);
                           setColor(source.color_);
                           setRate(source.rate_);
                           setMovementDirection(source.movementDirection_);
                           setMoving(source.moving_);
                       });
}

std::shared_ptr<Material> PolygonDynamicMaterial::clone() const {
    return std::make_shared<PolygonDynamicMaterial>(*this);
}

Material::Type PolygonDynamicMaterial::getType() const {
    return Type::PolygonDynamic;
}

void PolygonDynamicMaterial::update(GeometryGraphics& graphics, bool highlight) const {
    repeat_ = detail::tileRepeat(graphics, tileSize_, tileSizeUnit_, repeat_);
    Material::update(graphics, highlight);
}

void PolygonDynamicMaterial::setImage(const ImageSource& image) {
    editField(image_, image);
}

void PolygonDynamicMaterial::setRepeat(const Vector2<float>& repeat) {
    editField(repeat_, repeat);
}

void PolygonDynamicMaterial::setTileSize(const Vector2<float>& tileSize) {
    editField(tileSize_, tileSize);
}

void PolygonDynamicMaterial::setTileSizeUnit(ImageTileSizeUnit unit) {
    editField(tileSizeUnit_, unit);
}

void PolygonDynamicMaterial::setColor(const Color& color) {
    // The own field is never an edit, even when a NaN component makes it unequal to itself.
    if (&color == &color_) {
        return;
    }
    editField(color_, color);
}

void PolygonDynamicMaterial::setRate(float rate) {
    editField(rate_, rate);
}

void PolygonDynamicMaterial::setMovementDirection(const Vector2<float>& direction) {
    editField(movementDirection_, direction);
}

void PolygonDynamicMaterial::setMoving(bool moving) {
    editField(moving_, moving);
}

void PolygonDynamicMaterial::updateImplMaterial(bool highlight) const {
    const Color& shown = shownColor(color_, highlight);
    refreshMaterial<WallDynamicMaterialProperty>(
        highlight,
        [&] {
            WallDynamicMaterialProperty::ConstructorOptions options;
            options.color = shown;
            options.rate = rate_;
            options.image = image_;
            options.repeat = repeat_;
            options.movementDirection = movementDirection_;
            options.dynamic = moving_;
            return options;
        },
        [this](WallDynamicMaterialProperty& property) {
            property.setRate(rate_);
            property.setImage(image_);
            property.setRepeat(repeat_);
            property.setMovementDirection(movementDirection_);
            property.setDynamic(moving_);
        },
        [&](WallDynamicMaterialProperty& property) {
            // Pushed on every call: update may have recomputed the repeat without an edit.
            property.setRepeat(repeat_);
            property.setColor(shown);
        });
}

} // namespace keo::Feature
