#include "Feature/PolygonSymbol.h"

#include "AssignSupport.h"
#include "Data/WallGraphics.h"
#include "EditRule.h"
#include "Feature/LengthLabelSymbol.h"
#include "Feature/LineSymbol.h"
#include "Feature/Material.h"
#include "Feature/SymbolContext.h"
#include "Subscription.h"

#include <utility>

namespace keo::Feature {

namespace {

// The outline colour of a wall whose outline material gives none.
constexpr Color WALL_OUTLINE_COLOR(0.5f, 1.0f, 0.5f, 1.0f);

} // namespace

PolygonSymbol::PolygonSymbol() = default;

PolygonSymbol::PolygonSymbol(std::shared_ptr<Material> material)
    : PolygonSymbol() {
    setMaterial(std::move(material));
}

PolygonSymbol::PolygonSymbol(const PolygonSymbol& other)
    : Symbol(other)
    , fill_(other.fill_) {
    detail::copyOwned(*this, material_, other.material_, materialSubscription_);
    detail::copyOwned(*this, outline_, other.outline_, outlineSubscription_);
    if (other.lengthLabel_) {
        setLengthLabelSymbol(detail::cloneAs(*other.lengthLabel_));
    }
}

PolygonSymbol::~PolygonSymbol() = default;

void PolygonSymbol::assign(const Symbol& other) {
    detail::assignKind(
        *this, other, KEO_FEATURE_SITE("PolygonSymbol::assign"),
        [this](const PolygonSymbol& source) {
            detail::assignOwned(*this, material_, source.material_, materialSubscription_,
                                detail::SameType{});
            detail::assignOwned(*this, outline_, source.outline_, outlineSubscription_);
            detail::assignOwnedInPlace(lengthLabel_, source.lengthLabel_,
                                       [this](std::shared_ptr<LengthLabelSymbol> symbol) {
                                           setLengthLabelSymbol(std::move(symbol));
                                       });
            setFill(source.fill_);
        });
}

std::shared_ptr<Symbol> PolygonSymbol::clone() const {
    return std::make_shared<PolygonSymbol>(*this);
}

Symbol::Type PolygonSymbol::getType() const {
    return Type::Polygon;
}

void PolygonSymbol::setMaterial(std::shared_ptr<Material> material) {
    detail::replaceOwned(*this, material_, std::move(material), materialSubscription_);
}

void PolygonSymbol::setFill(bool fill) {
    detail::applyEdit(*this, fill_, fill);
}

void PolygonSymbol::setOutLineSymbol(std::shared_ptr<LineSymbol> symbol) {
    detail::replaceOwned(*this, outline_, std::move(symbol), outlineSubscription_);
}

void PolygonSymbol::setLengthLabelSymbol(std::shared_ptr<LengthLabelSymbol> symbol) {
    // A polygon labels its edges only: the total is switched off on the symbol itself, before
    // this symbol listens to it.
    detail::replaceOwned(*this, lengthLabel_, std::move(symbol), lengthLabelSubscription_,
                         [](LengthLabelSymbol& installed) { installed.setShowTotal(false); });
}

void PolygonSymbol::_fillWall(WallGraphics& graphics, const SymbolContext& context) const {
    graphics.setFill(fill_);
    const bool outlined = outline_ && outline_->isEnabled();
    graphics.setOutline(outlined);
    if (outlined) {
        graphics.setOutlineWidth(outline_->getWidth());
        graphics.setOutlineColor(outline_->_getSolidColor().value_or(WALL_OUTLINE_COLOR));
    }
    graphics.setDistanceDisplayCondition(context.distanceDisplayCondition);
    if (material_) {
        material_->update(graphics, context.highlight);
    }
}

void PolygonSymbol::_fill(FilledGeometryGraphics& graphics, const SymbolContext& context) const {
    graphics.setFill(fill_);
    graphics.setOutline(false);
    graphics.setDistanceDisplayCondition(context.distanceDisplayCondition);
    if (material_) {
        material_->update(graphics, context.highlight);
    }
}

} // namespace keo::Feature
