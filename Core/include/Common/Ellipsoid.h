#pragma once

#include "Common/Cartographic.h"
#include "Common/CommonExport.h"
#include "Common/Vector3.h"

#include <optional>

namespace keo {

/**
 * @brief An ellipsoid of revolution about the z axis, used to convert between geodetic
 * (Cartographic) positions and Cartesian positions in its Earth-centred, Earth-fixed frame
 * (metres; x towards longitude 0 on the equator, z towards the north pole).
 *
 * The kit works on WGS84 throughout (Ellipsoid::WGS84).
 */
class KEO_COMMON_API Ellipsoid final {
public:
    /**
     * @brief An ellipsoid from its equatorial radius @p a (metres) and flattening @p f.
     *
     * Requires a finite a > 0 and 0 <= f < 1 (oblate or a sphere). Other values are stored all the
     * same, but give an ellipsoid that converts nothing: cartographicToCartesian returns NaN
     * coordinates and cartesianToCartographic and geodeticSurfaceNormal of a Cartesian position
     * return no value.
     */
    Ellipsoid(double a, double f) noexcept;

    /** @brief WGS84: a = 6378137.0 m, f = 1 / 298.257223563. */
    static const Ellipsoid WGS84;

    /** @brief The radii (a, a, b) along x, y and z, metres. */
    Vector3<double> getRadii() const noexcept { return {a_, a_, b_}; }
    /** @brief The equatorial radius a, metres. */
    double getEquatorialRadius() const noexcept { return a_; }
    /** @brief The polar radius b = a (1 - f), metres. */
    double getPolarRadius() const noexcept { return b_; }
    /** @brief The flattening f. */
    double getFlattening() const noexcept { return f_; }
    /** @brief The first eccentricity squared e^2 = f (2 - f). */
    double getEccentricitySquared() const noexcept { return e2_; }
    /** @brief The larger radius (a), metres. */
    double getMaximumRadius() const noexcept { return a_; }
    /** @brief The smaller radius (b), metres. */
    double getMinimumRadius() const noexcept { return b_; }

    /**
     * @brief The Cartesian position (ECEF, metres) of a geodetic position (closed form, exact to
     * rounding). NaN coordinates on an ellipsoid whose parameters are out of range.
     */
    Vector3<double> cartographicToCartesian(const Cartographic& cartographic) const noexcept;

    /**
     * @brief The geodetic position of a Cartesian position (ECEF, metres), longitude in
     * [-pi, pi], latitude in [-pi/2, pi/2], height in metres.
     *
     * Accurate to better than 1e-9 rad and 1e-6 m for heights from -10 km to 40,000 km. Empty
     * where there is no answer: at the centre of the ellipsoid (where every latitude fits) and
     * for a position with a NaN or infinite coordinate.
     */
    std::optional<Cartographic>
    cartesianToCartographic(const Vector3<double>& cartesian) const noexcept;

    /**
     * @brief The outward unit normal of the surface at a geodetic position; it depends on the
     * longitude and latitude only (the height and the ellipsoid's parameters play no part).
     */
    Vector3<double> geodeticSurfaceNormal(const Cartographic& cartographic) const noexcept;

    /**
     * @brief The outward unit normal of the surface below a Cartesian position (ECEF, metres):
     * the normal of the ellipsoid at the point's geodetic latitude and longitude. Empty at the
     * centre or for non-finite input.
     */
    std::optional<Vector3<double>>
    geodeticSurfaceNormal(const Vector3<double>& cartesian) const noexcept;

    /** @brief Exact equality of the defining parameters. */
    bool operator==(const Ellipsoid& o) const noexcept { return a_ == o.a_ && f_ == o.f_; }
    /** @brief Negation of operator==. */
    bool operator!=(const Ellipsoid& o) const noexcept { return !(*this == o); }

private:
    double a_;
    double f_;
    double b_;
    double e2_;
    /** @brief b / a = 1 - f, the axis ratio used by the conversions. */
    double q_;
    /** @brief 1 / a, to bring Cartesian coordinates to units of the equatorial radius. */
    double inverseA_;
    /** @brief Whether a and f describe an ellipsoid (a > 0 finite, 0 <= f < 1). */
    bool valid_;
    /** @brief Whether f is small enough (at most 0.02) for the fixed-step foot point iteration. */
    bool smallFlattening_;
};

} // namespace keo
