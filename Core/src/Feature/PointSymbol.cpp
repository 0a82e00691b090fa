#include "Feature/PointSymbol.h"

#include "BeginAssign.h"
#include "EditRule.h"

namespace keo::Feature {

PointSymbol::PointSymbol() = default;

PointSymbol::PointSymbol(const PointSymbol& other) = default;

PointSymbol::~PointSymbol() = default;

void PointSymbol::assign(const Symbol& other) {
    const auto* const source = detail::beginAssign(
        *this, other,
        {"Core/src/Feature/PointSymbol", __LINE__, "keo::Feature::PointSymbol::assign"});
    if (source == nullptr) {
        return;
    }
    setPixelSize(source->pixelSize_);
    setColor(source->color_);
    setOutlineColor(source->outlineColor_);
    setOutlineWidth(source->outlineWidth_);
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

} // namespace keo::Feature
