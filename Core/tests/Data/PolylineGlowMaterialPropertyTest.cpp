#include "Data/PolylineGlowMaterialProperty.h"

#include "Data/FieldList.h"

#include <gtest/gtest.h>

namespace {

using keo::Color;
using keo::FieldList;
using keo::PolylineGlowMaterialProperty;

TEST(PolylineGlowMaterialPropertyTest, DefaultsAreAWhiteGlowOfAQuarterWithoutTaper) {
    const PolylineGlowMaterialProperty p;
    EXPECT_EQ(p.getType(), PolylineGlowMaterialProperty::TYPE);
    EXPECT_EQ(p.getColor(), Color::WHITE);
    EXPECT_EQ(p.getGlowPower(), 0.25f);
    EXPECT_EQ(p.getTaperPower(), 1.0f);
}

TEST(PolylineGlowMaterialPropertyTest, OptionsAndSettersAreReadBack) {
    PolylineGlowMaterialProperty p({Color::GREEN, 0.5f, 0.75f});
    EXPECT_EQ(p.getColor(), Color::GREEN);
    EXPECT_EQ(p.getGlowPower(), 0.5f);
    EXPECT_EQ(p.getTaperPower(), 0.75f);
    p.setGlowPower(2.0f); // outside [0, 1]: stored as given, a renderer clamps it
    p.setTaperPower(-1.0f);
    EXPECT_EQ(p.getGlowPower(), 2.0f);
    EXPECT_EQ(p.getTaperPower(), -1.0f);
}

TEST(PolylineGlowMaterialPropertyTest, DescribeAddsGlowAndTaperPower) {
    FieldList fields;
    PolylineGlowMaterialProperty({Color::GREEN, 0.5f, 0.75f}).describe(fields);
    ASSERT_EQ(fields.entries().size(), 5u);
    EXPECT_EQ(fields.entries()[3], (FieldList::Entry{"glowPower", "0.5"}));
    EXPECT_EQ(fields.entries()[4], (FieldList::Entry{"taperPower", "0.75"}));
}

} // namespace
