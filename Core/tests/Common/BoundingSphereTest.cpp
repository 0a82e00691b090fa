#include "Common/BoundingSphere.h"
#include "Common/Cartographic.h"
#include "Common/Ellipsoid.h"
#include "Common/Math.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace {

using keo::BoundingSphere;
using keo::Cartographic;
using keo::Ellipsoid;
using keo::Math;
using keo::Vector3;

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double INF = std::numeric_limits<double>::infinity();

/** The radius of the sphere about the centre of the points' axis-aligned box. */
double boxSphereRadius(const std::vector<Vector3<double>>& points) {
    Vector3<double> minimum = points.front();
    Vector3<double> maximum = points.front();
    for (const Vector3<double>& p : points) {
        minimum = {std::min(minimum.x, p.x), std::min(minimum.y, p.y), std::min(minimum.z, p.z)};
        maximum = {std::max(maximum.x, p.x), std::max(maximum.y, p.y), std::max(maximum.z, p.z)};
    }
    const Vector3<double> centre = (minimum + maximum) * 0.5;
    double radius = 0.0;
    for (const Vector3<double>& p : points) {
        radius = std::max(radius, p.distance(centre));
    }
    return radius;
}

TEST(BoundingSphereTest, DefaultIsAPointAtTheOrigin) {
    constexpr BoundingSphere s;
    static_assert(s.getRadius() == 0.0);
    EXPECT_EQ(s.getCenter(), Vector3<double>(0.0, 0.0, 0.0));
    EXPECT_TRUE(s.contains({0.0, 0.0, 0.0}));
    EXPECT_FALSE(s.contains({1e-100, 0.0, 0.0}));
}

TEST(BoundingSphereTest, KeepsItsCentreAndRadius) {
    const BoundingSphere s({1.0, 2.0, 3.0}, 4.0);
    EXPECT_EQ(s.getCenter(), Vector3<double>(1.0, 2.0, 3.0));
    EXPECT_EQ(s.getRadius(), 4.0);
    EXPECT_EQ(s, BoundingSphere({1.0, 2.0, 3.0}, 4.0));
    EXPECT_NE(s, BoundingSphere({1.0, 2.0, 3.0}, 5.0));
}

TEST(BoundingSphereTest, ContainsPointsInsideAndOnTheSurfaceOnly) {
    const BoundingSphere s({1.0, 1.0, 1.0}, 2.0);
    EXPECT_TRUE(s.contains({1.0, 1.0, 1.0}));
    EXPECT_TRUE(s.contains({3.0, 1.0, 1.0}));
    EXPECT_TRUE(s.contains({1.0, -1.0, 1.0}));
    EXPECT_FALSE(s.contains({3.0, 1.0, 1.0 + 1e-6}));
    EXPECT_FALSE(s.contains({-2.0, -2.0, -2.0}));
    EXPECT_FALSE(s.contains({NOT_A_NUMBER, 1.0, 1.0}));
}

TEST(BoundingSphereTest, FromPointsOfNothingIsTheDefaultSphere) {
    EXPECT_EQ(BoundingSphere::fromPoints({}), BoundingSphere());
}

TEST(BoundingSphereTest, FromPointsOfOnePointIsThatPoint) {
    const BoundingSphere s = BoundingSphere::fromPoints({{5.0, -6.0, 7.0}});
    EXPECT_EQ(s.getCenter(), Vector3<double>(5.0, -6.0, 7.0));
    EXPECT_EQ(s.getRadius(), 0.0);
    EXPECT_TRUE(s.contains({5.0, -6.0, 7.0}));
}

TEST(BoundingSphereTest, FromPointsOfTwoPointsIsTheirDiameterSphere) {
    const BoundingSphere s = BoundingSphere::fromPoints({{-1.0, 0.0, 0.0}, {3.0, 0.0, 0.0}});
    EXPECT_EQ(s.getCenter(), Vector3<double>(1.0, 0.0, 0.0));
    EXPECT_DOUBLE_EQ(s.getRadius(), 2.0);
}

TEST(BoundingSphereTest, FromPointsOfACubesCornersIsItsCircumscribedSphere) {
    std::vector<Vector3<double>> corners;
    for (const double x : {-1.0, 1.0}) {
        for (const double y : {-1.0, 1.0}) {
            for (const double z : {-1.0, 1.0}) {
                corners.emplace_back(x + 10.0, y, z);
            }
        }
    }
    const BoundingSphere s = BoundingSphere::fromPoints(corners);
    EXPECT_NEAR(s.getCenter().distance({10.0, 0.0, 0.0}), 0.0, 1e-12);
    EXPECT_NEAR(s.getRadius(), std::sqrt(3.0), 1e-12);
}

TEST(BoundingSphereTest, FromPointsContainsEveryPointAndIsNoLargerThanTheBoxSphere) {
    // Random clouds of several shapes and scales, up to Earth-sized ECEF coordinates where
    // rounding matters: every point must pass contains().
    std::mt19937_64 random(301);
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    for (int set = 0; set < 300; ++set) {
        const double scale = std::pow(10.0, set % 10 - 2);
        const Vector3<double> offset(unit(random) * 7e6, unit(random) * 7e6, unit(random) * 7e6);
        const Vector3<double> stretch(1.0, set % 3 == 0 ? 0.01 : 1.0, set % 5 == 0 ? 100.0 : 1.0);
        std::vector<Vector3<double>> points;
        const int count = 1 + set % 50;
        for (int i = 0; i < count; ++i) {
            points.push_back(offset + Vector3<double>(unit(random), unit(random), unit(random))
                                              .multiplyComponents(stretch) *
                                          scale);
        }
        const BoundingSphere s = BoundingSphere::fromPoints(points);
        for (const Vector3<double>& p : points) {
            ASSERT_TRUE(s.contains(p)) << "set " << set;
        }
        ASSERT_LE(s.getRadius(), boxSphereRadius(points) * (1.0 + 1e-12)) << "set " << set;
    }
}

TEST(BoundingSphereTest, FromPointsIsTighterThanTheBoxSphereWhereRitterIs) {
    // Points on a sphere except one far corner of their box: the box centre is off-centre, while
    // Ritter's sphere stays close to the true minimal sphere.
    std::vector<Vector3<double>> points;
    for (int i = 0; i < 360; i += 10) {
        const double angle = Math::toRadians(i);
        points.emplace_back(std::cos(angle), std::sin(angle), 0.0);
    }
    points.emplace_back(0.0, 0.0, 1.0);
    points.emplace_back(0.0, 0.0, -1.0);
    const BoundingSphere s = BoundingSphere::fromPoints(points);
    EXPECT_NEAR(s.getRadius(), 1.0, 1e-9);
    EXPECT_NEAR(s.getCenter().magnitude(), 0.0, 1e-9);
}

TEST(BoundingSphereTest, FromPointsOfASurfacePatchContainsItsEcefPositions) {
    const Ellipsoid& e = Ellipsoid::WGS84;
    std::vector<Vector3<double>> points;
    for (double lon = -1.0; lon <= 1.0; lon += 0.1) {
        for (double lat = 44.0; lat <= 46.0; lat += 0.1) {
            points.push_back(e.cartographicToCartesian(Cartographic::fromDegrees(lon, lat, 100.0)));
        }
    }
    const BoundingSphere s = BoundingSphere::fromPoints(points);
    for (const Vector3<double>& p : points) {
        ASSERT_TRUE(s.contains(p));
    }
    EXPECT_LT(s.getRadius(), 200e3); // the patch is about 160 km across its diagonal / 2
}

TEST(BoundingSphereTest, FromPointsSkipsNonFinitePoints) {
    const BoundingSphere s = BoundingSphere::fromPoints(
        {{NOT_A_NUMBER, 0.0, 0.0}, {0.0, 0.0, 0.0}, {0.0, INF, 0.0}, {2.0, 0.0, 0.0}});
    EXPECT_EQ(s.getCenter(), Vector3<double>(1.0, 0.0, 0.0));
    EXPECT_DOUBLE_EQ(s.getRadius(), 1.0);
    EXPECT_EQ(BoundingSphere::fromPoints({{NOT_A_NUMBER, NOT_A_NUMBER, NOT_A_NUMBER}}),
              BoundingSphere());
}

} // namespace
