#include "RingGeometry.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <optional>
#include <utility>

namespace keo::Source::detail {

namespace {

constexpr double AUTHALIC_RADIUS = 6371007.181;

struct HoleRef {
    std::size_t member;
    std::size_t hole;
};

double ringArea(const std::vector<Cartographic>& ring) noexcept {
    const std::size_t n = ring.size();
    if (n < 3) {
        return 0.0;
    }
    double sum = 0.0;
    for (std::size_t i = 0; i < n; ++i) {
        const Cartographic& previous = ring[(i + n - 1) % n];
        const Cartographic& next = ring[(i + 1) % n];
        sum += (next.longitude.value() - previous.longitude.value()) *
               std::sin(ring[i].latitude.value());
    }
    return std::fabs(sum) * AUTHALIC_RADIUS * AUTHALIC_RADIUS / 2.0;
}

// The smallest hole of another member that holds the first position of member index, larger than
// that member and smaller than its own outer ring; empty when none.
std::optional<HoleRef> enclosingHole(const std::vector<PolygonRings>& polygons,
                                     const std::vector<double>& outerAreas, std::size_t index) {
    const Cartographic& probe = polygons[index].positions.front();
    std::optional<HoleRef> best;
    double bestArea = std::numeric_limits<double>::infinity();
    for (std::size_t m = 0; m < polygons.size(); ++m) {
        for (std::size_t h = 0; m != index && h < polygons[m].holes.size(); ++h) {
            const auto& hole = polygons[m].holes[h].positions;
            const double area = std::fabs(planarSignedArea(hole));
            if (area > outerAreas[index] && area < outerAreas[m] && area < bestArea &&
                containsPoint(hole, probe)) {
                best = HoleRef{m, h};
                bestArea = area;
            }
        }
    }
    return best;
}

// Moves every member whose parent is given into its hole, deepest first so that a member takes
// its own islands along.
PolygonRings build(std::vector<PolygonRings>& polygons,
                   const std::vector<std::vector<std::vector<std::size_t>>>& children,
                   std::size_t index) {
    PolygonRings polygon = std::move(polygons[index]);
    for (std::size_t h = 0; h < polygon.holes.size(); ++h) {
        for (const std::size_t child : children[index][h]) {
            polygon.holes[h].holes.push_back(build(polygons, children, child));
        }
    }
    return polygon;
}

} // namespace

double planarSignedArea(const std::vector<Cartographic>& ring) noexcept {
    const std::size_t n = ring.size();
    double sum = 0.0;
    for (std::size_t i = 0; i < n; ++i) {
        const Cartographic& a = ring[i];
        const Cartographic& b = ring[(i + 1) % n];
        sum += a.longitude.value() * b.latitude.value() - b.longitude.value() * a.latitude.value();
    }
    return sum / 2.0;
}

void orient(std::vector<Cartographic>& ring, bool counterClockwise) {
    const double area = planarSignedArea(ring);
    if (ring.size() > 2 && (counterClockwise ? area < 0.0 : area > 0.0)) {
        std::reverse(ring.begin() + 1, ring.end());
    }
}

bool containsPoint(const std::vector<Cartographic>& ring, const Cartographic& point) noexcept {
    const double x = point.longitude.value();
    const double y = point.latitude.value();
    bool inside = false;
    const std::size_t n = ring.size();
    for (std::size_t i = 0, j = n - 1; i < n; j = i++) {
        const double xi = ring[i].longitude.value();
        const double yi = ring[i].latitude.value();
        const double xj = ring[j].longitude.value();
        const double yj = ring[j].latitude.value();
        if ((yi > y) != (yj > y) && x < (xj - xi) * (y - yi) / (yj - yi) + xi) {
            inside = !inside;
        }
    }
    return inside;
}

std::vector<PolygonRings> nestPolygons(std::vector<PolygonRings> polygons) {
    const std::size_t n = polygons.size();
    if (n < 2) {
        return polygons;
    }
    std::vector<double> outerAreas(n);
    std::vector<std::vector<std::vector<std::size_t>>> children(n);
    for (std::size_t i = 0; i < n; ++i) {
        outerAreas[i] = std::fabs(planarSignedArea(polygons[i].positions));
        children[i].resize(polygons[i].holes.size());
    }
    std::vector<bool> nested(n, false);
    for (std::size_t i = 0; i < n; ++i) {
        if (const auto parent = enclosingHole(polygons, outerAreas, i)) {
            children[parent->member][parent->hole].push_back(i);
            nested[i] = true;
        }
    }
    std::vector<PolygonRings> result;
    for (std::size_t i = 0; i < n; ++i) {
        if (!nested[i]) {
            result.push_back(build(polygons, children, i));
        }
    }
    return result;
}

double sphericalArea(const PolygonRings& polygon) noexcept {
    double area = ringArea(polygon.positions);
    for (const PolygonRings& hole : polygon.holes) {
        area -= sphericalArea(hole);
    }
    return area;
}

} // namespace keo::Source::detail
