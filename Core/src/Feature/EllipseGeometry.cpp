#include "Feature/EllipseGeometry.h"

#include "AssignSupport.h"
#include "ChildEntity.h"
#include "Common/Ellipsoid.h"
#include "Data/EllipseGraphics.h"
#include "Data/Entity.h"
#include "DisplayCondition.h"
#include "EditRule.h"
#include "Feature/ChildEntityNames.h"
#include "Feature/EllipseStyle.h"
#include "Feature/EllipseSymbol.h"
#include "Feature/Feature.h"
#include "Feature/SymbolContext.h"
#include "FeatureLog.h"
#include "HeightReferenceRules.h"
#include "LengthLabels.h"

#include <utility>

namespace keo::Feature {

namespace {

using ChildEntityName::HINT_LINE;
using ChildEntityName::LABEL;

constexpr const char* INVALID_AXES = "椭圆半轴长不能为0.0。";
// The height reference drawn without a style: clamped to the terrain.
constexpr HeightReference HEIGHT_REFERENCE_WITHOUT_STYLE = HeightReference::ClampToTerrain;

// Both axes above 0; a NaN passes (only an axis that 0 is at least as large as fails).
bool hasValidAxes(const EllipseGeometry& ellipse, const detail::SourceSite& site) {
    if (0.0 >= ellipse.getSemiMajorAxis() || 0.0 >= ellipse.getSemiMinorAxis()) {
        detail::logWarning(site, INVALID_AXES);
        return false;
    }
    return true;
}

EllipseGraphics* ellipseGraphicsOf(Entity& entity) noexcept {
    const auto& graphics = entity.getGeometryGraphics();
    return graphics ? graphics->as<EllipseGraphics>() : nullptr;
}

// Every set of an ellipse notifies, whatever the value: changed-lock true, store, changed-lock
// false, definition-changed.
template <typename T>
void storeAndNotify(EllipseGeometry& ellipse, T& field, const T& value) {
    {
        const detail::ChangedLockScope<EllipseGeometry> scope(ellipse);
        field = value;
    }
    ellipse._raiseDefinitionChangedEvent();
}

// The label at @p center; with @p always false only a label that has no position yet.
void placeLabel(Entity& entity, const Vector3<double>& center, bool always) {
    const auto label = entity.getChildByName(LABEL);
    if (!label || (!always && label->getPosition())) {
        return;
    }
    label->setPosition(detail::positionAt(center));
    if (const auto hintLine = label->getChildByName(HINT_LINE)) {
        hintLine->setPosition(label->getPosition());
    }
}

// The height reference on the ellipse: at the centre's height, or draped on the surfaces it
// names; the relative kinds are drawn as the matching clamped ones, with the warning of areas.
void applyHeightReference(EllipseGraphics& graphics, HeightReference heightReference,
                          double centerHeight) {
    const std::optional<detail::DrapeRule> rule = detail::drapeRule(heightReference);
    if (!rule) {
        return;
    }
    if (rule->downgraded) {
        detail::logWarning(KEO_FEATURE_SITE("EllipseGeometry::_updateStyle"),
                           detail::downgradeWarning(detail::DrapedKind::Polygon, heightReference));
    }
    graphics.setClassificationType(rule->classification);
    if (!rule->clamped) {
        graphics.setHeight(centerHeight);
    }
}

} // namespace

EllipseGeometry::EllipseGeometry() = default;

EllipseGeometry::EllipseGeometry(const Cartographic& center, double semiMajorAxis,
                                 double semiMinorAxis)
    : center_(center)
    , semiMajorAxis_(semiMajorAxis)
    , semiMinorAxis_(semiMinorAxis) {}

EllipseGeometry::EllipseGeometry(const EllipseGeometry& other)
    : Geometry(other)
    , center_(other.center_)
    , semiMajorAxis_(other.semiMajorAxis_)
    , semiMinorAxis_(other.semiMinorAxis_) {}

EllipseGeometry::~EllipseGeometry() = default;

void EllipseGeometry::assign(const Geometry& other) {
    detail::assignKind(*this, other, KEO_FEATURE_SITE("EllipseGeometry::assign"),
                       [this](const EllipseGeometry& source) {
                           setCenter(source.center_);
                           setSemiMajorAxis(source.semiMajorAxis_);
                           setSemiMinorAxis(source.semiMinorAxis_);
                       });
}

std::unique_ptr<Geometry> EllipseGeometry::clone() const {
    return std::make_unique<EllipseGeometry>(*this);
}

Geometry::Type EllipseGeometry::getType() const {
    return Type::Ellipse;
}

void EllipseGeometry::setCenter(const Cartographic& center) {
    if (&center == &center_) {
        return;
    }
    storeAndNotify(*this, center_, center);
}

void EllipseGeometry::setSemiMajorAxis(double length) {
    storeAndNotify(*this, semiMajorAxis_, length);
}

void EllipseGeometry::setSemiMinorAxis(double length) {
    storeAndNotify(*this, semiMinorAxis_, length);
}

bool EllipseGeometry::_updateGeometry(Entity& entity, const Style* /*style*/) {
    if (!hasValidAxes(*this, KEO_FEATURE_SITE("EllipseGeometry::_updateGeometry"))) {
        return false;
    }
    if (entity.getGeometryGraphics() && ellipseGraphicsOf(entity) == nullptr) {
        entity.setGeometryGraphics(nullptr);
    }
    const Vector3<double> center = Ellipsoid::WGS84.cartographicToCartesian(center_);
    entity.setPosition(detail::positionAt(center));
    if (EllipseGraphics* graphics = ellipseGraphicsOf(entity)) {
        graphics->setSemiMajorAxis(semiMajorAxis_);
        graphics->setSemiMinorAxis(semiMinorAxis_);
    }
    if (getDistanceDisplayConditionAnchor()) {
        setDistanceDisplayConditionAnchor(center);
    }
    placeLabel(entity, center, true);
    return true;
}

bool EllipseGeometry::_updateStyle(Entity& entity, const Feature& feature, const Style* style) {
    if (!hasValidAxes(*this, KEO_FEATURE_SITE("EllipseGeometry::_updateStyle"))) {
        return false;
    }
    updateLabel(entity, feature, style);
    // The label counts as drawn output only when it is there.
    bool drawn = static_cast<bool>(entity.getChildByName(LABEL));
    const Vector3<double> center = Ellipsoid::WGS84.cartographicToCartesian(center_);
    const auto condition = detail::intersectDisplayConditions(feature.getDistanceDisplayCondition(),
                                                              getDistanceDisplayCondition());
    const HeightReference heightReference =
        style != nullptr ? style->getHeightReference() : HEIGHT_REFERENCE_WITHOUT_STYLE;
    const EllipseStyle* const ellipseStyle = style != nullptr ? style->asEllipseStyle() : nullptr;
    const EllipseSymbol* const symbol =
        ellipseStyle != nullptr ? ellipseStyle->getEllipseSymbol().get() : nullptr;
    if (symbol != nullptr && symbol->isEnabled()) {
        drawn = true;
        if (!entity.getGeometryGraphics()) {
            auto graphics = std::make_shared<EllipseGraphics>();
            graphics->setSemiMajorAxis(semiMajorAxis_);
            graphics->setSemiMinorAxis(semiMinorAxis_);
            entity.setGeometryGraphics(std::move(graphics));
            entity.setPosition(detail::positionAt(center));
        }
        if (EllipseGraphics* graphics = ellipseGraphicsOf(entity)) {
            symbol->_fill(*graphics, {feature, condition, heightReference, feature.isHighlight()});
        }
    } else if (ellipseStyle == nullptr || drawn) {
        entity.setGeometryGraphics(nullptr);
    }
    if (!drawn && !entity.getGeometryGraphics()) {
        EllipseGraphics::ConstructorOptions options;
        options.semiMajorAxis = semiMajorAxis_;
        options.semiMinorAxis = semiMinorAxis_;
        entity.setGeometryGraphics(std::make_shared<EllipseGraphics>(options));
        entity.setPosition(detail::positionAt(center));
    }
    if (EllipseGraphics* graphics = ellipseGraphicsOf(entity)) {
        applyHeightReference(*graphics, heightReference, center_.height);
        graphics->setDistanceDisplayCondition(condition);
    }
    setDistanceDisplayConditionAnchor(center);
    placeLabel(entity, center, false);
    applyShadowsToEntity(entity, style != nullptr ? style->getShadows() : 0);
    return true;
}

} // namespace keo::Feature
