#include "Feature/EllipseStyle.h"

#include "AssignSupport.h"
#include "Feature/EllipseSymbol.h"
#include "Subscription.h"

#include <utility>

namespace keo::Feature {

EllipseStyle::EllipseStyle()
    : Style(Type::Ellipse) {}

EllipseStyle::EllipseStyle(const EllipseStyle& other)
    : Style(other) {
    detail::copyOwned(*this, ellipse_, other.ellipse_, ellipseSubscription_);
}

EllipseStyle::~EllipseStyle() = default;

void EllipseStyle::assign(const Style& other) {
    detail::assignKind(
        *this, other, KEO_FEATURE_SITE("EllipseStyle::assign"), [this](const EllipseStyle& source) {
            detail::copyOwned(*this, ellipse_, source.ellipse_, ellipseSubscription_);
        });
}

std::shared_ptr<Style> EllipseStyle::clone() const {
    return std::make_shared<EllipseStyle>(*this);
}

const EllipseStyle* EllipseStyle::asEllipseStyle() const {
    return this;
}

void EllipseStyle::setEllipseSymbol(std::shared_ptr<EllipseSymbol> symbol) {
    detail::replaceOwned(*this, ellipse_, std::move(symbol), ellipseSubscription_);
}

} // namespace keo::Feature
