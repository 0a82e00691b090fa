#include "Feature/PointGeometry.h"

#include "AssignSupport.h"
#include "CallbackPosition.h"
#include "ChildEntity.h"
#include "Common/Ellipsoid.h"
#include "Common/HeadingPitchRoll.h"
#include "Common/Matrix3.h"
#include "Common/Matrix4.h"
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
#include "Feature/Feature.h"
#include "Feature/ModelSymbol.h"
#include "Feature/ParticleEmitter.h"
#include "Feature/ParticleSystemSymbol.h"
#include "Feature/PointStyle.h"
#include "Feature/PointSymbol.h"
#include "FeatureLog.h"

#include <string_view>
#include <utility>

namespace keo::Feature {

namespace {

constexpr std::string_view LABEL_CHILD = "label-symbol";
constexpr std::string_view HINT_LINE_CHILD = "hint-line";
constexpr std::string_view BILLBOARD_CHILD = "billboard-symbol";
constexpr std::string_view MODEL_CHILD = "model-symbol";
constexpr std::string_view PARTICLE_SYSTEM_CHILD = "particle-system--symbol";

// The frame number of a position held in the Earth-fixed frame.
constexpr int FIXED_FRAME = 0;

std::shared_ptr<PositionProperty> makeConstantPosition(const Vector3<double>& cartesian) {
    return std::make_shared<ConstantPositionProperty>(cartesian, FIXED_FRAME);
}

// What every symbol of a point is drawn with besides its own fields.
struct SymbolContext {
    const Feature& feature;
    const std::optional<DistanceDisplayCondition>& condition;
    HeightReference heightReference;

    // The colour to draw a symbol of colour @p own: the highlight colour while highlighted.
    const Color& tint(const Color& own) const noexcept {
        return feature.isHighlight() ? Color::HIGHLIGHTCOLOR : own;
    }
};

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

// The graphics of the child @p name, the child and the graphics (of default options) made first
// when missing.
template <typename Graphics>
Graphics& childGraphics(Entity& entity, std::string_view name, const Feature& feature) {
    const auto child = detail::findOrCreateChild(entity, name, feature);
    return detail::ensureGraphics<Graphics>(
        *child, [] { return std::make_shared<Graphics>(typename Graphics::ConstructorOptions{}); });
}

bool drawBillboard(Entity& entity, const BillboardSymbol* symbol, const SymbolContext& context) {
    symbol = shownOrDropChild(symbol, entity, BILLBOARD_CHILD, context.feature);
    if (symbol == nullptr) {
        return false;
    }
    auto& graphics = childGraphics<BillboardGraphics>(entity, BILLBOARD_CHILD, context.feature);
    graphics.setImage(symbol->getImage());
    graphics.setWidth(symbol->getWidth());
    graphics.setHeight(symbol->getHeight());
    graphics.setScale(symbol->getScale());
    graphics.setColor(context.tint(symbol->getColor()));
    graphics.setHorizontalOrigin(symbol->getHorizontalOrigin());
    graphics.setVerticalOrigin(symbol->getVerticalOrigin());
    graphics.setPixelOffset(symbol->getPixelOffset());
    graphics.setHeightReference(context.heightReference);
    graphics.setDistanceDisplayCondition(context.condition);
    return true;
}

// A shown model symbol without a model draws nothing but keeps an existing model child.
bool drawModel(Entity& entity, const ModelSymbol* symbol, const SymbolContext& context) {
    symbol = shownOrDropChild(symbol, entity, MODEL_CHILD, context.feature);
    if (symbol == nullptr || !symbol->getModelUri()) {
        return false;
    }
    auto& graphics = childGraphics<ModelGraphics>(entity, MODEL_CHILD, context.feature);
    graphics.setUri(symbol->getModelUri());
    graphics.setScale(symbol->getScale());
    graphics.setRotation(symbol->getRotation());
    graphics.setColor(context.tint(symbol->getColor()));
    graphics.setAllowPicking(symbol->isAllowPicking());
    graphics.setHeightReference(context.heightReference);
    graphics.setDistanceDisplayCondition(context.condition);
    return true;
}

// The particles keep their own colours while highlighted and take no height reference. A shown
// symbol without an image draws nothing but keeps an existing particle child.
bool drawParticleSystem(Entity& entity, const ParticleSystemSymbol* symbol,
                        const SymbolContext& context) {
    symbol = shownOrDropChild(symbol, entity, PARTICLE_SYSTEM_CHILD, context.feature);
    if (symbol == nullptr || !symbol->getImage()) {
        return false;
    }
    auto& graphics =
        childGraphics<ParticleSystemGraphics>(entity, PARTICLE_SYSTEM_CHILD, context.feature);
    if (const auto& emitter = symbol->getEmitter()->_update()) {
        graphics.setEmitter(emitter);
    }
    graphics.setBursts(symbol->getBursts());
    graphics.setImage(symbol->getImage());
    graphics.setMinimumImageSize(symbol->getMinimumImageSize());
    graphics.setMaximumImageSize(symbol->getMaximumImageSize());
    graphics.setStartColor(symbol->getStartColor());
    graphics.setEndColor(symbol->getEndColor());
    graphics.setStartScale(symbol->getStartScale());
    graphics.setEndScale(symbol->getEndScale());
    graphics.setEmissionRate(symbol->getEmissionRate());
    graphics.setMinimumSpeed(symbol->getMinimumSpeed());
    graphics.setMaximumSpeed(symbol->getMaximumSpeed());
    graphics.setMinimumParticleLife(symbol->getMinimumParticleLife());
    graphics.setMaximumParticleLife(symbol->getMaximumParticleLife());
    graphics.setSizeInMeters(symbol->isSizeInMeters());
    graphics.setLoop(symbol->isLoop() != 0.0f);
    graphics.setLifetime(symbol->getLifetime());
    graphics.setGravity(symbol->getGravity());
    graphics.setDistanceDisplayCondition(context.condition);
    // The emitter frame is turned by the heading about the vertical and tilted by the pitch about
    // the local x axis, the roll axis of the rotation; the middle angle stays zero.
    const HeadingPitchRoll orientation(symbol->getHeading(), Radian(0.0), symbol->getPitch());
    graphics.setEmitterModelMatrix(Matrix4(Matrix3::fromHeadingPitchRoll(orientation)));
    return true;
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
    auto& graphics = detail::ensureGraphics<PointGraphics>(entity, [] {
        return std::make_shared<PointGraphics>(PointGraphics::ConstructorOptions{});
    });
    graphics.setPixelSize(symbol->getPixelSize());
    graphics.setColor(context.tint(symbol->getColor()));
    graphics.setHeightReference(context.heightReference);
    graphics.setDistanceDisplayCondition(context.condition);
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
    , position_(other.position_)
    , overlay_(other.overlay_) {}

PointGeometry::~PointGeometry() = default;

void PointGeometry::assign(const Geometry& other) {
    detail::assignKind(*this, other, KEO_FEATURE_SITE("PointGeometry::assign"),
                       [this](const PointGeometry& source) { setPosition(source.position_); });
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
    bool drawn = updateLabel(entity, feature, style) && entity.getChildByName(LABEL_CHILD);
    // The symbols show where both the feature and the geometry allow it.
    const auto condition = detail::intersectDisplayConditions(feature.getDistanceDisplayCondition(),
                                                              getDistanceDisplayCondition());
    const PointStyle* const pointStyle = style != nullptr ? style->asPointStyle() : nullptr;
    if (pointStyle == nullptr) {
        // The particle child is kept: it belongs to the particle symbol, not to the point's look.
        detail::removeChild(entity, BILLBOARD_CHILD, feature);
        detail::removeChild(entity, MODEL_CHILD, feature);
        entity.setGeometryGraphics(nullptr);
    } else {
        const SymbolContext context{feature, condition, pointStyle->getHeightReference()};
        drawn = drawBillboard(entity, pointStyle->getBillboardSymbol(), context) || drawn;
        drawn = drawModel(entity, pointStyle->getModelSymbol(), context) || drawn;
        drawn = drawParticleSystem(entity, pointStyle->getParticleSystemSymbol(), context) || drawn;
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

    if (const auto label = entity.getChildByName(LABEL_CHILD)) {
        const auto model = entity.getChildByName(MODEL_CHILD);
        const auto hintLine = label->getChildByName(HINT_LINE_CHILD);
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

    if (const auto billboard = entity.getChildByName(BILLBOARD_CHILD)) {
        if (geometryPass || !billboard->getPosition()) {
            billboard->setPosition(position_);
        }
    }
    for (const std::string_view name : {MODEL_CHILD, PARTICLE_SYSTEM_CHILD}) {
        if (const auto child = entity.getChildByName(name)) {
            placeAndOrient(*child, position_);
        }
    }
}

} // namespace keo::Feature
