#include "Data/DistanceDisplayCondition.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using keo::DistanceDisplayCondition;

constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();

TEST(DistanceDisplayConditionTest, DefaultShowsAtEveryDistance) {
    const DistanceDisplayCondition condition;
    EXPECT_EQ(condition.getNear(), 0.0f);
    EXPECT_EQ(condition.getFar(), std::numeric_limits<float>::max());
    EXPECT_TRUE(condition.isVisibleAt(0.0));
    EXPECT_TRUE(condition.isVisibleAt(1.0e30));
}

TEST(DistanceDisplayConditionTest, BoundsReadBackAsSetAndAreBothIncluded) {
    DistanceDisplayCondition condition(100.0f, 500.0f);
    EXPECT_EQ(condition.getNear(), 100.0f);
    EXPECT_EQ(condition.getFar(), 500.0f);
    EXPECT_FALSE(condition.isVisibleAt(99.9));
    EXPECT_TRUE(condition.isVisibleAt(100.0));
    EXPECT_TRUE(condition.isVisibleAt(500.0));
    EXPECT_FALSE(condition.isVisibleAt(500.1));
    condition.setNear(0.0f);
    condition.setFar(300.0f);
    EXPECT_EQ(condition, DistanceDisplayCondition(0.0f, 300.0f));
}

TEST(DistanceDisplayConditionTest, NearBeyondFarShowsAtNoDistance) {
    const DistanceDisplayCondition condition(500.0f, 100.0f);
    EXPECT_FALSE(condition.isVisibleAt(100.0));
    EXPECT_FALSE(condition.isVisibleAt(300.0));
    EXPECT_FALSE(condition.isVisibleAt(500.0));
}

TEST(DistanceDisplayConditionTest, NanBoundIsStoredAndDoesNotLimitItsSide) {
    const DistanceDisplayCondition condition(NOT_A_NUMBER, 100.0f);
    EXPECT_TRUE(std::isnan(condition.getNear()));
    EXPECT_TRUE(condition.isVisibleAt(0.0));
    EXPECT_FALSE(condition.isVisibleAt(101.0));
    EXPECT_FALSE(DistanceDisplayCondition(0.0f, 1.0f).isVisibleAt(std::nan("")));
}

TEST(DistanceDisplayConditionTest, EqualityIsExactAndNanEqualsNothing) {
    EXPECT_EQ(DistanceDisplayCondition(1.0f, 2.0f), DistanceDisplayCondition(1.0f, 2.0f));
    EXPECT_NE(DistanceDisplayCondition(1.0f, 2.0f), DistanceDisplayCondition(1.0f, 3.0f));
    const DistanceDisplayCondition withNan(NOT_A_NUMBER, 2.0f);
    EXPECT_NE(withNan, withNan);
}

} // namespace
