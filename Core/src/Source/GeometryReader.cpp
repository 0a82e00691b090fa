#include "GeometryReader.h"

#include "RingGeometry.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <memory>
#include <string>

namespace keo::Source::detail {

namespace {

using Issue = LoadReport::Issue;

constexpr double LONGITUDE_LIMIT = 360.0;
constexpr double LATITUDE_LIMIT = 90.0;
constexpr std::size_t KIND_COUNT = 3;

const std::array<const char*, KIND_COUNT> KIND_NAMES{"point", "line", "polygon"};

/** The parts found so far, per kind, and the order in which the kinds first appeared. */
struct Collector {
    std::array<RecordGeometry, KIND_COUNT> geometries;
    std::array<bool, KIND_COUNT> seen{};
    std::vector<GeometryKind> order;
    std::array<std::size_t, KIND_COUNT> partIndex{};
    const std::string& where;
    ProblemSink& sink;

    RecordGeometry& of(GeometryKind kind) {
        const auto index = static_cast<std::size_t>(kind);
        if (!seen[index]) {
            seen[index] = true;
            order.push_back(kind);
            geometries[index].kind = kind;
        }
        return geometries[index];
    }
    // "feature 3: polygon 1" for the next part of kind, counting parts kept or not.
    std::string partName(GeometryKind kind) {
        const auto index = static_cast<std::size_t>(kind);
        return where + ": " + KIND_NAMES[index] + " " + std::to_string(partIndex[index]++);
    }
};

// Checks the position of index i and gives it in radians; false (with the problem's kind and
// text) when a coordinate is not finite or out of range.
bool readPosition(double x, double y, double z, int i, Cartographic& position, Issue& issue,
                  std::string& problem) {
    if (!std::isfinite(x) || !std::isfinite(y) || !std::isfinite(z)) {
        issue = Issue::NonFiniteCoordinate;
        problem = "position " + std::to_string(i) + " has a NaN or infinite coordinate";
        return false;
    }
    if (std::fabs(x) > LONGITUDE_LIMIT || std::fabs(y) > LATITUDE_LIMIT) {
        issue = Issue::CoordinateOutOfRange;
        problem = "position " + std::to_string(i) + " lies outside longitude ±360°, latitude ±90°";
        return false;
    }
    position = Cartographic::fromDegrees(x, y, z);
    return true;
}

// Reads the positions of curve; false with the problem at the first position that fails.
bool readPositions(const OGRSimpleCurve& curve, std::vector<Cartographic>& positions, Issue& issue,
                   std::string& problem) {
    const int count = curve.getNumPoints();
    positions.resize(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        if (!readPosition(curve.getX(i), curve.getY(i), curve.getZ(i), i,
                          positions[static_cast<std::size_t>(i)], issue, problem)) {
            return false;
        }
    }
    return true;
}

// Reads a ring without its closing position; false with the problem when it cannot be kept.
bool readRing(const OGRLinearRing& ring, std::vector<Cartographic>& positions, Issue& issue,
              std::string& problem) {
    if (!readPositions(ring, positions, issue, problem)) {
        return false;
    }
    if (positions.size() > 1 && positions.front() == positions.back()) {
        positions.pop_back();
    }
    if (positions.size() < 3) {
        issue = Issue::RingTooShort;
        problem = "a ring of " + std::to_string(positions.size()) + " positions (3 needed)";
        return false;
    }
    return true;
}

void addPoint(const OGRPoint& point, Collector& collector) {
    const std::string name = collector.partName(GeometryKind::Point);
    if (point.IsEmpty()) {
        collector.sink.problem(Issue::EmptyGeometry, name + " is empty; it is dropped");
        return;
    }
    Cartographic position;
    Issue issue = Issue::EmptyGeometry;
    std::string problem;
    if (!readPosition(point.getX(), point.getY(), point.getZ(), 0, position, issue, problem)) {
        collector.sink.problem(issue, name + ": " + problem + "; the point is dropped");
        return;
    }
    collector.of(GeometryKind::Point).points.push_back(position);
}

void addLine(const OGRLineString& line, Collector& collector) {
    const std::string name = collector.partName(GeometryKind::Line);
    std::vector<Cartographic> positions;
    Issue issue = Issue::LineTooShort;
    std::string problem =
        "a line of " + std::to_string(line.getNumPoints()) + " positions (2 needed)";
    if (!readPositions(line, positions, issue, problem) || positions.size() < 2) {
        collector.sink.problem(issue, name + ": " + problem + "; the line is dropped");
        return;
    }
    collector.of(GeometryKind::Line).lines.push_back(std::move(positions));
}

void addPolygon(const OGRPolygon& polygon, Collector& collector) {
    const std::string name = collector.partName(GeometryKind::Polygon);
    PolygonRings rings;
    Issue issue = Issue::EmptyGeometry;
    std::string problem = "no outer ring";
    const OGRLinearRing* outer = polygon.getExteriorRing();
    if (outer == nullptr || !readRing(*outer, rings.positions, issue, problem)) {
        collector.sink.problem(issue,
                               name + ", outer ring: " + problem + "; the polygon is dropped");
        return;
    }
    for (int i = 0; i < polygon.getNumInteriorRings(); ++i) {
        PolygonRings hole;
        if (!readRing(*polygon.getInteriorRing(i), hole.positions, issue, problem)) {
            collector.sink.problem(issue, name + ", hole " + std::to_string(i) + ": " + problem +
                                              "; the hole is dropped");
            continue;
        }
        rings.holes.push_back(std::move(hole));
    }
    collector.of(GeometryKind::Polygon).polygons.push_back(std::move(rings));
}

void collect(const OGRGeometry& geometry, Collector& collector) {
    switch (wkbFlatten(geometry.getGeometryType())) {
    case wkbPoint:
        addPoint(*geometry.toPoint(), collector);
        return;
    case wkbLineString:
        addLine(*geometry.toLineString(), collector);
        return;
    case wkbPolygon:
    case wkbTriangle:
        addPolygon(*geometry.toPolygon(), collector);
        return;
    case wkbMultiPoint:
    case wkbMultiLineString:
    case wkbMultiPolygon:
    case wkbGeometryCollection:
    case wkbPolyhedralSurface:
    case wkbTIN:
        for (const OGRGeometry* member : *geometry.toGeometryCollection()) {
            collect(*member, collector);
        }
        return;
    default:
        collector.sink.problem(Issue::UnsupportedGeometry, collector.where + ": a part of type " +
                                                               geometry.getGeometryName() +
                                                               " has no mapping; it is dropped");
        return;
    }
}

// Outer rings counter-clockwise, holes clockwise, islands in holes counter-clockwise, and so on.
void orientHierarchy(PolygonRings& polygon, bool counterClockwise) {
    orient(polygon.positions, counterClockwise);
    for (PolygonRings& hole : polygon.holes) {
        orientHierarchy(hole, !counterClockwise);
    }
}

bool isSingle(const OGRGeometry& geometry) {
    const OGRwkbGeometryType type = wkbFlatten(geometry.getGeometryType());
    return type == wkbPoint || type == wkbLineString || type == wkbPolygon || type == wkbTriangle;
}

} // namespace

std::vector<RecordGeometry> readGeometry(const OGRGeometry* geometry, const std::string& where,
                                         ProblemSink& sink) {
    if (geometry == nullptr) {
        sink.problem(Issue::NullGeometry, where + " has no geometry; it is skipped");
        return {};
    }
    std::unique_ptr<OGRGeometry> linear;
    if (geometry->hasCurveGeometry()) {
        linear.reset(geometry->getLinearGeometry());
        geometry = linear.get();
    }
    if (geometry == nullptr || geometry->IsEmpty()) {
        sink.problem(Issue::EmptyGeometry, where + " has an empty geometry; it is skipped");
        return {};
    }
    Collector collector{{}, {}, {}, {}, where, sink};
    collect(*geometry, collector);
    std::vector<RecordGeometry> result;
    for (const GeometryKind kind : collector.order) {
        RecordGeometry& part = collector.of(kind);
        part.multi = !isSingle(*geometry);
        if (kind == GeometryKind::Polygon) {
            part.polygons = nestPolygons(std::move(part.polygons));
            for (PolygonRings& polygon : part.polygons) {
                orientHierarchy(polygon, true);
            }
        }
        result.push_back(std::move(part));
    }
    if (result.size() > 1) {
        sink.note(Issue::CollectionSplit, where + ": a collection of " +
                                              std::to_string(result.size()) +
                                              " kinds became one record per kind");
    }
    return result;
}

} // namespace keo::Source::detail
