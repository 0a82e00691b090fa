#include "Common/Cartographic.h"
#include "Common/Math.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using keo::Cartographic;
using keo::Math;
using keo::Radian;

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

TEST(CartographicTest, DefaultIsTheOrigin) {
    const Cartographic c;
    EXPECT_EQ(c.longitude.value(), 0.0);
    EXPECT_EQ(c.latitude.value(), 0.0);
    EXPECT_EQ(c.height, 0.0);
}

TEST(CartographicTest, FromRadiansKeepsTheValues) {
    const Cartographic c = Cartographic::fromRadians(1.25, -0.5, 42.0);
    EXPECT_EQ(c.longitude.value(), 1.25);
    EXPECT_EQ(c.latitude.value(), -0.5);
    EXPECT_EQ(c.height, 42.0);
    EXPECT_EQ(Cartographic::fromRadians(1.0, 2.0).height, 0.0);
}

TEST(CartographicTest, FromDegreesConvertsTheAnglesAndKeepsTheHeight) {
    const Cartographic c = Cartographic::fromDegrees(180.0, -90.0, 1234.5);
    EXPECT_DOUBLE_EQ(c.longitude.value(), Math::PI);
    EXPECT_DOUBLE_EQ(c.latitude.value(), -Math::PI_OVER_TWO);
    EXPECT_EQ(c.height, 1234.5);
    const Cartographic d = Cartographic::fromDegrees(45.0, 30.0);
    EXPECT_DOUBLE_EQ(d.longitude.value(), Math::PI / 4.0);
    EXPECT_DOUBLE_EQ(d.latitude.value(), Math::PI / 6.0);
    EXPECT_EQ(d.height, 0.0);
    // Not normalised.
    EXPECT_DOUBLE_EQ(Cartographic::fromDegrees(540.0, 0.0).longitude.value(), 3.0 * Math::PI);
}

TEST(CartographicTest, EqualityIsExactPerComponent) {
    const Cartographic a = Cartographic::fromRadians(1.0, 0.5, 10.0);
    EXPECT_EQ(a, Cartographic(Radian(1.0), Radian(0.5), 10.0));
    EXPECT_NE(a, Cartographic::fromRadians(1.0, 0.5, 10.000001));
    EXPECT_NE(a, Cartographic::fromRadians(1.0 + 1e-15, 0.5, 10.0));
    const Cartographic withNaN = Cartographic::fromRadians(NOT_A_NUMBER, 0.5, 10.0);
    EXPECT_NE(withNaN, withNaN);
}

TEST(CartographicTest, EqualsEpsilonComparesEachComponentAbsolutely) {
    const Cartographic a = Cartographic::fromRadians(1.0, 0.5, 10.0);
    EXPECT_TRUE(a.equalsEpsilon(a, 0.0));
    EXPECT_TRUE(
        a.equalsEpsilon(Cartographic::fromRadians(1.0 + 1e-10, 0.5 - 1e-10, 10.0 + 1e-10), 1e-9));
    EXPECT_FALSE(a.equalsEpsilon(Cartographic::fromRadians(1.0 + 1e-8, 0.5, 10.0), 1e-9));
    EXPECT_FALSE(a.equalsEpsilon(Cartographic::fromRadians(1.0, 0.5 + 1e-8, 10.0), 1e-9));
    EXPECT_FALSE(a.equalsEpsilon(Cartographic::fromRadians(1.0, 0.5, 10.0 + 1e-8), 1e-9));
    // Absolute, not relative: a large height gets no larger tolerance.
    const Cartographic far = Cartographic::fromRadians(0.0, 0.0, 1e9);
    EXPECT_FALSE(far.equalsEpsilon(Cartographic::fromRadians(0.0, 0.0, 1e9 + 1.0), 0.5));
    EXPECT_TRUE(far.equalsEpsilon(Cartographic::fromRadians(0.0, 0.0, 1e9 + 1.0), 1.0));
}

TEST(CartographicTest, EqualsEpsilonIsFalseWithNaN) {
    const Cartographic a = Cartographic::fromRadians(1.0, 0.5, 10.0);
    for (const Cartographic& b : {Cartographic::fromRadians(NOT_A_NUMBER, 0.5, 10.0),
                                  Cartographic::fromRadians(1.0, NOT_A_NUMBER, 10.0),
                                  Cartographic::fromRadians(1.0, 0.5, NOT_A_NUMBER)}) {
        EXPECT_FALSE(a.equalsEpsilon(b, 1e300));
        EXPECT_FALSE(b.equalsEpsilon(a, 1e300));
        EXPECT_FALSE(b.equalsEpsilon(b, 1e300));
    }
    EXPECT_FALSE(a.equalsEpsilon(a, NOT_A_NUMBER));
}

} // namespace
