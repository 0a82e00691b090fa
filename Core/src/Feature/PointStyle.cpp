#include "Feature/PointStyle.h"

#include "AssignSupport.h"
#include "Feature/BillboardSymbol.h"
#include "Feature/ModelSymbol.h"
#include "Feature/ParticleSystemSymbol.h"
#include "Feature/PointSymbol.h"
#include "FeatureLog.h"
#include "Subscription.h"

#include <utility>

namespace keo::Feature {

template <typename Step>
void PointStyle::forEachSlot(const PointStyle& other, Step&& step) {
    step(point_, other.point_, pointSubscription_);
    step(billboard_, other.billboard_, billboardSubscription_);
    step(model_, other.model_, modelSubscription_);
    step(particleSystem_, other.particleSystem_, particleSystemSubscription_);
}

PointStyle::PointStyle()
    : Style(Type::Point) {}

PointStyle::PointStyle(const PointStyle& other)
    : Style(other) {
    forEachSlot(other, [this](auto& slot, const auto& source, auto& subscription) {
        detail::copyOwned(*this, slot, source, subscription);
    });
}

PointStyle::~PointStyle() = default;

void PointStyle::assign(const Style& other) {
    detail::assignKind(
        *this, other, KEO_FEATURE_SITE("PointStyle::assign"), [this](const PointStyle& source) {
            forEachSlot(source, [this](auto& slot, const auto& sourceSlot, auto& subscription) {
                detail::assignOwned(*this, slot, sourceSlot, subscription);
            });
        });
}

std::shared_ptr<Style> PointStyle::clone() const {
    return std::make_shared<PointStyle>(*this);
}

const PointStyle* PointStyle::asPointStyle() const {
    return this;
}

void PointStyle::setPointSymbol(std::shared_ptr<PointSymbol> symbol) {
    detail::replaceOwned(*this, point_, std::move(symbol), pointSubscription_);
}

void PointStyle::setBillboardSymbol(std::shared_ptr<BillboardSymbol> symbol) {
    detail::replaceOwned(*this, billboard_, std::move(symbol), billboardSubscription_);
}

void PointStyle::setModelSymbol(std::shared_ptr<ModelSymbol> symbol) {
    detail::replaceOwned(*this, model_, std::move(symbol), modelSubscription_);
}

void PointStyle::setParticleSystemSymbol(std::shared_ptr<ParticleSystemSymbol> symbol) {
    detail::replaceOwned(*this, particleSystem_, std::move(symbol), particleSystemSubscription_);
}

} // namespace keo::Feature
