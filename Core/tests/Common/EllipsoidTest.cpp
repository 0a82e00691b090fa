#include "Common/Ellipsoid.h"
#include "Common/Math.h"

#include <GeographicLib/Geocentric.hpp>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <random>
#include <vector>

namespace {

using keo::Cartographic;
using keo::Ellipsoid;
using keo::Math;
using keo::Vector3;

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double INF = std::numeric_limits<double>::infinity();

// Tolerances against GeographicLib (WGS84):
//   cartographicToCartesian: 1e-6 m per coordinate;
//   cartesianToCartographic: 1e-9 rad in latitude and longitude (longitude compared modulo 2 pi,
//   and not at the poles, where it is arbitrary), 1e-6 m in height, for heights from -10 km to
//   40,000 km.
constexpr double POSITION_TOLERANCE = 1e-6;
constexpr double ANGLE_TOLERANCE = 1e-9;
constexpr double HEIGHT_TOLERANCE = 1e-6;
constexpr double MIN_HEIGHT = -10e3;
constexpr double MAX_HEIGHT = 40000e3;

const GeographicLib::Geocentric& reference() {
    return GeographicLib::Geocentric::WGS84();
}

Vector3<double> referenceForward(double latitudeDegrees, double longitudeDegrees, double height) {
    Vector3<double> p;
    reference().Forward(latitudeDegrees, longitudeDegrees, height, p.x, p.y, p.z);
    return p;
}

struct Geodetic {
    double latitudeDegrees;
    double longitudeDegrees;
    double height;
};

Geodetic referenceReverse(const Vector3<double>& p) {
    Geodetic g{};
    reference().Reverse(p.x, p.y, p.z, g.latitudeDegrees, g.longitudeDegrees, g.height);
    return g;
}

/** Angle difference brought into [-pi, pi], so that longitudes compare modulo 2 pi. */
double angleDifference(double a, double b) {
    return std::remainder(a - b, Math::TWO_PI);
}

/**
 * Random geodetic positions (degrees, metres): uniform over the sphere of directions, heights in
 * [-10 km, 40,000 km] with half of them within 100 km of the surface, followed by the special
 * latitudes (poles, equator) and longitudes (0, +-90, the antimeridian) at several heights.
 */
std::vector<Geodetic> geodeticCases(std::uint64_t seed) {
    std::mt19937_64 random(seed);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    std::vector<Geodetic> cases;
    for (int i = 0; i < 10000; ++i) {
        const double latitude = Math::toDegrees(std::asin(2.0 * unit(random) - 1.0));
        const double longitude = 360.0 * unit(random) - 180.0;
        const double height = i % 2 == 0 ? MIN_HEIGHT + (100e3 - MIN_HEIGHT) * unit(random)
                                         : MIN_HEIGHT + (MAX_HEIGHT - MIN_HEIGHT) * unit(random);
        cases.push_back({latitude, longitude, height});
    }
    for (const double latitude :
         {-90.0, -89.9999999, -45.0, -1e-10, 0.0, 1e-10, 60.0, 89.9999999, 90.0}) {
        for (const double longitude :
             {-180.0, -179.9999999, -90.0, 0.0, 90.0, 179.9999999, 180.0}) {
            for (const double height :
                 {MIN_HEIGHT, -1.0, 0.0, 1.0, 8848.0, 400e3, 35786e3, MAX_HEIGHT}) {
                cases.push_back({latitude, longitude, height});
            }
        }
    }
    return cases;
}

// ---- parameters --------------------------------------------------------------------------------

TEST(EllipsoidTest, Wgs84HasItsDefiningParameters) {
    const Ellipsoid& e = Ellipsoid::WGS84;
    EXPECT_EQ(e.getEquatorialRadius(), 6378137.0);
    EXPECT_EQ(e.getFlattening(), 1.0 / 298.257223563);
    EXPECT_NEAR(e.getPolarRadius(), 6356752.314245, 1e-6);
    EXPECT_NEAR(e.getEccentricitySquared(), 0.00669437999014, 1e-14);
    EXPECT_EQ(e.getMaximumRadius(), 6378137.0);
    EXPECT_EQ(e.getMinimumRadius(), e.getPolarRadius());
    EXPECT_EQ(e.getRadii(), Vector3<double>(6378137.0, 6378137.0, e.getPolarRadius()));
}

TEST(EllipsoidTest, EqualityComparesTheDefiningParameters) {
    EXPECT_EQ(Ellipsoid::WGS84, Ellipsoid(6378137.0, 1.0 / 298.257223563));
    EXPECT_NE(Ellipsoid::WGS84, Ellipsoid(6378137.0, 1.0 / 298.257222101));
    EXPECT_NE(Ellipsoid::WGS84, Ellipsoid(6378136.0, 1.0 / 298.257223563));
}

// ---- cartographicToCartesian -------------------------------------------------------------------

TEST(EllipsoidTest, CartographicToCartesianMatchesGeographicLib) {
    for (const Geodetic& g : geodeticCases(101)) {
        const Vector3<double> expected =
            referenceForward(g.latitudeDegrees, g.longitudeDegrees, g.height);
        const Vector3<double> actual = Ellipsoid::WGS84.cartographicToCartesian(
            Cartographic::fromDegrees(g.longitudeDegrees, g.latitudeDegrees, g.height));
        ASSERT_NEAR(actual.x, expected.x, POSITION_TOLERANCE)
            << g.latitudeDegrees << ", " << g.longitudeDegrees << ", " << g.height;
        ASSERT_NEAR(actual.y, expected.y, POSITION_TOLERANCE)
            << g.latitudeDegrees << ", " << g.longitudeDegrees << ", " << g.height;
        ASSERT_NEAR(actual.z, expected.z, POSITION_TOLERANCE)
            << g.latitudeDegrees << ", " << g.longitudeDegrees << ", " << g.height;
    }
}

TEST(EllipsoidTest, CartographicToCartesianGivesTheAxesAtTheEquatorAndPoles) {
    const Ellipsoid& e = Ellipsoid::WGS84;
    const double a = e.getEquatorialRadius();
    const double b = e.getPolarRadius();
    const Vector3<double> x = e.cartographicToCartesian(Cartographic::fromDegrees(0.0, 0.0, 10.0));
    EXPECT_DOUBLE_EQ(x.x, a + 10.0);
    EXPECT_EQ(x.y, 0.0);
    EXPECT_EQ(x.z, 0.0);
    const Vector3<double> y = e.cartographicToCartesian(Cartographic::fromDegrees(90.0, 0.0));
    EXPECT_NEAR(y.x, 0.0, 1e-9);
    EXPECT_DOUBLE_EQ(y.y, a);
    const Vector3<double> north =
        e.cartographicToCartesian(Cartographic::fromDegrees(0.0, 90.0, -5.0));
    EXPECT_NEAR(north.x, 0.0, 1e-9);
    EXPECT_DOUBLE_EQ(north.z, b - 5.0);
    const Vector3<double> south = e.cartographicToCartesian(Cartographic::fromDegrees(0.0, -90.0));
    EXPECT_DOUBLE_EQ(south.z, -b);
}

TEST(EllipsoidTest, CartographicToCartesianPropagatesNaN) {
    const Vector3<double> p =
        Ellipsoid::WGS84.cartographicToCartesian(Cartographic::fromRadians(0.0, NOT_A_NUMBER, 0.0));
    EXPECT_TRUE(std::isnan(p.x));
    EXPECT_TRUE(std::isnan(p.z));
}

// ---- cartesianToCartographic -------------------------------------------------------------------

void expectGeodeticNear(const Cartographic& actual, const Geodetic& expected, const char* what) {
    ASSERT_NEAR(actual.latitude.value(), Math::toRadians(expected.latitudeDegrees), ANGLE_TOLERANCE)
        << what << " " << expected.latitudeDegrees << ", " << expected.longitudeDegrees << ", "
        << expected.height;
    ASSERT_NEAR(actual.height, expected.height, HEIGHT_TOLERANCE)
        << what << " " << expected.latitudeDegrees << ", " << expected.longitudeDegrees << ", "
        << expected.height;
    if (std::abs(expected.latitudeDegrees) < 90.0) {
        ASSERT_NEAR(
            angleDifference(actual.longitude.value(), Math::toRadians(expected.longitudeDegrees)),
            0.0, ANGLE_TOLERANCE)
            << what << " " << expected.latitudeDegrees << ", " << expected.longitudeDegrees << ", "
            << expected.height;
    }
}

TEST(EllipsoidTest, CartesianToCartographicRecoversGeodeticPositions) {
    // ECEF positions made by GeographicLib from geodetic ones, converted back: within 1e-9 rad and
    // 1e-6 m of the original.
    for (const Geodetic& g : geodeticCases(102)) {
        const Vector3<double> p = referenceForward(g.latitudeDegrees, g.longitudeDegrees, g.height);
        const std::optional<Cartographic> c = Ellipsoid::WGS84.cartesianToCartographic(p);
        ASSERT_TRUE(c.has_value());
        expectGeodeticNear(*c, g, "geodetic");
        ASSERT_GE(c->longitude.value(), -Math::PI);
        ASSERT_LE(c->longitude.value(), Math::PI);
    }
}

TEST(EllipsoidTest, CartesianToCartographicMatchesGeographicLibForCartesianPositions) {
    // Positions drawn directly in ECEF space: uniform directions, distances from the centre from
    // b - 10 km to a + 40,000 km. Compared with GeographicLib's Reverse: 1e-9 rad and 1e-6 m.
    std::mt19937_64 random(103);
    std::normal_distribution<double> gaussian;
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    const double inner = Ellipsoid::WGS84.getPolarRadius() + MIN_HEIGHT;
    const double outer = Ellipsoid::WGS84.getEquatorialRadius() + MAX_HEIGHT;
    for (int i = 0; i < 10000; ++i) {
        Vector3<double> direction(gaussian(random), gaussian(random), gaussian(random));
        direction = direction.normalize();
        const double t = unit(random);
        const double radius = inner + (outer - inner) * (i % 2 == 0 ? t * t * t : t);
        const Vector3<double> p = direction * radius;
        const std::optional<Cartographic> c = Ellipsoid::WGS84.cartesianToCartographic(p);
        ASSERT_TRUE(c.has_value());
        expectGeodeticNear(*c, referenceReverse(p), "cartesian");
    }
}

TEST(EllipsoidTest, CartesianToCartographicIsExactOnTheAxisAndTheEquatorialPlane) {
    const Ellipsoid& e = Ellipsoid::WGS84;
    const double a = e.getEquatorialRadius();
    const double b = e.getPolarRadius();
    const std::optional<Cartographic> north = e.cartesianToCartographic({0.0, 0.0, b + 100.0});
    ASSERT_TRUE(north.has_value());
    EXPECT_EQ(north->latitude.value(), Math::PI_OVER_TWO);
    EXPECT_NEAR(north->height, 100.0, 1e-9);
    const std::optional<Cartographic> south = e.cartesianToCartographic({0.0, 0.0, -(b - 100.0)});
    ASSERT_TRUE(south.has_value());
    EXPECT_EQ(south->latitude.value(), -Math::PI_OVER_TWO);
    EXPECT_NEAR(south->height, -100.0, 1e-9);
    const std::optional<Cartographic> equator = e.cartesianToCartographic({0.0, -(a + 5.0), 0.0});
    ASSERT_TRUE(equator.has_value());
    EXPECT_EQ(equator->latitude.value(), 0.0);
    EXPECT_NEAR(equator->longitude.value(), -Math::PI_OVER_TWO, 1e-15);
    EXPECT_NEAR(equator->height, 5.0, 1e-9);
    const std::optional<Cartographic> antimeridian = e.cartesianToCartographic({-a, 0.0, 0.0});
    ASSERT_TRUE(antimeridian.has_value());
    EXPECT_EQ(antimeridian->longitude.value(), Math::PI);
    EXPECT_NEAR(antimeridian->height, 0.0, 1e-9);
}

TEST(EllipsoidTest, CartesianToCartographicIsEmptyAtTheCentre) {
    EXPECT_FALSE(Ellipsoid::WGS84.cartesianToCartographic({0.0, 0.0, 0.0}).has_value());
    EXPECT_FALSE(Ellipsoid::WGS84.cartesianToCartographic({-0.0, 0.0, -0.0}).has_value());
}

TEST(EllipsoidTest, CartesianToCartographicIsEmptyForNonFiniteInput) {
    for (const Vector3<double>& p :
         {Vector3<double>(NOT_A_NUMBER, 0.0, 0.0), Vector3<double>(1e7, NOT_A_NUMBER, 0.0),
          Vector3<double>(1e7, 0.0, NOT_A_NUMBER), Vector3<double>(INF, 0.0, 0.0),
          Vector3<double>(0.0, -INF, 0.0), Vector3<double>(0.0, 0.0, INF)}) {
        EXPECT_FALSE(Ellipsoid::WGS84.cartesianToCartographic(p).has_value())
            << p.x << ", " << p.y << ", " << p.z;
    }
}

TEST(EllipsoidTest, CartesianToCartographicInsideTheEllipsoidGivesTheNearestSurfacePoint) {
    // Deep inside, the evolute included (within about 43 km of the centre several normals pass
    // through a point). The answer must be the nearest surface point, as GeographicLib gives, and
    // convert back to the same position: 1e-9 rad, 1e-6 m.
    std::mt19937_64 random(104);
    std::uniform_real_distribution<double> coordinate(-1.0, 1.0);
    for (const double size : {4e6, 1e6, 45e3, 20e3, 1.0, 1e-100}) {
        for (int i = 0; i < 2000; ++i) {
            Vector3<double> p(coordinate(random) * size, coordinate(random) * size,
                              coordinate(random) * size);
            if (i % 5 == 0) {
                p.z = 0.0; // on the equatorial plane (two nearest points: the northern one)
            } else if (i % 5 == 1) {
                p.x = 0.0; // on the axis
                p.y = 0.0;
            }
            const std::optional<Cartographic> c = Ellipsoid::WGS84.cartesianToCartographic(p);
            ASSERT_TRUE(c.has_value()) << p.x << ", " << p.y << ", " << p.z;
            const Geodetic expected = referenceReverse(p);
            ASSERT_NEAR(c->latitude.value(), Math::toRadians(expected.latitudeDegrees),
                        ANGLE_TOLERANCE)
                << p.x << ", " << p.y << ", " << p.z;
            ASSERT_NEAR(c->height, expected.height, HEIGHT_TOLERANCE)
                << p.x << ", " << p.y << ", " << p.z;
            const Vector3<double> back = Ellipsoid::WGS84.cartographicToCartesian(*c);
            ASSERT_NEAR(back.distance(p), 0.0, POSITION_TOLERANCE)
                << p.x << ", " << p.y << ", " << p.z;
        }
    }
}

TEST(EllipsoidTest, CartesianToCartographicNeverGivesNaNForFiniteInput) {
    const double max = std::numeric_limits<double>::max();
    const double tiny = std::numeric_limits<double>::denorm_min();
    const double values[] = {0.0,  tiny, -tiny,  1e-300, 1.0, 6378137.0, -6356752.0,
                             1e20, 1e45, -1e160, 1e300,  max, -max};
    for (const double x : values) {
        for (const double y : values) {
            for (const double z : values) {
                const std::optional<Cartographic> c =
                    Ellipsoid::WGS84.cartesianToCartographic({x, y, z});
                if (x == 0.0 && y == 0.0 && z == 0.0) {
                    EXPECT_FALSE(c.has_value());
                    continue;
                }
                ASSERT_TRUE(c.has_value()) << x << ", " << y << ", " << z;
                ASSERT_FALSE(std::isnan(c->latitude.value())) << x << ", " << y << ", " << z;
                ASSERT_FALSE(std::isnan(c->longitude.value())) << x << ", " << y << ", " << z;
                ASSERT_FALSE(std::isnan(c->height)) << x << ", " << y << ", " << z;
                ASSERT_LE(std::abs(c->latitude.value()), Math::PI_OVER_TWO);
            }
        }
    }
}

TEST(EllipsoidTest, CartesianToCartographicFarAwayTendsToTheGeocentricDirection) {
    // 1e50 m away the geodetic latitude equals the geocentric one and the height the distance.
    const std::optional<Cartographic> c =
        Ellipsoid::WGS84.cartesianToCartographic({3e50, 0.0, 4e50});
    ASSERT_TRUE(c.has_value());
    EXPECT_DOUBLE_EQ(c->latitude.value(), std::atan2(4.0, 3.0));
    EXPECT_DOUBLE_EQ(c->height, 5e50);
}

// ---- other ellipsoids --------------------------------------------------------------------------

TEST(EllipsoidTest, ASphereConvertsRoundTrip) {
    const Ellipsoid sphere(1000.0, 0.0);
    EXPECT_EQ(sphere.getPolarRadius(), 1000.0);
    std::mt19937_64 random(105);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    for (int i = 0; i < 1000; ++i) {
        const Cartographic c = Cartographic::fromRadians(Math::TWO_PI * unit(random) - Math::PI,
                                                         std::asin(2.0 * unit(random) - 1.0),
                                                         3000.0 * unit(random) - 999.0);
        const Vector3<double> p = sphere.cartographicToCartesian(c);
        EXPECT_NEAR(p.magnitude(), 1000.0 + c.height, 1e-9);
        const std::optional<Cartographic> back = sphere.cartesianToCartographic(p);
        ASSERT_TRUE(back.has_value());
        ASSERT_TRUE(back->equalsEpsilon(c, 1e-9)) << i;
    }
}

TEST(EllipsoidTest, AnotherOblateEllipsoidConvertsRoundTrip) {
    // Clarke 1866, to show nothing depends on WGS84 beyond its parameters.
    const Ellipsoid clarke(6378206.4, 1.0 / 294.978698214);
    std::mt19937_64 random(106);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    for (int i = 0; i < 1000; ++i) {
        const Cartographic c = Cartographic::fromRadians(
            Math::TWO_PI * unit(random) - Math::PI, std::asin(2.0 * unit(random) - 1.0),
            MIN_HEIGHT + (MAX_HEIGHT - MIN_HEIGHT) * unit(random));
        const std::optional<Cartographic> back =
            clarke.cartesianToCartographic(clarke.cartographicToCartesian(c));
        ASSERT_TRUE(back.has_value());
        ASSERT_NEAR(back->latitude.value(), c.latitude.value(), ANGLE_TOLERANCE) << i;
        ASSERT_NEAR(angleDifference(back->longitude.value(), c.longitude.value()), 0.0,
                    ANGLE_TOLERANCE)
            << i;
        ASSERT_NEAR(back->height, c.height, HEIGHT_TOLERANCE) << i;
    }
}

TEST(EllipsoidTest, StronglyFlattenedEllipsoidsConvertRoundTrip) {
    // Flattenings well beyond the Earth's (Saturn's is about 0.1), positions on or above the
    // surface, where the nearest surface point is unique: 1e-9 rad and 1e-6 m.
    for (const double f : {0.05, 0.1, 0.5, 0.9}) {
        const Ellipsoid e(6378137.0, f);
        std::mt19937_64 random(107);
        std::uniform_real_distribution<double> unit(0.0, 1.0);
        for (int i = 0; i < 2000; ++i) {
            const double t = unit(random);
            const Cartographic c = Cartographic::fromRadians(Math::TWO_PI * unit(random) - Math::PI,
                                                             std::asin(2.0 * unit(random) - 1.0),
                                                             MAX_HEIGHT * t * t * t);
            const std::optional<Cartographic> back =
                e.cartesianToCartographic(e.cartographicToCartesian(c));
            ASSERT_TRUE(back.has_value());
            ASSERT_NEAR(back->latitude.value(), c.latitude.value(), ANGLE_TOLERANCE)
                << f << " " << i;
            ASSERT_NEAR(back->height, c.height, HEIGHT_TOLERANCE) << f << " " << i;
        }
    }
}

TEST(EllipsoidTest, InvalidParametersGiveNoValues) {
    for (const Ellipsoid& e :
         {Ellipsoid(0.0, 0.0), Ellipsoid(-1.0, 0.0), Ellipsoid(NOT_A_NUMBER, 0.0),
          Ellipsoid(INF, 0.0), Ellipsoid(1.0, 1.0), Ellipsoid(1.0, -0.1),
          Ellipsoid(1.0, NOT_A_NUMBER)}) {
        EXPECT_FALSE(e.cartesianToCartographic({1.0, 2.0, 3.0}).has_value());
        EXPECT_FALSE(e.geodeticSurfaceNormal(Vector3<double>(1.0, 2.0, 3.0)).has_value());
        const Vector3<double> p =
            e.cartographicToCartesian(Cartographic::fromRadians(0.1, 0.2, 3.0));
        EXPECT_TRUE(std::isnan(p.x) && std::isnan(p.y) && std::isnan(p.z));
    }
}

// ---- surface normals ---------------------------------------------------------------------------

TEST(EllipsoidTest, GeodeticSurfaceNormalOfACartographicIsTheUnitNormalOfItsLatitude) {
    const Ellipsoid& e = Ellipsoid::WGS84;
    const Vector3<double> up = e.geodeticSurfaceNormal(Cartographic::fromDegrees(0.0, 0.0));
    EXPECT_EQ(up, Vector3<double>(1.0, 0.0, 0.0));
    const Vector3<double> north = e.geodeticSurfaceNormal(Cartographic::fromDegrees(33.0, 90.0));
    EXPECT_NEAR(north.x, 0.0, 1e-15);
    EXPECT_NEAR(north.y, 0.0, 1e-15);
    EXPECT_EQ(north.z, 1.0);
    const Vector3<double> n = e.geodeticSurfaceNormal(Cartographic::fromDegrees(-120.0, 45.0, 1e6));
    EXPECT_NEAR(n.magnitude(), 1.0, 1e-15);
    EXPECT_NEAR(n.z, std::sqrt(0.5), 1e-15);
    EXPECT_NEAR(std::atan2(n.y, n.x), Math::toRadians(-120.0), 1e-15);
}

TEST(EllipsoidTest, GeodeticSurfaceNormalIsTheGradientOfTheSurface) {
    // An independent check: at a surface point the normal is parallel to (x / a^2, y / a^2, z /
    // b^2).
    const Ellipsoid& e = Ellipsoid::WGS84;
    const double a2 = e.getEquatorialRadius() * e.getEquatorialRadius();
    const double b2 = e.getPolarRadius() * e.getPolarRadius();
    std::mt19937_64 random(107);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    for (int i = 0; i < 10000; ++i) {
        const Cartographic c = Cartographic::fromRadians(Math::TWO_PI * unit(random) - Math::PI,
                                                         std::asin(2.0 * unit(random) - 1.0));
        const Vector3<double> p = e.cartographicToCartesian(c);
        const Vector3<double> gradient = Vector3<double>(p.x / a2, p.y / a2, p.z / b2).normalize();
        const Vector3<double> normal = e.geodeticSurfaceNormal(c);
        ASSERT_NEAR(normal.distance(gradient), 0.0, 1e-12) << i;
        const std::optional<Vector3<double>> fromCartesian = e.geodeticSurfaceNormal(p);
        ASSERT_TRUE(fromCartesian.has_value());
        ASSERT_NEAR(fromCartesian->distance(gradient), 0.0, 1e-12) << i;
    }
}

TEST(EllipsoidTest, GeodeticSurfaceNormalOfACartesianAgreesWithItsGeodeticPosition) {
    const Ellipsoid& e = Ellipsoid::WGS84;
    std::mt19937_64 random(108);
    std::uniform_real_distribution<double> coordinate(-5e7, 5e7);
    for (int i = 0; i < 10000; ++i) {
        const Vector3<double> p(coordinate(random), coordinate(random), coordinate(random));
        const std::optional<Vector3<double>> normal = e.geodeticSurfaceNormal(p);
        const std::optional<Cartographic> c = e.cartesianToCartographic(p);
        ASSERT_TRUE(normal.has_value());
        ASSERT_TRUE(c.has_value());
        ASSERT_EQ(*normal, e.geodeticSurfaceNormal(*c)) << i;
        ASSERT_NEAR(normal->magnitude(), 1.0, 1e-15) << i;
        // The position lies on the normal line through its foot point, at its height.
        const Vector3<double> foot =
            e.cartographicToCartesian(Cartographic(c->longitude, c->latitude, 0.0));
        ASSERT_NEAR((foot + *normal * c->height).distance(p), 0.0, 1e-6) << i;
    }
}

TEST(EllipsoidTest, GeodeticSurfaceNormalOfACartesianIsEmptyAtTheCentreAndForNonFiniteInput) {
    const Ellipsoid& e = Ellipsoid::WGS84;
    EXPECT_FALSE(e.geodeticSurfaceNormal(Vector3<double>(0.0, 0.0, 0.0)).has_value());
    EXPECT_FALSE(e.geodeticSurfaceNormal(Vector3<double>(NOT_A_NUMBER, 1.0, 1.0)).has_value());
    EXPECT_FALSE(e.geodeticSurfaceNormal(Vector3<double>(1.0, INF, 1.0)).has_value());
    const std::optional<Vector3<double>> pole =
        e.geodeticSurfaceNormal(Vector3<double>(0.0, 0.0, -1.0));
    ASSERT_TRUE(pole.has_value());
    EXPECT_EQ(pole->z, -1.0);
}

} // namespace
