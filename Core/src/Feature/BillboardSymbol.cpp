#include "Feature/BillboardSymbol.h"
#include "Data/BillboardGraphics.h"
#include "Feature/Highlight.h"
#include "Feature/SymbolContext.h"

#include "AssignSupport.h"
#include "EditRule.h"

namespace keo::Feature {

BillboardSymbol::BillboardSymbol() = default;

BillboardSymbol::BillboardSymbol(const BillboardSymbol& other) = default;

BillboardSymbol::~BillboardSymbol() = default;

void BillboardSymbol::assign(const Symbol& other) {
    detail::assignKind(*this, other, KEO_FEATURE_SITE("BillboardSymbol::assign"),
                       [this](const BillboardSymbol& source) {
                           std::visit([this](const auto& image) { setImage(image); },
                                      source.image_);
                           setWidth(source.width_);
                           setHeight(source.height_);
                           setScale(source.scale_);
                           setColor(source.color_);
                           setHorizontalOrigin(source.horizontalOrigin_);
                           setVerticalOrigin(source.verticalOrigin_);
                           setPixelOffset(source.pixelOffset_);
                       });
}

std::shared_ptr<Symbol> BillboardSymbol::clone() const {
    return std::make_shared<BillboardSymbol>(*this);
}

Symbol::Type BillboardSymbol::getType() const {
    return Type::Billboard;
}

// Both overloads compare whole variants: equal only for the same alternative holding an equal
// value, i.e. the same text for a path and the same object for a decoded image.
void BillboardSymbol::setImage(const std::string& path) {
    detail::applyEdit(*this, image_, ImageSource(path));
}

void BillboardSymbol::setImage(std::shared_ptr<Image> image) {
    detail::applyEdit(*this, image_, ImageSource(std::move(image)));
}

void BillboardSymbol::setWidth(const std::optional<float>& width) {
    detail::applyEdit(*this, width_, width);
}

void BillboardSymbol::setHeight(const std::optional<float>& height) {
    detail::applyEdit(*this, height_, height);
}

void BillboardSymbol::setScale(float scale) {
    detail::applyEdit(*this, scale_, scale);
}

void BillboardSymbol::setColor(const Color& color) {
    detail::applyEdit(*this, color_, color);
}

void BillboardSymbol::setHorizontalOrigin(const HorizontalOrigin& origin) {
    detail::applyEdit(*this, horizontalOrigin_, origin);
}

void BillboardSymbol::setVerticalOrigin(const VerticalOrigin& origin) {
    detail::applyEdit(*this, verticalOrigin_, origin);
}

void BillboardSymbol::setPixelOffset(const Vector2<float>& offset) {
    detail::applyEdit(*this, pixelOffset_, offset);
}

void BillboardSymbol::_fill(BillboardGraphics& graphics, const SymbolContext& context) const {
    graphics.setImage(image_);
    graphics.setWidth(width_);
    graphics.setHeight(height_);
    graphics.setScale(scale_);
    graphics.setColor(shownColor(color_, context.highlight));
    graphics.setHorizontalOrigin(horizontalOrigin_);
    graphics.setVerticalOrigin(verticalOrigin_);
    graphics.setPixelOffset(pixelOffset_);
    graphics.setHeightReference(context.heightReference);
    graphics.setDistanceDisplayCondition(context.distanceDisplayCondition);
}

} // namespace keo::Feature
