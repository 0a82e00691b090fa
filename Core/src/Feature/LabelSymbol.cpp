#include "Feature/LabelSymbol.h"

#include "AssignSupport.h"
#include "Data/ColorMaterialProperty.h"
#include "Data/LabelGraphics.h"
#include "Data/PolylineGraphics.h"
#include "DecimalText.h"
#include "DisplayCondition.h"
#include "EditRule.h"
#include "Feature/Feature.h"
#include "Feature/Highlight.h"
#include "Feature/LineSymbol.h"
#include "Feature/SymbolContext.h"
#include "FeatureLog.h"
#include "HeightReferenceRules.h"
#include "Subscription.h"

#include <any>
#include <cstdint>
#include <string_view>

namespace keo::Feature {

namespace {

// The integer types an attribute may hold, written in decimal.
template <typename... Integers>
bool integerText(const std::any& value, std::string& text) {
    return ((value.type() == typeid(Integers)
                 ? (text = std::to_string(std::any_cast<Integers>(value)), true)
                 : false) ||
            ...);
}

// The width of a hint line drawn without a line symbol, pixels.
constexpr float HINT_LINE_WIDTH = 1.0f;

// An attribute value as label text; empty for a null value or a type without a text form.
std::string attributeText(const std::any& value) {
    if (!value.has_value()) {
        return {};
    }
    if (const auto* s = std::any_cast<std::string>(&value)) {
        return *s;
    }
    if (const auto* view = std::any_cast<std::string_view>(&value)) {
        return std::string(*view);
    }
    if (const auto* chars = std::any_cast<const char*>(&value)) {
        return *chars != nullptr ? std::string(*chars) : std::string();
    }
    if (const auto* b = std::any_cast<bool>(&value)) {
        return *b ? "true" : "false";
    }
    if (const auto* d = std::any_cast<double>(&value)) {
        return detail::formatShortest(*d);
    }
    if (const auto* f = std::any_cast<float>(&value)) {
        // The shortest form of the float itself ("0.1", not the double 0.10000000149011612).
        return detail::formatShortest(static_cast<double>(*f), true);
    }
    std::string text;
    integerText<int, long, long long, unsigned, unsigned long, unsigned long long, short,
                unsigned short, std::int8_t, std::uint8_t>(value, text);
    return text;
}

} // namespace

LabelSymbol::LabelSymbol() = default;

LabelSymbol::LabelSymbol(const LabelSymbol& other)
    : Symbol(other)
    , fieldName_(other.fieldName_)
    , font_(other.font_)
    , size_(other.size_)
    , scale_(other.scale_)
    , showOutline_(other.showOutline_)
    , showBackground_(other.showBackground_)
    , fillColor_(other.fillColor_)
    , outlineColor_(other.outlineColor_)
    , outlineWidth_(other.outlineWidth_)
    , backgroundColor_(other.backgroundColor_)
    , backgroundPadding_(other.backgroundPadding_)
    , pixelOffset_(other.pixelOffset_)
    , horizontalOrigin_(other.horizontalOrigin_)
    , verticalOrigin_(other.verticalOrigin_)
    , avoidance_(other.avoidance_)
    , backgroundImage_(other.backgroundImage_)
    , showHintLine_(other.showHintLine_)
    , hintLineMode_(other.hintLineMode_)
    , distanceDisplayCondition_(other.distanceDisplayCondition_) {
    detail::copyOwned(*this, hintLineSymbol_, other.hintLineSymbol_, hintLineSubscription_);
}

LabelSymbol::~LabelSymbol() = default;

void LabelSymbol::assign(const Symbol& other) {
    detail::assignKind(*this, other, KEO_FEATURE_SITE("LabelSymbol::assign"),
                       [this](const LabelSymbol& source) {
                           setFieldName(source.fieldName_);
                           setFont(source.font_);
                           setSize(source.size_);
                           setScale(source.scale_);
                           setShowOutline(source.showOutline_);
                           setShowBackground(source.showBackground_);
                           setFillColor(source.fillColor_);
                           setOutlineColor(source.outlineColor_);
                           setOutlineWidth(source.outlineWidth_);
                           setBackgroundColor(source.backgroundColor_);
                           setBackgroundPadding(source.backgroundPadding_);
                           setPixelOffset(source.pixelOffset_);
                           setHorizontalOrigin(source.horizontalOrigin_);
                           setVerticalOrigin(source.verticalOrigin_);
                           setAvoidance(source.avoidance_);
                           setShowHintLine(source.showHintLine_);
                           setHintLineMode(source.hintLineMode_);
                           setDistanceDisplayCondition(source.distanceDisplayCondition_);
                           detail::applyEdit(*this, backgroundImage_, source.backgroundImage_);
                           detail::assignOwned(*this, hintLineSymbol_, source.hintLineSymbol_,
                                               hintLineSubscription_);
                       });
}

std::shared_ptr<Symbol> LabelSymbol::clone() const {
    return std::make_shared<LabelSymbol>(*this);
}

Symbol::Type LabelSymbol::getType() const {
    return Type::Label;
}

void LabelSymbol::setFieldName(const std::string& name) {
    detail::applyEdit(*this, fieldName_, name);
}

void LabelSymbol::setFont(const std::string& font) {
    detail::applyEdit(*this, font_, font);
}

void LabelSymbol::setSize(float size) {
    detail::applyEdit(*this, size_, size);
}

void LabelSymbol::setScale(float scale) {
    detail::applyEdit(*this, scale_, scale);
}

void LabelSymbol::setShowOutline(bool show) {
    detail::applyEdit(*this, showOutline_, show);
}

void LabelSymbol::setShowBackground(bool show) {
    detail::applyEdit(*this, showBackground_, show);
}

void LabelSymbol::setFillColor(const Color& color) {
    detail::applyEdit(*this, fillColor_, color);
}

void LabelSymbol::setOutlineColor(const Color& color) {
    detail::applyEdit(*this, outlineColor_, color);
}

void LabelSymbol::setOutlineWidth(float width) {
    detail::applyEdit(*this, outlineWidth_, width);
}

void LabelSymbol::setBackgroundColor(const Color& color) {
    detail::applyEdit(*this, backgroundColor_, color);
}

void LabelSymbol::setBackgroundPadding(const Vector4<float>& padding) {
    detail::applyEdit(*this, backgroundPadding_, padding);
}

void LabelSymbol::setPixelOffset(const Vector2<float>& offset) {
    detail::applyEdit(*this, pixelOffset_, offset);
}

void LabelSymbol::setHorizontalOrigin(const HorizontalOrigin& origin) {
    detail::applyEdit(*this, horizontalOrigin_, origin);
}

void LabelSymbol::setVerticalOrigin(const VerticalOrigin& origin) {
    detail::applyEdit(*this, verticalOrigin_, origin);
}

void LabelSymbol::setAvoidance(bool avoidance) {
    detail::applyEdit(*this, avoidance_, avoidance);
}

// The variant's == holds the image rule: equal only with the same alternative and an equal
// value, a path by content and an image by identity (shared_ptr compares pointers).
void LabelSymbol::setBackgroundImage(const std::string& path) {
    detail::applyEdit(*this, backgroundImage_, ImageSource(path));
}

void LabelSymbol::setBackgroundImage(std::shared_ptr<Image> image) {
    detail::applyEdit(*this, backgroundImage_, ImageSource(std::move(image)));
}

void LabelSymbol::setShowHintLine(bool show) {
    detail::applyEdit(*this, showHintLine_, show);
}

void LabelSymbol::setHintLineMode(HintLineMode mode) {
    detail::applyEdit(*this, hintLineMode_, mode);
}

void LabelSymbol::setHintLineSymbol(std::shared_ptr<LineSymbol> symbol) {
    detail::replaceOwned(*this, hintLineSymbol_, std::move(symbol), hintLineSubscription_);
}

void LabelSymbol::setDistanceDisplayCondition(
    const std::optional<DistanceDisplayCondition>& condition) {
    detail::applyEdit(*this, distanceDisplayCondition_, condition);
}

std::string LabelSymbol::_getText(const Feature& feature) const {
    if (fieldName_.empty()) {
        return feature.getLabelText().empty() ? feature.getName() : feature.getLabelText();
    }
    const auto& attributes = feature.getAttributes();
    const auto found = attributes.find(fieldName_);
    return found == attributes.end() ? std::string() : attributeText(found->second.value);
}

void LabelSymbol::_fill(LabelGraphics& graphics, const SymbolContext& context,
                        std::string text) const {
    graphics.setText(std::move(text));
    graphics.setFont(font_);
    graphics.setFontSize(size_);
    graphics.setScale(scale_);
    graphics.setStyle(showOutline_ ? LabelStyle::FillAndOutline : LabelStyle::Fill);
    graphics.setFillColor(shownColor(fillColor_, context.highlight));
    graphics.setOutlineColor(outlineColor_);
    graphics.setOutlineWidth(outlineWidth_);
    graphics.setShowBackground(showBackground_);
    graphics.setBackgroundColor(backgroundColor_);
    graphics.setBackgroundPadding(backgroundPadding_);
    graphics.setBackgroundImage(backgroundImage_);
    graphics.setPixelOffset(pixelOffset_);
    graphics.setHorizontalOrigin(horizontalOrigin_);
    graphics.setVerticalOrigin(verticalOrigin_);
    graphics.setAvoidance(avoidance_);
    graphics.setHeightReference(context.heightReference);
    graphics.setDistanceDisplayCondition(shownWithin(context));
}

void LabelSymbol::_fillHintLine(PolylineGraphics& graphics, const SymbolContext& context) const {
    if (hintLineSymbol_) {
        hintLineSymbol_->_fill(graphics, context);
    } else {
        graphics.setWidth(HINT_LINE_WIDTH);
    }
    if (!hintLineSymbol_ || !hintLineSymbol_->getMaterial()) {
        graphics.setMaterial(std::make_shared<ColorMaterialProperty>(Color::WHITE));
    }
    graphics.setPixelOffsets(hintLineOffsets());
    const auto rule = detail::drapeRule(context.heightReference);
    graphics.setClassificationType(rule ? rule->classification : std::nullopt);
    graphics.setHeightReference(context.heightReference);
    graphics.setDistanceDisplayCondition(shownWithin(context));
}

std::optional<DistanceDisplayCondition>
LabelSymbol::shownWithin(const SymbolContext& context) const {
    // The label shows where both the feature and the symbol allow it.
    return detail::intersectDisplayConditions(context.distanceDisplayCondition,
                                              distanceDisplayCondition_);
}

std::vector<Vector2<float>> LabelSymbol::hintLineOffsets() const {
    // The screen-space vertices, pixels from the labelled point: to the label's pixel offset,
    // straight or with one bend at the label's height.
    const Vector2<float> origin(0.0f, 0.0f);
    if (hintLineMode_ == HintLineMode::Elbow) {
        return {origin, Vector2<float>(0.0f, pixelOffset_.y), pixelOffset_};
    }
    return {origin, pixelOffset_};
}

} // namespace keo::Feature
