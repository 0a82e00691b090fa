#include "Common/Ellipsoid.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace keo {

namespace {

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

/**
 * The foot point of a position on the meridian ellipse, as the direction (S, C) of its reduced
 * (parametric) latitude beta: S / C = tan(beta), S >= 0, C >= 0, not normalised.
 *
 * Everything here works in the first quadrant of the meridian plane, in units of the equatorial
 * radius: the position is (P, Z) with P = distance from the axis / a >= 0, Z = |z| / a >= 0, and
 * the ellipse is (cos beta, q sin beta) with q = b / a. The foot point is the point of the ellipse
 * whose normal passes through the position, i.e. a zero of
 *
 *     F(beta) = P sin(beta) - q Z cos(beta) - e2 sin(beta) cos(beta)
 *
 * (half the derivative of the squared distance from the position to the ellipse point).
 */
struct FootPoint {
    double s;
    double c;
};

/**
 * Foot point of a position well outside the evolute (the fast path: R = |(P, Z)| >= 1/2, while the
 * evolute reaches about e2 = 0.0067 from the centre for WGS84), for a flattening of at most 0.02.
 *
 * Halley's method on F, written homogeneously in (S, C) = A (sin beta, cos beta), A = |(S, C)|, so
 * that a step needs one square root, one division and no trigonometric function. Multiplied by
 * A^2, F and its first two derivatives are
 *
 *     F0 = (P S - q Z C) A - e2 S C,
 *     F1 = (P C + q Z S) A - e2 (C^2 - S^2),
 *     F2 = 4 e2 S C - (P S - q Z C) A,
 *
 * and the Halley correction of beta is -t with t = 2 F0 F1 / (2 F1^2 - F0 F2). It is applied as
 * the rotation (S, C) <- (S - t C, C + t S) by atan(t), which equals t to third order and so keeps
 * the cubic convergence.
 *
 * The start is the reduced latitude of the point where the ray from the centre through the
 * position meets the ellipse, (S, C) = (Z, q P): exact on the surface, within about 5e-6 rad at
 * 10 km from it, and never worse than about f (3.4e-3 rad for WGS84) far away, where the geodetic
 * latitude tends to the geocentric one. Each Halley step triples the number of correct digits, so
 * two steps reach the rounding level at every height (measured: 1e-15 rad); a larger flattening
 * starts farther off and goes to the robust solver instead. On the axis (P = 0) and on the
 * equatorial plane (Z = 0) F0 is exactly 0, so the start, the pole or the equator, stays exact.
 */
FootPoint footPointOutsideEvolute(double p, double z, double q, double e2) noexcept {
    const double qz = q * z;
    double s = z;
    double c = q * p;
    for (int step = 0; step < 2; ++step) {
        const double a = std::sqrt(s * s + c * c);
        const double u = (p * s - qz * c) * a;
        const double sc = s * c;
        const double f0 = u - e2 * sc;
        const double f1 = (p * c + qz * s) * a - e2 * (c - s) * (c + s);
        const double f2 = 4.0 * e2 * sc - u;
        const double t = 2.0 * f0 * f1 / (2.0 * f1 * f1 - f0 * f2);
        const double nextS = s - t * c;
        c += t * s;
        s = nextS;
    }
    return {s, c};
}

/**
 * Foot point of any position other than the centre, the evolute included, where several normals
 * pass through the position and the nearest point of the ellipse is the one wanted. Used deep
 * inside the ellipsoid (R < 1/2) and for every position of a strongly flattened ellipsoid; slower
 * than the fixed Halley steps (a loop of a few Newton steps with two divisions each).
 *
 * The nearest point of the ellipse is (P / (w + e2), q^2 Z / w), i.e. (S, C) = (q Z / w,
 * P / (w + e2)), for the unique root w > 0 of
 *
 *     G(w) = (P / (w + e2))^2 + (q Z / w)^2 - 1
 *
 * (the Lagrange condition of the distance minimisation, with w = q^2 + the multiplier: using w
 * instead of the multiplier keeps full relative precision when the root nears the pole of the
 * second term, next to the equatorial plane inside the evolute). G is convex and decreasing on
 * w > 0, so Newton's method started left of the root, where G >= 0, climbs monotonically to it and
 * never overshoots. w0 = max(q Z, P - e2) is such a start: either term alone makes G >= 0.
 *
 * On the equatorial plane (Z too small for G to resolve) the answer is closed: inside the evolute
 * (P < e2) the two nearest points are at cos beta = P / e2 above and below the plane (the upper one
 * is returned, the sign of z then picks the side); outside it the nearest point is on the equator.
 */
FootPoint footPointNearest(double p, double z, double q, double e2) noexcept {
    if (z < 1e-150) {
        if (p >= e2) {
            return {0.0, 1.0};
        }
        const double c = p / e2;
        return {std::sqrt((1.0 - c) * (1.0 + c)), c};
    }
    const double qz = q * z;
    double w = std::max(qz, p - e2);
    for (int step = 0; step < 100; ++step) {
        const double cx = p / (w + e2);
        const double sz = qz / w;
        const double g = cx * cx + sz * sz - 1.0;
        if (!(g > 0.0)) {
            break;
        }
        const double slope = -2.0 * (cx * cx / (w + e2) + sz * sz / w);
        const double next = w - g / slope;
        if (!(next > w)) {
            break;
        }
        w = next;
    }
    return {qz / w, p / (w + e2)};
}

/**
 * The outward unit normal (cos(lat) cos(lon), cos(lat) sin(lon), sin(lat)) of the ellipsoid at a
 * geodetic position (ECEF axes), with one sine and one cosine per angle.
 *
 * With glibc both pairs come from sincos into four distinct variables that all stay live to the
 * end. The fused std::sin/std::cos pairs the compiler would otherwise make go through one shared
 * stack temporary: the second call then overwrites the slots just read back from the first, a
 * memory dependence that cost a fifth of cartographicToCartesian's time on the x86 machines
 * measured.
 */
Vector3<double> unitNormal(const Cartographic& cartographic) noexcept {
    const double latitude = cartographic.latitude.value();
    const double longitude = cartographic.longitude.value();
    double sinLatitude;
    double cosLatitude;
    double sinLongitude;
    double cosLongitude;
#if defined(__GLIBC__)
    ::sincos(latitude, &sinLatitude, &cosLatitude);
    ::sincos(longitude, &sinLongitude, &cosLongitude);
#else
    sinLatitude = std::sin(latitude);
    cosLatitude = std::cos(latitude);
    sinLongitude = std::sin(longitude);
    cosLongitude = std::cos(longitude);
#endif
    return {cosLatitude * cosLongitude, cosLatitude * sinLongitude, sinLatitude};
}

} // namespace

const Ellipsoid Ellipsoid::WGS84(6378137.0, 1.0 / 298.257223563);

Ellipsoid::Ellipsoid(double a, double f) noexcept
    : a_(a)
    , f_(f)
    , b_(a * (1.0 - f))
    , e2_(f * (2.0 - f))
    , q_(1.0 - f)
    , inverseA_(1.0 / a)
    , valid_(a > 0.0 && std::isfinite(a) && f >= 0.0 && f < 1.0)
    , smallFlattening_(f <= 0.02) {}

Vector3<double>
Ellipsoid::cartographicToCartesian(const Cartographic& cartographic) const noexcept {
    if (!valid_) {
        return {NOT_A_NUMBER, NOT_A_NUMBER, NOT_A_NUMBER};
    }
    // The surface point below the position is N (cos(lat) cos(lon), cos(lat) sin(lon),
    // (1 - e2) sin(lat)), with the prime vertical radius of curvature
    // N = a / sqrt(1 - e2 sin^2(lat)), and the height is added along the unit normal
    // (cos(lat) cos(lon), cos(lat) sin(lon), sin(lat)).
    const Vector3<double> normal = unitNormal(cartographic);
    const double sinLatitude = normal.z;
    const double n = a_ / std::sqrt(1.0 - e2_ * sinLatitude * sinLatitude);
    const double height = cartographic.height;
    const double horizontal = n + height;
    return {horizontal * normal.x, horizontal * normal.y, (n * (1.0 - e2_) + height) * sinLatitude};
}

std::optional<Cartographic>
Ellipsoid::cartesianToCartographic(const Vector3<double>& cartesian) const noexcept {
    const double x = cartesian.x;
    const double y = cartesian.y;
    const double z = cartesian.z;
    if (!valid_ || !std::isfinite(x) || !std::isfinite(y) || !std::isfinite(z)) {
        return std::nullopt;
    }
    const double longitude = std::atan2(y, x);

    // In units of a: P from the axis, Z = |z| above the equatorial plane (the southern hemisphere
    // is the mirror image; the sign of z is put back on the latitude).
    const double xa = x * inverseA_;
    const double ya = y * inverseA_;
    const double za = std::abs(z) * inverseA_;
    const double p2 = xa * xa + ya * ya;
    const double r2 = p2 + za * za;

    if (r2 > 1e80) {
        // Farther than 1e40 a (or so far that the squares overflow): the geodetic latitude equals
        // the geocentric one to within e2 a / R < 1e-42 rad, and the height equals the distance
        // from the centre to within a, far below the rounding of the distance itself. hypot
        // avoids the overflow of the squares (the height is infinite only where the distance
        // itself exceeds the largest double).
        const double pm = std::hypot(x, y);
        return Cartographic(Radian(longitude), Radian(std::atan2(z, pm)), std::hypot(pm, z));
    }
    FootPoint foot;
    double p;
    if (r2 >= 0.25 && smallFlattening_) {
        // From half the equatorial radius to 1e40 a: the fast path. The upper bound keeps the
        // Halley terms (of the order of R^6) far from overflowing.
        p = std::sqrt(p2);
        foot = footPointOutsideEvolute(p, za, q_, e2_);
    } else {
        if (x == 0.0 && y == 0.0 && z == 0.0) {
            // The centre: every latitude fits equally well.
            return std::nullopt;
        }
        // hypot keeps the distance from the axis exact where the squares underflow.
        p = std::hypot(xa, ya);
        foot = footPointNearest(p, za, q_, e2_);
    }

    // The geodetic latitude is the direction of the ellipse normal at the foot point,
    // tan(latitude) = tan(beta) / q; atan2 of the unnormalised (S, q C) is exact at the poles
    // (C = 0) and on the equator (S = 0).
    const double s = foot.s;
    const double c = foot.c;
    const double qc = q_ * c;
    const double latitude = std::atan2(std::copysign(s, z), qc);
    // The height is the projection of (position - foot point) on the unit normal n at the foot
    // point: h / a = ((P - cos beta) q cos beta + (Z - q sin beta) sin beta) / |(q cos beta,
    // sin beta)|, which with (S, C) = A (sin beta, cos beta) is (q C P + S Z - q A) / |(q C, S)|.
    // Unlike h = p / cos(latitude) - N it does not blow up near the poles, and since the error of
    // the foot point lies along the tangent, it only enters the height to second order.
    const double norm = std::sqrt(s * s + c * c);
    const double normalNorm = std::sqrt(qc * qc + s * s);
    const double height = a_ * ((qc * p + s * za - q_ * norm) / normalNorm);
    return Cartographic(Radian(longitude), Radian(latitude), height);
}

Vector3<double> Ellipsoid::geodeticSurfaceNormal(const Cartographic& cartographic) const noexcept {
    return unitNormal(cartographic);
}

std::optional<Vector3<double>>
Ellipsoid::geodeticSurfaceNormal(const Vector3<double>& cartesian) const noexcept {
    // The normal at the geodetic position of the point, so that it agrees exactly with
    // cartesianToCartographic (also inside the ellipsoid, where the nearest surface point is used).
    const std::optional<Cartographic> cartographic = cartesianToCartographic(cartesian);
    if (!cartographic) {
        return std::nullopt;
    }
    return geodeticSurfaceNormal(*cartographic);
}

} // namespace keo
