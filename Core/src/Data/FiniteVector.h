#pragma once

#include "Common/Vector3.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace keo {

// Whether every component of a point is a finite number (no NaN, no infinity).
inline bool isFinite(const Vector3<double>& point) noexcept {
    return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
}

// Drops the points that have a NaN or infinite component, keeping the order of the others.
inline std::vector<Vector3<double>> keepFinite(std::vector<Vector3<double>> points) {
    points.erase(std::remove_if(points.begin(), points.end(),
                                [](const Vector3<double>& p) { return !isFinite(p); }),
                 points.end());
    return points;
}

} // namespace keo
