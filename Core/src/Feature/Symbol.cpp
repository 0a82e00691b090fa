#include "Feature/Symbol.h"

#include "EditRule.h"
#include "FeatureLog.h"

namespace keo::Feature {

Symbol::Symbol()
    : definitionChanged_(std::make_unique<Publisher<std::function<void()>>>())
    , changedLock_(std::make_unique<Publisher<std::function<void(bool)>>>()) {}

Symbol::Symbol(const Symbol& other)
    : Symbol() {
    enabled_ = other.enabled_;
}

Symbol::~Symbol() = default;

void Symbol::assign(const Symbol& other) {
    if (!detail::checkAssignKind(other.getType() == getType(),
                                 {"Core/src/Feature/Symbol", 35, "keo::Feature::Symbol::assign"})) {
        return;
    }
    setEnabled(other.enabled_);
}

void Symbol::setEnabled(bool enabled) {
    detail::applyEdit(*this, enabled_, enabled);
}

std::weak_ptr<FunctionWrapper>
Symbol::_addDefinitionChangedEventListener(std::function<void()>&& callback) {
    return definitionChanged_->addEventListener(std::move(callback));
}

std::weak_ptr<FunctionWrapper>
Symbol::_addChangedLockEventListener(std::function<void(bool)>&& callback) {
    return changedLock_->addEventListener(std::move(callback));
}

void Symbol::_raiseDefinitionChangedEvent() {
    definitionChanged_->raiseEvent();
}

void Symbol::_raiseChangedLockEvent(bool locked) {
    changedLock_->raiseEvent(locked);
}

} // namespace keo::Feature
