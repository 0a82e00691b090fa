#include "Feature/CircleWaveMaterial.h"

#include "AssignSupport.h"
#include "MaterialSupport.h"

#include "Data/CircleWaveMaterialProperty.h"

#include <optional>

namespace keo::Feature {

CircleWaveMaterial::CircleWaveMaterial() = default;

CircleWaveMaterial::CircleWaveMaterial(const Color& color, unsigned char count, float speed,
                                       float duration)
    : color_(color)
    , count_(count)
    , speed_(speed)
    , duration_(duration) {}

CircleWaveMaterial::CircleWaveMaterial(const CircleWaveMaterial& other) = default;

CircleWaveMaterial::~CircleWaveMaterial() = default;

void CircleWaveMaterial::assign(const Material& other) {
    detail::assignKind(*this, other, KEO_FEATURE_SITE("CircleWaveMaterial::assign"),
                       [this](const CircleWaveMaterial& source) {
                           setColor(source.color_);
                           setCount(source.count_);
                           setSpeed(source.speed_);
                           setDuration(source.duration_);
                       });
}

std::shared_ptr<Material> CircleWaveMaterial::clone() const {
    return std::make_shared<CircleWaveMaterial>(*this);
}

Material::Type CircleWaveMaterial::getType() const {
    return Type::CircleWave;
}

void CircleWaveMaterial::setColor(const Color& color) {
    editField(color_, color);
}

void CircleWaveMaterial::setCount(unsigned char count) {
    editField(count_, count);
}

void CircleWaveMaterial::setSpeed(float speed) {
    editField(speed_, speed);
}

void CircleWaveMaterial::setDuration(float duration) {
    editField(duration_, duration);
}

void CircleWaveMaterial::updateImplMaterial(bool highlight) const {
    const Color& shown = shownColor(color_, highlight);
    const bool hasDuration = duration_ > 0.0f;
    refreshMaterial<CircleWaveMaterialProperty>(
        highlight,
        [&] {
            CircleWaveMaterialProperty::ConstructorOptions options;
            options.color = shown;
            options.count = count_;
            options.speed = speed_;
            options.duration = hasDuration ? std::optional<float>(duration_) : std::nullopt;
            options.direction = 1;
            return options;
        },
        [&](CircleWaveMaterialProperty& property) {
            property.setCount(count_);
            property.setSpeed(speed_);
            // A duration lowered to 0 or less is not handed on: the property keeps the last
            // period it was given rather than falling back to the speed.
            if (hasDuration) {
                property.setDuration(duration_);
            }
        },
        [&shown](CircleWaveMaterialProperty& property) { property.setColor(shown); });
}

} // namespace keo::Feature
