#include "Feature/Symbol.h"

#include "EditRule.h"
#include "FixedSites.h"

namespace keo::Feature {

Symbol::Symbol() = default;

Symbol::Symbol(const Symbol& other)
    : Symbol() {
    enabled_ = other.enabled_;
}

Symbol::~Symbol() = default;

void Symbol::assign(const Symbol& other) {
    if (!detail::checkAssignKind(other.getType() == getType(), detail::site::SYMBOL_ASSIGN)) {
        return;
    }
    setEnabled(other.enabled_);
}

void Symbol::setEnabled(bool enabled) {
    detail::applyEdit(*this, enabled_, enabled);
}

void Symbol::_raiseDefinitionChangedEvent() {
    raiseDefinitionChanged();
}

} // namespace keo::Feature
