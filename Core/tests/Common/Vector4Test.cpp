#include "Common/Vector4.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using V = keo::Vector4<double>;

TEST(Vector4Test, DefaultIsZeroAndEqualityIsExact) {
    EXPECT_EQ(V(), V(0.0, 0.0, 0.0, 0.0));
    EXPECT_NE(V(1.0, 2.0, 3.0, 4.0), V(1.0, 2.0, 3.0, 4.5));
    const V nan(0.0, 0.0, 0.0, std::numeric_limits<double>::quiet_NaN());
    EXPECT_FALSE(nan == nan);
}

TEST(Vector4Test, ArithmeticIsComponentWise) {
    const V a(1.0, 2.0, 3.0, 4.0);
    const V b(4.0, 3.0, 2.0, 1.0);
    EXPECT_EQ(a + b, V(5.0, 5.0, 5.0, 5.0));
    EXPECT_EQ(a - b, V(-3.0, -1.0, 1.0, 3.0));
    EXPECT_EQ(-a, V(-1.0, -2.0, -3.0, -4.0));
    EXPECT_EQ(a * 2.0, V(2.0, 4.0, 6.0, 8.0));
    EXPECT_EQ(2.0 * a, V(2.0, 4.0, 6.0, 8.0));
    EXPECT_EQ(a / 2.0, V(0.5, 1.0, 1.5, 2.0));
}

TEST(Vector4Test, DotMagnitudeDistanceNormalize) {
    EXPECT_EQ(V(1.0, 2.0, 3.0, 4.0).dot(V(1.0, 1.0, 1.0, 1.0)), 10.0);
    EXPECT_EQ(V(1.0, 1.0, 1.0, 1.0).magnitude(), 2.0);
    EXPECT_EQ(V(0.0, 0.0, 0.0, 0.0).distance(V(1.0, 1.0, 1.0, 1.0)), 2.0);
    EXPECT_EQ(V(0.0, 0.0, 0.0, 5.0).normalize(), V(0.0, 0.0, 0.0, 1.0));
    EXPECT_EQ(V().normalize(), V());
}

TEST(Vector4Test, FloatPaddingValues) {
    const keo::Vector4<float> padding(7.0f, 5.0f, 7.0f, 5.0f);
    EXPECT_EQ(padding, keo::Vector4<float>(7.0f, 5.0f, 7.0f, 5.0f));
    EXPECT_EQ(padding.x + padding.z, 14.0f);
}

} // namespace
