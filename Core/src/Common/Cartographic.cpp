#include "Common/Cartographic.h"

#include "Common/Degree.h"

#include <cmath>

namespace keo {

Cartographic Cartographic::fromDegrees(double longitude, double latitude, double height) noexcept {
    return Cartographic(Radian(Degree(longitude)), Radian(Degree(latitude)), height);
}

bool Cartographic::equalsEpsilon(const Cartographic& other, double epsilon) const noexcept {
    // Written as "difference <= epsilon" so that a NaN on either side makes the result false.
    return std::abs(longitude.value() - other.longitude.value()) <= epsilon &&
           std::abs(latitude.value() - other.latitude.value()) <= epsilon &&
           std::abs(height - other.height) <= epsilon;
}

} // namespace keo
