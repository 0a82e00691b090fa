#include "Data/ConstantPositionArrayProperty.h"

#include "Data/PathPositionArrayProperty.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace {

using keo::ConstantPositionArrayProperty;
using keo::TimePoint;
using keo::Vector3;

const std::vector<Vector3<double>> POINTS{{0.0, 0.0, 0.0}, {1.0, 2.0, 3.0}, {4.0, 5.0, 6.0}};

TEST(ConstantPositionArrayPropertyTest, GivesThePointsInOrderAtEveryTime) {
    const ConstantPositionArrayProperty p(POINTS);
    EXPECT_EQ(p.getValues(TimePoint()), POINTS);
    EXPECT_EQ(p.getValues(TimePoint::fromSeconds(1e6)), POINTS);
    EXPECT_EQ(p.getPoints(), POINTS);
    EXPECT_TRUE(p.isConstant());
}

TEST(ConstantPositionArrayPropertyTest, DefaultHasNoPoints) {
    EXPECT_TRUE(ConstantPositionArrayProperty().getValues(TimePoint()).empty());
}

TEST(ConstantPositionArrayPropertyTest, NonFinitePointsAreDropped) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const ConstantPositionArrayProperty p({{1.0, 1.0, 1.0},
                                           {nan, 0.0, 0.0},
                                           {0.0, std::numeric_limits<double>::infinity(), 0.0},
                                           {2.0, 2.0, 2.0}});
    EXPECT_EQ(p.getPoints(), (std::vector<Vector3<double>>{{1.0, 1.0, 1.0}, {2.0, 2.0, 2.0}}));
}

TEST(ConstantPositionArrayPropertyTest, EqualsComparesKindAndPoints) {
    const ConstantPositionArrayProperty p(POINTS);
    EXPECT_TRUE(p.equals(ConstantPositionArrayProperty(POINTS)));
    EXPECT_FALSE(p.equals(ConstantPositionArrayProperty({POINTS[0], POINTS[1]})));
    EXPECT_FALSE(p.equals(keo::PathPositionArrayProperty(POINTS)));
}

} // namespace
