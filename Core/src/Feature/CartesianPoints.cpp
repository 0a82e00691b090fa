#include "CartesianPoints.h"

#include "Common/Ellipsoid.h"

namespace keo::Feature::detail {

std::vector<Vector3<double>> toCartesian(const std::vector<Cartographic>& positions,
                                         std::size_t spare) {
    std::vector<Vector3<double>> points;
    points.reserve(positions.size() + spare);
    for (const Cartographic& position : positions) {
        points.push_back(Ellipsoid::WGS84.cartographicToCartesian(position));
    }
    return points;
}

} // namespace keo::Feature::detail
