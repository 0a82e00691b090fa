#include "Data/PolylineDashMaterialProperty.h"

#include "Data/FieldList.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using keo::Color;
using keo::FieldList;
using keo::PolylineDashMaterialProperty;

TEST(PolylineDashMaterialPropertyTest, DefaultsAreWhiteDashesOfSixteenPixelsWithClearGaps) {
    const PolylineDashMaterialProperty p;
    EXPECT_EQ(p.getType(), PolylineDashMaterialProperty::TYPE);
    EXPECT_EQ(p.getColor(), Color::WHITE);
    EXPECT_EQ(p.getGapColor(), Color::TRANSPARENT);
    EXPECT_EQ(p.getDashLength(), 16.0f);
    EXPECT_EQ(p.getDashPattern(), 255);
}

TEST(PolylineDashMaterialPropertyTest, OptionsAreReadBackInOrder) {
    PolylineDashMaterialProperty::ConstructorOptions options{Color::RED, Color::BLUE, 8.0f, 0x0F0F};
    const PolylineDashMaterialProperty p(options);
    EXPECT_EQ(p.getColor(), Color::RED);
    EXPECT_EQ(p.getGapColor(), Color::BLUE);
    EXPECT_EQ(p.getDashLength(), 8.0f);
    EXPECT_EQ(p.getDashPattern(), 0x0F0F);
}

TEST(PolylineDashMaterialPropertyTest, SettersAreReadBack) {
    PolylineDashMaterialProperty p;
    p.setGapColor(Color::BLACK);
    p.setDashLength(32.0f);
    p.setDashPattern(0xFFFF);
    EXPECT_EQ(p.getGapColor(), Color::BLACK);
    EXPECT_EQ(p.getDashLength(), 32.0f);
    EXPECT_EQ(p.getDashPattern(), 0xFFFF);
}

TEST(PolylineDashMaterialPropertyTest, NaNDashLengthIsStoredAndDescribedAsNaN) {
    PolylineDashMaterialProperty p;
    p.setDashLength(std::numeric_limits<float>::quiet_NaN());
    EXPECT_TRUE(std::isnan(p.getDashLength()));
    FieldList fields;
    p.describe(fields);
    EXPECT_EQ(fields.entries().at(4), (FieldList::Entry{"dashLength", "\"NaN\""}));
}

TEST(PolylineDashMaterialPropertyTest, DescribeWritesEveryFieldNamedAsItsSetter) {
    PolylineDashMaterialProperty p({Color::RED, Color(0.0f, 0.0f, 1.0f, 0.5f), 8.5f, 0x0F0F});
    p.setEnableBreathing(true);
    p.setBreathingRate(30.0f);
    FieldList fields;
    p.describe(fields);
    EXPECT_EQ(fields.entries(), (std::vector<FieldList::Entry>{{"color", "\"#ff0000\""},
                                                               {"enableBreathing", "true"},
                                                               {"breathingRate", "30"},
                                                               {"gapColor", "\"#0000ff80\""},
                                                               {"dashLength", "8.5"},
                                                               {"dashPattern", "3855"}}));
}

} // namespace
