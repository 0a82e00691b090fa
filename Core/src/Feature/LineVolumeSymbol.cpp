#include "Feature/LineVolumeSymbol.h"

#include "AssignSupport.h"
#include "Data/PolylineVolumeGraphics.h"
#include "EditRule.h"
#include "Feature/Material.h"
#include "Feature/SymbolContext.h"
#include "Subscription.h"

#include <utility>

namespace keo::Feature {

LineVolumeSymbol::LineVolumeSymbol() = default;

LineVolumeSymbol::LineVolumeSymbol(const LineVolumeSymbol& other)
    : Symbol(other)
    , shape_(other.shape_)
    , closeStart_(other.closeStart_)
    , closeEnd_(other.closeEnd_)
    , fill_(other.fill_) {
    detail::copyOwned(*this, material_, other.material_, materialSubscription_);
}

LineVolumeSymbol::~LineVolumeSymbol() = default;

void LineVolumeSymbol::assign(const Symbol& other) {
    detail::assignKind(*this, other, KEO_FEATURE_SITE("LineVolumeSymbol::assign"),
                       [this](const LineVolumeSymbol& source) {
                           setShape(source.shape_);
                           setCloseStart(source.closeStart_);
                           setCloseEnd(source.closeEnd_);
                           setFill(source.fill_);
                           detail::copyOwned(*this, material_, source.material_,
                                             materialSubscription_);
                       });
}

std::shared_ptr<Symbol> LineVolumeSymbol::clone() const {
    return std::make_shared<LineVolumeSymbol>(*this);
}

Symbol::Type LineVolumeSymbol::getType() const {
    return Type::LineVolume;
}

void LineVolumeSymbol::setShape(const std::vector<Vector2<double>>& shape) {
    detail::applyEdit(*this, shape_, shape);
}

void LineVolumeSymbol::setShape(std::vector<Vector2<double>>&& shape) {
    detail::applyEdit(*this, shape_, std::move(shape));
}

void LineVolumeSymbol::setCloseStart(bool close) {
    detail::applyEdit(*this, closeStart_, close);
}

void LineVolumeSymbol::setCloseEnd(bool close) {
    detail::applyEdit(*this, closeEnd_, close);
}

void LineVolumeSymbol::setFill(bool fill) {
    detail::applyEdit(*this, fill_, fill);
}

void LineVolumeSymbol::setMaterial(std::shared_ptr<Material> material) {
    detail::replaceOwned(*this, material_, std::move(material), materialSubscription_);
}

void LineVolumeSymbol::_fill(PolylineVolumeGraphics& graphics, const SymbolContext& context) const {
    graphics.setFill(fill_);
    graphics.setShape(shape_);
    graphics.setCloseStart(closeStart_);
    graphics.setCloseEnd(closeEnd_);
    graphics.setDistanceDisplayCondition(context.distanceDisplayCondition);
    if (material_) {
        material_->update(graphics, context.highlight);
    } else {
        graphics.setMaterial(nullptr);
    }
}

} // namespace keo::Feature
