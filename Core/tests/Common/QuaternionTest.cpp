#include "Common/Quaternion.h"
#include "Common/Math.h"
#include "Common/Matrix3.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using keo::HeadingPitchRoll;
using keo::Matrix3;
using keo::Quaternion;
using keo::Radian;
using V = keo::Vector3<double>;

TEST(QuaternionTest, DefaultIsIdentity) {
    EXPECT_EQ(Quaternion(), Quaternion(0, 0, 0, 1));
    EXPECT_EQ(Quaternion().rotate(V(1, 2, 3)), V(1, 2, 3));
}

TEST(QuaternionTest, AxisAngleRotatesCounterClockwise) {
    const Quaternion q = Quaternion::fromAxisAngle(V(0, 0, 2), Radian(keo::Math::PI_OVER_TWO));
    const V r = q.rotate(V(1, 0, 0));
    EXPECT_NEAR(r.x, 0.0, 1e-15);
    EXPECT_NEAR(r.y, 1.0, 1e-15);
    EXPECT_NEAR(q.magnitude(), 1.0, 1e-15);
    EXPECT_EQ(Quaternion::fromAxisAngle(V(), Radian(1.0)), Quaternion::identity());
}

TEST(QuaternionTest, RotationMatrixRoundTripForEveryBranch) {
    std::mt19937_64 random(11);
    std::uniform_real_distribution<double> angle(-keo::Math::PI, keo::Math::PI);
    for (int i = 0; i < 500; ++i) {
        const HeadingPitchRoll hpr(Radian(angle(random)), Radian(angle(random)),
                                   Radian(angle(random)));
        const Matrix3 m = Matrix3::fromHeadingPitchRoll(hpr);
        const Quaternion q = Quaternion::fromRotationMatrix(m);
        EXPECT_TRUE(Matrix3::fromQuaternion(q).equalsEpsilon(m, 1e-13));
        EXPECT_TRUE(q.equalsRotationEpsilon(Quaternion::fromHeadingPitchRoll(hpr), 1e-13));
    }
    // Half turns about each axis exercise the branches without a positive trace.
    for (const V axis : {V(1, 0, 0), V(0, 1, 0), V(0, 0, 1)}) {
        const Quaternion half = Quaternion::fromAxisAngle(axis, Radian(keo::Math::PI));
        const Quaternion back = Quaternion::fromRotationMatrix(Matrix3::fromQuaternion(half));
        EXPECT_TRUE(back.equalsRotationEpsilon(half, 1e-15));
    }
}

TEST(QuaternionTest, ProductComposesRotations) {
    const Quaternion a = Quaternion::fromAxisAngle(V(0, 0, 1), Radian(0.3));
    const Quaternion b = Quaternion::fromAxisAngle(V(1, 0, 0), Radian(-1.1));
    const V v(0.2, -0.7, 1.9);
    const V composed = (a * b).rotate(v);
    const V sequential = a.rotate(b.rotate(v));
    EXPECT_NEAR(composed.x, sequential.x, 1e-14);
    EXPECT_NEAR(composed.y, sequential.y, 1e-14);
    EXPECT_NEAR(composed.z, sequential.z, 1e-14);
    const Quaternion identity = a * a.conjugate();
    EXPECT_TRUE(identity.equalsRotationEpsilon(Quaternion::identity(), 1e-15));
}

TEST(QuaternionTest, NormalizeOfZeroIsIdentity) {
    EXPECT_EQ(Quaternion(0, 0, 0, 0).normalize(), Quaternion::identity());
    EXPECT_EQ(Quaternion(0, 0, 0, 2).normalize(), Quaternion::identity());
}

} // namespace
