#include "Subject.h"

#include "LocalFrame.h"

#include "Common/Cartographic.h"
#include "Common/Ellipsoid.h"
#include "Common/GlobeRectangle.h"
#include "Common/Math.h"
#include "Data/EllipseGraphics.h"
#include "Data/Entity.h"
#include "Data/GeometryGraphics.h"
#include "Data/PolygonGraphics.h"
#include "Data/PolylineGraphics.h"
#include "Data/PolylineVolumeGraphics.h"
#include "Data/PositionProperty.h"
#include "Data/RectangleGraphics.h"
#include "Data/WallGraphics.h"

#include <cmath>
#include <exception>

namespace keo::Picture::detail {

namespace {

using Ring = std::vector<Vector3<double>>;
using Type = GeometryGraphics::Type;

// Points of the outline of an ellipse, and of each edge of a rectangle.
constexpr int ELLIPSE_STEPS = 72;
constexpr int RECTANGLE_EDGE_STEPS = 8;

bool isClamped(HeightReference reference) noexcept {
    return reference == HeightReference::ClampToGround ||
           reference == HeightReference::ClampToTerrain ||
           reference == HeightReference::ClampTo3DTiles;
}

// The height an area lies at: on the ellipsoid when clamped or draped, else its own height.
double areaHeight(const GroundGeometryGraphics& area) noexcept {
    const bool onGround = isClamped(area.getHeightReference()) || area.getClassificationType();
    return onGround ? 0.0 : area.getHeight();
}

// The finite positions of @p points, counting the others.
Ring finiteOnly(const Ring& points, std::size_t& invalid) {
    Ring kept;
    kept.reserve(points.size());
    for (const auto& point : points) {
        if (isFinite(point)) {
            kept.push_back(point);
        } else {
            ++invalid;
        }
    }
    return kept;
}

void evaluatePolyline(Subject& subject, const PolylineGraphics& line, const TimePoint& time,
                      std::size_t& invalid) {
    Ring points;
    try {
        points = finiteOnly(line.getPositionValues(time), invalid);
    } catch (const std::exception&) {
        // Positions that cannot be computed leave the line without any.
    }
    if (line.isClampToGround() || isClamped(line.getHeightReference())) {
        for (auto& point : points) {
            point = atHeight(point, 0.0);
        }
    }
    subject.rings.push_back(std::move(points));
}

// The rings of a polygon hierarchy, depth first: each ring, then its holes with their islands.
void flattenHierarchy(const PolygonHierarchy& hierarchy, const PolygonGraphics& polygon,
                      std::vector<Ring>& rings, std::size_t& invalid) {
    Ring ring = finiteOnly(hierarchy.positions, invalid);
    const bool ownHeights =
        polygon.isPerPositionHeight() && !isClamped(polygon.getHeightReference());
    if (!ownHeights) {
        for (auto& point : ring) {
            point = atHeight(point, areaHeight(polygon));
        }
    }
    rings.push_back(std::move(ring));
    for (const auto& hole : hierarchy.holes) {
        flattenHierarchy(hole, polygon, rings, invalid);
    }
}

void evaluateRectangle(Subject& subject, const RectangleGraphics& rectangle) {
    const GlobeRectangle& box = rectangle.getCoordinates();
    const double west = box.getWest();
    // A rectangle across the antimeridian continues east of pi.
    const double east = box.getEast() < west ? box.getEast() + Math::TWO_PI : box.getEast();
    if (box.isEmpty() || !std::isfinite(west) || !std::isfinite(east)) {
        return;
    }
    const double height = areaHeight(rectangle);
    const double corners[5][2] = {{west, box.getSouth()},
                                  {east, box.getSouth()},
                                  {east, box.getNorth()},
                                  {west, box.getNorth()},
                                  {west, box.getSouth()}};
    Ring ring;
    for (int edge = 0; edge < 4; ++edge) {
        for (int step = 0; step < RECTANGLE_EDGE_STEPS; ++step) {
            const double t = static_cast<double>(step) / RECTANGLE_EDGE_STEPS;
            const double lon = corners[edge][0] + (corners[edge + 1][0] - corners[edge][0]) * t;
            const double lat = corners[edge][1] + (corners[edge + 1][1] - corners[edge][1]) * t;
            ring.push_back(Ellipsoid::WGS84.cartographicToCartesian(
                Cartographic::fromRadians(lon, lat, height)));
        }
    }
    const double angle = rectangle.getRotation().value();
    if (angle != 0.0) {
        // Turned about the centre, counter-clockwise, in the centre's tangent plane.
        const Vector3<double> centre =
            Ellipsoid::WGS84.cartographicToCartesian(Cartographic::fromRadians(
                (west + east) / 2.0, (box.getSouth() + box.getNorth()) / 2.0, height));
        Vector3<double> axes[3];
        eastNorthUpAxes(centre, axes);
        for (auto& point : ring) {
            const Vector3<double> d = point - centre;
            const double x = d.dot(axes[0]);
            const double y = d.dot(axes[1]);
            const double c = std::cos(angle);
            const double s = std::sin(angle);
            point = centre + axes[0] * (x * c - y * s) + axes[1] * (x * s + y * c) +
                    axes[2] * d.dot(axes[2]);
        }
    }
    subject.rings.push_back(std::move(ring));
}

void evaluateEllipse(Subject& subject, const EllipseGraphics& ellipse) {
    const double a = ellipse.getSemiMajorAxis();
    const double b = ellipse.getSemiMinorAxis();
    if (!(a > 0.0) || !(b > 0.0) || !subject.anchor) {
        return;
    }
    const Vector3<double> centre = atHeight(*subject.anchor, areaHeight(ellipse));
    Vector3<double> axes[3];
    eastNorthUpAxes(centre, axes);
    const double angle = ellipse.getRotation().value();
    Ring ring;
    ring.reserve(ELLIPSE_STEPS);
    for (int step = 0; step < ELLIPSE_STEPS; ++step) {
        const double t = Math::TWO_PI * step / ELLIPSE_STEPS;
        const double x = a * std::cos(t);
        const double y = b * std::sin(t);
        const double east = x * std::cos(angle) - y * std::sin(angle);
        const double north = x * std::sin(angle) + y * std::cos(angle);
        ring.push_back(centre + axes[0] * east + axes[1] * north);
    }
    subject.rings.push_back(std::move(ring));
}

// The wall's foot and top at each position that has both heights (when the lists are given).
void evaluateWall(Subject& subject, const WallGraphics& wall, std::size_t& invalid) {
    const auto& positions = wall.getPositions();
    const auto& minimum = wall.getMinimumHeights();
    const auto& maximum = wall.getMaximumHeights();
    std::size_t count = positions.size();
    count = minimum.empty() ? count : std::min(count, minimum.size());
    count = maximum.empty() ? count : std::min(count, maximum.size());
    Ring foot;
    Ring top;
    for (std::size_t i = 0; i < count; ++i) {
        const double low = minimum.empty() ? 0.0 : minimum[i];
        const double high = maximum.empty() ? 0.0 : maximum[i];
        if (!isFinite(positions[i]) || !std::isfinite(low) || !std::isfinite(high)) {
            ++invalid;
            continue;
        }
        foot.push_back(atHeight(positions[i], low));
        top.push_back(maximum.empty() ? positions[i] : atHeight(positions[i], high));
    }
    subject.rings.push_back(std::move(foot));
    subject.rings.push_back(std::move(top));
}

bool needsAnchor(const GeometryGraphics& graphics) {
    switch (graphics.getType()) {
    case Type::Polyline:
        return !static_cast<const PolylineGraphics&>(graphics).getPixelOffsets().empty();
    case Type::Polygon:
    case Type::Wall:
    case Type::Rectangle:
    case Type::PolylineVolume:
        return false;
    default:
        return true;
    }
}

// The entity's position at @p time, on the ellipsoid for clamped kinds.
std::optional<Vector3<double>> evaluateAnchor(const Subject& subject, const TimePoint& time,
                                              std::size_t& invalid) {
    const auto& property = subject.entity->getPosition();
    std::optional<Vector3<double>> value;
    try {
        value = property ? property->getValue(time) : std::nullopt;
    } catch (const std::exception&) {
        // A position that cannot be computed is no position: the picture goes on without it.
        return std::nullopt;
    }
    if (!value) {
        return std::nullopt;
    }
    if (!isFinite(*value)) {
        ++invalid;
        return std::nullopt;
    }
    const bool clamped = isClamped(subject.graphics->getHeightReference()) &&
                         !GroundGeometryGraphics::isKindOf(subject.graphics->getType());
    return clamped ? atHeight(*value, 0.0) : *value;
}

} // namespace

std::optional<Vector3<double>> Subject::reference() const {
    if (anchor) {
        return anchor;
    }
    if (rings.empty() || rings.front().empty()) {
        return std::nullopt;
    }
    Vector3<double> sum;
    for (const auto& point : rings.front()) {
        sum += point;
    }
    return sum / static_cast<double>(rings.front().size());
}

Evaluation evaluateSubject(Subject& subject, const TimePoint& time, std::size_t& invalid) {
    const GeometryGraphics& graphics = *subject.graphics;
    if (needsAnchor(graphics)) {
        subject.anchor = evaluateAnchor(subject, time, invalid);
        if (!subject.anchor) {
            return Evaluation::NoPosition;
        }
    }
    switch (graphics.getType()) {
    case Type::Polyline:
        evaluatePolyline(subject, static_cast<const PolylineGraphics&>(graphics), time, invalid);
        break;
    case Type::Polygon: {
        const auto& polygon = static_cast<const PolygonGraphics&>(graphics);
        flattenHierarchy(polygon.getHierarchy(), polygon, subject.rings, invalid);
        break;
    }
    case Type::Rectangle:
        evaluateRectangle(subject, static_cast<const RectangleGraphics&>(graphics));
        break;
    case Type::Ellipse:
        evaluateEllipse(subject, static_cast<const EllipseGraphics&>(graphics));
        break;
    case Type::Wall:
        evaluateWall(subject, static_cast<const WallGraphics&>(graphics), invalid);
        break;
    case Type::PolylineVolume:
        subject.rings.push_back(finiteOnly(
            static_cast<const PolylineVolumeGraphics&>(graphics).getPositions(), invalid));
        break;
    default:
        break;
    }
    return Evaluation::Ready;
}

} // namespace keo::Picture::detail
