#include "Common/BoundingSphere.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace keo {

namespace {

bool isFinite(const Vector3<double>& p) noexcept {
    return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z);
}

/**
 * The radius about @p center that holds every point for contains(): the square root of the largest
 * squared distance, raised by an ulp or two where rounding would leave radius^2 just below it (the
 * very comparison contains() makes).
 */
double coveringRadius(const std::vector<Vector3<double>>& points,
                      const Vector3<double>& center) noexcept {
    double largest = 0.0;
    for (const Vector3<double>& p : points) {
        if (isFinite(p)) {
            largest = std::max(largest, p.distanceSquared(center));
        }
    }
    double radius = std::sqrt(largest);
    while (radius * radius < largest) {
        radius = std::nextafter(radius, std::numeric_limits<double>::infinity());
    }
    return radius;
}

} // namespace

BoundingSphere BoundingSphere::fromPoints(const std::vector<Vector3<double>>& points) noexcept {
    // One pass for the axis-aligned box and the points at its faces (Ritter's starting pairs).
    constexpr double INFINITE = std::numeric_limits<double>::infinity();
    Vector3<double> minimum(INFINITE, INFINITE, INFINITE);
    Vector3<double> maximum(-INFINITE, -INFINITE, -INFINITE);
    // The points at the low and high face of the box along each axis.
    static constexpr double Vector3<double>::*AXES[3] = {&Vector3<double>::x, &Vector3<double>::y,
                                                         &Vector3<double>::z};
    Vector3<double> low[3];
    Vector3<double> high[3];
    bool any = false;
    for (const Vector3<double>& p : points) {
        if (!isFinite(p)) {
            continue; // no position: skipped
        }
        any = true;
        for (std::size_t a = 0; a < 3; ++a) {
            const double value = p.*AXES[a];
            if (value < minimum.*AXES[a]) {
                minimum.*AXES[a] = value;
                low[a] = p;
            }
            if (value > maximum.*AXES[a]) {
                maximum.*AXES[a] = value;
                high[a] = p;
            }
        }
    }
    if (!any) {
        return BoundingSphere();
    }

    // Ritter: start from the widest of the three pairs of extreme points (the first axis wins a
    // tie), then grow the sphere just enough to take in each point left outside (moving the
    // centre towards it by half the excess), which keeps every earlier point inside.
    std::size_t widest = 0;
    double widestSpan = low[0].distanceSquared(high[0]);
    for (std::size_t a = 1; a < 3; ++a) {
        const double span = low[a].distanceSquared(high[a]);
        if (span > widestSpan) {
            widest = a;
            widestSpan = span;
        }
    }
    const Vector3<double>& from = low[widest];
    const Vector3<double>& to = high[widest];
    Vector3<double> ritterCenter = (from + to) * 0.5;
    double ritterRadius = 0.5 * from.distance(to);
    for (const Vector3<double>& p : points) {
        if (!isFinite(p)) {
            continue;
        }
        const double d2 = p.distanceSquared(ritterCenter);
        if (d2 > ritterRadius * ritterRadius) {
            const double d = std::sqrt(d2);
            const double grown = 0.5 * (ritterRadius + d);
            ritterCenter += (p - ritterCenter) * ((d - grown) / d);
            ritterRadius = grown;
        }
    }
    // Both radii are recomputed as the exact cover of their centre, which also absorbs rounding.
    ritterRadius = coveringRadius(points, ritterCenter);

    const Vector3<double> boxCenter = (minimum + maximum) * 0.5;
    const double boxRadius = coveringRadius(points, boxCenter);

    return ritterRadius < boxRadius ? BoundingSphere(ritterCenter, ritterRadius)
                                    : BoundingSphere(boxCenter, boxRadius);
}

bool BoundingSphere::contains(const Vector3<double>& point) const noexcept {
    return point.distanceSquared(center_) <= radius_ * radius_;
}

} // namespace keo
