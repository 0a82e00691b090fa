#include "Common/Vector2.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using V = keo::Vector2<double>;

TEST(Vector2Test, DefaultIsZeroAndEqualityIsExact) {
    EXPECT_EQ(V(), V(0.0, 0.0));
    EXPECT_NE(V(1.0, 2.0), V(1.0, std::nextafter(2.0, 3.0)));
    const V nan(std::numeric_limits<double>::quiet_NaN(), 0.0);
    EXPECT_FALSE(nan == nan);
}

TEST(Vector2Test, ArithmeticIsComponentWise) {
    const V a(1.0, 2.0);
    const V b(3.0, -4.0);
    EXPECT_EQ(a + b, V(4.0, -2.0));
    EXPECT_EQ(a - b, V(-2.0, 6.0));
    EXPECT_EQ(-a, V(-1.0, -2.0));
    EXPECT_EQ(a * 3.0, V(3.0, 6.0));
    EXPECT_EQ(3.0 * a, V(3.0, 6.0));
    EXPECT_EQ(b / 2.0, V(1.5, -2.0));
    V c = a;
    c += b;
    c -= a;
    c *= 2.0;
    c /= 2.0;
    EXPECT_EQ(c, b);
}

TEST(Vector2Test, DotCrossMagnitudeDistanceNormalize) {
    EXPECT_EQ(V(1.0, 2.0).dot(V(3.0, 4.0)), 11.0);
    EXPECT_EQ(V(1.0, 0.0).cross(V(0.0, 1.0)), 1.0);
    EXPECT_EQ(V(3.0, 4.0).magnitude(), 5.0);
    EXPECT_EQ(V(1.0, 1.0).distance(V(4.0, 5.0)), 5.0);
    EXPECT_EQ(V(0.0, 2.0).normalize(), V(0.0, 1.0));
    EXPECT_EQ(V().normalize(), V());
}

TEST(Vector2Test, FloatVectorsCompareExactly) {
    const keo::Vector2<float> a(1.0f, 1.0f);
    EXPECT_EQ(a, keo::Vector2<float>(1.0f, 1.0f));
    EXPECT_NE(a, keo::Vector2<float>(1.0f, 1.0000001f));
}

} // namespace
