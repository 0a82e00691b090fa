#include "Feature/PolygonStyle.h"

#include "AssignSupport.h"
#include "Feature/ExtrusionSymbol.h"
#include "Feature/PolygonSymbol.h"
#include "Subscription.h"

#include <utility>

namespace keo::Feature {

PolygonStyle::PolygonStyle()
    : Style(Type::Polygon) {}

PolygonStyle::PolygonStyle(const PolygonStyle& other)
    : Style(other) {
    detail::copyOwned(*this, polygon_, other.polygon_, polygonSubscription_);
    detail::copyOwned(*this, extrusion_, other.extrusion_, extrusionSubscription_);
}

PolygonStyle::~PolygonStyle() = default;

void PolygonStyle::assign(const Style& other) {
    detail::assignKind(
        *this, other, KEO_FEATURE_SITE("PolygonStyle::assign"), [this](const PolygonStyle& source) {
            detail::assignOwned(*this, polygon_, source.polygon_, polygonSubscription_);
            detail::assignOwned(*this, extrusion_, source.extrusion_, extrusionSubscription_);
        });
}

std::shared_ptr<Style> PolygonStyle::clone() const {
    return std::make_shared<PolygonStyle>(*this);
}

const PolygonStyle* PolygonStyle::asPolygonStyle() const {
    return this;
}

void PolygonStyle::setPolygonSymbol(std::shared_ptr<PolygonSymbol> symbol) {
    detail::replaceOwned(*this, polygon_, std::move(symbol), polygonSubscription_);
}

void PolygonStyle::setExtrusionSymbol(std::shared_ptr<ExtrusionSymbol> symbol) {
    detail::replaceOwned(*this, extrusion_, std::move(symbol), extrusionSubscription_);
}

} // namespace keo::Feature
