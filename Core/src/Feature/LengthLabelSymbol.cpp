#include "Feature/LengthLabelSymbol.h"

#include "AssignSupport.h"
#include "Data/LabelGraphics.h"
#include "DecimalText.h"
#include "EditRule.h"
#include "Feature/Highlight.h"
#include "Feature/SymbolContext.h"
#include "FeatureLog.h"

#include <utility>

namespace keo::Feature {

LengthLabelSymbol::~LengthLabelSymbol() = default;

void LengthLabelSymbol::assign(const Symbol& other) {
    detail::assignKind(*this, other, KEO_FEATURE_SITE("LengthLabelSymbol::assign"),
                       [this](const LengthLabelSymbol& source) {
                           setShowSegments(source.showSegments_);
                           setShowTotal(source.showTotal_);
                           setUnit(source.unit_);
                           setDecimalPlaces(source.decimalPlaces_);
                           setSize(source.size_);
                           setBackgroundPadding(source.backgroundPadding_);
                       });
}

std::shared_ptr<Symbol> LengthLabelSymbol::clone() const {
    return std::make_shared<LengthLabelSymbol>(*this);
}

Symbol::Type LengthLabelSymbol::getType() const {
    return Type::LengthLabel;
}

void LengthLabelSymbol::setShowSegments(bool show) {
    detail::applyEdit(*this, showSegments_, show);
}

void LengthLabelSymbol::setShowTotal(bool show) {
    detail::applyEdit(*this, showTotal_, show);
}

void LengthLabelSymbol::setUnit(LengthUnit unit) {
    detail::applyEdit(*this, unit_, unit);
}

void LengthLabelSymbol::setDecimalPlaces(int places) {
    detail::applyEdit(*this, decimalPlaces_, places);
}

void LengthLabelSymbol::setSize(float size) {
    detail::applyEdit(*this, size_, size);
}

void LengthLabelSymbol::setBackgroundPadding(const Vector4<float>& padding) {
    detail::applyEdit(*this, backgroundPadding_, padding);
}

std::string LengthLabelSymbol::formatLength(double meters) const {
    const bool kilometres = unit_ == LengthUnit::Kilometer;
    const double value = kilometres ? meters / 1000.0 : meters;
    return detail::formatFixed(value, decimalPlaces_) + (kilometres ? " 千米" : " 米");
}

void LengthLabelSymbol::_fill(LabelGraphics& graphics, const SymbolContext& context,
                              std::string text) const {
    graphics.setText(std::move(text));
    graphics.setFontSize(size_);
    graphics.setStyle(LabelStyle::FillAndOutline);
    graphics.setFillColor(shownColor(Color::WHITE, context.highlight));
    graphics.setOutlineColor(Color::BLACK);
    graphics.setShowBackground(true);
    graphics.setBackgroundPadding(backgroundPadding_);
    graphics.setHeightReference(context.heightReference);
    graphics.setDistanceDisplayCondition(context.distanceDisplayCondition);
}

} // namespace keo::Feature
