#include "Feature/Geometry.h"

#include "ChildEntity.h"
#include "Data/ColorMaterialProperty.h"
#include "Data/Entity.h"
#include "Data/LabelGraphics.h"
#include "Data/PolylineGraphics.h"
#include "DisplayCondition.h"
#include "EditRule.h"
#include "Feature/Feature.h"
#include "Feature/LabelSymbol.h"
#include "Feature/LineSymbol.h"
#include "Feature/Material.h"
#include "Feature/PointGeometry.h"
#include "Feature/Style.h"
#include "FixedSites.h"
#include "HeightReferenceRules.h"

#include <cstdint>
#include <limits>

namespace keo::Feature {

namespace {

constexpr float LABEL_FONT_SIZE = 30.0f;
constexpr const char* LABEL_FONT = "微软雅黑";
constexpr float HINT_LINE_WIDTH = 1.0f;

std::shared_ptr<LabelGraphics> makeLabelGraphics() {
    LabelGraphics::ConstructorOptions options;
    options.fontSize = LABEL_FONT_SIZE;
    options.font = LABEL_FONT;
    options.scale = 1.0f;
    options.fillColor = Color::WHITE;
    options.outlineColor = Color::BLACK;
    return std::make_shared<LabelGraphics>(options);
}

// The screen-space vertices of the hint line, pixels from the labelled point: to the label's
// pixel offset, straight or with one bend at the label's height.
std::vector<Vector2<float>> hintLineOffsets(const LabelSymbol& symbol) {
    const Vector2<float> origin(0.0f, 0.0f);
    const Vector2<float>& label = symbol.getPixelOffset();
    if (symbol.getHintLineMode() == LabelSymbol::HintLineMode::Elbow) {
        return {origin, Vector2<float>(0.0f, label.y), label};
    }
    return {origin, label};
}

void updateHintLine(Entity& label, const LabelSymbol& symbol, const Feature& feature,
                    HeightReference heightReference,
                    const std::optional<DistanceDisplayCondition>& condition) {
    if (!symbol.isShowHintLine()) {
        detail::removeChild(label, "hint-line", feature);
        return;
    }
    const auto line = detail::findOrCreateChild(label, "hint-line", feature);
    auto& graphics = detail::ensureGraphics<PolylineGraphics>(
        *line, [] { return std::make_shared<PolylineGraphics>(); });
    const LineSymbol* lineSymbol = symbol.getHintLineSymbol();
    graphics.setWidth(lineSymbol != nullptr ? lineSymbol->getWidth() : HINT_LINE_WIDTH);
    if (lineSymbol != nullptr && lineSymbol->getMaterial()) {
        lineSymbol->getMaterial()->update(graphics, feature.isHighlight());
    } else {
        graphics.setMaterial(std::make_shared<ColorMaterialProperty>(Color::WHITE));
    }
    graphics.setPixelOffsets(hintLineOffsets(symbol));
    const auto rule = detail::drapeRule(heightReference);
    graphics.setClassificationType(rule ? rule->classification : std::nullopt);
    graphics.setHeightReference(heightReference);
    graphics.setDistanceDisplayCondition(condition);
}

void fillLabel(LabelGraphics& graphics, const LabelSymbol& symbol, const Feature& feature,
               std::string text, HeightReference heightReference,
               const std::optional<DistanceDisplayCondition>& condition) {
    graphics.setText(std::move(text));
    graphics.setFont(symbol.getFont());
    graphics.setFontSize(symbol.getSize());
    graphics.setScale(symbol.getScale());
    graphics.setStyle(symbol.isShowOutline() ? LabelStyle::FillAndOutline : LabelStyle::Fill);
    graphics.setFillColor(feature.isHighlight() ? Color::HIGHLIGHTCOLOR : symbol.getFillColor());
    graphics.setOutlineColor(symbol.getOutlineColor());
    graphics.setOutlineWidth(symbol.getOutlineWidth());
    graphics.setShowBackground(symbol.isShowBackground());
    graphics.setBackgroundColor(symbol.getBackgroundColor());
    graphics.setBackgroundPadding(symbol.getBackgroundPadding());
    graphics.setBackgroundImage(symbol.getBackgroundImage());
    graphics.setPixelOffset(symbol.getPixelOffset());
    graphics.setHorizontalOrigin(symbol.getHorizontalOrigin());
    graphics.setVerticalOrigin(symbol.getVerticalOrigin());
    graphics.setAvoidance(symbol.getAvoidance());
    graphics.setHeightReference(heightReference);
    graphics.setDistanceDisplayCondition(condition);
}

} // namespace

Geometry::Geometry() = default;

Geometry::Geometry(const Geometry& other)
    : Geometry() {
    distanceDisplayCondition_ = other.distanceDisplayCondition_;
}

Geometry::~Geometry() = default;

void Geometry::assign(const Geometry& other) {
    if (!detail::checkAssignKind(other.getType() == getType(), detail::site::GEOMETRY_ASSIGN)) {
        return;
    }
    setDistanceDisplayCondition(other.distanceDisplayCondition_);
}

Geometry::Type Geometry::getType() const {
    return Type::Base;
}

const std::vector<Cartographic>* Geometry::_getCartographicPositions() const {
    return nullptr;
}

void Geometry::setDistanceDisplayCondition(
    const std::optional<DistanceDisplayCondition>& condition) {
    detail::applyEdit(*this, distanceDisplayCondition_, condition);
}

void Geometry::_raiseDefinitionChangedEvent() {
    raiseDefinitionChanged();
}

bool Geometry::updateLabel(Entity& entity, const Feature& feature, const Style* style) const {
    const LabelSymbol* symbol = style != nullptr ? style->getLabelSymbol().get() : nullptr;
    std::string text;
    if (symbol != nullptr && symbol->isEnabled()) {
        text = symbol->_getText(feature);
    }
    if (text.empty()) {
        detail::removeChild(entity, "label-symbol", feature);
        return true;
    }
    const auto label = detail::findOrCreateChild(entity, "label-symbol", feature);
    auto& graphics = detail::ensureGraphics<LabelGraphics>(*label, makeLabelGraphics);
    const HeightReference heightReference = style->getHeightReference();
    // The label shows where both the feature and the symbol allow it.
    const auto condition = detail::intersectDisplayConditions(
        feature.getDistanceDisplayCondition(), symbol->getDistanceDisplayCondition());
    fillLabel(graphics, *symbol, feature, std::move(text), heightReference, condition);
    // A point decides whether its label is drawn over everything else; other kinds leave the
    // label's own setting. The cast is checked, as other classes may claim the point code.
    if (getType() == Type::Point) {
        if (const auto* point = dynamic_cast<const PointGeometry*>(this)) {
            graphics.setOverlay(point->isOverlay());
        }
    }
    updateHintLine(*label, *symbol, feature, heightReference, condition);
    return true;
}

void applyShadowsToEntity(Entity& entity, int shadows) {
    if (shadows < 0 || shadows > std::numeric_limits<std::uint8_t>::max()) {
        return; // not a shadow mode; the graphics would ignore it as well
    }
    const auto mode = static_cast<ShadowMode>(shadows);
    if (const auto& graphics = entity.getGeometryGraphics()) {
        graphics->setShadows(mode);
    }
    for (const auto& child : entity.getChildren()) {
        applyShadowsToEntity(*child, shadows);
    }
}

} // namespace keo::Feature
