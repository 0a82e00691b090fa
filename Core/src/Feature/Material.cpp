#include "Feature/Material.h"

#include "MaterialSupport.h"

#include "Data/GeometryGraphics.h"
#include "Data/MaterialProperty.h"

namespace keo::Feature {

Material::Material() = default;

Material::Material(const Material& other)
    : Material() {
    enableBreathing_ = other.enableBreathing_;
    breathingRate_ = other.breathingRate_;
}

Material::~Material() = default;

void Material::assign(const Material& other) {
    setEnableBreathing(other.enableBreathing_);
    setBreathingRate(other.breathingRate_);
}

Material::Type Material::getType() const {
    return Type::None;
}

void Material::update(GeometryGraphics& graphics, bool highlight) const {
    updateImplMaterial(highlight);
    // Most updates find the graphics holding this very property: handing it over again would only
    // count its owners up and down.
    if (graphics.getMaterial() != material_) {
        graphics.setMaterial(material_);
    }
}

void Material::updateImplMaterial(bool /*highlight*/) const {
    if (material_ && changed_) {
        material_->setEnableBreathing(enableBreathing_);
        material_->setBreathingRate(breathingRate_);
    }
}

void Material::setEnableBreathing(bool enable) {
    editField(enableBreathing_, enable);
}

void Material::setBreathingRate(float rate) {
    editField(breathingRate_, rate);
}

std::shared_ptr<MaterialProperty> Material::_getMaterial(bool highlight) {
    updateImplMaterial(highlight);
    return material_;
}

void Material::_raiseDefinitionChangedEvent() {
    raiseDefinitionChanged();
}

} // namespace keo::Feature
