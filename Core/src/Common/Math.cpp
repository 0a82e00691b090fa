#include "Common/Math.h"

#include "Common/Cartographic.h"
#include "Common/Ellipsoid.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <optional>

namespace keo {

namespace {

// Vincenty's formulas on an ellipsoid of revolution (here always WGS84). Angles in radians,
// distances in metres. Positions are carried on the auxiliary sphere: the reduced latitude U,
// tan U = (1 - f) tan(latitude), as its sine and cosine, and the longitude.

/** Convergence threshold of the iterations (radians). */
constexpr double CONVERGENCE = 1e-12;
/** Iteration cap: far more than any convergent case needs (a handful, a few dozen at worst). */
constexpr int MAX_ITERATIONS = 200;

/** The constants of the ellipsoid the formulas need. */
struct Geometry {
    double b;       // polar radius, metres
    double f;       // flattening
    double q;       // b / a = 1 - f
    double ePrime2; // second eccentricity squared (a^2 - b^2) / b^2
};

Geometry wgs84() noexcept {
    const Ellipsoid& e = Ellipsoid::WGS84;
    const double a = e.getEquatorialRadius();
    const double b = e.getPolarRadius();
    return {b, e.getFlattening(), b / a, (a - b) * (a + b) / (b * b)};
}

/** A position on the auxiliary sphere. cosU >= 0. */
struct AuxiliaryPoint {
    double sinU;
    double cosU;
    double longitude;
};

/**
 * The auxiliary-sphere position of a geodetic one. tan U = q tan(latitude) is taken as the
 * direction (q sin(latitude), cos(latitude)), which has no singularity at the poles. A latitude
 * beyond +-pi/2 (the position is not normalised) is the point over the pole: cos U is made
 * non-negative by turning the longitude half way round.
 */
AuxiliaryPoint toAuxiliary(double latitude, double longitude, double q) noexcept {
    const double sinLatitude = std::sin(latitude);
    double cosLatitude = std::cos(latitude);
    if (cosLatitude < 0.0) {
        cosLatitude = -cosLatitude;
        longitude = Math::negativePiToPi(longitude) + Math::PI;
    }
    const double sinU = q * sinLatitude;
    const double inverseNorm = 1.0 / std::sqrt(sinU * sinU + cosLatitude * cosLatitude);
    return {sinU * inverseNorm, cosLatitude * inverseNorm, longitude};
}

/** to - from, brought into [-pi, pi] without overflow for any finite longitudes. */
double longitudeDifference(double from, double to) noexcept {
    return Math::negativePiToPi(Math::negativePiToPi(to) - Math::negativePiToPi(from));
}

/** Vincenty's A(u^2), the scale of the distance along the geodesic (series in u^2). */
double seriesA(double u2) noexcept {
    return 1.0 + u2 / 16384.0 * (4096.0 + u2 * (-768.0 + u2 * (320.0 - 175.0 * u2)));
}

/** Vincenty's B(u^2), the amplitude of the periodic part of the distance (series in u^2). */
double seriesB(double u2) noexcept {
    return u2 / 1024.0 * (256.0 + u2 * (-128.0 + u2 * (74.0 - 47.0 * u2)));
}

/** Vincenty's delta sigma: the distance along the geodesic minus b A sigma, in units of b A. */
double deltaSigma(double coefficientB, double sinSigma, double cosSigma,
                  double cos2SigmaM) noexcept {
    const double c2 = cos2SigmaM * cos2SigmaM;
    return coefficientB * sinSigma *
           (cos2SigmaM + coefficientB / 4.0 *
                             (cosSigma * (-1.0 + 2.0 * c2) -
                              coefficientB / 6.0 * cos2SigmaM * (-3.0 + 4.0 * sinSigma * sinSigma) *
                                  (-3.0 + 4.0 * c2)));
}

/**
 * Longitude on the ellipsoid minus longitude on the auxiliary sphere along a geodesic, with
 * Vincenty's C = f/16 cos^2(alpha) (4 + f (4 - 3 cos^2(alpha))). Shared by the direct and inverse
 * problems.
 */
double longitudeOffset(double f, double sinAlpha, double cos2Alpha, double sigma, double sinSigma,
                       double cosSigma, double cos2SigmaM) noexcept {
    const double c = f / 16.0 * cos2Alpha * (4.0 + f * (4.0 - 3.0 * cos2Alpha));
    return (1.0 - c) * f * sinAlpha *
           (sigma +
            c * sinSigma * (cos2SigmaM + c * cosSigma * (-1.0 + 2.0 * cos2SigmaM * cos2SigmaM)));
}

/** Sine and cosine of the angle sigma between two positions on the auxiliary sphere. */
struct AngularDistance {
    double sinSigma;
    double cosSigma;
};

/** sigma between p1 and p2 when their auxiliary longitudes differ by lambda. */
AngularDistance angularDistance(const AuxiliaryPoint& p1, const AuxiliaryPoint& p2,
                                double sinLambda, double cosLambda) noexcept {
    // sin sigma from the cross product (well conditioned for nearby points, unlike acos(cos)).
    const double t1 = p2.cosU * sinLambda;
    const double t2 = p1.cosU * p2.sinU - p1.sinU * p2.cosU * cosLambda;
    return {std::sqrt(t1 * t1 + t2 * t2), p1.sinU * p2.sinU + p1.cosU * p2.cosU * cosLambda};
}

/**
 * Vincenty's inverse method: the geodesic distance between two auxiliary-sphere positions whose
 * longitude difference is l (in [-pi, pi]). Empty where the iteration on the auxiliary longitude
 * lambda does not converge: when lambda leaves [-pi, pi] (the sign that the points are nearly
 * antipodal), for exactly antipodal points (no direction is defined), or after the cap.
 */
std::optional<double> vincentyInverse(const Geometry& g, const AuxiliaryPoint& p1,
                                      const AuxiliaryPoint& p2, double l) noexcept {
    double lambda = l;
    for (int iteration = 0; iteration < MAX_ITERATIONS; ++iteration) {
        const double sinLambda = std::sin(lambda);
        const double cosLambda = std::cos(lambda);
        const AngularDistance d = angularDistance(p1, p2, sinLambda, cosLambda);
        if (d.sinSigma == 0.0) {
            // Coincident points give exactly 0; exact antipodes have no defined azimuth.
            return d.cosSigma > 0.0 ? std::optional<double>(0.0) : std::nullopt;
        }
        const double sigma = std::atan2(d.sinSigma, d.cosSigma);
        const double sinAlpha = p1.cosU * p2.cosU * sinLambda / d.sinSigma;
        const double cos2Alpha = 1.0 - sinAlpha * sinAlpha;
        // On an equatorial line cos^2(alpha) = 0 and the term has the limit 0.
        const double cos2SigmaM =
            cos2Alpha != 0.0 ? d.cosSigma - 2.0 * p1.sinU * p2.sinU / cos2Alpha : 0.0;
        const double next = l + longitudeOffset(g.f, sinAlpha, cos2Alpha, sigma, d.sinSigma,
                                                d.cosSigma, cos2SigmaM);
        if (std::abs(next) > Math::PI) {
            return std::nullopt;
        }
        const bool converged = std::abs(next - lambda) < CONVERGENCE;
        lambda = next;
        if (converged) {
            const double u2 = cos2Alpha * g.ePrime2;
            return g.b * seriesA(u2) *
                   (sigma - deltaSigma(seriesB(u2), d.sinSigma, d.cosSigma, cos2SigmaM));
        }
    }
    return std::nullopt;
}

/**
 * Vincenty's direct method: the auxiliary-sphere position reached from @p p1 along the geodesic of
 * azimuth alpha1 (given by its sine and cosine, clockwise from north) after @p distance metres.
 * The iteration on sigma is a contraction for every input and converges in a few steps.
 */
AuxiliaryPoint vincentyDirect(const Geometry& g, const AuxiliaryPoint& p1, double sinAlpha1,
                              double cosAlpha1, double distance) noexcept {
    // sigma1: angle on the auxiliary sphere from the equator crossing to p1, tan = tan U1 / cos a1.
    const double sigma1 = std::atan2(p1.sinU, p1.cosU * cosAlpha1);
    const double sinAlpha = p1.cosU * sinAlpha1;
    const double cos2Alpha = 1.0 - sinAlpha * sinAlpha;
    const double u2 = cos2Alpha * g.ePrime2;
    const double coefficientB = seriesB(u2);
    const double sigma0 = distance / (g.b * seriesA(u2));

    double sigma = sigma0;
    double sinSigma = std::sin(sigma);
    double cosSigma = std::cos(sigma);
    double cos2SigmaM = std::cos(2.0 * sigma1 + sigma);
    for (int iteration = 0; iteration < MAX_ITERATIONS; ++iteration) {
        const double next = sigma0 + deltaSigma(coefficientB, sinSigma, cosSigma, cos2SigmaM);
        const bool converged = std::abs(next - sigma) < CONVERGENCE;
        sigma = next;
        sinSigma = std::sin(sigma);
        cosSigma = std::cos(sigma);
        cos2SigmaM = std::cos(2.0 * sigma1 + sigma);
        if (converged) {
            break;
        }
    }

    // The end point, kept as the direction (sin U2, cos U2) rather than as a latitude.
    const double t = p1.sinU * sinSigma - p1.cosU * cosSigma * cosAlpha1;
    const double sinU2 = p1.sinU * cosSigma + p1.cosU * sinSigma * cosAlpha1;
    const double cosU2 = std::sqrt(sinAlpha * sinAlpha + t * t);
    const double inverseNorm = 1.0 / std::sqrt(sinU2 * sinU2 + cosU2 * cosU2);
    const double lambda =
        std::atan2(sinSigma * sinAlpha1, p1.cosU * cosSigma - p1.sinU * sinSigma * cosAlpha1);
    const double l =
        lambda - longitudeOffset(g.f, sinAlpha, cos2Alpha, sigma, sinSigma, cosSigma, cos2SigmaM);
    return {sinU2 * inverseNorm, cosU2 * inverseNorm, p1.longitude + l};
}

/**
 * The geodesic distance of nearly antipodal points, where Vincenty's inverse iteration does not
 * converge.
 *
 * For any waypoint w, D(p1, p2) <= D(p1, w) + D(w, p2), with equality when w lies on the shortest
 * geodesic from p1 to p2. Taking w = the point s metres from p1 along azimuth theta (Vincenty's
 * direct method, which always converges) gives
 *     D(p1, p2) = min over theta of [ s + D(w(theta), p2) ]   for any s <= D(p1, p2).
 * With s half the spherical estimate of D, both legs are about half the way round the globe at
 * most, far from antipodal, so Vincenty's inverse converges on the second leg for every theta.
 *
 * The minimum is found by a scan of SCAN_SAMPLES azimuths, then a golden-section search in the
 * brackets of the best local minima of the scan (the function is smooth there: its error is
 * quadratic in the azimuth error, so the distance comes out at Vincenty's own accuracy). Several
 * minima exist where several geodesics compete, e.g. for exactly antipodal points on the equator
 * (north or south over the pole) or pole to pole (every meridian), hence more than one bracket.
 */
double distanceThroughWaypoint(const Geometry& g, const AuxiliaryPoint& p1,
                               const AuxiliaryPoint& p2, double sphericalAngle) noexcept {
    constexpr int SCAN_SAMPLES = 72;
    constexpr int REFINED_MINIMA = 2;
    constexpr int GOLDEN_STEPS = 40; // bracket of 10 deg shrunk by 0.618^40: 8e-10 rad
    constexpr double INFINITE = std::numeric_limits<double>::infinity();

    const double leg = 0.5 * g.b * sphericalAngle;
    const auto total = [&](double azimuth) noexcept {
        const AuxiliaryPoint w = vincentyDirect(g, p1, std::sin(azimuth), std::cos(azimuth), leg);
        const std::optional<double> rest =
            vincentyInverse(g, w, p2, longitudeDifference(w.longitude, p2.longitude));
        return rest ? leg + *rest : INFINITE;
    };

    constexpr double STEP = Math::TWO_PI / SCAN_SAMPLES;
    std::array<double, SCAN_SAMPLES> samples{};
    for (int k = 0; k < SCAN_SAMPLES; ++k) {
        samples[static_cast<std::size_t>(k)] = total(STEP * k);
    }
    const auto sample = [&](int k) noexcept {
        return samples[static_cast<std::size_t>((k + SCAN_SAMPLES) % SCAN_SAMPLES)];
    };

    // The best local minima of the (periodic) scan.
    std::array<int, REFINED_MINIMA> minima{};
    int minimaCount = 0;
    for (int k = 0; k < SCAN_SAMPLES; ++k) {
        if (!(sample(k) <= sample(k - 1) && sample(k) <= sample(k + 1))) {
            continue;
        }
        if (minimaCount < REFINED_MINIMA) {
            minima[static_cast<std::size_t>(minimaCount++)] = k;
        } else {
            const auto worst = std::max_element(
                minima.begin(), minima.end(), [&](int i, int j) { return sample(i) < sample(j); });
            if (sample(k) < sample(*worst)) {
                *worst = k;
            }
        }
    }

    double best = *std::min_element(samples.begin(), samples.end());
    constexpr double GOLDEN = 0.6180339887498949; // (sqrt(5) - 1) / 2
    for (int m = 0; m < minimaCount; ++m) {
        const double centre = STEP * minima[static_cast<std::size_t>(m)];
        double low = centre - STEP;
        double high = centre + STEP;
        double x1 = high - GOLDEN * (high - low);
        double x2 = low + GOLDEN * (high - low);
        double f1 = total(x1);
        double f2 = total(x2);
        for (int step = 0; step < GOLDEN_STEPS; ++step) {
            if (f1 <= f2) {
                high = x2;
                x2 = x1;
                f2 = f1;
                x1 = high - GOLDEN * (high - low);
                f1 = total(x1);
            } else {
                low = x1;
                x1 = x2;
                f1 = f2;
                x2 = low + GOLDEN * (high - low);
                f2 = total(x2);
            }
        }
        best = std::min(best, std::min(f1, f2));
    }
    // Unreachable in practice (the legs always converge); the spherical distance keeps the
    // result finite should it ever happen.
    return best < INFINITE ? best : g.b * sphericalAngle;
}

} // namespace

bool Math::equalsEpsilon(double left, double right, double relativeEpsilon,
                         double absoluteEpsilon) noexcept {
    if (left == right) {
        return true; // also equal infinities
    }
    if (!std::isfinite(left) || !std::isfinite(right)) {
        return false; // NaN, or an infinity against anything else
    }
    const double difference = std::abs(left - right);
    return difference <= absoluteEpsilon ||
           difference <= relativeEpsilon * std::max(std::abs(left), std::abs(right));
}

double Math::negativePiToPi(double radians) noexcept {
    if (radians >= -PI && radians <= PI) {
        return radians; // already in range (the common case), returned unchanged
    }
    // fmod is exact; the remainder lies in (-2 pi, 2 pi) and is shifted by one turn at most.
    // An infinity has no direction and gives NaN, like a NaN.
    double remainder = std::fmod(radians, TWO_PI);
    if (remainder > PI) {
        remainder -= TWO_PI;
    } else if (remainder < -PI) {
        remainder += TWO_PI;
    }
    return remainder;
}

double Math::zeroToTwoPi(double radians) noexcept {
    if (radians >= 0.0 && radians <= TWO_PI) {
        return radians;
    }
    const double remainder = std::fmod(radians, TWO_PI);
    return remainder < 0.0 ? remainder + TWO_PI : remainder;
}

double Math::computeVincentyDistR(const Cartographic& from, const Cartographic& to) noexcept {
    const double latitude1 = from.latitude.value();
    const double longitude1 = from.longitude.value();
    const double latitude2 = to.latitude.value();
    const double longitude2 = to.longitude.value();
    if (!std::isfinite(latitude1) || !std::isfinite(longitude1) || !std::isfinite(latitude2) ||
        !std::isfinite(longitude2)) {
        return std::numeric_limits<double>::quiet_NaN();
    }
    static const Geometry g = wgs84();
    const AuxiliaryPoint p1 = toAuxiliary(latitude1, longitude1, g.q);
    const AuxiliaryPoint p2 = toAuxiliary(latitude2, longitude2, g.q);
    const double l = longitudeDifference(p1.longitude, p2.longitude);
    if (const std::optional<double> distance = vincentyInverse(g, p1, p2, l)) {
        return *distance;
    }
    // Nearly (or exactly) antipodal: the fallback through a waypoint, started from the angle on
    // the auxiliary sphere.
    const AngularDistance d = angularDistance(p1, p2, std::sin(l), std::cos(l));
    return distanceThroughWaypoint(g, p1, p2, std::atan2(d.sinSigma, d.cosSigma));
}

} // namespace keo
