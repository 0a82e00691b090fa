#include "Common/Matrix3.h"
#include "Common/HeadingPitchRoll.h"
#include "Common/Math.h"
#include "Common/Quaternion.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using keo::HeadingPitchRoll;
using keo::Matrix3;
using keo::Radian;
using V = keo::Vector3<double>;

void expectNear(const V& a, const V& b, double tolerance) {
    EXPECT_NEAR(a.x, b.x, tolerance);
    EXPECT_NEAR(a.y, b.y, tolerance);
    EXPECT_NEAR(a.z, b.z, tolerance);
}

TEST(Matrix3Test, ConstructorTakesValuesRowByRow) {
    const Matrix3 m(1, 2, 3, 4, 5, 6, 7, 8, 9);
    EXPECT_EQ(m(0, 2), 3.0);
    EXPECT_EQ(m(2, 0), 7.0);
    EXPECT_EQ(m.getColumn(1), V(2, 5, 8));
    EXPECT_EQ(Matrix3::fromColumns(V(1, 4, 7), V(2, 5, 8), V(3, 6, 9)), m);
}

TEST(Matrix3Test, ProductTransposeAndVectorProduct) {
    const Matrix3 a(1, 2, 3, 4, 5, 6, 7, 8, 10);
    const Matrix3 b(2, 0, 1, 1, 3, 0, 0, 1, 4);
    EXPECT_EQ(a * b, Matrix3(4, 9, 13, 13, 21, 28, 22, 34, 47));
    EXPECT_EQ(a.transpose(), Matrix3(1, 4, 7, 2, 5, 8, 3, 6, 10));
    EXPECT_EQ(a * V(1, 1, 1), V(6, 15, 25));
    EXPECT_EQ(Matrix3::identity() * a, a);
    EXPECT_DOUBLE_EQ(a.determinant(), -3.0);
}

TEST(Matrix3Test, HeadingRotatesAboutNegativeZ) {
    const Matrix3 m = Matrix3::fromHeadingPitchRoll(
        HeadingPitchRoll(Radian(keo::Math::PI_OVER_TWO), Radian(0.0), Radian(0.0)));
    expectNear(m * V(1, 0, 0), V(0, -1, 0), 1e-15);
}

TEST(Matrix3Test, PitchRotatesAboutNegativeY) {
    const Matrix3 m = Matrix3::fromHeadingPitchRoll(
        HeadingPitchRoll(Radian(0.0), Radian(keo::Math::PI_OVER_TWO), Radian(0.0)));
    expectNear(m * V(1, 0, 0), V(0, 0, 1), 1e-15);
}

TEST(Matrix3Test, RollRotatesAboutX) {
    const Matrix3 m = Matrix3::fromHeadingPitchRoll(
        HeadingPitchRoll(Radian(0.0), Radian(0.0), Radian(keo::Math::PI_OVER_TWO)));
    expectNear(m * V(0, 1, 0), V(0, 0, 1), 1e-15);
}

TEST(Matrix3Test, HeadingPitchRollIsTheProductOfTheThreeAxisRotations) {
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> angle(-keo::Math::PI, keo::Math::PI);
    for (int i = 0; i < 200; ++i) {
        const HeadingPitchRoll hpr(Radian(angle(random)), Radian(angle(random)),
                                   Radian(angle(random)));
        const Matrix3 expected = Matrix3::fromRotationZ(-hpr.heading) *
                                 Matrix3::fromRotationY(-hpr.pitch) *
                                 Matrix3::fromRotationX(hpr.roll);
        const Matrix3 m = Matrix3::fromHeadingPitchRoll(hpr);
        EXPECT_TRUE(m.equalsEpsilon(expected, 1e-14));
        EXPECT_TRUE((m * m.transpose()).equalsEpsilon(Matrix3::identity(), 1e-14));
        EXPECT_NEAR(m.determinant(), 1.0, 1e-14);
    }
}

TEST(Matrix3Test, FromQuaternionAgreesWithHeadingPitchRoll) {
    const HeadingPitchRoll hpr(Radian(0.4), Radian(-0.3), Radian(1.2));
    EXPECT_TRUE(Matrix3::fromQuaternion(keo::Quaternion::fromHeadingPitchRoll(hpr))
                    .equalsEpsilon(Matrix3::fromHeadingPitchRoll(hpr), 1e-14));
}

TEST(Matrix3Test, EqualsEpsilonRejectsNan) {
    Matrix3 m = Matrix3::identity();
    EXPECT_TRUE(m.equalsEpsilon(m, 0.0));
    const Matrix3 n(std::nan(""), 0, 0, 0, 1, 0, 0, 0, 1);
    EXPECT_FALSE(n.equalsEpsilon(m, 1.0));
    EXPECT_FALSE(n.equalsEpsilon(n, 1.0));
}

TEST(HeadingPitchRollTest, MembersAreDeclaredHeadingPitchRoll) {
    const HeadingPitchRoll hpr(Radian(1.0), Radian(2.0), Radian(3.0));
    EXPECT_EQ(hpr.heading, Radian(1.0));
    EXPECT_EQ(hpr.pitch, Radian(2.0));
    EXPECT_EQ(hpr.roll, Radian(3.0));
    const HeadingPitchRoll aggregate{Radian(1.0), Radian(0.0), Radian(2.0)};
    EXPECT_EQ(aggregate.roll, Radian(2.0));
    EXPECT_EQ(HeadingPitchRoll(), HeadingPitchRoll(Radian(0), Radian(0), Radian(0)));
    EXPECT_NE(hpr, aggregate);
}

} // namespace
