#include "Common/Matrix4.h"
#include "Common/Math.h"

#include <gtest/gtest.h>

namespace {

using keo::Matrix3;
using keo::Matrix4;
using keo::Radian;
using V = keo::Vector3<double>;

TEST(Matrix4Test, FromMatrix3PutsRotationUpperLeftAndOneInTheCorner) {
    const Matrix3 r(1, 2, 3, 4, 5, 6, 7, 8, 9);
    const Matrix4 m(r);
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            EXPECT_EQ(m(row, column), r(row, column));
        }
        EXPECT_EQ(m(row, 3), 0.0);
        EXPECT_EQ(m(3, row), 0.0);
    }
    EXPECT_EQ(m(3, 3), 1.0);
    EXPECT_EQ(m.getRotation(), r);
    EXPECT_EQ(m.getTranslation(), V());
}

TEST(Matrix4Test, TranslationIsTheFourthColumn) {
    const Matrix4 m(Matrix3::identity(), V(10, 20, 30));
    EXPECT_EQ(m(0, 3), 10.0);
    EXPECT_EQ(m(2, 3), 30.0);
    EXPECT_EQ(m.multiplyByPoint(V(1, 2, 3)), V(11, 22, 33));
    EXPECT_EQ(m.getTranslation(), V(10, 20, 30));
}

TEST(Matrix4Test, ProductAppliesTheRightOperandFirst) {
    const Matrix4 rotate(Matrix3::fromRotationZ(Radian(keo::Math::PI_OVER_TWO)));
    const Matrix4 translate(Matrix3::identity(), V(1, 0, 0));
    const V p = (rotate * translate).multiplyByPoint(V(0, 0, 0));
    EXPECT_NEAR(p.x, 0.0, 1e-15);
    EXPECT_NEAR(p.y, 1.0, 1e-15);
    EXPECT_EQ(Matrix4::identity() * translate, translate);
    EXPECT_EQ(translate * Matrix4::identity(), translate);
}

TEST(Matrix4Test, VectorProductUsesW) {
    const Matrix4 m(Matrix3::identity(), V(5, 5, 5));
    EXPECT_EQ(m * keo::Vector4<double>(1, 2, 3, 0), keo::Vector4<double>(1, 2, 3, 0));
    EXPECT_EQ(m * keo::Vector4<double>(1, 2, 3, 1), keo::Vector4<double>(6, 7, 8, 1));
}

TEST(Matrix4Test, FromColumnMajorKeepsTheOrder) {
    std::array<double, 16> values{};
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] = static_cast<double>(i);
    }
    const Matrix4 m = Matrix4::fromColumnMajor(values);
    EXPECT_EQ(m(1, 0), 1.0);
    EXPECT_EQ(m(0, 1), 4.0);
    EXPECT_EQ(m.values(), values);
}

} // namespace
