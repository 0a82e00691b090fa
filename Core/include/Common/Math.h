#pragma once

#include "Common/CommonExport.h"

namespace keo {

class Cartographic;

/**
 * @brief Numeric constants and helpers of the kit: tolerant comparison, angle conversion and the
 * geodesic distance on the WGS84 ellipsoid.
 */
class KEO_COMMON_API Math final {
public:
    Math() = delete;

    /** @brief pi. */
    static constexpr double PI = 3.141592653589793238462643383279502884;
    /** @brief 2 pi. */
    static constexpr double TWO_PI = 2.0 * PI;
    /** @brief pi / 2. */
    static constexpr double PI_OVER_TWO = PI / 2.0;
    /** @brief Radians in one degree. */
    static constexpr double RADIANS_PER_DEGREE = PI / 180.0;
    /** @brief Degrees in one radian. */
    static constexpr double DEGREES_PER_RADIAN = 180.0 / PI;
    /** @brief 1e-1 to 1e-20: the usual tolerances of comparisons. */
    static constexpr double EPSILON1 = 1e-1;
    static constexpr double EPSILON2 = 1e-2;
    static constexpr double EPSILON3 = 1e-3;
    static constexpr double EPSILON4 = 1e-4;
    static constexpr double EPSILON5 = 1e-5;
    static constexpr double EPSILON6 = 1e-6;
    static constexpr double EPSILON7 = 1e-7;
    static constexpr double EPSILON8 = 1e-8;
    static constexpr double EPSILON9 = 1e-9;
    static constexpr double EPSILON10 = 1e-10;
    static constexpr double EPSILON11 = 1e-11;
    static constexpr double EPSILON12 = 1e-12;
    static constexpr double EPSILON13 = 1e-13;
    static constexpr double EPSILON14 = 1e-14;
    static constexpr double EPSILON15 = 1e-15;
    static constexpr double EPSILON20 = 1e-20;

    /**
     * @brief Whether @p left and @p right are equal within a tolerance.
     *
     * True when |left - right| <= @p absoluteEpsilon, or when |left - right| <= @p relativeEpsilon
     * times the larger magnitude of the two. A NaN operand is never equal to anything.
     * Equal infinities are equal.
     */
    static bool equalsEpsilon(double left, double right, double relativeEpsilon,
                              double absoluteEpsilon) noexcept;
    /** @brief equalsEpsilon with one tolerance used as both the relative and absolute one. */
    static bool equalsEpsilon(double left, double right, double epsilon) noexcept {
        return equalsEpsilon(left, right, epsilon, epsilon);
    }

    /** @brief Degrees to radians. */
    static constexpr double toRadians(double degrees) noexcept {
        return degrees * RADIANS_PER_DEGREE;
    }
    /** @brief Radians to degrees. */
    static constexpr double toDegrees(double radians) noexcept {
        return radians * DEGREES_PER_RADIAN;
    }
    /**
     * @brief An angle in radians brought into [-pi, pi] (an angle already in range is returned
     * unchanged); NaN and the infinities give NaN.
     */
    static double negativePiToPi(double radians) noexcept;
    /**
     * @brief An angle in radians brought into [0, 2 pi] (an angle already in range is returned
     * unchanged); NaN and the infinities give NaN.
     */
    static double zeroToTwoPi(double radians) noexcept;

    /**
     * @brief Geodesic (shortest path) distance in metres between two positions on the surface of
     * the WGS84 ellipsoid, by Vincenty's inverse method.
     *
     * Heights are ignored. Coincident points give 0. Where Vincenty's iteration does not converge
     * (nearly antipodal points), the distance is found by a robust fallback whose method is
     * described in the implementation. Finite input never gives NaN and never hangs; a NaN or
     * infinite longitude or latitude gives NaN. Latitudes beyond +-pi/2 are taken over the pole.
     */
    static double computeVincentyDistR(const Cartographic& from, const Cartographic& to) noexcept;
};

} // namespace keo
