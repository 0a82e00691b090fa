#include "Feature/ExtrusionSymbol.h"

#include "AssignSupport.h"
#include "AttributeNumber.h"
#include "EditRule.h"
#include "Feature/Feature.h"
#include "Subscription.h"

#include <utility>

namespace keo::Feature {

ExtrusionSymbol::ExtrusionSymbol() = default;

ExtrusionSymbol::ExtrusionSymbol(const ExtrusionSymbol& other)
    : Symbol(other)
    , fieldName_(other.fieldName_)
    , height_(other.height_)
    , heightReference_(other.heightReference_) {
    detail::copyOwned(*this, body_, other.body_, bodySubscription_);
    detail::copyOwned(*this, tail_, other.tail_, tailSubscription_);
}

ExtrusionSymbol::~ExtrusionSymbol() = default;

void ExtrusionSymbol::assign(const Symbol& other) {
    detail::assignKind(
        *this, other, KEO_FEATURE_SITE("ExtrusionSymbol::assign"),
        [this](const ExtrusionSymbol& source) {
            setFieldName(source.fieldName_);
            setHeight(source.height_);
            setHeightReference(source.heightReference_);
            detail::assignOwned(*this, body_, source.body_, bodySubscription_, detail::SameType{});
            detail::assignOwned(*this, tail_, source.tail_, tailSubscription_, detail::SameType{});
        });
}

std::shared_ptr<Symbol> ExtrusionSymbol::clone() const {
    return std::make_shared<ExtrusionSymbol>(*this);
}

Symbol::Type ExtrusionSymbol::getType() const {
    return Type::Extrusion;
}

void ExtrusionSymbol::setFieldName(const std::string& name) {
    detail::applyEdit(*this, fieldName_, name);
}

void ExtrusionSymbol::setHeight(double height) {
    detail::applyEdit(*this, height_, height);
}

void ExtrusionSymbol::setHeightReference(HeightReference heightReference) {
    detail::applyEdit(*this, heightReference_, heightReference);
}

void ExtrusionSymbol::setBodySymbol(std::shared_ptr<Symbol> symbol) {
    detail::replaceOwned(*this, body_, std::move(symbol), bodySubscription_);
}

void ExtrusionSymbol::setTailSymbol(std::shared_ptr<Symbol> symbol) {
    detail::replaceOwned(*this, tail_, std::move(symbol), tailSubscription_);
}

double ExtrusionSymbol::_getHeight(const Feature& feature) const {
    if (fieldName_.empty()) {
        return height_;
    }
    const auto& attributes = feature.getAttributes();
    const auto found = attributes.find(fieldName_);
    if (found == attributes.end()) {
        return height_;
    }
    return detail::attributeNumber(found->second.value).value_or(height_);
}

} // namespace keo::Feature
