#include "Feature/EllipseSymbol.h"

#include "AssignSupport.h"
#include "Data/EllipseGraphics.h"
#include "EditRule.h"
#include "Feature/Material.h"
#include "Feature/SymbolContext.h"
#include "Subscription.h"

#include <utility>

namespace keo::Feature {

EllipseSymbol::EllipseSymbol() = default;

EllipseSymbol::EllipseSymbol(std::shared_ptr<Material> material)
    : EllipseSymbol() {
    setMaterial(std::move(material));
}

EllipseSymbol::EllipseSymbol(const EllipseSymbol& other)
    : Symbol(other)
    , fill_(other.fill_) {
    detail::copyOwned(*this, material_, other.material_, materialSubscription_);
}

EllipseSymbol::~EllipseSymbol() = default;

void EllipseSymbol::assign(const Symbol& other) {
    detail::assignKind(*this, other, KEO_FEATURE_SITE("EllipseSymbol::assign"),
                       [this](const EllipseSymbol& source) {
                           detail::copyOwned(*this, material_, source.material_,
                                             materialSubscription_);
                           setFill(source.fill_);
                       });
}

std::shared_ptr<Symbol> EllipseSymbol::clone() const {
    return std::make_shared<EllipseSymbol>(*this);
}

Symbol::Type EllipseSymbol::getType() const {
    return Type::Ellipse;
}

void EllipseSymbol::setMaterial(std::shared_ptr<Material> material) {
    detail::replaceOwned(*this, material_, std::move(material), materialSubscription_);
}

void EllipseSymbol::setFill(bool fill) {
    detail::applyEdit(*this, fill_, fill);
}

void EllipseSymbol::_fill(EllipseGraphics& graphics, const SymbolContext& context) const {
    graphics.setFill(fill_);
    graphics.setOutline(false);
    if (material_) {
        material_->update(graphics, context.highlight);
    } else {
        graphics.setMaterial(nullptr);
    }
}

} // namespace keo::Feature
