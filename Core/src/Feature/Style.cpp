#include "Feature/Style.h"

#include "EditRule.h"
#include "Feature/LabelSymbol.h"
#include "FixedSites.h"
#include "Subscription.h"

namespace keo::Feature {

Style::Style(Type type)
    : type_(type) {}

Style::Style(const Style& other)
    : Style(other.type_) {
    name_ = other.name_;
    heightReference_ = other.heightReference_;
    shadows_ = other.shadows_;
    detail::copyOwned(*this, labelSymbol_, other.labelSymbol_, labelSubscription_);
}

Style::~Style() = default;

void Style::assign(const Style& other) {
    if (!detail::checkAssignKind(other.type_ == type_, detail::site::STYLE_ASSIGN)) {
        return;
    }
    detail::assignOwned(*this, labelSymbol_, other.labelSymbol_, labelSubscription_);
    setHeightReference(other.heightReference_);
    setShadows(other.shadows_);
}

const PointStyle* Style::asPointStyle() const {
    return nullptr;
}

const PolylineStyle* Style::asPolylineStyle() const {
    return nullptr;
}

const PolygonStyle* Style::asPolygonStyle() const {
    return nullptr;
}

const EllipseStyle* Style::asEllipseStyle() const {
    return nullptr;
}

// The mutable casts go through the virtual const ones; the object itself is not const.
PointStyle* Style::asPointStyle() {
    return const_cast<PointStyle*>(static_cast<const Style*>(this)->asPointStyle());
}

PolylineStyle* Style::asPolylineStyle() {
    return const_cast<PolylineStyle*>(static_cast<const Style*>(this)->asPolylineStyle());
}

PolygonStyle* Style::asPolygonStyle() {
    return const_cast<PolygonStyle*>(static_cast<const Style*>(this)->asPolygonStyle());
}

EllipseStyle* Style::asEllipseStyle() {
    return const_cast<EllipseStyle*>(static_cast<const Style*>(this)->asEllipseStyle());
}

void Style::setName(const std::string& name) {
    detail::applyEdit(*this, name_, name);
}

void Style::setHeightReference(HeightReference heightReference) {
    detail::applyEdit(*this, heightReference_, heightReference);
}

void Style::setShadows(int shadows) {
    detail::applyEdit(*this, shadows_, shadows);
}

void Style::setLabelSymbol(std::shared_ptr<LabelSymbol> symbol) {
    detail::replaceOwned(*this, labelSymbol_, std::move(symbol), labelSubscription_);
}

void Style::_raiseDefinitionChangedEvent() {
    raiseDefinitionChanged(this);
}

} // namespace keo::Feature
