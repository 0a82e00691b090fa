#include "Data/CircleWaveMaterialProperty.h"

#include "Data/FieldList.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using keo::CircleWaveMaterialProperty;
using keo::Color;
using keo::FieldList;
using keo::TimePoint;

TEST(CircleWaveMaterialPropertyTest, DefaultsAreOneWhiteRingOutwardsAtSpeedTen) {
    const CircleWaveMaterialProperty p;
    EXPECT_EQ(p.getType(), CircleWaveMaterialProperty::TYPE);
    EXPECT_EQ(p.getColor(), Color::WHITE);
    EXPECT_EQ(p.getCount(), 1);
    EXPECT_EQ(p.getSpeed(), 10.0f);
    EXPECT_FALSE(p.getDuration().has_value());
    EXPECT_EQ(p.getDirection(), 1);
}

TEST(CircleWaveMaterialPropertyTest, OptionsAreReadBackInOrder) {
    const CircleWaveMaterialProperty p({Color::RED, 3, 20.0f, 5.0f, -1});
    EXPECT_EQ(p.getColor(), Color::RED);
    EXPECT_EQ(p.getCount(), 3);
    EXPECT_EQ(p.getSpeed(), 20.0f);
    EXPECT_EQ(p.getDuration(), std::optional<float>(5.0f));
    EXPECT_EQ(p.getDirection(), -1);
}

TEST(CircleWaveMaterialPropertyTest, SettersAreReadBackAndTheDurationCanBeCleared) {
    CircleWaveMaterialProperty p;
    p.setCount(4);
    p.setSpeed(2.5f);
    p.setDuration(8.0f);
    p.setDirection(0);
    EXPECT_EQ(p.getCount(), 4);
    EXPECT_EQ(p.getSpeed(), 2.5f);
    EXPECT_EQ(p.getDuration(), std::optional<float>(8.0f));
    EXPECT_EQ(p.getDirection(), 0);
    p.setDuration(std::nullopt);
    EXPECT_FALSE(p.getDuration().has_value());
}

TEST(CircleWaveMaterialPropertyTest, PeriodComesFromTheDurationElseFromTheSpeed) {
    CircleWaveMaterialProperty p; // speed 10: 100 / 10 = 10 s
    EXPECT_EQ(p.getPeriod(), std::optional<double>(10.0));
    p.setDuration(4.0f);
    EXPECT_EQ(p.getPeriod(), std::optional<double>(4.0));
    p.setDuration(0.0f); // not usable: back to the speed
    EXPECT_EQ(p.getPeriod(), std::optional<double>(10.0));
    p.setSpeed(-1.0f);
    EXPECT_FALSE(p.getPeriod().has_value());
    p.setSpeed(std::numeric_limits<float>::quiet_NaN());
    EXPECT_FALSE(p.getPeriod().has_value());
}

TEST(CircleWaveMaterialPropertyTest, WaveProgressRunsOutwardsOrInwardsOncePerPeriod) {
    CircleWaveMaterialProperty p;
    p.setDuration(4.0f);
    EXPECT_DOUBLE_EQ(p.getWaveProgress(TimePoint::fromSeconds(1.0)), 0.25);
    EXPECT_DOUBLE_EQ(p.getWaveProgress(TimePoint::fromSeconds(9.0)), 0.25); // 2 periods later
    p.setDirection(-1);
    EXPECT_DOUBLE_EQ(p.getWaveProgress(TimePoint::fromSeconds(1.0)), 0.75);
    EXPECT_DOUBLE_EQ(p.getWaveProgress(TimePoint::fromSeconds(0.0)), 0.0);
}

TEST(CircleWaveMaterialPropertyTest, WaveStandsStillWithoutAPeriodOrAFiniteTime) {
    CircleWaveMaterialProperty p;
    p.setSpeed(0.0f);
    EXPECT_EQ(p.getWaveProgress(TimePoint::fromSeconds(3.0)), 0.0);
    p.setSpeed(10.0f);
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(p.getWaveProgress(TimePoint::fromSeconds(infinity)), 0.0);
}

TEST(CircleWaveMaterialPropertyTest, DescribeWritesTheDurationOrNull) {
    FieldList withDuration;
    CircleWaveMaterialProperty({Color::RED, 3, 20.0f, 5.0f, 1}).describe(withDuration);
    ASSERT_EQ(withDuration.entries().size(), 7u);
    EXPECT_EQ(withDuration.entries()[3], (FieldList::Entry{"count", "3"}));
    EXPECT_EQ(withDuration.entries()[4], (FieldList::Entry{"speed", "20"}));
    EXPECT_EQ(withDuration.entries()[5], (FieldList::Entry{"duration", "5"}));
    EXPECT_EQ(withDuration.entries()[6], (FieldList::Entry{"direction", "1"}));
    FieldList withoutDuration;
    CircleWaveMaterialProperty().describe(withoutDuration);
    EXPECT_EQ(withoutDuration.entries().at(5), (FieldList::Entry{"duration", "null"}));
}

} // namespace
