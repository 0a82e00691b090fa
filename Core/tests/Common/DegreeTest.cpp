#include "Common/Degree.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>

namespace {

using keo::Degree;
using keo::Radian;

TEST(DegreeTest, DefaultIsZero) {
    EXPECT_EQ(Degree().value(), 0.0);
}

TEST(DegreeTest, IsNotImplicitlyConvertibleFromDoubleOrRadian) {
    EXPECT_FALSE((std::is_convertible_v<double, Degree>));
    EXPECT_FALSE((std::is_convertible_v<Radian, Degree>));
    EXPECT_TRUE((std::is_constructible_v<Degree, Radian>));
}

TEST(DegreeTest, ConvertsFromRadiansExplicitly) {
    EXPECT_DOUBLE_EQ(Degree(Radian(3.141592653589793)).value(), 180.0);
    EXPECT_DOUBLE_EQ(Degree(Radian(-1.5707963267948966)).value(), -90.0);
}

TEST(DegreeTest, RoundTripThroughRadiansKeepsTheValueWithinOneUlpScale) {
    for (double d = -720.0; d <= 720.0; d += 0.37) {
        const double back = Degree(Radian(Degree(d))).value();
        EXPECT_NEAR(back, d, 4.0 * std::numeric_limits<double>::epsilon() * std::abs(d) + 1e-15);
    }
}

TEST(DegreeTest, ArithmeticFollowsTheValues) {
    const Degree a(90.0);
    const Degree b(30.0);
    EXPECT_EQ((a + b).value(), 120.0);
    EXPECT_EQ((a - b).value(), 60.0);
    EXPECT_EQ((-a).value(), -90.0);
    EXPECT_EQ((a * 2.0).value(), 180.0);
    EXPECT_EQ((0.5 * a).value(), 45.0);
    EXPECT_EQ((a / 3.0).value(), 30.0);
    EXPECT_EQ(a / b, 3.0);
    Degree c(10.0);
    c += b;
    c -= Degree(20.0);
    c *= 3.0;
    c /= 6.0;
    EXPECT_EQ(c.value(), 10.0);
}

TEST(DegreeTest, ComparisonIsExact) {
    EXPECT_EQ(Degree(45.0), Degree(45.0));
    EXPECT_NE(Degree(45.0), Degree(45.000000001));
    EXPECT_LT(Degree(1.0), Degree(2.0));
    EXPECT_GE(Degree(2.0), Degree(2.0));
    const Degree nan(std::numeric_limits<double>::quiet_NaN());
    EXPECT_NE(nan, nan);
}

} // namespace
