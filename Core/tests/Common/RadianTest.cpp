#include "Common/Radian.h"
#include "Common/Math.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <type_traits>

namespace {

using keo::Degree;
using keo::Radian;

TEST(RadianTest, DefaultIsZero) {
    EXPECT_EQ(Radian().value(), 0.0);
}

TEST(RadianTest, IsNotImplicitlyConvertibleFromDoubleOrDegree) {
    EXPECT_FALSE((std::is_convertible_v<double, Radian>));
    EXPECT_FALSE((std::is_convertible_v<Degree, Radian>));
    EXPECT_TRUE((std::is_constructible_v<Radian, Degree>));
}

TEST(RadianTest, ConvertsFromDegreesExplicitly) {
    EXPECT_DOUBLE_EQ(Radian(Degree(180.0)).value(), keo::Math::PI);
    EXPECT_DOUBLE_EQ(Radian(Degree(-90.0)).value(), -keo::Math::PI_OVER_TWO);
    EXPECT_EQ(Radian(Degree(0.0)).value(), 0.0);
}

TEST(RadianTest, ArithmeticFollowsTheValues) {
    const Radian a(1.5);
    const Radian b(0.25);
    EXPECT_EQ((a + b).value(), 1.75);
    EXPECT_EQ((a - b).value(), 1.25);
    EXPECT_EQ((-a).value(), -1.5);
    EXPECT_EQ((a * 2.0).value(), 3.0);
    EXPECT_EQ((2.0 * a).value(), 3.0);
    EXPECT_EQ((a / 2.0).value(), 0.75);
    EXPECT_EQ(a / b, 6.0);
    Radian c(1.0);
    c += b;
    c -= Radian(0.5);
    c *= 4.0;
    c /= 2.0;
    EXPECT_EQ(c.value(), 1.5);
}

TEST(RadianTest, ComparisonIsExactAndNanEqualsNothing) {
    EXPECT_EQ(Radian(0.5), Radian(0.5));
    EXPECT_NE(Radian(0.5), Radian(std::nextafter(0.5, 1.0)));
    EXPECT_LT(Radian(0.1), Radian(0.2));
    EXPECT_LE(Radian(0.2), Radian(0.2));
    EXPECT_GT(Radian(0.3), Radian(0.2));
    EXPECT_GE(Radian(0.3), Radian(0.3));
    const Radian nan(std::numeric_limits<double>::quiet_NaN());
    EXPECT_FALSE(nan == nan);
    EXPECT_TRUE(nan != nan);
}

TEST(RadianTest, IsUsableInConstantExpressions) {
    constexpr Radian a = Radian(1.0) + Radian(2.0);
    static_assert(a.value() == 3.0);
    EXPECT_EQ(a.value(), 3.0);
}

} // namespace
