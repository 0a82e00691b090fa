#include "Feature/PointGeometry.h"

#include "AssignSupport.h"
#include "CallbackPosition.h"
#include "ChildEntity.h"
#include "Common/Ellipsoid.h"
#include "Data/BillboardGraphics.h"
#include "Data/ConstantPositionProperty.h"
#include "Data/Entity.h"
#include "Data/ModelGraphics.h"
#include "Data/ParticleSystemGraphics.h"
#include "Data/PointGraphics.h"
#include "Data/VelocityOrientationProperty.h"
#include "DisplayCondition.h"
#include "EditRule.h"
#include "Feature/BillboardSymbol.h"
#include "Feature/ChildEntityNames.h"
#include "Feature/Feature.h"
#include "Feature/ModelSymbol.h"
#include "Feature/ParticleSystemSymbol.h"
#include "Feature/PointStyle.h"
#include "Feature/PointSymbol.h"
#include "Feature/SymbolContext.h"
#include "FeatureLog.h"

#include <string_view>
#include <utility>

namespace keo::Feature {

namespace {

using ChildEntityName::BILLBOARD;
using ChildEntityName::HINT_LINE;
using ChildEntityName::LABEL;
using ChildEntityName::MODEL;
using ChildEntityName::PARTICLE_SYSTEM;

// The frame number of a position held in the Earth-fixed frame.
constexpr int FIXED_FRAME = 0;

std::shared_ptr<PositionProperty> makeConstantPosition(const Vector3<double>& cartesian) {
    return std::make_shared<ConstantPositionProperty>(cartesian, FIXED_FRAME);
}

// @p symbol when it is present and shown; otherwise the child @p name is dropped and null given.
template <typename Symbol>
const Symbol* shownOrDropChild(const Symbol* symbol, Entity& entity, std::string_view name,
                               const Feature& feature) {
    if (symbol != nullptr && symbol->isEnabled()) {
        return symbol;
    }
    detail::removeChild(entity, name, feature);
    return nullptr;
}

// Draws @p symbol into the child @p name (made, with graphics of the default options, when missing)
// when it is shown and @p drawable; a shown symbol that is not drawable (a model without a model,
// particles without an image) draws nothing but keeps an existing child. Returns whether it drew.
template <typename Graphics, typename Symbol>
bool drawChild(Entity& entity, const Symbol* symbol, std::string_view name,
               const SymbolContext& context, bool (*drawable)(const Symbol&)) {
    symbol = shownOrDropChild(symbol, entity, name, context.feature);
    if (symbol == nullptr || !drawable(*symbol)) {
        return false;
    }
    const auto child = detail::findOrCreateChild(entity, name, context.feature);
    symbol->_fill(detail::ensureGraphics<Graphics>(*child), context);
    return true;
}

template <typename Symbol>
bool always(const Symbol& /*symbol*/) {
    return true;
}

bool hasModel(const ModelSymbol& symbol) {
    return symbol.getModelUri() != nullptr;
}

bool hasImage(const ParticleSystemSymbol& symbol) {
    return symbol.getImage() != nullptr;
}

// The dot is drawn by the root entity itself. Without a shown point symbol the root's graphics
// are cleared once something else is drawn (@p drawn), and left for the default dot otherwise.
bool drawPoint(Entity& entity, const PointSymbol* symbol, bool drawn,
               const SymbolContext& context) {
    if (symbol == nullptr || !symbol->isEnabled()) {
        if (drawn) {
            entity.setGeometryGraphics(nullptr);
        }
        return drawn;
    }
    symbol->_fill(detail::ensureGraphics<PointGraphics>(entity), context);
    return true;
}

// A moving point turns the entity along its path; a fixed one (or none) leaves the orientation
// to the local east-north-up frame.
void placeAndOrient(Entity& child, const std::shared_ptr<PositionProperty>& position) {
    child.setPosition(position);
    if (!position || position->isConstant()) {
        child.setOrientation(nullptr);
    } else {
        child.setOrientation(std::make_shared<VelocityOrientationProperty>(position));
    }
}

} // namespace

std::shared_ptr<CallbackPositionProperty>
getCallbackPositonProperty(std::shared_ptr<Entity> model) {
    return std::make_shared<CallbackPositionProperty>(
        [model = std::move(model)](const TimePoint& time) -> std::optional<Vector3<double>> {
            const auto& position = model->getPosition();
            if (!position) {
                return std::nullopt;
            }
            std::optional<Vector3<double>> value = position->getValue(time);
            if (!value) {
                return value;
            }
            const auto& graphics = model->getGeometryGraphics();
            const auto* modelGraphics = graphics ? graphics->as<ModelGraphics>() : nullptr;
            if (modelGraphics == nullptr || !modelGraphics->isReady()) {
                return value;
            }
            // The top of the box is measured along the model's up axis, which is the local
            // vertical at the position, so it is added to the geodetic height.
            const std::optional<double> top = modelGraphics->computeTopHeight();
            std::optional<Cartographic> cartographic =
                Ellipsoid::WGS84.cartesianToCartographic(*value);
            if (!top || !cartographic) {
                return value;
            }
            cartographic->height += *top;
            return Ellipsoid::WGS84.cartographicToCartesian(*cartographic);
        });
}

PointGeometry::PointGeometry(bool overlay)
    : overlay_(overlay) {}

PointGeometry::PointGeometry(const Cartographic& position)
    : position_(makeConstantPosition(Ellipsoid::WGS84.cartographicToCartesian(position))) {}

PointGeometry::PointGeometry(const PointGeometry& other)
    : Geometry(other)
    , overlay_(other.overlay_)
    , position_(other.position_) {}

PointGeometry::~PointGeometry() = default;

void PointGeometry::assign(const Geometry& other) {
    detail::assignKind(*this, other, KEO_FEATURE_SITE("PointGeometry::assign"),
                       [this](const PointGeometry& source) { setPosition(source.position_); });
}

std::optional<bool> PointGeometry::_isLabelOverlay() const {
    return overlay_;
}

std::unique_ptr<Geometry> PointGeometry::clone() const {
    return std::make_unique<PointGeometry>(*this);
}

Geometry::Type PointGeometry::getType() const {
    return Type::Point;
}

void PointGeometry::setPosition(const Cartographic& position) {
    const Vector3<double> cartesian = Ellipsoid::WGS84.cartographicToCartesian(position);
    if (position_ && position_->isConstant() && position_->getValue(TimePoint()) == cartesian) {
        return;
    }
    storePosition(makeConstantPosition(cartesian));
}

void PointGeometry::setPosition(std::shared_ptr<PositionProperty> position) {
    if (position_ == position || (position_ && position && position_->equals(*position))) {
        return;
    }
    storePosition(std::move(position));
}

void PointGeometry::storePosition(std::shared_ptr<PositionProperty> position) {
    {
        const detail::ChangedLockScope<PointGeometry> scope(*this);
        position_ = std::move(position);
    }
    _raiseDefinitionChangedEvent();
}

bool PointGeometry::_updateGeometry(Entity& entity, const Style* /*style*/) {
    propagatePosition(entity, Pass::Geometry);
    return true;
}

bool PointGeometry::_updateStyle(Entity& entity, const Feature& feature, const Style* style) {
    // The label counts as drawn output only when it is there.
    bool drawn = updateLabel(entity, feature, style) && entity.getChildByName(LABEL);
    // The symbols show where both the feature and the geometry allow it.
    const auto condition = detail::intersectDisplayConditions(feature.getDistanceDisplayCondition(),
                                                              getDistanceDisplayCondition());
    const PointStyle* const pointStyle = style != nullptr ? style->asPointStyle() : nullptr;
    if (pointStyle == nullptr) {
        // The particle child is kept: it belongs to the particle symbol, not to the point's look.
        detail::removeChild(entity, BILLBOARD, feature);
        detail::removeChild(entity, MODEL, feature);
        entity.setGeometryGraphics(nullptr);
    } else {
        const SymbolContext context{feature, condition, pointStyle->getHeightReference(),
                                    feature.isHighlight()};
        drawn = drawChild<BillboardGraphics>(entity, pointStyle->getBillboardSymbol(), BILLBOARD,
                                             context, always<BillboardSymbol>) ||
                drawn;
        drawn = drawChild<ModelGraphics>(entity, pointStyle->getModelSymbol(), MODEL, context,
                                         hasModel) ||
                drawn;
        drawn = drawChild<ParticleSystemGraphics>(entity, pointStyle->getParticleSystemSymbol(),
                                                  PARTICLE_SYSTEM, context, hasImage) ||
                drawn;
        drawn = drawPoint(entity, pointStyle->getPointSymbol().get(), drawn, context);
    }
    if (!drawn && !entity.getGeometryGraphics()) {
        entity.setGeometryGraphics(std::make_shared<PointGraphics>());
    }
    propagatePosition(entity, Pass::Style);
    if (style != nullptr) {
        applyShadowsToEntity(entity, style->getShadows());
    }
    return drawn;
}

void PointGeometry::propagatePosition(Entity& entity, Pass pass) {
    const bool geometryPass = pass == Pass::Geometry;
    if (geometryPass || entity.getPosition() != position_) {
        entity.setPosition(position_);
    }

    if (const auto label = entity.getChildByName(LABEL)) {
        const auto model = entity.getChildByName(MODEL);
        const auto hintLine = label->getChildByName(HINT_LINE);
        const bool placeLabel = geometryPass || !label->getPosition();
        if (placeLabel || hintLine) {
            // Over a model the label (and its hint line) ride on the model's top.
            const std::shared_ptr<PositionProperty> labelPosition =
                model ? getCallbackPositonProperty(model) : position_;
            if (placeLabel) {
                label->setPosition(labelPosition);
            }
            if (hintLine) {
                hintLine->setPosition(labelPosition);
                if (!model) {
                    // The hint line stands at the point: its position is where the distance
                    // display condition is measured from.
                    setDistanceDisplayConditionAnchor(position_ ? position_->getValue(TimePoint())
                                                                : std::nullopt);
                }
            }
        }
    }

    if (const auto billboard = entity.getChildByName(BILLBOARD)) {
        if (geometryPass || !billboard->getPosition()) {
            billboard->setPosition(position_);
        }
    }
    for (const std::string_view name : {MODEL, PARTICLE_SYSTEM}) {
        if (const auto child = entity.getChildByName(name)) {
            placeAndOrient(*child, position_);
        }
    }
}

} // namespace keo::Feature
