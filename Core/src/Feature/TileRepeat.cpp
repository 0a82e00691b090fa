#include "TileRepeat.h"

#include "Common/Ellipsoid.h"
#include "Common/GlobeRectangle.h"
#include "Data/GeometryGraphics.h"
#include "Data/PolygonGraphics.h"
#include "Data/WallGraphics.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <stdexcept>
#include <vector>

namespace keo::Feature::detail {

namespace {

// Angles on the globe become metres on a sphere of the equatorial radius.
constexpr double EARTH_RADIUS = 6378137.0;

// The element at @p index, or the out-of-range error with the words callers rely on.
double checkedAt(const std::vector<double>& values, std::size_t index) {
    if (index >= values.size()) {
        throw std::out_of_range("invalid vector subscript");
    }
    return values[index];
}

Vector2<float> polygonRepeat(const PolygonGraphics& polygon, const Vector2<float>& tileSize) {
    const GlobeRectangle extent =
        GlobeRectangle::fromCartesianArray(polygon.getHierarchy().positions, Ellipsoid::WGS84);
    const double centreLatitude = extent.computeCenter().latitude.value();
    const double width = extent.computeWidth() * EARTH_RADIUS;
    const double height = extent.computeHeight() * EARTH_RADIUS;
    // A parallel at latitude phi is cos(phi) times as long as the equator, so the east-west span
    // in metres is the equatorial arc scaled by the cosine of the centre latitude; the
    // north-south span is not shortened.
    return {static_cast<float>(std::cos(centreLatitude) * width / static_cast<double>(tileSize.x)),
            static_cast<float>(height / static_cast<double>(tileSize.y))};
}

Vector2<float> wallRepeat(const WallGraphics& wall, const Vector2<float>& tileSize) {
    const auto& positions = wall.getPositions();
    const auto& minimumHeights = wall.getMinimumHeights();
    const auto& maximumHeights = wall.getMaximumHeights();
    double wallHeight = 0.0;
    for (std::size_t i = 0; i < positions.size(); ++i) {
        wallHeight =
            std::max(wallHeight, checkedAt(maximumHeights, i) - checkedAt(minimumHeights, i));
    }
    double length = 0.0;
    for (std::size_t i = 1; i < positions.size(); ++i) {
        length += positions[i].distance(positions[i - 1]);
    }
    return {static_cast<float>(length / static_cast<double>(tileSize.x)),
            static_cast<float>(wallHeight / static_cast<double>(tileSize.y))};
}

} // namespace

Vector2<float> tileRepeat(const GeometryGraphics& graphics, const Vector2<float>& tileSize,
                          ImageTileSizeUnit unit, const Vector2<float>& previous) {
    if (unit != ImageTileSizeUnit::Meter) {
        return tileSize;
    }
    if (const auto* polygon = graphics.as<PolygonGraphics>()) {
        return polygonRepeat(*polygon, tileSize);
    }
    if (const auto* wall = graphics.as<WallGraphics>()) {
        return wallRepeat(*wall, tileSize);
    }
    return previous;
}

} // namespace keo::Feature::detail
