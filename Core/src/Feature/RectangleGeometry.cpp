#include "Feature/RectangleGeometry.h"

#include "AssignSupport.h"
#include "ChildEntity.h"
#include "Common/Ellipsoid.h"
#include "Common/InvalidParametersException.h"
#include "Data/Entity.h"
#include "Data/RectangleGraphics.h"
#include "Data/WallGraphics.h"
#include "DisplayCondition.h"
#include "EditRule.h"
#include "ExtrusionHeights.h"
#include "Feature/ChildEntityNames.h"
#include "Feature/ExtrusionSymbol.h"
#include "Feature/Feature.h"
#include "Feature/PolygonStyle.h"
#include "Feature/PolygonSymbol.h"
#include "Feature/SymbolContext.h"
#include "FeatureLog.h"
#include "HeightReferenceRules.h"
#include "LengthLabels.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace keo::Feature {

namespace {

using ChildEntityName::EXTRUSION_WALL;
using ChildEntityName::HINT_LINE;
using ChildEntityName::LABEL;

constexpr int INVALID_PARAMETERS = 2;
// "矩形的范围错误." (the rectangle's extent is wrong) in the GBK code page, as applications
// of the kit expect this one message.
constexpr const char* EMPTY_RECTANGLE =
    "\xBE\xD8\xD0\xCE\xB5\xC4\xB7\xB6\xCE\xA7\xB4\xED\xCE\xF3\x2E";
// The height reference drawn without a style: clamped to the terrain.
constexpr HeightReference HEIGHT_REFERENCE_WITHOUT_STYLE = HeightReference::ClampToTerrain;

void refuseEmpty(const GlobeRectangle& coordinates, const detail::SourceSite& site) {
    if (coordinates.isEmpty()) {
        throw InvalidParametersException(INVALID_PARAMETERS, EMPTY_RECTANGLE,
                                         "RectangleGeometry::update", std::string(site.file),
                                         site.line);
    }
}

RectangleGraphics* rectangleGraphicsOf(Entity& entity) noexcept {
    const auto& graphics = entity.getGeometryGraphics();
    return graphics ? graphics->as<RectangleGraphics>() : nullptr;
}

// The corners south-west, south-east, north-east, north-west and south-west again, at height 0.
std::vector<Vector3<double>> wallCorners(const GlobeRectangle& r) {
    const Cartographic corners[] = {
        Cartographic(Radian(r.getWest()), Radian(r.getSouth()), 0.0),
        Cartographic(Radian(r.getEast()), Radian(r.getSouth()), 0.0),
        Cartographic(Radian(r.getEast()), Radian(r.getNorth()), 0.0),
        Cartographic(Radian(r.getWest()), Radian(r.getNorth()), 0.0),
    };
    std::vector<Vector3<double>> points;
    for (const Cartographic& corner : corners) {
        points.push_back(Ellipsoid::WGS84.cartographicToCartesian(corner));
    }
    points.push_back(points.front());
    return points;
}

void placeLabel(Entity& entity, const GlobeRectangle& coordinates) {
    const auto label = entity.getChildByName(LABEL);
    if (!label) {
        return;
    }
    label->setPosition(
        detail::positionAt(Ellipsoid::WGS84.cartographicToCartesian(coordinates.computeCenter())));
    if (const auto hintLine = label->getChildByName(HINT_LINE)) {
        hintLine->setPosition(label->getPosition());
    }
}

void setShape(RectangleGraphics& graphics, const GlobeRectangle& coordinates, Radian rotate) {
    graphics.setCoordinates(coordinates);
    graphics.setRotation(rotate);
    // The texture turns with the shape.
    graphics.setStRotation(rotate);
}

// The wall of the extrusion on the corners, from 0 to the extrusion's top.
void drawWall(Entity& entity, const ExtrusionSymbol& extrusion, const GlobeRectangle& coordinates,
              const SymbolContext& context) {
    const auto child = detail::findOrCreateChild(entity, EXTRUSION_WALL, context.feature);
    auto& wall = detail::ensureGraphics<WallGraphics>(*child);
    wall.setPositions(wallCorners(coordinates));
    const double height = extrusion._getHeight(context.feature);
    const double top =
        detail::extrusionTop(0.0, height, extrusion.getHeightReference()).value_or(height);
    wall.setMinimumHeights(std::vector<double>(5, std::min(0.0, top)));
    wall.setMaximumHeights(std::vector<double>(5, std::max(0.0, top)));
    const Symbol* body = extrusion.getBodySymbol();
    if (body != nullptr && body->isEnabled() && body->getType() == Symbol::Type::Polygon) {
        static_cast<const PolygonSymbol&>(*body)._fillWall(wall, context);
    } else {
        wall.setDistanceDisplayCondition(context.distanceDisplayCondition);
    }
}

void applyHeightReference(Entity& entity, HeightReference heightReference) {
    const std::optional<detail::DrapeRule> rule = detail::drapeRule(heightReference);
    const auto& graphics = entity.getGeometryGraphics();
    if (!graphics || !rule) {
        return;
    }
    if (rule->downgraded) {
        detail::logWarning(
            KEO_FEATURE_SITE("RectangleGeometry::_updateStyle"),
            detail::downgradeWarning(detail::DrapedKind::Rectangle, heightReference));
    }
    graphics->setClassificationType(rule->classification);
}

} // namespace

RectangleGeometry::RectangleGeometry() = default;

RectangleGeometry::RectangleGeometry(const GlobeRectangle& coordinates)
    : coordinates_(coordinates) {}

RectangleGeometry::RectangleGeometry(const RectangleGeometry& other)
    : Geometry(other)
    , coordinates_(other.coordinates_)
    , rotate_(other.rotate_) {}

RectangleGeometry::~RectangleGeometry() = default;

void RectangleGeometry::assign(const Geometry& other) {
    detail::assignKind(*this, other, KEO_FEATURE_SITE("RectangleGeometry::assign"),
                       [this](const RectangleGeometry& source) {
                           setCoordinates(source.coordinates_);
                           setRotate(source.rotate_);
                       });
}

std::unique_ptr<Geometry> RectangleGeometry::clone() const {
    return std::make_unique<RectangleGeometry>(*this);
}

Geometry::Type RectangleGeometry::getType() const {
    return Type::Rectangle;
}

void RectangleGeometry::setCoordinates(const GlobeRectangle& coordinates) {
    if (&coordinates == &coordinates_) {
        return;
    }
    // No comparison: setting equal coordinates notifies as well.
    {
        const detail::ChangedLockScope<RectangleGeometry> scope(*this);
        coordinates_ = coordinates;
    }
    _raiseDefinitionChangedEvent();
}

void RectangleGeometry::setRotate(const Radian& rotate) {
    detail::applyEdit(*this, rotate_, rotate);
}

bool RectangleGeometry::_updateGeometry(Entity& entity, const Style* /*style*/) {
    refuseEmpty(coordinates_, KEO_FEATURE_SITE("RectangleGeometry::_updateGeometry"));
    if (entity.getGeometryGraphics() && rectangleGraphicsOf(entity) == nullptr) {
        entity.setGeometryGraphics(nullptr);
    }
    if (RectangleGraphics* graphics = rectangleGraphicsOf(entity)) {
        setShape(*graphics, coordinates_, rotate_);
    }
    if (const auto wall = entity.getChildByName(EXTRUSION_WALL)) {
        if (const auto& graphics = wall->getGeometryGraphics()) {
            if (auto* wallGraphics = graphics->as<WallGraphics>()) {
                wallGraphics->setPositions(wallCorners(coordinates_));
            }
        }
    }
    placeLabel(entity, coordinates_);
    return true;
}

bool RectangleGeometry::_updateStyle(Entity& entity, const Feature& feature, const Style* style) {
    refuseEmpty(coordinates_, KEO_FEATURE_SITE("RectangleGeometry::_updateStyle"));
    updateLabel(entity, feature, style);
    const HeightReference heightReference =
        style != nullptr ? style->getHeightReference() : HEIGHT_REFERENCE_WITHOUT_STYLE;
    const SymbolContext context{
        feature,
        detail::intersectDisplayConditions(feature.getDistanceDisplayCondition(),
                                           getDistanceDisplayCondition()),
        heightReference, feature.isHighlight()};
    const PolygonStyle* const polygonStyle = style != nullptr ? style->asPolygonStyle() : nullptr;
    const PolygonSymbol* const symbol =
        polygonStyle != nullptr ? polygonStyle->getPolygonSymbol().get() : nullptr;
    if (symbol == nullptr) {
        entity.setGeometryGraphics(nullptr);
    } else {
        if (symbol->isEnabled() && rectangleGraphicsOf(entity) == nullptr) {
            auto graphics = std::make_shared<RectangleGraphics>();
            setShape(*graphics, coordinates_, rotate_);
            entity.setGeometryGraphics(std::move(graphics));
        }
        if (RectangleGraphics* graphics = rectangleGraphicsOf(entity)) {
            graphics->setShow(symbol->isEnabled());
            symbol->_fill(*graphics, context);
        }
    }
    const ExtrusionSymbol* const extrusion =
        polygonStyle != nullptr ? polygonStyle->getExtrusionSymbol() : nullptr;
    if (extrusion != nullptr && extrusion->isEnabled()) {
        drawWall(entity, *extrusion, coordinates_, context);
    } else {
        detail::removeChild(entity, EXTRUSION_WALL, feature);
    }
    applyHeightReference(entity, heightReference);
    placeLabel(entity, coordinates_);
    applyShadowsToEntity(entity, style != nullptr ? style->getShadows() : 0);
    return true;
}

} // namespace keo::Feature
