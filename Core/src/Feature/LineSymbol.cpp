#include "Feature/LineSymbol.h"
#include "Data/PolylineGraphics.h"
#include "Feature/SymbolContext.h"

#include "AssignSupport.h"
#include "EditRule.h"
#include "Feature/ColorMaterial.h"
#include "Feature/LengthLabelSymbol.h"
#include "Feature/LineDashMaterial.h"
#include "Feature/Material.h"
#include "FeatureLog.h"
#include "Subscription.h"

namespace keo::Feature {

LineSymbol::LineSymbol() = default;

LineSymbol::LineSymbol(const LineSymbol& other)
    : Symbol(other)
    , width_(other.width_)
    , path_(other.path_) {
    detail::copyOwned(*this, material_, other.material_, materialSubscription_);
    detail::copyOwned(*this, lengthLabelSymbol_, other.lengthLabelSymbol_,
                      lengthLabelSubscription_);
}

LineSymbol::~LineSymbol() = default;

void LineSymbol::assign(const Symbol& other) {
    detail::assignKind(
        *this, other, KEO_FEATURE_SITE("LineSymbol::assign"), [this](const LineSymbol& source) {
            detail::copyOwned(*this, material_, source.material_, materialSubscription_);
            setWidth(source.width_);
            setPath(source.path_);
            detail::copyOwned(*this, lengthLabelSymbol_, source.lengthLabelSymbol_,
                              lengthLabelSubscription_);
        });
}

std::shared_ptr<Symbol> LineSymbol::clone() const {
    return std::make_shared<LineSymbol>(*this);
}

Symbol::Type LineSymbol::getType() const {
    return Type::Line;
}

void LineSymbol::setMaterial(std::shared_ptr<Material> material) {
    detail::replaceOwned(*this, material_, std::move(material), materialSubscription_);
}

void LineSymbol::setWidth(float width) {
    detail::applyEdit(*this, width_, width);
}

void LineSymbol::setPath(const Path& path) {
    if (path_.sameAnimation(path)) {
        return;
    }
    {
        const detail::ChangedLockScope<LineSymbol> scope(*this);
        path_ = path;
    }
    _raiseDefinitionChangedEvent();
}

void LineSymbol::restartPath() {
    detail::applyEdit(*this, path_.restartRequest, true);
}

void LineSymbol::setLengthLabelSymbol(std::shared_ptr<LengthLabelSymbol> symbol) {
    detail::replaceOwned(*this, lengthLabelSymbol_, std::move(symbol), lengthLabelSubscription_);
}

void LineSymbol::_fill(PolylineGraphics& graphics, const SymbolContext& context) const {
    graphics.setWidth(width_);
    if (material_) {
        material_->update(graphics, context.highlight);
    } else {
        graphics.setMaterial(nullptr);
    }
    graphics.setDistanceDisplayCondition(context.distanceDisplayCondition);
}

std::optional<Color> LineSymbol::_getSolidColor() const {
    if (const auto* color = dynamic_cast<const ColorMaterial*>(material_.get())) {
        return color->getColor();
    }
    if (const auto* dash = dynamic_cast<const LineDashMaterial*>(material_.get())) {
        return dash->getColor();
    }
    return std::nullopt;
}

} // namespace keo::Feature
