#include "Data/ConstantPositionProperty.h"

#include "Data/CallbackPositionProperty.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using keo::ConstantPositionProperty;
using keo::ReferenceFrame;
using keo::TimePoint;
using keo::Vector3;

const Vector3<double> POINT{6378137.0, 10.0, -20.0};

TEST(ConstantPositionPropertyTest, GivesTheSameValueAtEveryTime) {
    const ConstantPositionProperty p(POINT);
    EXPECT_EQ(p.getValue(TimePoint()), POINT);
    EXPECT_EQ(p.getValue(TimePoint::fromSeconds(-1e9)), POINT);
    EXPECT_EQ(p.getValue(TimePoint::fromSeconds(std::numeric_limits<double>::quiet_NaN())), POINT);
    EXPECT_TRUE(p.isConstant());
    EXPECT_EQ(p.getReferenceFrame(), ReferenceFrame::Fixed);
}

TEST(ConstantPositionPropertyTest, FrameNumbersZeroAndOneNameFixedAndInertial) {
    EXPECT_EQ(ConstantPositionProperty(POINT, 0).getReferenceFrame(), ReferenceFrame::Fixed);
    EXPECT_EQ(ConstantPositionProperty(POINT, 1).getReferenceFrame(), ReferenceFrame::Inertial);
    EXPECT_EQ(ConstantPositionProperty(POINT, ReferenceFrame::Inertial).getReferenceFrame(),
              ReferenceFrame::Inertial);
}

TEST(ConstantPositionPropertyTest, OtherFrameNumbersAreReadAsFixed) {
    EXPECT_EQ(ConstantPositionProperty(POINT, 7).getReferenceFrame(), ReferenceFrame::Fixed);
    EXPECT_EQ(ConstantPositionProperty(POINT, -1).getReferenceFrame(), ReferenceFrame::Fixed);
}

TEST(ConstantPositionPropertyTest, DefaultAndNonFiniteValuesGiveNoPosition) {
    EXPECT_FALSE(ConstantPositionProperty().getValue(TimePoint()).has_value());
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_FALSE(ConstantPositionProperty({nan, 0.0, 0.0}).getValue(TimePoint()).has_value());
    EXPECT_FALSE(
        ConstantPositionProperty({0.0, infinity, 0.0}, 0).getValue(TimePoint()).has_value());
}

TEST(ConstantPositionPropertyTest, EqualsComparesKindFrameAndValue) {
    const ConstantPositionProperty p(POINT, 0);
    EXPECT_TRUE(p.equals(ConstantPositionProperty(POINT, ReferenceFrame::Fixed)));
    EXPECT_FALSE(p.equals(ConstantPositionProperty(POINT, 1)));
    EXPECT_FALSE(p.equals(ConstantPositionProperty({0.0, 0.0, 1.0})));
    EXPECT_FALSE(p.equals(ConstantPositionProperty()));
    EXPECT_TRUE(ConstantPositionProperty().equals(ConstantPositionProperty()));
    const keo::CallbackPositionProperty callback(
        [](const TimePoint&) { return std::optional<Vector3<double>>(POINT); }, true);
    EXPECT_FALSE(p.equals(callback));
}

} // namespace
