#include "Feature/ModelSymbol.h"
#include "Data/ModelGraphics.h"
#include "Feature/Highlight.h"
#include "Feature/SymbolContext.h"

#include "AssignSupport.h"
#include "EditRule.h"

namespace keo::Feature {

ModelSymbol::ModelSymbol() = default;

ModelSymbol::ModelSymbol(const ModelSymbol& other) = default;

ModelSymbol::~ModelSymbol() = default;

void ModelSymbol::assign(const Symbol& other) {
    detail::assignKind(*this, other, KEO_FEATURE_SITE("ModelSymbol::assign"),
                       [this](const ModelSymbol& source) {
                           setModelUri(source.modelUri_);
                           setScale(source.scale_);
                           setColor(source.color_);
                           setRotation(source.rotation_);
                           setAllowPicking(source.allowPicking_);
                       });
}

std::shared_ptr<Symbol> ModelSymbol::clone() const {
    return std::make_shared<ModelSymbol>(*this);
}

Symbol::Type ModelSymbol::getType() const {
    return Type::Model;
}

void ModelSymbol::setModelUri(std::shared_ptr<Resource> uri) {
    // shared_ptr equality is identity: another resource with the same URI is a change.
    detail::applyEdit(*this, modelUri_, std::move(uri));
}

void ModelSymbol::setScale(const Vector3<double>& scale) {
    detail::applyEdit(*this, scale_, scale);
}

void ModelSymbol::setColor(const Color& color) {
    detail::applyEdit(*this, color_, color);
}

void ModelSymbol::setRotation(const Vector3<Radian>& rotation) {
    detail::applyEdit(*this, rotation_, rotation);
}

void ModelSymbol::setAllowPicking(bool allow) {
    detail::applyEdit(*this, allowPicking_, allow);
}

void ModelSymbol::_fill(ModelGraphics& graphics, const SymbolContext& context) const {
    graphics.setUri(modelUri_);
    graphics.setScale(scale_);
    graphics.setRotation(rotation_);
    graphics.setColor(shownColor(color_, context.highlight));
    graphics.setAllowPicking(allowPicking_);
    graphics.setHeightReference(context.heightReference);
    graphics.setDistanceDisplayCondition(context.distanceDisplayCondition);
}

} // namespace keo::Feature
