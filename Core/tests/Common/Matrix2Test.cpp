#include "Common/Matrix2.h"
#include "Common/Math.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using keo::Matrix2;
using keo::Radian;
using V = keo::Vector2<double>;

TEST(Matrix2Test, ConstructorTakesValuesRowByRow) {
    const Matrix2 m(1.0, 2.0, 3.0, 4.0);
    EXPECT_EQ(m(0, 0), 1.0);
    EXPECT_EQ(m(0, 1), 2.0);
    EXPECT_EQ(m(1, 0), 3.0);
    EXPECT_EQ(m(1, 1), 4.0);
    EXPECT_EQ(m.values()[1], 3.0); // column-major storage
    EXPECT_EQ(Matrix2(0, 0, 0, 0), Matrix2());
}

TEST(Matrix2Test, FromRotationTurnsCounterClockwise) {
    const Matrix2 m = Matrix2::fromRotation(Radian(keo::Math::PI_OVER_TWO));
    const V turned = m * V(1.0, 0.0);
    EXPECT_NEAR(turned.x, 0.0, 1e-15);
    EXPECT_NEAR(turned.y, 1.0, 1e-15);
    const double a = 0.3;
    EXPECT_EQ(Matrix2::fromRotation(Radian(a)),
              Matrix2(std::cos(a), -std::sin(a), std::sin(a), std::cos(a)));
    EXPECT_EQ(Matrix2::fromRotation(Radian(0.0)), Matrix2::identity());
}

TEST(Matrix2Test, NegatedRotationIsTheTranspose) {
    const Matrix2 m = Matrix2::fromRotation(Radian(0.7));
    EXPECT_EQ(Matrix2::fromRotation(Radian(-0.7)), m.transpose());
}

TEST(Matrix2Test, ProductComposesRotations) {
    const Matrix2 ab = Matrix2::fromRotation(Radian(0.2)) * Matrix2::fromRotation(Radian(0.5));
    const Matrix2 c = Matrix2::fromRotation(Radian(0.7));
    for (int r = 0; r < 2; ++r) {
        for (int k = 0; k < 2; ++k) {
            EXPECT_NEAR(ab(r, k), c(r, k), 1e-15);
        }
    }
    EXPECT_EQ(Matrix2(1, 2, 3, 4) * Matrix2(5, 6, 7, 8), Matrix2(19, 22, 43, 50));
}

} // namespace
