#include "Feature/PolylineStyle.h"

#include "AssignSupport.h"
#include "Feature/ExtrusionSymbol.h"
#include "Feature/LineSymbol.h"
#include "Feature/LineVolumeSymbol.h"
#include "Subscription.h"

#include <utility>

namespace keo::Feature {

template <typename Step>
void PolylineStyle::forEachSlot(const PolylineStyle& other, Step&& step) {
    step(line_, other.line_, lineSubscription_);
    step(extrusion_, other.extrusion_, extrusionSubscription_);
    step(overlayLine_, other.overlayLine_, overlayLineSubscription_);
    step(lineVolume_, other.lineVolume_, lineVolumeSubscription_);
}

PolylineStyle::PolylineStyle()
    : Style(Type::Polyline) {}

PolylineStyle::PolylineStyle(const PolylineStyle& other)
    : Style(other) {
    forEachSlot(other, [this](auto& slot, const auto& source, auto& subscription) {
        detail::copyOwned(*this, slot, source, subscription);
    });
}

PolylineStyle::~PolylineStyle() = default;

void PolylineStyle::assign(const Style& other) {
    // Every held symbol of the other is copied into a new one: the line family never assigns a
    // held object in place.
    detail::assignKind(
        *this, other, KEO_FEATURE_SITE("PolylineStyle::assign"),
        [this](const PolylineStyle& source) {
            forEachSlot(source, [this](auto& slot, const auto& sourceSlot, auto& subscription) {
                detail::copyOwned(*this, slot, sourceSlot, subscription);
            });
        });
}

std::shared_ptr<Style> PolylineStyle::clone() const {
    return std::make_shared<PolylineStyle>(*this);
}

const PolylineStyle* PolylineStyle::asPolylineStyle() const {
    return this;
}

void PolylineStyle::setLineSymbol(std::shared_ptr<LineSymbol> symbol) {
    detail::replaceOwned(*this, line_, std::move(symbol), lineSubscription_);
}

void PolylineStyle::setExtrusionSymbol(std::shared_ptr<ExtrusionSymbol> symbol) {
    detail::replaceOwned(*this, extrusion_, std::move(symbol), extrusionSubscription_);
}

void PolylineStyle::setOverlayLineSymbol(std::shared_ptr<LineSymbol> symbol) {
    detail::replaceOwned(*this, overlayLine_, std::move(symbol), overlayLineSubscription_);
}

void PolylineStyle::setLineVolumeSymbol(std::shared_ptr<LineVolumeSymbol> symbol) {
    detail::replaceOwned(*this, lineVolume_, std::move(symbol), lineVolumeSubscription_);
}

} // namespace keo::Feature
