#include "Common/Vector3.h"
#include "Common/Radian.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using V = keo::Vector3<double>;

TEST(Vector3Test, DefaultIsZero) {
    EXPECT_EQ(V(), V(0.0, 0.0, 0.0));
}

TEST(Vector3Test, EqualityIsExactComponentWise) {
    EXPECT_EQ(V(1.0, 2.0, 3.0), V(1.0, 2.0, 3.0));
    EXPECT_NE(V(1.0, 2.0, 3.0), V(1.0, 2.0, std::nextafter(3.0, 4.0)));
    EXPECT_NE(V(1.0, 2.0, 3.0), V(1.0, 2.5, 3.0));
    const V nan(std::numeric_limits<double>::quiet_NaN(), 0.0, 0.0);
    EXPECT_FALSE(nan == nan);
}

TEST(Vector3Test, ArithmeticIsComponentWise) {
    const V a(1.0, 2.0, 3.0);
    const V b(4.0, -5.0, 6.0);
    EXPECT_EQ(a + b, V(5.0, -3.0, 9.0));
    EXPECT_EQ(a - b, V(-3.0, 7.0, -3.0));
    EXPECT_EQ(-a, V(-1.0, -2.0, -3.0));
    EXPECT_EQ(a * 2.0, V(2.0, 4.0, 6.0));
    EXPECT_EQ(2.0 * a, V(2.0, 4.0, 6.0));
    EXPECT_EQ(b / 2.0, V(2.0, -2.5, 3.0));
    EXPECT_EQ(a.multiplyComponents(b), V(4.0, -10.0, 18.0));
    V c = a;
    c += b;
    c -= a;
    c *= 2.0;
    c /= 4.0;
    EXPECT_EQ(c, V(2.0, -2.5, 3.0));
}

TEST(Vector3Test, DotAndCrossFollowTheRightHandRule) {
    const V x(1.0, 0.0, 0.0);
    const V y(0.0, 1.0, 0.0);
    const V z(0.0, 0.0, 1.0);
    EXPECT_EQ(x.cross(y), z);
    EXPECT_EQ(y.cross(z), x);
    EXPECT_EQ(z.cross(x), y);
    EXPECT_EQ(y.cross(x), -z);
    EXPECT_EQ(V(1.0, 2.0, 3.0).dot(V(4.0, 5.0, 6.0)), 32.0);
    const V a(2.0, -3.0, 0.5);
    const V b(-1.0, 4.0, 7.0);
    EXPECT_NEAR(a.cross(b).dot(a), 0.0, 1e-12);
    EXPECT_NEAR(a.cross(b).dot(b), 0.0, 1e-12);
}

TEST(Vector3Test, MagnitudeAndDistance) {
    EXPECT_EQ(V(2.0, 3.0, 6.0).magnitude(), 7.0);
    EXPECT_EQ(V(2.0, 3.0, 6.0).magnitudeSquared(), 49.0);
    EXPECT_EQ(V(1.0, 1.0, 1.0).distance(V(3.0, 4.0, 7.0)), 7.0);
    EXPECT_EQ(V(1.0, 1.0, 1.0).distanceSquared(V(3.0, 4.0, 7.0)), 49.0);
}

TEST(Vector3Test, NormalizeGivesUnitLengthAndKeepsZero) {
    const V n = V(3.0, 0.0, 4.0).normalize();
    EXPECT_DOUBLE_EQ(n.x, 0.6);
    EXPECT_DOUBLE_EQ(n.z, 0.8);
    EXPECT_DOUBLE_EQ(n.magnitude(), 1.0);
    EXPECT_EQ(V().normalize(), V());
    EXPECT_TRUE(std::isnan(V(std::nan(""), 1.0, 0.0).normalize().x));
}

TEST(Vector3Test, HoldsFloatsAndAngles) {
    const keo::Vector3<float> f(1.0f, 2.0f, 2.0f);
    EXPECT_EQ(f.magnitude(), 3.0f);
    const keo::Vector3<keo::Radian> r;
    EXPECT_EQ(r.x, keo::Radian(0.0));
    const keo::Vector3<keo::Radian> s(keo::Radian(1.0), keo::Radian(2.0), keo::Radian(3.0));
    EXPECT_EQ((s + s).z, keo::Radian(6.0));
    EXPECT_NE(r, s);
}

} // namespace
