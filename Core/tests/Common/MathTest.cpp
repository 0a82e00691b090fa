#include "Common/Math.h"
#include "Common/Cartographic.h"

#include <GeographicLib/Geodesic.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

namespace {

using keo::Cartographic;
using keo::Math;

constexpr double INF = std::numeric_limits<double>::infinity();
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

// ---- equalsEpsilon ----------------------------------------------------------------------------

TEST(MathTest, EqualsEpsilonAcceptsARelativeDifferenceWithinTheRelativeTolerance) {
    EXPECT_TRUE(Math::equalsEpsilon(1e6, 1e6 + 0.5, 1e-6, 0.0));
    EXPECT_FALSE(Math::equalsEpsilon(1e6, 1e6 + 2.0, 1e-6, 0.0));
    // The larger magnitude of the two is the reference.
    EXPECT_TRUE(Math::equalsEpsilon(100.0, 110.0, 0.1, 0.0));
    EXPECT_TRUE(Math::equalsEpsilon(110.0, 100.0, 0.1, 0.0));
}

TEST(MathTest, EqualsEpsilonAcceptsAnAbsoluteDifferenceWithinTheAbsoluteTolerance) {
    EXPECT_TRUE(Math::equalsEpsilon(1e-12, 2e-12, 0.0, 1e-11));
    EXPECT_FALSE(Math::equalsEpsilon(1e-12, 2e-12, 0.0, 1e-13));
    // Near zero the relative test alone fails and the absolute one decides.
    EXPECT_FALSE(Math::equalsEpsilon(0.0, 1e-15, 1e-3, 0.0));
    EXPECT_TRUE(Math::equalsEpsilon(0.0, 1e-15, 1e-3, 1e-14));
}

TEST(MathTest, EqualsEpsilonWithOneToleranceUsesItBothWays) {
    EXPECT_TRUE(Math::equalsEpsilon(1e9, 1e9 + 0.5, 1e-9));
    EXPECT_TRUE(Math::equalsEpsilon(0.0, 1e-10, 1e-9));
    EXPECT_FALSE(Math::equalsEpsilon(1.0, 1.1, 1e-2));
}

TEST(MathTest, EqualsEpsilonIsFalseForNaN) {
    EXPECT_FALSE(Math::equalsEpsilon(NOT_A_NUMBER, NOT_A_NUMBER, 1.0, 1.0));
    EXPECT_FALSE(Math::equalsEpsilon(NOT_A_NUMBER, 0.0, 1.0, 1.0));
    EXPECT_FALSE(Math::equalsEpsilon(0.0, NOT_A_NUMBER, 1.0, 1.0));
    EXPECT_FALSE(Math::equalsEpsilon(NOT_A_NUMBER, INF, INF, INF));
}

TEST(MathTest, EqualsEpsilonTreatsEqualInfinitiesAsEqualAndNothingElse) {
    EXPECT_TRUE(Math::equalsEpsilon(INF, INF, 0.0, 0.0));
    EXPECT_TRUE(Math::equalsEpsilon(-INF, -INF, 0.0, 0.0));
    EXPECT_FALSE(Math::equalsEpsilon(INF, -INF, 1.0, 1.0));
    // A relative tolerance times an infinite magnitude must not swallow the infinite difference.
    EXPECT_FALSE(Math::equalsEpsilon(INF, 1e308, 0.5, 0.5));
    EXPECT_FALSE(Math::equalsEpsilon(1.0, INF, 0.5, 0.5));
}

TEST(MathTest, EqualsEpsilonAcceptsExactEqualityWithZeroTolerance) {
    EXPECT_TRUE(Math::equalsEpsilon(0.1, 0.1, 0.0, 0.0));
    EXPECT_TRUE(Math::equalsEpsilon(0.0, -0.0, 0.0, 0.0));
    EXPECT_FALSE(Math::equalsEpsilon(0.1, std::nextafter(0.1, 1.0), 0.0, 0.0));
}

// ---- angle helpers -----------------------------------------------------------------------------

TEST(MathTest, ConvertsBetweenDegreesAndRadians) {
    EXPECT_DOUBLE_EQ(Math::toRadians(180.0), Math::PI);
    EXPECT_DOUBLE_EQ(Math::toRadians(-90.0), -Math::PI_OVER_TWO);
    EXPECT_DOUBLE_EQ(Math::toDegrees(Math::PI), 180.0);
    EXPECT_DOUBLE_EQ(Math::toDegrees(Math::toRadians(37.25)), 37.25);
}

TEST(MathTest, NegativePiToPiLeavesAnglesInRangeUnchanged) {
    for (const double angle : {0.0, -0.0, 1.0, -1.0, Math::PI, -Math::PI, 3.0, -3.0}) {
        EXPECT_EQ(Math::negativePiToPi(angle), angle) << angle;
    }
}

TEST(MathTest, NegativePiToPiWrapsByWholeTurns) {
    EXPECT_NEAR(Math::negativePiToPi(1.5 * Math::PI), -0.5 * Math::PI, 1e-15);
    EXPECT_NEAR(Math::negativePiToPi(-1.5 * Math::PI), 0.5 * Math::PI, 1e-15);
    EXPECT_NEAR(Math::negativePiToPi(Math::TWO_PI), 0.0, 1e-15);
    EXPECT_NEAR(Math::negativePiToPi(Math::TWO_PI + 0.25), 0.25, 1e-15);
    EXPECT_NEAR(Math::negativePiToPi(-7.0 * Math::TWO_PI - 0.25), -0.25, 1e-14);
}

TEST(MathTest, NegativePiToPiKeepsTheDirectionOfAnyAngleAndStaysInRange) {
    std::mt19937_64 random(11);
    std::uniform_real_distribution<double> exponent(-3.0, 8.0);
    for (int i = 0; i < 10000; ++i) {
        const double angle = (i % 2 == 0 ? 1.0 : -1.0) * std::pow(10.0, exponent(random));
        const double wrapped = Math::negativePiToPi(angle);
        ASSERT_GE(wrapped, -Math::PI) << angle;
        ASSERT_LE(wrapped, Math::PI) << angle;
        // Same direction; the tolerance grows with the magnitude (one rounding of the turn count).
        const double tolerance = 1e-15 * std::max(1.0, std::abs(angle)) * 8.0;
        ASSERT_NEAR(std::sin(wrapped), std::sin(angle), tolerance) << angle;
        ASSERT_NEAR(std::cos(wrapped), std::cos(angle), tolerance) << angle;
    }
}

TEST(MathTest, NegativePiToPiKeepsNaN) {
    EXPECT_TRUE(std::isnan(Math::negativePiToPi(NOT_A_NUMBER)));
}

TEST(MathTest, ZeroToTwoPiLeavesAnglesInRangeUnchanged) {
    for (const double angle : {0.0, 1.0, Math::PI, 6.0, Math::TWO_PI}) {
        EXPECT_EQ(Math::zeroToTwoPi(angle), angle) << angle;
    }
}

TEST(MathTest, ZeroToTwoPiWrapsNegativeAndLargeAngles) {
    EXPECT_NEAR(Math::zeroToTwoPi(-0.5 * Math::PI), 1.5 * Math::PI, 1e-15);
    EXPECT_NEAR(Math::zeroToTwoPi(-Math::PI), Math::PI, 1e-15);
    EXPECT_NEAR(Math::zeroToTwoPi(5.0 * Math::PI), Math::PI, 1e-14);
    EXPECT_NEAR(Math::zeroToTwoPi(Math::TWO_PI + 0.25), 0.25, 1e-15);
    EXPECT_NEAR(Math::zeroToTwoPi(-Math::TWO_PI - 0.25), Math::TWO_PI - 0.25, 1e-15);
}

TEST(MathTest, ZeroToTwoPiStaysInRangeForAnyAngle) {
    std::mt19937_64 random(12);
    std::uniform_real_distribution<double> angle(-1e6, 1e6);
    for (int i = 0; i < 10000; ++i) {
        const double a = angle(random);
        const double wrapped = Math::zeroToTwoPi(a);
        ASSERT_GE(wrapped, 0.0) << a;
        ASSERT_LE(wrapped, Math::TWO_PI) << a;
        ASSERT_NEAR(std::cos(wrapped), std::cos(a), 1e-9) << a;
    }
}

TEST(MathTest, ZeroToTwoPiKeepsNaN) {
    EXPECT_TRUE(std::isnan(Math::zeroToTwoPi(NOT_A_NUMBER)));
}

// ---- geodesic distance -------------------------------------------------------------------------

/** GeographicLib's geodesic distance (metres) of two positions, the reference. */
double referenceDistance(const Cartographic& from, const Cartographic& to) {
    double distance = 0.0;
    GeographicLib::Geodesic::WGS84().Inverse(
        Math::toDegrees(from.latitude.value()), Math::toDegrees(from.longitude.value()),
        Math::toDegrees(to.latitude.value()), Math::toDegrees(to.longitude.value()), distance);
    return distance;
}

/** A position uniformly distributed over the sphere of directions (radians). */
Cartographic randomPosition(std::mt19937_64& random) {
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    const double latitude = std::asin(2.0 * unit(random) - 1.0);
    const double longitude = Math::TWO_PI * unit(random) - Math::PI;
    return Cartographic::fromRadians(longitude, latitude);
}

TEST(MathTest, VincentyDistanceMatchesGeographicLibOnRandomPairs) {
    // Vincenty's method is accurate to about 0.1 mm on WGS84; the tolerance is 1 mm. Independent
    // random pairs; the rare nearly antipodal one goes through the fallback, which holds the same
    // tolerance.
    std::mt19937_64 random(20240601);
    for (int i = 0; i < 10000; ++i) {
        const Cartographic from = randomPosition(random);
        const Cartographic to = randomPosition(random);
        const double distance = Math::computeVincentyDistR(from, to);
        ASSERT_NEAR(distance, referenceDistance(from, to), 1e-3)
            << "case " << i << ": " << from.latitude.value() << ", " << from.longitude.value()
            << " to " << to.latitude.value() << ", " << to.longitude.value();
    }
}

TEST(MathTest, VincentyDistanceMatchesGeographicLibOnShortDistances) {
    // Pairs from 1 mm to 100 km apart: 1 mm tolerance, as above.
    std::mt19937_64 random(20240602);
    std::uniform_real_distribution<double> exponent(-10.0, -1.8);
    std::uniform_real_distribution<double> direction(0.0, Math::TWO_PI);
    for (int i = 0; i < 10000; ++i) {
        const Cartographic from = randomPosition(random);
        const double offset = std::pow(10.0, exponent(random));
        const double azimuth = direction(random);
        const double latitude = std::clamp(from.latitude.value() + offset * std::cos(azimuth),
                                           -Math::PI_OVER_TWO, Math::PI_OVER_TWO);
        const Cartographic to = Cartographic::fromRadians(
            from.longitude.value() + offset * std::sin(azimuth), latitude);
        ASSERT_NEAR(Math::computeVincentyDistR(from, to), referenceDistance(from, to), 1e-3)
            << "case " << i;
    }
}

TEST(MathTest, VincentyDistanceMatchesGeographicLibAtThePolesEquatorAndAntimeridian) {
    // 1 mm, as above, on the positions where formulas have their special cases.
    const double latitudes[] = {-90.0, -89.999999, -45.0, -1e-9, 0.0, 1e-9, 30.0, 89.999999, 90.0};
    const double longitudes[] = {-180.0, -179.999999, -90.0, 0.0, 45.0, 179.999999, 180.0};
    for (const double lat1 : latitudes) {
        for (const double lon1 : longitudes) {
            for (const double lat2 : latitudes) {
                for (const double lon2 : longitudes) {
                    const Cartographic from = Cartographic::fromDegrees(lon1, lat1);
                    const Cartographic to = Cartographic::fromDegrees(lon2, lat2);
                    const double distance = Math::computeVincentyDistR(from, to);
                    ASSERT_NEAR(distance, referenceDistance(from, to), 1e-3)
                        << lat1 << ", " << lon1 << " to " << lat2 << ", " << lon2;
                }
            }
        }
    }
}

TEST(MathTest, VincentyDistanceOfNearlyAntipodalPairsMatchesGeographicLib) {
    // The second position is the antipode of the first moved by up to 1 degree in latitude and
    // longitude: the region where Vincenty's iteration fails to converge and the fallback answers.
    // Checked: within 0.1 % of GeographicLib and never NaN. The fallback measures the distance
    // with Vincenty's formulas on two shorter legs, so it also holds 1 mm; both are checked.
    std::mt19937_64 random(20240603);
    std::uniform_real_distribution<double> perturbation(-1.0, 1.0);
    for (int i = 0; i < 10000; ++i) {
        const Cartographic from = randomPosition(random);
        double latitude = -Math::toDegrees(from.latitude.value()) + perturbation(random);
        latitude = std::clamp(latitude, -90.0, 90.0);
        const double longitude =
            Math::toDegrees(from.longitude.value()) + 180.0 + perturbation(random);
        const Cartographic to = Cartographic::fromDegrees(longitude, latitude);
        const double distance = Math::computeVincentyDistR(from, to);
        const double reference = referenceDistance(from, to);
        ASSERT_FALSE(std::isnan(distance)) << "case " << i;
        ASSERT_NEAR(distance, reference, 1e-3 * reference) << "case " << i;
        ASSERT_NEAR(distance, reference, 1e-3) << "case " << i;
    }
}

TEST(MathTest, VincentyDistanceOfExactAntipodesIsHalfTheMeridian) {
    // Exactly antipodal points are joined by meridians over the poles (the equator is longer), so
    // the distance is half the meridian ellipse, 20,003,931.4586 m for WGS84 (1 mm).
    const double halfMeridian = 20003931.4586;
    EXPECT_NEAR(Math::computeVincentyDistR(Cartographic::fromDegrees(0.0, 0.0),
                                           Cartographic::fromDegrees(180.0, 0.0)),
                halfMeridian, 1e-3);
    EXPECT_NEAR(Math::computeVincentyDistR(Cartographic::fromDegrees(0.0, 90.0),
                                           Cartographic::fromDegrees(0.0, -90.0)),
                halfMeridian, 1e-3);
    EXPECT_NEAR(Math::computeVincentyDistR(Cartographic::fromDegrees(0.0, 90.0),
                                           Cartographic::fromDegrees(123.0, -90.0)),
                halfMeridian, 1e-3);
    EXPECT_NEAR(Math::computeVincentyDistR(Cartographic::fromDegrees(-45.0, 30.0),
                                           Cartographic::fromDegrees(135.0, -30.0)),
                halfMeridian, 1e-3);
    EXPECT_NEAR(Math::computeVincentyDistR(Cartographic::fromDegrees(100.0, -60.0),
                                           Cartographic::fromDegrees(-80.0, 60.0)),
                halfMeridian, 1e-3);
}

TEST(MathTest, VincentyDistanceOfCoincidentPointsIsExactlyZero) {
    const Cartographic positions[] = {
        Cartographic::fromDegrees(0.0, 0.0),       Cartographic::fromDegrees(180.0, 0.0),
        Cartographic::fromDegrees(-180.0, 45.0),   Cartographic::fromDegrees(12.3, 90.0),
        Cartographic::fromDegrees(-77.7, -90.0),   Cartographic::fromDegrees(123.456, -33.3),
        Cartographic::fromRadians(1e-300, 1e-300),
    };
    for (const Cartographic& p : positions) {
        EXPECT_EQ(Math::computeVincentyDistR(p, p), 0.0)
            << p.latitude.value() << ", " << p.longitude.value();
    }
    std::mt19937_64 random(20240604);
    for (int i = 0; i < 1000; ++i) {
        const Cartographic p = randomPosition(random);
        ASSERT_EQ(Math::computeVincentyDistR(p, p), 0.0) << "case " << i;
    }
}

TEST(MathTest, VincentyDistanceIgnoresHeights) {
    const Cartographic from = Cartographic::fromDegrees(2.35, 48.85, 0.0);
    const Cartographic to = Cartographic::fromDegrees(-74.0, 40.7, 0.0);
    const double distance = Math::computeVincentyDistR(from, to);
    EXPECT_EQ(Math::computeVincentyDistR(Cartographic::fromDegrees(2.35, 48.85, 8848.0),
                                         Cartographic::fromDegrees(-74.0, 40.7, -400.0)),
              distance);
    EXPECT_EQ(Math::computeVincentyDistR(Cartographic::fromDegrees(2.35, 48.85, NOT_A_NUMBER), to),
              distance);
}

TEST(MathTest, VincentyDistanceIsSymmetricAndIndependentOfWholeTurnsOfLongitude) {
    std::mt19937_64 random(20240605);
    for (int i = 0; i < 1000; ++i) {
        const Cartographic from = randomPosition(random);
        const Cartographic to = randomPosition(random);
        const double distance = Math::computeVincentyDistR(from, to);
        ASSERT_NEAR(Math::computeVincentyDistR(to, from), distance, 1e-6) << "case " << i;
        const Cartographic turned = Cartographic::fromRadians(
            to.longitude.value() + 4.0 * Math::TWO_PI, to.latitude.value());
        ASSERT_NEAR(Math::computeVincentyDistR(from, turned), distance, 1e-6) << "case " << i;
    }
}

TEST(MathTest, VincentyDistanceIsNaNForANaNCoordinate) {
    const Cartographic p = Cartographic::fromDegrees(10.0, 20.0);
    EXPECT_TRUE(
        std::isnan(Math::computeVincentyDistR(Cartographic::fromRadians(NOT_A_NUMBER, 0.0), p)));
    EXPECT_TRUE(
        std::isnan(Math::computeVincentyDistR(p, Cartographic::fromRadians(0.0, NOT_A_NUMBER))));
}

TEST(MathTest, VincentyDistanceIsFiniteForExtremeFiniteInput) {
    // Unnormalised angles: huge longitudes and latitudes past the poles (a latitude beyond 90
    // degrees is the point over the pole, half a turn round in longitude).
    const double extremes[] = {0.0, 1e-300, 2.0, -2.0, 4.0, 1e10, -1e10, 1e300, -1.7e308};
    for (const double lon1 : extremes) {
        for (const double lat1 : extremes) {
            for (const double lon2 : {0.0, 3.0, -1.7e308}) {
                for (const double lat2 : {0.0, -1.0, 1e300}) {
                    const double distance =
                        Math::computeVincentyDistR(Cartographic::fromRadians(lon1, lat1),
                                                   Cartographic::fromRadians(lon2, lat2));
                    ASSERT_TRUE(std::isfinite(distance))
                        << lon1 << ", " << lat1 << " to " << lon2 << ", " << lat2;
                    ASSERT_GE(distance, 0.0);
                    ASSERT_LE(distance, 20003931.5);
                }
            }
        }
    }
    // A latitude past the pole is the point over it.
    EXPECT_NEAR(Math::computeVincentyDistR(Cartographic::fromDegrees(10.0, 100.0),
                                           Cartographic::fromDegrees(-170.0, 80.0)),
                0.0, 1e-6);
}

} // namespace
