#include "Data/CallbackPositionProperty.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using keo::CallbackPositionProperty;
using keo::ReferenceFrame;
using keo::TimePoint;
using keo::Vector3;

// A point moving along x at 2 m/s from the origin.
std::optional<Vector3<double>> alongX(const TimePoint& time) {
    return Vector3<double>{2.0 * time.seconds(), 0.0, 0.0};
}

TEST(CallbackPositionPropertyTest, GivesTheCallbacksValueAtEachTime) {
    const CallbackPositionProperty p(alongX);
    EXPECT_EQ(p.getValue(TimePoint::fromSeconds(0.0)), (Vector3<double>{0.0, 0.0, 0.0}));
    EXPECT_EQ(p.getValue(TimePoint::fromSeconds(3.5)), (Vector3<double>{7.0, 0.0, 0.0}));
    EXPECT_EQ(p.getReferenceFrame(), ReferenceFrame::Fixed);
}

TEST(CallbackPositionPropertyTest, IsNotConstantUnlessTheCallerSaysSo) {
    EXPECT_FALSE(CallbackPositionProperty(alongX).isConstant());
    EXPECT_TRUE(CallbackPositionProperty(alongX, true).isConstant());
    EXPECT_EQ(CallbackPositionProperty(alongX, false, ReferenceFrame::Inertial).getReferenceFrame(),
              ReferenceFrame::Inertial);
}

TEST(CallbackPositionPropertyTest, EmptyCallbackOrEmptyResultGivesNoPosition) {
    EXPECT_FALSE(CallbackPositionProperty(nullptr).getValue(TimePoint()).has_value());
    const CallbackPositionProperty nothing([](const TimePoint&) { return std::nullopt; });
    EXPECT_FALSE(nothing.getValue(TimePoint()).has_value());
}

TEST(CallbackPositionPropertyTest, NonFiniteResultGivesNoPosition) {
    const CallbackPositionProperty p(alongX);
    EXPECT_FALSE(
        p.getValue(TimePoint::fromSeconds(std::numeric_limits<double>::quiet_NaN())).has_value());
    EXPECT_FALSE(
        p.getValue(TimePoint::fromSeconds(std::numeric_limits<double>::infinity())).has_value());
}

TEST(CallbackPositionPropertyTest, EqualsOnlyItself) {
    const CallbackPositionProperty p(alongX);
    const CallbackPositionProperty sameFunction(alongX);
    EXPECT_TRUE(p.equals(p));
    EXPECT_FALSE(p.equals(sameFunction));
}

} // namespace
