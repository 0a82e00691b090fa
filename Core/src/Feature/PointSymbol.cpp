#include "Feature/PointSymbol.h"
#include "Data/PointGraphics.h"
#include "Feature/Highlight.h"
#include "Feature/SymbolContext.h"

#include "AssignSupport.h"
#include "EditRule.h"

namespace keo::Feature {

PointSymbol::PointSymbol() = default;

PointSymbol::PointSymbol(const PointSymbol& other) = default;

PointSymbol::~PointSymbol() = default;

void PointSymbol::assign(const Symbol& other) {
    detail::assignKind(*this, other, KEO_FEATURE_SITE("PointSymbol::assign"),
                       [this](const PointSymbol& source) {
                           setPixelSize(source.pixelSize_);
                           setColor(source.color_);
                           setOutlineColor(source.outlineColor_);
                           setOutlineWidth(source.outlineWidth_);
                       });
}

std::shared_ptr<Symbol> PointSymbol::clone() const {
    return std::make_shared<PointSymbol>(*this);
}

Symbol::Type PointSymbol::getType() const {
    return Type::Point;
}

void PointSymbol::setPixelSize(float size) {
    detail::applyEdit(*this, pixelSize_, size);
}

void PointSymbol::setColor(const Color& color) {
    detail::applyEdit(*this, color_, color);
}

void PointSymbol::setOutlineColor(const Color& color) {
    detail::applyEdit(*this, outlineColor_, color);
}

void PointSymbol::setOutlineWidth(float width) {
    detail::applyEdit(*this, outlineWidth_, width);
}

void PointSymbol::_fill(PointGraphics& graphics, const SymbolContext& context) const {
    graphics.setPixelSize(pixelSize_);
    graphics.setColor(shownColor(color_, context.highlight));
    graphics.setHeightReference(context.heightReference);
    graphics.setDistanceDisplayCondition(context.distanceDisplayCondition);
}

} // namespace keo::Feature
