#include "Feature/PolylineGeometry.h"

#include "AssignSupport.h"
#include "CartesianPoints.h"
#include "ChildEntity.h"
#include "Common/Ellipsoid.h"
#include "Common/Math.h"
#include "Data/ConstantPositionArrayProperty.h"
#include "Data/Entity.h"
#include "Data/HorizontalOrigin.h"
#include "Data/LabelGraphics.h"
#include "Data/PathPositionArrayProperty.h"
#include "Data/PolylineGraphics.h"
#include "Data/PolylineVolumeGraphics.h"
#include "Data/VerticalOrigin.h"
#include "Data/WallGraphics.h"
#include "DecimalText.h"
#include "DisplayCondition.h"
#include "EditRule.h"
#include "ExtrusionHeights.h"
#include "Feature/ChildEntityNames.h"
#include "Feature/ExtrusionSymbol.h"
#include "Feature/Feature.h"
#include "Feature/LengthLabelSymbol.h"
#include "Feature/LineSymbol.h"
#include "Feature/LineVolumeSymbol.h"
#include "Feature/PolygonSymbol.h"
#include "Feature/PolylineStyle.h"
#include "Feature/SymbolContext.h"
#include "FeatureLog.h"
#include "HeightReferenceRules.h"
#include "LengthLabels.h"

#include <string>
#include <utility>

namespace keo::Feature {

namespace {

using ChildEntityName::EXTRUSION_ROOF;
using ChildEntityName::EXTRUSION_WALL;
using ChildEntityName::HINT_LINE;
using ChildEntityName::LABEL;
using ChildEntityName::LENGTH_LABEL_TOTAL;
using ChildEntityName::LINE_VOLUME;
using ChildEntityName::OVERLAY_LINE;

constexpr const char* TOO_FEW_VERTICES = "折线的顶点数量不能少于2个。";
// A running length equals the asked distance within this (a single-precision 1e-10, widened).
constexpr double VERTEX_HIT_EPSILON = static_cast<double>(1e-10f);
// The width of the line drawn when the style draws nothing.
constexpr float DEFAULT_LINE_WIDTH = 1.0f;
// The total length label stands to the right of and above the last vertex.
constexpr float TOTAL_LABEL_OFFSET = 10.0f;
constexpr const char* TOTAL_LABEL_PREFIX = "总长：";

// The height reference drawn without a style: clamped to the terrain.
constexpr HeightReference HEIGHT_REFERENCE_WITHOUT_STYLE = HeightReference::ClampToTerrain;

bool hasTooFewVertices(const std::vector<Cartographic>& positions, const detail::SourceSite& site) {
    if (positions.size() >= 2) {
        return false;
    }
    detail::logWarning(site, TOO_FEW_VERTICES);
    return true;
}

// The point halfway along the line, by chord lengths; the origin when the line has no length.
Vector3<double> halfLengthPoint(const std::vector<Vector3<double>>& points) {
    std::vector<double> segments;
    segments.reserve(points.size());
    double total = 0.0;
    for (std::size_t i = 1; i < points.size(); ++i) {
        segments.push_back(points[i - 1].distance(points[i]));
        total += segments.back();
    }
    const double half = total * 0.5;
    double walked = 0.0;
    for (std::size_t i = 1; i < points.size(); ++i) {
        const double segment = segments[i - 1];
        if (walked + segment > half) {
            const double t = (half - walked) / segment;
            return points[i - 1] * (1.0 - t) + points[i] * t;
        }
        walked += segment;
    }
    return Vector3<double>(0.0, 0.0, 0.0);
}

// The line's positions as its symbol asks: a moving path where the symbol's path is on (the
// path property held by the graphics is kept and given the new points), plain points otherwise.
void setLinePositions(PolylineGraphics& graphics, const LineSymbol* symbol,
                      std::vector<Vector3<double>> points) {
    if (symbol == nullptr || !symbol->getPath().enabled) {
        graphics.setPositions(std::move(points));
        return;
    }
    if (auto* path = dynamic_cast<PathPositionArrayProperty*>(graphics.getPositions().get())) {
        path->setPathPoints(std::move(points));
        return;
    }
    graphics.setPositions(std::make_shared<PathPositionArrayProperty>(std::move(points)));
}

// The path values of @p symbol on the line's path property, and its restart request, served once.
void applyPath(PolylineGraphics& graphics, LineSymbol& symbol) {
    auto* path = dynamic_cast<PathPositionArrayProperty*>(graphics.getPositions().get());
    if (path == nullptr) {
        return;
    }
    const Path& wanted = symbol.getPath();
    path->setClosed(wanted.closed);
    path->setLoop(wanted.loop);
    path->setReversed(wanted.reversed);
    path->setSpeed(wanted.speed);
    if (wanted.restartRequest) {
        path->restart();
        symbol._clearRestartRequest();
    }
}

PolylineGraphics* polylineGraphicsOf(Entity& entity) noexcept {
    const auto& graphics = entity.getGeometryGraphics();
    return graphics ? graphics->as<PolylineGraphics>() : nullptr;
}

template <typename Graphics>
Graphics* childGraphics(Entity& entity, std::string_view name) noexcept {
    const auto child = entity.getChildByName(name);
    if (!child || !child->getGeometryGraphics()) {
        return nullptr;
    }
    return child->getGeometryGraphics()->template as<Graphics>();
}

void applyShadowVolumeScale(Entity& entity, double scale) {
    if (auto* line = polylineGraphicsOf(entity)) {
        line->setShadowVolumeHeightScale(scale);
    }
    if (auto* overlay = childGraphics<PolylineGraphics>(entity, OVERLAY_LINE)) {
        overlay->setShadowVolumeHeightScale(scale);
    }
}

// Places the label and its hint line at @p anchor.
void placeLabel(Entity& entity, const Vector3<double>& anchor) {
    const auto label = entity.getChildByName(LABEL);
    if (!label) {
        return;
    }
    label->setPosition(detail::positionAt(anchor));
    if (const auto hintLine = label->getChildByName(HINT_LINE)) {
        hintLine->setPosition(label->getPosition());
    }
}

// Places the segment labels at the midpoints of their segments, the total at the last vertex.
void placeLengthLabels(Entity& entity, const std::vector<Vector3<double>>& points) {
    detail::placeSegmentLabels(entity, [&points](std::size_t i) -> std::optional<Vector3<double>> {
        if (i + 1 >= points.size()) {
            return std::nullopt;
        }
        return detail::midpoint(points[i], points[i + 1]);
    });
    if (const auto total = entity.getChildByName(LENGTH_LABEL_TOTAL)) {
        total->setPosition(detail::positionAt(points.back()));
    }
}

// Everything one styling pass draws with: the root entity, the style's symbols' context, the
// vertices and their Cartesian points (converted once, when first needed).
struct Drawing {
    Entity& entity;
    const std::vector<Cartographic>& positions;
    detail::LazyCartesian points;
    SymbolContext context;
    // Whether anything was drawn so far (the label, length labels, a symbol's child).
    bool drawn = false;

    const Feature& feature() const noexcept { return context.feature; }
};

} // namespace

// Applies the height reference @p heightReference to the polyline graphics of @p entity: absolute
// heights, or draped on the surfaces it names; a relative kind is drawn as the matching clamped
// one, with a warning each time. Nothing for an entity without polyline graphics or a value past 6.
void setPolylineHeightReference(Entity& entity, HeightReference heightReference) {
    PolylineGraphics* const graphics = polylineGraphicsOf(entity);
    const std::optional<detail::DrapeRule> rule = detail::drapeRule(heightReference);
    if (graphics == nullptr || !rule) {
        return;
    }
    if (rule->downgraded) {
        detail::logWarning(KEO_FEATURE_SITE("setPolylineHeightReference"),
                           detail::downgradeWarning(detail::DrapedKind::Polyline, heightReference));
    }
    graphics->setClampToGround(rule->clamped);
    graphics->setClassificationType(rule->classification);
}

namespace {

// The segment labels (from the line symbol's length labels) and the total; returns whether a
// label was added or removed.
bool updateLengthLabels(Drawing& drawing, const LineSymbol* line) {
    const LengthLabelSymbol* symbol =
        line != nullptr && line->isEnabled() ? line->getLengthLabelSymbol().get() : nullptr;
    if (symbol != nullptr && !symbol->isEnabled()) {
        symbol = nullptr;
    }
    const bool segments = symbol != nullptr && symbol->isShowSegments();
    const std::size_t count = segments ? drawing.positions.size() - 1 : 0;
    bool changed = detail::removeSegmentLabelsFrom(drawing.entity, count, drawing.feature());
    if (symbol == nullptr || !symbol->isShowTotal()) {
        changed =
            detail::removeChild(drawing.entity, LENGTH_LABEL_TOTAL, drawing.feature()) || changed;
    }
    if (symbol == nullptr) {
        return changed;
    }
    const auto& points = drawing.points.get();
    const bool geodesic = drawing.context.heightReference != HeightReference::Absolute;
    double total = 0.0;
    for (std::size_t i = 0; i + 1 < drawing.positions.size(); ++i) {
        const double length =
            geodesic ? Math::computeVincentyDistR(drawing.positions[i], drawing.positions[i + 1])
                     : points[i].distance(points[i + 1]);
        total += length;
        if (segments) {
            changed =
                detail::drawLengthLabel(drawing.entity, ChildEntityName::lengthLabelSegment(i),
                                        detail::midpoint(points[i], points[i + 1]),
                                        symbol->formatLength(length), *symbol, drawing.context) ||
                changed;
        }
    }
    if (symbol->isShowTotal()) {
        changed = detail::drawLengthLabel(drawing.entity, LENGTH_LABEL_TOTAL, points.back(),
                                          TOTAL_LABEL_PREFIX + symbol->formatLength(total), *symbol,
                                          drawing.context) ||
                  changed;
        const auto label = drawing.entity.getChildByName(LENGTH_LABEL_TOTAL);
        auto& graphics = detail::ensureGraphics<LabelGraphics>(*label);
        graphics.setHorizontalOrigin(HorizontalOrigin::Left);
        graphics.setVerticalOrigin(VerticalOrigin::Bottom);
        graphics.setPixelOffset(Vector2<float>(TOTAL_LABEL_OFFSET, TOTAL_LABEL_OFFSET));
    }
    return changed;
}

// @p symbol when it is present, shown and of kind @p Kind; otherwise the child @p name is
// dropped and null given.
template <typename Kind>
const Kind* shownOrDrop(const Symbol* symbol, Symbol::Type kind, Drawing& drawing,
                        std::string_view name) {
    if (symbol != nullptr && symbol->isEnabled() && symbol->getType() == kind) {
        return static_cast<const Kind*>(symbol);
    }
    detail::removeChild(drawing.entity, name, drawing.feature());
    return nullptr;
}

// The wall standing on the line, its heights from the extrusion.
void drawWall(Drawing& drawing, const ExtrusionSymbol& extrusion, double height) {
    const auto* body = shownOrDrop<PolygonSymbol>(extrusion.getBodySymbol(), Symbol::Type::Polygon,
                                                  drawing, EXTRUSION_WALL);
    if (body == nullptr) {
        return;
    }
    const auto child = detail::findOrCreateChild(drawing.entity, EXTRUSION_WALL, drawing.feature());
    auto& wall = detail::ensureGraphics<WallGraphics>(*child);
    wall.setPositions(drawing.points.get());
    std::vector<double> minimum;
    std::vector<double> maximum;
    for (const Cartographic& vertex : drawing.positions) {
        const auto top =
            detail::extrusionTop(vertex.height, height, extrusion.getHeightReference());
        if (!top) {
            minimum.clear();
            maximum.clear();
            break;
        }
        minimum.push_back(std::min(vertex.height, *top));
        maximum.push_back(std::max(vertex.height, *top));
    }
    wall.setMinimumHeights(std::move(minimum));
    wall.setMaximumHeights(std::move(maximum));
    body->_fillWall(wall, drawing.context);
    drawing.drawn = true;
}

// The line along the top of the wall.
void drawRoof(Drawing& drawing, const ExtrusionSymbol& extrusion, double height) {
    const auto* tail = shownOrDrop<LineSymbol>(extrusion.getTailSymbol(), Symbol::Type::Line,
                                               drawing, EXTRUSION_ROOF);
    if (tail == nullptr) {
        return;
    }
    const auto child = detail::findOrCreateChild(drawing.entity, EXTRUSION_ROOF, drawing.feature());
    auto& roof = detail::ensureGraphics<PolylineGraphics>(*child);
    roof.setPositions(
        detail::extrusionRoof(drawing.positions, height, extrusion.getHeightReference()));
    tail->_fill(roof, drawing.context);
    drawing.drawn = true;
}

void drawExtrusion(Drawing& drawing, const ExtrusionSymbol* extrusion) {
    if (extrusion == nullptr || !extrusion->isEnabled()) {
        detail::removeChild(drawing.entity, EXTRUSION_WALL, drawing.feature());
        detail::removeChild(drawing.entity, EXTRUSION_ROOF, drawing.feature());
        return;
    }
    const double height = extrusion->_getHeight(drawing.feature());
    drawWall(drawing, *extrusion, height);
    drawRoof(drawing, *extrusion, height);
}

void drawLineVolume(Drawing& drawing, const LineVolumeSymbol* volume) {
    if (volume == nullptr || !volume->isEnabled() || volume->getShape().size() < 3) {
        detail::removeChild(drawing.entity, LINE_VOLUME, drawing.feature());
        return;
    }
    const auto child = detail::findOrCreateChild(drawing.entity, LINE_VOLUME, drawing.feature());
    auto& graphics = detail::ensureGraphics<PolylineVolumeGraphics>(*child);
    graphics.setPositions(drawing.points.get());
    volume->_fill(graphics, drawing.context);
    drawing.drawn = true;
}

// A line drawn by @p target (the root entity or the overlay child) from @p symbol.
void drawLine(Drawing& drawing, Entity& target, LineSymbol& symbol) {
    auto& graphics = detail::ensureGraphics<PolylineGraphics>(target);
    setLinePositions(graphics, &symbol, drawing.points.get());
    applyPath(graphics, symbol);
    symbol._fill(graphics, drawing.context);
    drawing.drawn = true;
}

void drawOverlayLine(Drawing& drawing, const std::shared_ptr<LineSymbol>& symbol) {
    if (!symbol || !symbol->isEnabled()) {
        detail::removeChild(drawing.entity, OVERLAY_LINE, drawing.feature());
        return;
    }
    drawLine(drawing, *detail::findOrCreateChild(drawing.entity, OVERLAY_LINE, drawing.feature()),
             *symbol);
}

// The main line: an absent or hidden symbol leaves the root's graphics to the default line
// unless something else was drawn, which then clears them.
void drawMainLine(Drawing& drawing, const std::shared_ptr<LineSymbol>& symbol) {
    if (!symbol || !symbol->isEnabled()) {
        if (drawing.drawn) {
            drawing.entity.setGeometryGraphics(nullptr);
        }
        return;
    }
    drawLine(drawing, drawing.entity, *symbol);
}

void drawStyle(Drawing& drawing, const PolylineStyle* style) {
    if (style == nullptr) {
        for (const std::string_view name :
             {EXTRUSION_WALL, EXTRUSION_ROOF, LINE_VOLUME, OVERLAY_LINE}) {
            detail::removeChild(drawing.entity, name, drawing.feature());
        }
        drawing.entity.setGeometryGraphics(nullptr);
        return;
    }
    drawExtrusion(drawing, style->getExtrusionSymbol().get());
    drawLineVolume(drawing, style->getLineVolumeSymbol().get());
    drawOverlayLine(drawing, style->getOverlayLineSymbol());
    drawMainLine(drawing, style->getLineSymbol());
}

// The points the lines and the wall were given when the positions last changed (by the geometry
// step of this update, or of an earlier one with the same positions) are taken rather than
// converted again.
void reuseBuiltPoints(Drawing& drawing) {
    if (const auto* wall = childGraphics<WallGraphics>(drawing.entity, EXTRUSION_WALL)) {
        drawing.points.reuse(wall->getPositions());
        return;
    }
    const PolylineGraphics* const line = polylineGraphicsOf(drawing.entity);
    const auto* positions = line != nullptr ? line->getPositions().get() : nullptr;
    if (const auto* constant = dynamic_cast<const ConstantPositionArrayProperty*>(positions)) {
        drawing.points.reuse(constant->getPoints());
    } else if (const auto* path = dynamic_cast<const PathPositionArrayProperty*>(positions)) {
        drawing.points.reuse(path->getPathPoints());
    }
}

void drawDefaultLine(Drawing& drawing) {
    auto graphics = std::make_shared<PolylineGraphics>();
    graphics->setPositions(std::make_shared<ConstantPositionArrayProperty>(drawing.points.get()));
    graphics->setWidth(DEFAULT_LINE_WIDTH);
    graphics->setMaterial(PolylineGraphics::getDefaultMaterial());
    drawing.entity.setGeometryGraphics(std::move(graphics));
}

} // namespace

PolylineGeometry::PolylineGeometry() = default;

PolylineGeometry::PolylineGeometry(const std::vector<Cartographic>& positions)
    : positions_(positions) {}

PolylineGeometry::PolylineGeometry(const PolylineGeometry& other)
    : Geometry(other)
    , positions_(other.positions_)
    , shadowVolumeHeightScale_(other.shadowVolumeHeightScale_) {}

PolylineGeometry::~PolylineGeometry() = default;

void PolylineGeometry::assign(const Geometry& other) {
    detail::assignKind(*this, other, KEO_FEATURE_SITE("PolylineGeometry::assign"),
                       [this](const PolylineGeometry& source) {
                           setPositions(source.positions_);
                           setShadowVolumeHeightScale(source.shadowVolumeHeightScale_);
                       });
}

std::unique_ptr<Geometry> PolylineGeometry::clone() const {
    return std::make_unique<PolylineGeometry>(*this);
}

Geometry::Type PolylineGeometry::getType() const {
    return Type::Polyline;
}

const std::vector<Cartographic>* PolylineGeometry::_getCartographicPositions() const {
    return &positions_;
}

void PolylineGeometry::setPositions(const std::vector<Cartographic>& positions) {
    if (&positions == &positions_) {
        return;
    }
    detail::applyEdit(*this, positions_, positions);
}

void PolylineGeometry::setShadowVolumeHeightScale(double scale) {
    detail::applyEdit(*this, shadowVolumeHeightScale_, scale);
}

double PolylineGeometry::getSpaceLength() const {
    if (positions_.size() < 2) {
        return 0.0;
    }
    const std::vector<Vector3<double>> points = detail::toCartesian(positions_);
    double length = 0.0;
    for (std::size_t i = 1; i < points.size(); ++i) {
        length += points[i - 1].distance(points[i]);
    }
    return length;
}

Cartographic PolylineGeometry::getSpacePoint(double distance) const {
    if (hasTooFewVertices(positions_, KEO_FEATURE_SITE("PolylineGeometry::getSpacePoint"))) {
        return Cartographic();
    }
    const std::vector<Vector3<double>> points = detail::toCartesian(positions_);
    double walked = 0.0;
    for (std::size_t i = 1; i < points.size(); ++i) {
        walked += points[i - 1].distance(points[i]);
        if (Math::equalsEpsilon(walked, distance, VERTEX_HIT_EPSILON)) {
            return positions_[i];
        }
        if (walked > distance) {
            // Back from the segment's end toward its start by what was walked too far.
            const Vector3<double> back = (points[i - 1] - points[i]).normalize();
            const Vector3<double> point = points[i] + back * (walked - distance);
            if (const auto cartographic = Ellipsoid::WGS84.cartesianToCartographic(point)) {
                return *cartographic;
            }
            detail::logWarning(KEO_FEATURE_SITE("PolylineGeometry::getSpacePoint"),
                               "世界坐标转经纬度错误。");
            return Cartographic();
        }
    }
    return positions_.back();
}

bool PolylineGeometry::_updateGeometry(Entity& entity, const Style* style) {
    if (hasTooFewVertices(positions_, KEO_FEATURE_SITE("PolylineGeometry::_updateGeometry"))) {
        return false;
    }
    if (entity.getGeometryGraphics() && !polylineGraphicsOf(entity)) {
        entity.setGeometryGraphics(nullptr);
    }
    const PolylineStyle* const lineStyle = style != nullptr ? style->asPolylineStyle() : nullptr;
    // Converted once, and only when something built before takes the points: on a feature's
    // first update nothing has been built yet.
    detail::LazyCartesian points(positions_);
    if (auto* main = polylineGraphicsOf(entity)) {
        setLinePositions(*main, lineStyle ? lineStyle->getLineSymbol().get() : nullptr,
                         points.get());
    }
    if (auto* overlay = childGraphics<PolylineGraphics>(entity, OVERLAY_LINE)) {
        setLinePositions(*overlay, lineStyle ? lineStyle->getOverlayLineSymbol().get() : nullptr,
                         points.get());
    }
    if (auto* wall = childGraphics<WallGraphics>(entity, EXTRUSION_WALL)) {
        wall->setPositions(points.get());
    }
    if (auto* volume = childGraphics<PolylineVolumeGraphics>(entity, LINE_VOLUME)) {
        volume->setPositions(points.get());
    }
    const bool anchored = getDistanceDisplayConditionAnchor().has_value();
    if (anchored || entity.getChildByName(LABEL)) {
        const Vector3<double> anchor = halfLengthPoint(points.get());
        if (anchored) {
            setDistanceDisplayConditionAnchor(anchor);
        }
        placeLabel(entity, anchor);
    }
    if (!entity.getChildren().empty()) {
        placeLengthLabels(entity, points.get());
    }
    applyShadowVolumeScale(entity, shadowVolumeHeightScale_);
    return true;
}

bool PolylineGeometry::_updateStyle(Entity& entity, const Feature& feature, const Style* style) {
    if (hasTooFewVertices(positions_, KEO_FEATURE_SITE("PolylineGeometry::_updateStyle"))) {
        return false;
    }
    updateLabel(entity, feature, style);
    const HeightReference heightReference =
        style != nullptr ? style->getHeightReference() : HEIGHT_REFERENCE_WITHOUT_STYLE;
    const PolylineStyle* const lineStyle = style != nullptr ? style->asPolylineStyle() : nullptr;
    Drawing drawing{entity,
                    positions_,
                    detail::LazyCartesian(positions_),
                    {feature,
                     detail::intersectDisplayConditions(feature.getDistanceDisplayCondition(),
                                                        getDistanceDisplayCondition()),
                     heightReference, feature.isHighlight()}};
    reuseBuiltPoints(drawing);
    // The label counts as drawn output only when it is there.
    drawing.drawn = static_cast<bool>(entity.getChildByName(LABEL));
    drawing.drawn =
        updateLengthLabels(drawing, lineStyle ? lineStyle->getLineSymbol().get() : nullptr) ||
        drawing.drawn;
    drawStyle(drawing, lineStyle);
    if (!drawing.drawn && !entity.getGeometryGraphics()) {
        drawDefaultLine(drawing);
    }
    setPolylineHeightReference(entity, heightReference);
    if (const auto overlay = entity.getChildByName(OVERLAY_LINE)) {
        setPolylineHeightReference(*overlay, heightReference);
    }
    const Vector3<double> anchor = halfLengthPoint(drawing.points.get());
    setDistanceDisplayConditionAnchor(anchor);
    placeLabel(entity, anchor);
    applyShadowVolumeScale(entity, shadowVolumeHeightScale_);
    applyShadowsToEntity(entity, style != nullptr ? style->getShadows() : 0);
    return true;
}

} // namespace keo::Feature
