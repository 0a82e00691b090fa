#include "Data/TimePoint.h"

#include <gtest/gtest.h>

namespace {

using keo::TimePoint;

TEST(TimePointTest, DefaultIsTheEpoch) {
    EXPECT_EQ(TimePoint().seconds(), 0.0);
}

TEST(TimePointTest, ArithmeticInSeconds) {
    const TimePoint t = TimePoint::fromSeconds(10.0);
    EXPECT_EQ((t + 2.5).seconds(), 12.5);
    EXPECT_EQ((t - 4.0).seconds(), 6.0);
    EXPECT_EQ((t + 2.5) - t, 2.5);
    EXPECT_EQ(TimePoint::fromSeconds(-1.0).seconds(), -1.0);
}

TEST(TimePointTest, ComparisonsFollowTheSeconds) {
    const TimePoint a = TimePoint::fromSeconds(1.0);
    const TimePoint b = TimePoint::fromSeconds(2.0);
    EXPECT_LT(a, b);
    EXPECT_LE(a, a);
    EXPECT_GT(b, a);
    EXPECT_GE(b, b);
    EXPECT_EQ(a, TimePoint::fromSeconds(1.0));
    EXPECT_NE(a, b);
}

} // namespace
