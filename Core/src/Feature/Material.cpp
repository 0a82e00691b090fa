#include "Feature/Material.h"

#include "MaterialSupport.h"

#include "Data/GeometryGraphics.h"
#include "Data/MaterialProperty.h"

namespace keo::Feature {

Material::Material()
    : definitionChanged_(std::make_unique<Publisher<std::function<void()>>>())
    , changedLock_(std::make_unique<Publisher<std::function<void(bool)>>>()) {}

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
    graphics.setMaterial(material_);
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

std::weak_ptr<FunctionWrapper>
Material::_addDefinitionChangedEventListener(std::function<void()>&& callback) {
    return definitionChanged_->addEventListener(std::move(callback));
}

std::weak_ptr<FunctionWrapper>
Material::_addChangedLockEventListener(std::function<void(bool)>&& callback) {
    return changedLock_->addEventListener(std::move(callback));
}

void Material::_raiseDefinitionChangedEvent() {
    definitionChanged_->raiseEvent();
}

void Material::_raiseChangedLockEvent(bool locked) {
    changedLock_->raiseEvent(locked);
}

} // namespace keo::Feature
