#include "Feature/Geometry.h"

#include "ChildEntity.h"
#include "Data/Entity.h"
#include "Data/LabelGraphics.h"
#include "Data/PolylineGraphics.h"
#include "EditRule.h"
#include "Feature/ChildEntityNames.h"
#include "Feature/Feature.h"
#include "Feature/LabelSymbol.h"
#include "Feature/Style.h"
#include "Feature/SymbolContext.h"
#include "FixedSites.h"

#include <cstdint>
#include <limits>

namespace keo::Feature {

namespace {

constexpr float LABEL_FONT_SIZE = 30.0f;
constexpr const char* LABEL_FONT = "微软雅黑";

std::shared_ptr<LabelGraphics> makeLabelGraphics() {
    LabelGraphics::ConstructorOptions options;
    options.fontSize = LABEL_FONT_SIZE;
    options.font = LABEL_FONT;
    options.scale = 1.0f;
    options.fillColor = Color::WHITE;
    options.outlineColor = Color::BLACK;
    return std::make_shared<LabelGraphics>(options);
}

// The hint line of the label entity @p label: drawn while the symbol asks for one, else dropped.
void updateHintLine(Entity& label, const LabelSymbol& symbol, const SymbolContext& context) {
    if (!symbol.isShowHintLine()) {
        detail::removeChild(label, ChildEntityName::HINT_LINE, context.feature);
        return;
    }
    const auto line = detail::findOrCreateChild(label, ChildEntityName::HINT_LINE, context.feature);
    symbol._fillHintLine(detail::ensureGraphics<PolylineGraphics>(*line), context);
}

} // namespace

Geometry::Geometry() = default;

Geometry::Geometry(const Geometry& other)
    : Geometry() {
    distanceDisplayCondition_ = other.distanceDisplayCondition_;
}

Geometry::~Geometry() = default;

const std::optional<Vector3<double>>& Geometry::getDistanceDisplayConditionAnchor() const noexcept {
    static const std::optional<Vector3<double>> none;
    return distanceDisplayConditionAnchor_ ? *distanceDisplayConditionAnchor_ : none;
}

void Geometry::setDistanceDisplayConditionAnchor(const std::optional<Vector3<double>>& anchor) {
    if (distanceDisplayConditionAnchor_) {
        *distanceDisplayConditionAnchor_ = anchor;
    } else if (anchor) {
        distanceDisplayConditionAnchor_ = std::make_unique<std::optional<Vector3<double>>>(anchor);
    }
}

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

std::optional<bool> Geometry::_isLabelOverlay() const {
    return std::nullopt;
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
        detail::removeChild(entity, ChildEntityName::LABEL, feature);
        return true;
    }
    const auto label = detail::findOrCreateChild(entity, ChildEntityName::LABEL, feature);
    auto& graphics = detail::ensureGraphics<LabelGraphics>(*label, makeLabelGraphics);
    const SymbolContext context{feature, feature.getDistanceDisplayCondition(),
                                style->getHeightReference(), feature.isHighlight()};
    symbol->_fill(graphics, context, std::move(text));
    // A kind may decide whether its label is drawn over everything else (a point does); the
    // others leave the label's own setting.
    if (const std::optional<bool> overlay = _isLabelOverlay()) {
        graphics.setOverlay(*overlay);
    }
    updateHintLine(*label, *symbol, context);
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
