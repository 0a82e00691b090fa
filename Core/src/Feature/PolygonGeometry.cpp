#include "Feature/PolygonGeometry.h"

#include "AssignSupport.h"
#include "CartesianPoints.h"
#include "ChildEntity.h"
#include "Common/Ellipsoid.h"
#include "Common/Math.h"
#include "Data/ClosedRingPositionArrayProperty.h"
#include "Data/ColorMaterialProperty.h"
#include "Data/Entity.h"
#include "Data/PolygonGraphics.h"
#include "Data/PolylineGraphics.h"
#include "Data/WallGraphics.h"
#include "DisplayCondition.h"
#include "EditRule.h"
#include "ExtrusionHeights.h"
#include "Feature/ChildEntityNames.h"
#include "Feature/ExtrusionSymbol.h"
#include "Feature/Feature.h"
#include "Feature/Highlight.h"
#include "Feature/LengthLabelSymbol.h"
#include "Feature/LineSymbol.h"
#include "Feature/PolygonStyle.h"
#include "Feature/PolygonSymbol.h"
#include "Feature/SymbolContext.h"
#include "FeatureLog.h"
#include "FixedSites.h"
#include "HeightReferenceRules.h"
#include "LengthLabels.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>
#include <utility>

namespace keo::Feature {

namespace {

using ChildEntityName::EXTRUSION_ROOF;
using ChildEntityName::EXTRUSION_ROOF_OUTLINE;
using ChildEntityName::EXTRUSION_WALL;
using ChildEntityName::HINT_LINE;
using ChildEntityName::LABEL;
using ChildEntityName::LENGTH_LABEL_SEGMENT_PREFIX;
using ChildEntityName::OUTLINE;
using ChildEntityName::OUTLINE_HOLE_PREFIX;

constexpr const char* TOO_FEW_VERTICES = "折线的顶点数量不能少于3个。";
// Room made at once for the crossings of the label's parallel with a ring.
constexpr std::size_t CROSSINGS_EXPECTED = 8;
// The most entries a label point's scratch list keeps between two polygons (512 KiB of them).
constexpr std::size_t SCRATCH_KEPT = std::size_t{1} << 16;
// Two vertices are the same within this (a single-precision 1e-10, widened).
constexpr double SAME_VERTEX_EPSILON = static_cast<double>(1e-10f);
// The height reference drawn without a style: clamped to the terrain.
constexpr HeightReference HEIGHT_REFERENCE_WITHOUT_STYLE = HeightReference::ClampToTerrain;
// A hole's outline whose line gives no colour of its own.
constexpr Color HOLE_OUTLINE_COLOR(1.0f, 1.0f, 1.0f, 1.0f);

bool hasTooFewVertices(const std::vector<Cartographic>& ring, const detail::SourceSite& site) {
    if (ring.size() >= 3) {
        return false;
    }
    detail::logWarning(site, TOO_FEW_VERTICES);
    return true;
}

template <typename Graphics>
Graphics* graphicsOf(Entity& entity) noexcept {
    const auto& graphics = entity.getGeometryGraphics();
    return graphics ? graphics->template as<Graphics>() : nullptr;
}

template <typename Graphics>
Graphics* childGraphics(Entity& entity, std::string_view name) noexcept {
    const auto child = entity.getChildByName(name);
    return child ? graphicsOf<Graphics>(*child) : nullptr;
}

bool startsWith(std::string_view text, std::string_view prefix) noexcept {
    return text.size() >= prefix.size() && text.substr(0, prefix.size()) == prefix;
}

// Removes (and reports) the children of @p entity whose name starts with @p prefix and for which
// @p drop(name) says so.
template <typename Drop>
void removeChildrenNamed(Entity& entity, std::string_view prefix, const Feature& feature,
                         Drop&& drop) {
    std::vector<std::shared_ptr<Entity>> leaving;
    for (const auto& child : entity.getChildren()) {
        if (startsWith(child->getName(), prefix) && drop(child->getName())) {
            leaving.push_back(child);
        }
    }
    for (const auto& child : leaving) {
        detail::removeEntity(child, feature);
    }
}

// The number after a segment label's prefix, read as the standard library's stoul reads it, with
// its exceptions (and their words) when it is not a number or too large.
unsigned long segmentSuffix(const std::string& name) {
    const std::string suffix = name.substr(LENGTH_LABEL_SEGMENT_PREFIX.size());
    try {
        return std::stoul(suffix);
    } catch (const std::invalid_argument&) {
        throw std::invalid_argument("invalid stoul argument");
    } catch (const std::out_of_range&) {
        throw std::out_of_range("stoul argument out of range");
    }
}

// @p points closed: the first point repeated at the end (an empty list stays empty). The list is
// made at its final size: a line keeps it for as long as it is drawn.
std::vector<Vector3<double>> closed(const std::vector<Vector3<double>>& points) {
    std::vector<Vector3<double>> ring;
    ring.reserve(points.size() + 1);
    ring.assign(points.begin(), points.end());
    if (!ring.empty()) {
        ring.push_back(ring.front());
    }
    return ring;
}

// The closed ring @p ring of the hierarchy @p held as a line's positions: read from the polygon's
// own list, which the line then keeps alive, instead of a copy.
std::shared_ptr<PositionArrayProperty>
closedRingOf(const std::shared_ptr<const PolygonHierarchy>& held,
             const std::vector<Vector3<double>>& ring) {
    return std::make_shared<ClosedRingPositionArrayProperty>(
        std::shared_ptr<const std::vector<Vector3<double>>>(held, &ring));
}

// ---- the label point ------------------------------------------------------------------------

// The lists a label point is worked out in, kept per thread: a label point is computed for every
// polygon drawn, and making and freeing two lists each time cost as much as the scan itself. A
// list that a very long ring grew past SCRATCH_KEPT entries is let go afterwards.
struct LabelScratch {
    std::vector<double> coordinates;
    std::vector<double> crossings;

    LabelScratch() = default;
    LabelScratch(const LabelScratch&) = delete;
    LabelScratch& operator=(const LabelScratch&) = delete;
    ~LabelScratch() = default;

    static LabelScratch& ofThisThread() {
        thread_local LabelScratch scratch;
        return scratch;
    }

    // Empties the lists, letting go of one grown too large.
    void release() noexcept {
        for (std::vector<double>* list : {&coordinates, &crossings}) {
            if (list->capacity() > SCRATCH_KEPT) {
                std::vector<double>().swap(*list);
            }
            list->clear();
        }
    }
};

// The ring as pairs of longitude and latitude in degrees, longitudes continuous along the ring,
// with the extent and the highest vertex.
struct FlatRing {
    std::vector<double>& coordinates;
    double west = std::numeric_limits<double>::infinity();
    double east = -std::numeric_limits<double>::infinity();
    double south = std::numeric_limits<double>::infinity();
    double north = -std::numeric_limits<double>::infinity();
    double highest = -std::numeric_limits<double>::infinity();
};

FlatRing flatten(const std::vector<Cartographic>& ring, std::vector<double>& coordinates) {
    coordinates.resize(ring.size() * 2);
    // Written through a plain pointer and summed in locals, so that the loop keeps its running
    // values in registers.
    double* out = coordinates.data();
    double west = std::numeric_limits<double>::infinity();
    double east = -std::numeric_limits<double>::infinity();
    double south = std::numeric_limits<double>::infinity();
    double north = -std::numeric_limits<double>::infinity();
    double highest = -std::numeric_limits<double>::infinity();
    double previous = 0.0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        double longitude = Math::toDegrees(ring[i].longitude.value());
        // A step of more than half a turn crosses the antimeridian the short way.
        while (i > 0 && longitude - previous > 180.0) {
            longitude -= 360.0;
        }
        while (i > 0 && longitude - previous < -180.0) {
            longitude += 360.0;
        }
        previous = longitude;
        const double latitude = Math::toDegrees(ring[i].latitude.value());
        out[2 * i] = longitude;
        out[2 * i + 1] = latitude;
        west = std::min(west, longitude);
        east = std::max(east, longitude);
        south = std::min(south, latitude);
        north = std::max(north, latitude);
        highest = std::max(highest, ring[i].height);
    }
    return FlatRing{coordinates, west, east, south, north, highest};
}

// The longitudes at which the ring's edges cross the parallel @p latitude, sorted, into @p found
// (a horizontal edge on the parallel gives a NaN, sorted last).
void crossings(const std::vector<double>& flat, double latitude, std::vector<double>& found) {
    found.clear();
    // A parallel through the middle of most rings crosses them twice, or a few times more.
    found.reserve(CROSSINGS_EXPECTED);
    // Read through a plain pointer: the list written to may not be assumed apart from it.
    const double* const points = flat.data();
    const std::size_t n = flat.size();
    double x0 = points[n - 2];
    double y0 = points[n - 1];
    for (std::size_t i = 0; i < n; i += 2) {
        const double x1 = points[i];
        const double y1 = points[i + 1];
        if ((y0 >= latitude && latitude >= y1) || (latitude >= y0 && y1 >= latitude)) {
            found.push_back((latitude - y0) / (y1 - y0) * (x1 - x0) + x0);
        }
        x0 = x1;
        y0 = y1;
    }
    std::sort(found.begin(), found.end(),
              [](double a, double b) { return std::isnan(b) ? !std::isnan(a) : a < b; });
}

// The longitude of the widest span between consecutive crossings whose middle is inside.
double widestInsideSpan(const FlatRing& flat, double latitude, std::vector<double>& sorted) {
    crossings(flat.coordinates, latitude, sorted);
    double best = std::numeric_limits<double>::quiet_NaN();
    double bestWidth = -std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i + 1 < sorted.size(); ++i) {
        const double width = std::abs(sorted[i + 1] - sorted[i]);
        if (width > bestWidth) {
            const double middle = (sorted[i] + sorted[i + 1]) / 2.0;
            if (PolygonGeometry::_isInsideRing(flat.coordinates, 0, flat.coordinates.size(), middle,
                                               latitude)) {
                best = middle;
                bestWidth = width;
            }
        }
    }
    return std::isnan(best) ? (flat.west + flat.east) / 2.0 : best;
}

// ---- the styling pass --------------------------------------------------------------------------

// Everything one styling pass draws with.
struct Drawing {
    Entity& entity;
    const PolygonGeometry::Hierarchy& hierarchy;
    // The hierarchy in Cartesian points, converted once for the area, its outlines and the wall.
    const std::shared_ptr<const PolygonHierarchy>& cartesian;
    SymbolContext context;

    const Feature& feature() const noexcept { return context.feature; }
};

// @p symbol as a polygon symbol when it is present, shown and one; otherwise the children
// @p names are dropped and null given.
const PolygonSymbol* shownPolygonSymbol(const Symbol* symbol, Drawing& drawing,
                                        std::initializer_list<std::string_view> names) {
    if (symbol != nullptr && symbol->isEnabled() && symbol->getType() == Symbol::Type::Polygon) {
        return static_cast<const PolygonSymbol*>(symbol);
    }
    for (const std::string_view name : names) {
        detail::removeChild(drawing.entity, name, drawing.feature());
    }
    return nullptr;
}

void drawWall(Drawing& drawing, const ExtrusionSymbol& extrusion, double height) {
    const PolygonSymbol* body =
        shownPolygonSymbol(extrusion.getBodySymbol(), drawing, {EXTRUSION_WALL});
    if (body == nullptr) {
        return;
    }
    bool created = false;
    const auto child =
        detail::findOrCreateChild(drawing.entity, EXTRUSION_WALL, drawing.feature(), &created);
    auto& wall = detail::ensureGraphics<WallGraphics>(*child);
    if (created) {
        wall.setPositions(closed(drawing.cartesian->positions));
    }
    std::vector<double> minimum;
    std::vector<double> maximum;
    minimum.reserve(drawing.hierarchy.positions.size() + 1);
    maximum.reserve(drawing.hierarchy.positions.size() + 1);
    for (const Cartographic& vertex : drawing.hierarchy.positions) {
        // Any reference but relative extrudes to the height as an absolute one.
        const double top =
            detail::extrusionTop(vertex.height, height, extrusion.getHeightReference())
                .value_or(height);
        minimum.push_back(std::min(vertex.height, top));
        maximum.push_back(std::max(vertex.height, top));
    }
    minimum.push_back(minimum.front());
    maximum.push_back(maximum.front());
    wall.setMinimumHeights(std::move(minimum));
    wall.setMaximumHeights(std::move(maximum));
    // After the heights: a material tiled by the metre measures the wall's height.
    body->_fillWall(wall, drawing.context);
}

void drawRoofOutline(Drawing& drawing, const PolygonSymbol& tail,
                     const std::shared_ptr<const PolygonHierarchy>& roof) {
    const auto& outline = tail.getOutLineSymbol();
    if (outline == nullptr || !outline->isEnabled()) {
        detail::removeChild(drawing.entity, EXTRUSION_ROOF_OUTLINE, drawing.feature());
        return;
    }
    const auto child =
        detail::findOrCreateChild(drawing.entity, EXTRUSION_ROOF_OUTLINE, drawing.feature());
    auto& line = detail::ensureGraphics<PolylineGraphics>(*child);
    line.setPositions(closedRingOf(roof, roof->positions));
    outline->_fill(line, drawing.context);
}

void drawRoof(Drawing& drawing, const ExtrusionSymbol& extrusion, double height) {
    const PolygonSymbol* tail = shownPolygonSymbol(extrusion.getTailSymbol(), drawing,
                                                   {EXTRUSION_ROOF, EXTRUSION_ROOF_OUTLINE});
    if (tail == nullptr) {
        return;
    }
    const auto child = detail::findOrCreateChild(drawing.entity, EXTRUSION_ROOF, drawing.feature());
    auto& roof = detail::ensureGraphics<PolygonGraphics>(*child);
    roof.setHierarchy(PolygonHierarchy(detail::extrusionRoof(drawing.hierarchy.positions, height,
                                                             extrusion.getHeightReference())));
    drawRoofOutline(drawing, *tail, roof.getSharedHierarchy());
    roof.setPerPositionHeight(true);
    tail->_fill(roof, drawing.context);
}

void drawExtrusion(Drawing& drawing, const PolygonStyle* style) {
    const ExtrusionSymbol* extrusion = style != nullptr ? style->getExtrusionSymbol() : nullptr;
    if (extrusion == nullptr || !extrusion->isEnabled()) {
        for (const std::string_view name :
             {EXTRUSION_WALL, EXTRUSION_ROOF, EXTRUSION_ROOF_OUTLINE}) {
            detail::removeChild(drawing.entity, name, drawing.feature());
        }
        return;
    }
    const double height = extrusion->_getHeight(drawing.feature());
    drawWall(drawing, *extrusion, height);
    drawRoof(drawing, *extrusion, height);
}

// Calls @p visit with each hole of @p hierarchy, depth first: holes, and holes of holes, in order.
template <typename Visit>
void forEachHole(const PolygonHierarchy& hierarchy, Visit& visit) {
    for (const PolygonHierarchy& hole : hierarchy.holes) {
        visit(hole);
        forEachHole(hole, visit);
    }
}

// The number of holes of @p hierarchy, holes of holes included.
std::size_t countHoles(const PolygonHierarchy& hierarchy) noexcept {
    std::size_t count = 0;
    auto countOne = [&count](const PolygonHierarchy& /*hole*/) { ++count; };
    forEachHole(hierarchy, countOne);
    return count;
}

// One outline per hole, in the outline's width and colour.
void drawHoleOutlines(Drawing& drawing, const LineSymbol* outline,
                      const std::shared_ptr<const PolygonHierarchy>& area) {
    const std::size_t holes = outline != nullptr ? countHoles(*area) : 0;
    removeChildrenNamed(drawing.entity, OUTLINE_HOLE_PREFIX, drawing.feature(),
                        [holes](std::string_view name) {
                            const auto index = name.substr(OUTLINE_HOLE_PREFIX.size());
                            for (std::size_t i = 0; i < holes; ++i) {
                                if (index == std::to_string(i)) {
                                    return false;
                                }
                            }
                            return true;
                        });
    if (holes == 0) {
        return;
    }
    std::size_t i = 0;
    auto draw = [&](const PolygonHierarchy& hole) {
        const auto child = detail::findOrCreateChild(
            drawing.entity, ChildEntityName::outlineHole(i++), drawing.feature());
        auto& line = detail::ensureGraphics<PolylineGraphics>(*child);
        line.setPositions(closedRingOf(area, hole.positions));
        line.setWidth(outline->getWidth());
        const Color color = outline->_getSolidColor().value_or(HOLE_OUTLINE_COLOR);
        line.setMaterial(
            std::make_shared<ColorMaterialProperty>(shownColor(color, drawing.context.highlight)));
        line.setDistanceDisplayCondition(drawing.context.distanceDisplayCondition);
    };
    forEachHole(*area, draw);
}

void drawOutlines(Drawing& drawing, const PolygonSymbol* symbol,
                  const std::shared_ptr<const PolygonHierarchy>& area) {
    const LineSymbol* outline =
        symbol != nullptr && symbol->isEnabled() ? symbol->getOutLineSymbol() : nullptr;
    if (outline != nullptr && !outline->isEnabled()) {
        outline = nullptr;
    }
    if (outline == nullptr) {
        detail::removeChild(drawing.entity, OUTLINE, drawing.feature());
    } else {
        const auto child = detail::findOrCreateChild(drawing.entity, OUTLINE, drawing.feature());
        auto& line = detail::ensureGraphics<PolylineGraphics>(*child);
        line.setPositions(closedRingOf(area, area->positions));
        outline->_fill(line, drawing.context);
    }
    drawHoleOutlines(drawing, outline, area);
}

// The area on the root itself, always there: filled by the polygon symbol (the renderer's default
// without one), hidden while the symbol is hidden; then its outlines.
void drawArea(Drawing& drawing, const PolygonSymbol* symbol) {
    auto& area = detail::ensureGraphics<PolygonGraphics>(drawing.entity);
    area.setHierarchy(drawing.cartesian);
    area.setShow(symbol == nullptr || symbol->isEnabled());
    if (symbol != nullptr) {
        symbol->_fill(area, drawing.context);
    } else {
        area.setDistanceDisplayCondition(drawing.context.distanceDisplayCondition);
    }
    drawOutlines(drawing, symbol, area.getSharedHierarchy());
}

// The edge labels of the outer ring from the polygon symbol's length labels.
void updateSegmentLabels(Drawing& drawing, const PolygonSymbol* symbol, const Style* style) {
    const LengthLabelSymbol* lengths =
        symbol != nullptr ? symbol->getLengthLabelSymbol().get() : nullptr;
    const bool active = lengths != nullptr && lengths->isEnabled() && lengths->isShowSegments();
    const auto& ring = drawing.hierarchy.positions;
    const std::size_t edges = PolygonGeometry::_countEdges(ring);
    if (!active || edges <= 2) {
        removeChildrenNamed(drawing.entity, LENGTH_LABEL_SEGMENT_PREFIX, drawing.feature(),
                            [](std::string_view) { return true; });
        return;
    }
    SymbolContext context = drawing.context;
    context.heightReference =
        style != nullptr ? style->getHeightReference() : HeightReference::Absolute;
    // The outer ring as the area already holds it converted.
    const std::vector<Vector3<double>>& points = drawing.cartesian->positions;
    for (std::size_t i = 0; i < edges; ++i) {
        const std::size_t j = (i + 1) % edges;
        const double length = context.heightReference == HeightReference::Absolute
                                  ? points[i].distance(points[j])
                                  : Math::computeVincentyDistR(ring[i], ring[j]);
        detail::drawLengthLabel(drawing.entity, ChildEntityName::lengthLabelSegment(i),
                                detail::midpoint(points[i], points[j]),
                                lengths->formatLength(length), *lengths, context);
    }
    removeChildrenNamed(
        drawing.entity, LENGTH_LABEL_SEGMENT_PREFIX, drawing.feature(),
        [edges](std::string_view name) { return segmentSuffix(std::string(name)) >= edges; });
}

// The height reference on the area: absolute heights, or draped on the surfaces it names; the
// relative kinds are drawn as the matching clamped ones, with a warning each time.
void applyAreaHeightReference(Entity& entity, HeightReference heightReference) {
    const std::optional<detail::DrapeRule> rule = detail::drapeRule(heightReference);
    PolygonGraphics* const area = graphicsOf<PolygonGraphics>(entity);
    if (!rule || area == nullptr) {
        return;
    }
    if (rule->downgraded) {
        detail::logWarning(KEO_FEATURE_SITE("PolygonGeometry::_updateStyle"),
                           detail::downgradeWarning(detail::DrapedKind::Polygon, heightReference));
    }
    area->setClassificationType(rule->classification);
    area->setPerPositionHeight(!rule->clamped);
}

void applyShadowVolumeHeightScale(Entity& entity, double scale) {
    if (auto* area = graphicsOf<PolygonGraphics>(entity)) {
        area->setShadowVolumeHeightScale(scale);
    }
    for (const auto& child : entity.getChildren()) {
        const std::string& name = child->getName();
        if (name == OUTLINE || startsWith(name, OUTLINE_HOLE_PREFIX)) {
            if (auto* line = graphicsOf<PolylineGraphics>(*child)) {
                line->setShadowVolumeHeightScale(scale);
            }
        }
    }
}

// How many children a polygon's first styling pass makes at most: its label, its outline and one
// per hole, the extrusion's wall, roof and roof outline, and an edge label per edge. The root
// makes room for them at once instead of growing its list through one size after another.
std::size_t childrenAtMost(const Drawing& drawing, const Style* style,
                           const PolygonStyle* polygonStyle, const PolygonSymbol* symbol) {
    std::size_t count = style != nullptr ? 1 : 0;
    if (symbol != nullptr && symbol->getOutLineSymbol() != nullptr) {
        count += 1 + countHoles(*drawing.cartesian);
    }
    if (polygonStyle != nullptr && polygonStyle->getExtrusionSymbol() != nullptr) {
        count += 3;
    }
    if (symbol != nullptr && symbol->getLengthLabelSymbol() != nullptr) {
        count += PolygonGeometry::_countEdges(drawing.hierarchy.positions);
    }
    return count;
}

// Places the label and its hint line at @p point.
void placeLabel(Entity& entity, const Vector3<double>& point) {
    const auto label = entity.getChildByName(LABEL);
    if (!label) {
        return;
    }
    label->setPosition(detail::positionAt(point));
    if (const auto hintLine = label->getChildByName(HINT_LINE)) {
        hintLine->setPosition(label->getPosition());
    }
}

} // namespace

PolygonGeometry::PolygonGeometry() = default;

PolygonGeometry::PolygonGeometry(const Hierarchy& hierarchy)
    : hierarchy_(hierarchy) {}

PolygonGeometry::PolygonGeometry(const PolygonGeometry& other)
    : Geometry(other)
    , hierarchy_(other.hierarchy_)
    , cartesian_(other.cartesian_)
    , shadowVolumeHeightScale_(other.shadowVolumeHeightScale_) {}

PolygonGeometry::~PolygonGeometry() = default;

void PolygonGeometry::assign(const Geometry& other) {
    detail::assignKind(*this, other, KEO_FEATURE_SITE("PolygonGeometry::assign"),
                       [this](const PolygonGeometry& source) {
                           setHierarchy(source.hierarchy_);
                           setShadowVolumeHeightScale(source.shadowVolumeHeightScale_);
                       });
}

std::unique_ptr<Geometry> PolygonGeometry::clone() const {
    return std::make_unique<PolygonGeometry>(*this);
}

Geometry::Type PolygonGeometry::getType() const {
    return Type::Polygon;
}

const std::vector<Cartographic>* PolygonGeometry::_getCartographicPositions() const {
    return &hierarchy_.positions;
}

void PolygonGeometry::setHierarchy(const Hierarchy& hierarchy) {
    if (&hierarchy == &hierarchy_) {
        return;
    }
    // No comparison: setting an equal hierarchy notifies as well.
    {
        const detail::ChangedLockScope<PolygonGeometry> scope(*this);
        hierarchy_.positions = hierarchy.positions;
        hierarchy_.holes = hierarchy.holes;
        cartesian_.reset();
    }
    _raiseDefinitionChangedEvent();
}

void PolygonGeometry::setShadowVolumeHeightScale(double scale) {
    detail::applyEdit(*this, shadowVolumeHeightScale_, scale);
}

std::vector<Vector3<double>>
PolygonGeometry::_toCartesianRing(const std::vector<Cartographic>& ring) {
    return detail::toCartesian(ring);
}

const std::shared_ptr<const PolygonHierarchy>& PolygonGeometry::cartesianHierarchy() const {
    if (!cartesian_) {
        cartesian_ = std::make_shared<const PolygonHierarchy>(_toPolygonHierarchy(hierarchy_));
    }
    return cartesian_;
}

PolygonHierarchy PolygonGeometry::_toPolygonHierarchy(const Hierarchy& hierarchy) {
    PolygonHierarchy converted(_toCartesianRing(hierarchy.positions));
    converted.holes.reserve(hierarchy.holes.size());
    for (const Hierarchy& hole : hierarchy.holes) {
        converted.holes.push_back(_toPolygonHierarchy(hole));
    }
    return converted;
}

Vector3<double> PolygonGeometry::_computeLabelPosition(const std::vector<Cartographic>& ring) {
    if (ring.empty()) {
        return Vector3<double>(0.0, 0.0, 0.0);
    }
    LabelScratch& scratch = LabelScratch::ofThisThread();
    const FlatRing flat = flatten(ring, scratch.coordinates);
    const double latitude = (flat.north + flat.south) / 2.0;
    double longitude = widestInsideSpan(flat, latitude, scratch.crossings);
    scratch.release();
    // Back into the usual range, where the ring was followed across the antimeridian.
    longitude = std::remainder(longitude, 360.0);
    return Ellipsoid::WGS84.cartographicToCartesian(
        Cartographic::fromDegrees(longitude, latitude, flat.highest));
}

bool PolygonGeometry::_isInsideRing(const std::vector<double>& flat, std::size_t start,
                                    std::size_t end, double x, double y) noexcept {
    if (start >= end || end > flat.size()) {
        return false;
    }
    int winding = 0;
    double x0 = flat[end - 2];
    double y0 = flat[end - 1];
    for (std::size_t i = start; i + 1 < end; i += 2) {
        const double x1 = flat[i];
        const double y1 = flat[i + 1];
        const double side = (x1 - x0) * (y - y0) - (y1 - y0) * (x - x0);
        if (y >= y0 && y1 > y && side > 0.0) {
            ++winding;
        } else if (y < y0 && y >= y1 && side < 0.0) {
            --winding;
        }
        x0 = x1;
        y0 = y1;
    }
    return winding != 0;
}

std::size_t PolygonGeometry::_countEdges(const std::vector<Cartographic>& ring) noexcept {
    if (ring.size() < 2) {
        return 0;
    }
    const bool closedRing = ring.front().equalsEpsilon(ring.back(), SAME_VERTEX_EPSILON);
    return closedRing ? ring.size() - 1 : ring.size();
}

void PolygonGeometry::_updateSegmentLabelPositions(Entity& entity,
                                                   const std::vector<Cartographic>& ring) {
    const std::size_t edges = _countEdges(ring);
    if (edges < 3) {
        return;
    }
    // Converted only once a label asks for it: a polygon without edge labels pays nothing.
    detail::LazyCartesian points(ring);
    detail::placeSegmentLabels(entity, [&points, edges](std::size_t i) {
        std::optional<Vector3<double>> middle;
        if (i < edges) {
            middle = detail::midpoint(points.get()[i], points.get()[(i + 1) % edges]);
        }
        return middle;
    });
}

void PolygonGeometry::_applyOutlineHeightReference(PolylineGraphics* graphics,
                                                   HeightReference heightReference) noexcept {
    const std::optional<detail::DrapeRule> rule = detail::drapeRule(heightReference);
    if (graphics == nullptr || !rule) {
        return;
    }
    graphics->setClampToGround(rule->clamped);
    graphics->setClassificationType(rule->classification);
}

bool PolygonGeometry::_updateGeometry(Entity& entity, const Style* /*style*/) {
    if (hasTooFewVertices(hierarchy_.positions,
                          KEO_FEATURE_SITE("PolygonGeometry::_updateGeometry"))) {
        return false;
    }
    if (entity.getGeometryGraphics() && !graphicsOf<PolygonGraphics>(entity)) {
        entity.setGeometryGraphics(nullptr);
    }
    PolygonGraphics* const area = graphicsOf<PolygonGraphics>(entity);
    if (area != nullptr) {
        area->setHierarchy(cartesianHierarchy());
    }
    if (const auto wall = entity.getChildByName(EXTRUSION_WALL)) {
        static_cast<WallGraphics&>(*wall->getGeometryGraphics())
            .setPositions(closed(cartesianHierarchy()->positions));
    }
    if (getDistanceDisplayConditionAnchor()) {
        setDistanceDisplayConditionAnchor(_computeLabelPosition(hierarchy_.positions));
    }
    if (entity.getChildByName(LABEL)) {
        const auto& anchor = getDistanceDisplayConditionAnchor();
        placeLabel(entity, anchor ? *anchor : _computeLabelPosition(hierarchy_.positions));
    }
    _updateSegmentLabelPositions(entity, hierarchy_.positions);
    applyShadowVolumeHeightScale(entity, shadowVolumeHeightScale_);
    return true;
}

bool PolygonGeometry::_updateStyle(Entity& entity, const Feature& feature, const Style* style) {
    if (hasTooFewVertices(hierarchy_.positions, detail::site::POLYGON_UPDATE_STYLE)) {
        return false;
    }
    const HeightReference heightReference =
        style != nullptr ? style->getHeightReference() : HEIGHT_REFERENCE_WITHOUT_STYLE;
    Drawing drawing{entity,
                    hierarchy_,
                    cartesianHierarchy(),
                    {feature,
                     detail::intersectDisplayConditions(feature.getDistanceDisplayCondition(),
                                                        getDistanceDisplayCondition()),
                     heightReference, feature.isHighlight()}};
    const PolygonStyle* const polygonStyle = style != nullptr ? style->asPolygonStyle() : nullptr;
    const PolygonSymbol* const symbol =
        polygonStyle != nullptr ? polygonStyle->getPolygonSymbol().get() : nullptr;
    if (entity.getChildren().empty()) {
        entity.reserveChildren(childrenAtMost(drawing, style, polygonStyle, symbol));
    }
    updateLabel(entity, feature, style);
    drawExtrusion(drawing, polygonStyle);
    drawArea(drawing, symbol);
    updateSegmentLabels(drawing, symbol, style);
    applyAreaHeightReference(entity, heightReference);
    _applyOutlineHeightReference(childGraphics<PolylineGraphics>(entity, OUTLINE), heightReference);
    for (const auto& child : entity.getChildren()) {
        if (startsWith(child->getName(), OUTLINE_HOLE_PREFIX)) {
            _applyOutlineHeightReference(graphicsOf<PolylineGraphics>(*child), heightReference);
        }
    }
    const Vector3<double> labelPoint = _computeLabelPosition(hierarchy_.positions);
    setDistanceDisplayConditionAnchor(labelPoint);
    placeLabel(entity, labelPoint);
    applyShadowVolumeHeightScale(entity, shadowVolumeHeightScale_);
    applyShadowsToEntity(entity, style != nullptr ? style->getShadows() : 0);
    return true;
}

} // namespace keo::Feature
