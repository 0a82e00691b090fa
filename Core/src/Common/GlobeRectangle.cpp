#include "Common/GlobeRectangle.h"

#include "Common/Ellipsoid.h"
#include "Common/Math.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace keo {

namespace {

/**
 * Accumulates the bounds of positions one at a time, for two candidate longitude spans: the plain
 * one of the longitudes in [-pi, pi], and the one of the same longitudes taken in [0, 2 pi), which
 * crosses the antimeridian (a set of longitudes around +-pi is narrow there but covers almost the
 * whole globe in [-pi, pi]).
 *
 * In [0, 2 pi) the negative longitudes move up by 2 pi, past every non-negative one, so that span
 * runs from the smallest non-negative longitude to the largest negative one (+ 2 pi). Those two are
 * tracked as they are, rather than shifted and shifted back, so that the bounds are exactly the
 * positions' longitudes and contain them without rounding.
 */
class BoundsBuilder final {
public:
    void add(const Cartographic& position) noexcept {
        const double latitude = position.latitude.value();
        const double rawLongitude = position.longitude.value();
        if (!std::isfinite(rawLongitude) || !std::isfinite(latitude) ||
            std::isnan(position.height)) {
            return; // no place on the globe: skipped
        }
        const double longitude = Math::negativePiToPi(rawLongitude);
        west_ = std::min(west_, longitude);
        east_ = std::max(east_, longitude);
        if (longitude < 0.0) {
            eastNegative_ = std::max(eastNegative_, longitude);
        } else {
            westNonNegative_ = std::min(westNonNegative_, longitude);
        }
        south_ = std::min(south_, latitude);
        north_ = std::max(north_, latitude);
    }

    GlobeRectangle build() const noexcept {
        if (!(south_ <= north_)) {
            return GlobeRectangle::EMPTY; // nothing was added
        }
        // With longitudes of one sign only, both spans are the same: the plain one is kept.
        const bool bothSigns = eastNegative_ > -INFINITE && westNonNegative_ < INFINITE;
        if (bothSigns && eastNegative_ + Math::TWO_PI - westNonNegative_ < east_ - west_) {
            return {westNonNegative_, south_, eastNegative_, north_}; // west > east: crossing
        }
        return {west_, south_, east_, north_};
    }

private:
    static constexpr double INFINITE = std::numeric_limits<double>::infinity();
    double west_ = INFINITE;
    double east_ = -INFINITE;
    double westNonNegative_ = INFINITE;
    double eastNegative_ = -INFINITE;
    double south_ = INFINITE;
    double north_ = -INFINITE;
};

} // namespace

const GlobeRectangle GlobeRectangle::EMPTY(Math::PI, Math::PI_OVER_TWO, -Math::PI,
                                           -Math::PI_OVER_TWO);
const GlobeRectangle GlobeRectangle::MAXIMUM(-Math::PI, -Math::PI_OVER_TWO, Math::PI,
                                             Math::PI_OVER_TWO);

GlobeRectangle
GlobeRectangle::fromCartographicArray(const std::vector<Cartographic>& positions) noexcept {
    BoundsBuilder builder;
    for (const Cartographic& position : positions) {
        builder.add(position);
    }
    return builder.build();
}

GlobeRectangle GlobeRectangle::fromCartesianArray(const std::vector<Vector3<double>>& positions,
                                                  const Ellipsoid& ellipsoid) noexcept {
    BoundsBuilder builder;
    for (const Vector3<double>& position : positions) {
        if (const std::optional<Cartographic> cartographic =
                ellipsoid.cartesianToCartographic(position)) {
            builder.add(*cartographic);
        }
    }
    return builder.build();
}

Cartographic GlobeRectangle::computeCenter() const noexcept {
    // The middle of the span from west eastwards, which passes the antimeridian when east < west.
    const double east = east_ < west_ ? east_ + Math::TWO_PI : east_;
    const double longitude = Math::negativePiToPi(0.5 * (west_ + east));
    return Cartographic(Radian(longitude), Radian(0.5 * (south_ + north_)), 0.0);
}

double GlobeRectangle::computeWidth() const noexcept {
    return east_ < west_ ? east_ - west_ + Math::TWO_PI : east_ - west_;
}

double GlobeRectangle::computeHeight() const noexcept {
    return north_ - south_;
}

bool GlobeRectangle::contains(const Cartographic& position) const noexcept {
    const double latitude = position.latitude.value();
    if (!(latitude >= south_ && latitude <= north_)) {
        return false; // also an empty rectangle and a NaN latitude
    }
    // The span is [west, east], or [west, east + 2 pi] when it crosses the antimeridian. The
    // longitude, brought into [-pi, pi], may lie in it one turn higher or lower: -pi and pi are
    // the same meridian, and a crossing span reaches past pi.
    const double east = east_ < west_ ? east_ + Math::TWO_PI : east_;
    const double longitude = Math::negativePiToPi(position.longitude.value());
    const auto inSpan = [&](double l) { return l >= west_ && l <= east; };
    return inSpan(longitude) || inSpan(longitude + Math::TWO_PI) ||
           inSpan(longitude - Math::TWO_PI);
}

} // namespace keo
