#include "Common/GlobeRectangle.h"
#include "Common/Ellipsoid.h"
#include "Common/Math.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace {

using keo::Cartographic;
using keo::Ellipsoid;
using keo::GlobeRectangle;
using keo::Math;
using keo::Vector3;

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double INF = std::numeric_limits<double>::infinity();

double rad(double degrees) {
    return Math::toRadians(degrees);
}

Cartographic degrees(double longitude, double latitude) {
    return Cartographic::fromDegrees(longitude, latitude);
}

/** A rectangle from bounds in degrees. */
GlobeRectangle rectangle(double west, double south, double east, double north) {
    return GlobeRectangle(rad(west), rad(south), rad(east), rad(north));
}

void expectBoundsNear(const GlobeRectangle& actual, const GlobeRectangle& expected) {
    EXPECT_NEAR(actual.getWest(), expected.getWest(), 1e-12);
    EXPECT_NEAR(actual.getSouth(), expected.getSouth(), 1e-12);
    EXPECT_NEAR(actual.getEast(), expected.getEast(), 1e-12);
    EXPECT_NEAR(actual.getNorth(), expected.getNorth(), 1e-12);
}

TEST(GlobeRectangleTest, KeepsItsBounds) {
    constexpr GlobeRectangle r(0.1, 0.2, 0.3, 0.4);
    static_assert(r.getWest() == 0.1 && r.getSouth() == 0.2);
    EXPECT_EQ(r.getEast(), 0.3);
    EXPECT_EQ(r.getNorth(), 0.4);
    EXPECT_EQ(r, GlobeRectangle(0.1, 0.2, 0.3, 0.4));
    EXPECT_NE(r, GlobeRectangle(0.1, 0.2, 0.3, 0.5));
}

TEST(GlobeRectangleTest, EmptyAndMaximumHaveTheirDocumentedBounds) {
    EXPECT_EQ(GlobeRectangle::EMPTY,
              GlobeRectangle(Math::PI, Math::PI_OVER_TWO, -Math::PI, -Math::PI_OVER_TWO));
    EXPECT_EQ(GlobeRectangle::MAXIMUM,
              GlobeRectangle(-Math::PI, -Math::PI_OVER_TWO, Math::PI, Math::PI_OVER_TWO));
    EXPECT_DOUBLE_EQ(GlobeRectangle::MAXIMUM.computeWidth(), Math::TWO_PI);
    EXPECT_DOUBLE_EQ(GlobeRectangle::MAXIMUM.computeHeight(), Math::PI);
}

TEST(GlobeRectangleTest, IsEmptyWhenSouthExceedsNorthOrABoundIsNaN) {
    EXPECT_TRUE(GlobeRectangle::EMPTY.isEmpty());
    EXPECT_FALSE(GlobeRectangle::MAXIMUM.isEmpty());
    EXPECT_FALSE(rectangle(10, 20, 10, 20).isEmpty()); // a single point
    EXPECT_TRUE(rectangle(10, 21, 30, 20).isEmpty());
    EXPECT_TRUE(GlobeRectangle(0.0, NOT_A_NUMBER, 1.0, 1.0).isEmpty());
    EXPECT_TRUE(GlobeRectangle(0.0, 0.0, 1.0, NOT_A_NUMBER).isEmpty());
    // West > east is not empty: it crosses the antimeridian.
    EXPECT_FALSE(rectangle(170, -10, -170, 10).isEmpty());
}

TEST(GlobeRectangleTest, FromCartographicArrayOfNothingIsEmpty) {
    EXPECT_EQ(GlobeRectangle::fromCartographicArray({}), GlobeRectangle::EMPTY);
    EXPECT_TRUE(GlobeRectangle::fromCartographicArray({}).isEmpty());
}

TEST(GlobeRectangleTest, FromCartographicArrayBoundsPositionsAwayFromTheAntimeridian) {
    const GlobeRectangle r = GlobeRectangle::fromCartographicArray(
        {degrees(10, 20), degrees(-30, 5), degrees(40, -15), degrees(0, 60)});
    expectBoundsNear(r, rectangle(-30, -15, 40, 60));
    EXPECT_FALSE(r.isEmpty());
}

TEST(GlobeRectangleTest, FromCartographicArrayOfOnePositionIsThatPoint) {
    const GlobeRectangle r = GlobeRectangle::fromCartographicArray({degrees(12, 34)});
    expectBoundsNear(r, rectangle(12, 34, 12, 34));
    EXPECT_EQ(r.computeWidth(), 0.0);
    EXPECT_EQ(r.computeHeight(), 0.0);
}

TEST(GlobeRectangleTest, FromCartographicArrayCrossesTheAntimeridianWhenThatIsNarrower) {
    const GlobeRectangle r = GlobeRectangle::fromCartographicArray(
        {degrees(170, 0), degrees(-170, 10), degrees(179, -5), degrees(-175, 3)});
    expectBoundsNear(r, rectangle(170, -5, -170, 10));
    EXPECT_GT(r.getWest(), r.getEast());
    EXPECT_NEAR(r.computeWidth(), rad(20), 1e-12);
}

TEST(GlobeRectangleTest, FromCartographicArrayKeepsThePlainSpanWhenThatIsNarrower) {
    // 100 degrees without crossing against 260 with.
    const GlobeRectangle r =
        GlobeRectangle::fromCartographicArray({degrees(-50, 0), degrees(50, 0), degrees(0, 1)});
    expectBoundsNear(r, rectangle(-50, 0, 50, 1));
}

TEST(GlobeRectangleTest, FromCartographicArrayNormalisesLongitudes) {
    // 190 degrees is -170 and -185 is 175: the pair crosses the antimeridian.
    const GlobeRectangle r =
        GlobeRectangle::fromCartographicArray({degrees(190, 1), degrees(-185, 2)});
    expectBoundsNear(r, rectangle(175, 1, -170, 2));
    for (const double bound : {r.getWest(), r.getEast()}) {
        EXPECT_GE(bound, -Math::PI);
        EXPECT_LE(bound, Math::PI);
    }
}

TEST(GlobeRectangleTest, FromCartographicArrayAcrossTheAntimeridianIncludingPi) {
    const GlobeRectangle r =
        GlobeRectangle::fromCartographicArray({degrees(180, 0), degrees(-160, 0), degrees(150, 0)});
    expectBoundsNear(r, rectangle(150, 0, -160, 0));
}

TEST(GlobeRectangleTest, FromCartographicArraySkipsPositionsWithNaN) {
    const GlobeRectangle r = GlobeRectangle::fromCartographicArray(
        {degrees(10, 20), Cartographic::fromRadians(NOT_A_NUMBER, 0.0),
         Cartographic::fromRadians(0.0, NOT_A_NUMBER),
         Cartographic::fromRadians(1.0, 1.0, NOT_A_NUMBER), Cartographic::fromRadians(INF, 0.0),
         degrees(20, 30)});
    expectBoundsNear(r, rectangle(10, 20, 20, 30));
    EXPECT_EQ(GlobeRectangle::fromCartographicArray(
                  {Cartographic::fromRadians(NOT_A_NUMBER, NOT_A_NUMBER)}),
              GlobeRectangle::EMPTY);
}

TEST(GlobeRectangleTest, FromCartesianArrayConvertsOnTheEllipsoidAndSkipsPointsWithoutPosition) {
    const Ellipsoid& e = Ellipsoid::WGS84;
    const std::vector<Cartographic> cartographics = {degrees(170, -20), degrees(-160, 40),
                                                     degrees(175, 10)};
    std::vector<Vector3<double>> points;
    for (const Cartographic& c : cartographics) {
        points.push_back(e.cartographicToCartesian(c));
    }
    points.emplace_back(0.0, 0.0, 0.0); // the centre has no geodetic position
    points.emplace_back(NOT_A_NUMBER, 1.0, 1.0);
    const GlobeRectangle r = GlobeRectangle::fromCartesianArray(points, e);
    expectBoundsNear(r, GlobeRectangle::fromCartographicArray(cartographics));
    expectBoundsNear(r, rectangle(170, -20, -160, 40));
    EXPECT_EQ(GlobeRectangle::fromCartesianArray({}, e), GlobeRectangle::EMPTY);
    EXPECT_EQ(GlobeRectangle::fromCartesianArray({Vector3<double>(0.0, 0.0, 0.0)}, e),
              GlobeRectangle::EMPTY);
}

TEST(GlobeRectangleTest, ComputeCenterIsTheMiddleOfTheBounds) {
    const Cartographic c = rectangle(-30, -15, 40, 60).computeCenter();
    EXPECT_NEAR(c.longitude.value(), rad(5), 1e-12);
    EXPECT_NEAR(c.latitude.value(), rad(22.5), 1e-12);
    EXPECT_EQ(c.height, 0.0);
}

TEST(GlobeRectangleTest, ComputeCenterAcrossTheAntimeridianIsNormalised) {
    const Cartographic c = rectangle(160, 0, -140, 10).computeCenter();
    EXPECT_NEAR(c.longitude.value(), rad(-170), 1e-12);
    EXPECT_NEAR(c.latitude.value(), rad(5), 1e-12);
    const Cartographic onTheAntimeridian = rectangle(170, 0, -170, 0).computeCenter();
    EXPECT_NEAR(std::abs(onTheAntimeridian.longitude.value()), Math::PI, 1e-12);
    EXPECT_LE(std::abs(onTheAntimeridian.longitude.value()), Math::PI);
}

TEST(GlobeRectangleTest, ComputeWidthAddsATurnAcrossTheAntimeridian) {
    EXPECT_NEAR(rectangle(-30, 0, 40, 1).computeWidth(), rad(70), 1e-12);
    EXPECT_NEAR(rectangle(160, 0, -140, 1).computeWidth(), rad(60), 1e-12);
    EXPECT_NEAR(rectangle(10, 0, 9, 1).computeWidth(), rad(359), 1e-12);
}

TEST(GlobeRectangleTest, ComputeHeightIsNorthMinusSouth) {
    EXPECT_NEAR(rectangle(0, -15, 1, 60).computeHeight(), rad(75), 1e-12);
    EXPECT_EQ(rectangle(0, 5, 1, 5).computeHeight(), 0.0);
}

TEST(GlobeRectangleTest, ContainsPositionsInsideAndOnTheBounds) {
    const GlobeRectangle r = rectangle(-30, -15, 40, 60);
    EXPECT_TRUE(r.contains(degrees(0, 0)));
    EXPECT_TRUE(r.contains(Cartographic::fromRadians(r.getWest(), r.getSouth())));
    EXPECT_TRUE(r.contains(Cartographic::fromRadians(r.getEast(), r.getNorth())));
    EXPECT_TRUE(r.contains(Cartographic::fromRadians(rad(10), rad(10), 1e7))); // height ignored
    EXPECT_FALSE(r.contains(degrees(-31, 0)));
    EXPECT_FALSE(r.contains(degrees(41, 0)));
    EXPECT_FALSE(r.contains(degrees(0, -16)));
    EXPECT_FALSE(r.contains(degrees(0, 61)));
    EXPECT_FALSE(r.contains(degrees(180, 0)));
    // Whole turns of longitude do not matter.
    EXPECT_TRUE(r.contains(degrees(370, 0)));
    EXPECT_FALSE(r.contains(degrees(-300, 0))); // 60 degrees
}

TEST(GlobeRectangleTest, ContainsAcrossTheAntimeridian) {
    const GlobeRectangle r = rectangle(160, -10, -140, 10);
    EXPECT_TRUE(r.contains(degrees(170, 0)));
    EXPECT_TRUE(r.contains(degrees(180, 0)));
    EXPECT_TRUE(r.contains(degrees(-180, 0)));
    EXPECT_TRUE(r.contains(degrees(-150, 5)));
    EXPECT_TRUE(r.contains(Cartographic::fromRadians(r.getWest(), 0.0)));
    EXPECT_TRUE(r.contains(Cartographic::fromRadians(r.getEast(), 0.0)));
    EXPECT_FALSE(r.contains(degrees(0, 0)));
    EXPECT_FALSE(r.contains(degrees(150, 0)));
    EXPECT_FALSE(r.contains(degrees(-130, 0)));
    EXPECT_FALSE(r.contains(degrees(170, 11)));
}

TEST(GlobeRectangleTest, ContainsTreatsMinusPiAndPiAsOneMeridian) {
    EXPECT_TRUE(GlobeRectangle(3.0, 0.0, Math::PI, 1.0)
                    .contains(Cartographic::fromRadians(-Math::PI, 0.5)));
    EXPECT_TRUE(GlobeRectangle(-Math::PI, 0.0, -3.0, 1.0)
                    .contains(Cartographic::fromRadians(Math::PI, 0.5)));
}

TEST(GlobeRectangleTest, ContainsNothingWhenEmptyOrForNaN) {
    EXPECT_FALSE(GlobeRectangle::EMPTY.contains(degrees(0, 0)));
    EXPECT_FALSE(GlobeRectangle::EMPTY.contains(degrees(180, 0)));
    EXPECT_FALSE(GlobeRectangle::MAXIMUM.contains(Cartographic::fromRadians(NOT_A_NUMBER, 0.0)));
    EXPECT_FALSE(GlobeRectangle::MAXIMUM.contains(Cartographic::fromRadians(0.0, NOT_A_NUMBER)));
}

TEST(GlobeRectangleTest, MaximumContainsEverywhere) {
    std::mt19937_64 random(201);
    std::uniform_real_distribution<double> longitude(-10.0, 10.0);
    std::uniform_real_distribution<double> latitude(-Math::PI_OVER_TWO, Math::PI_OVER_TWO);
    for (int i = 0; i < 1000; ++i) {
        ASSERT_TRUE(GlobeRectangle::MAXIMUM.contains(
            Cartographic::fromRadians(longitude(random), latitude(random))));
    }
}

TEST(GlobeRectangleTest, FromCartographicArrayContainsItsPositionsAndIsNoWiderThanNeeded) {
    // Clusters of random positions around random centres, some across the antimeridian: every
    // position is inside, the centre is inside, and the width is at most the cluster's spread.
    std::mt19937_64 random(202);
    std::uniform_real_distribution<double> centre(-Math::PI, Math::PI);
    std::uniform_real_distribution<double> offset(-0.5, 0.5);
    for (int set = 0; set < 200; ++set) {
        const double centreLongitude = set % 4 == 0 ? Math::PI - 0.1 : centre(random);
        std::vector<Cartographic> positions;
        for (int i = 0; i < 20; ++i) {
            positions.push_back(
                Cartographic::fromRadians(centreLongitude + offset(random), 0.5 * offset(random)));
        }
        const GlobeRectangle r = GlobeRectangle::fromCartographicArray(positions);
        for (const Cartographic& p : positions) {
            ASSERT_TRUE(r.contains(p)) << set;
        }
        ASSERT_TRUE(r.contains(r.computeCenter())) << set;
        ASSERT_LE(r.computeWidth(), 1.0 + 1e-12) << set;
        ASSERT_GE(r.getWest(), -Math::PI);
        ASSERT_LE(r.getEast(), Math::PI);
    }
}

} // namespace
