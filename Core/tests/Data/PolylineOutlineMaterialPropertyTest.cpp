#include "Data/PolylineOutlineMaterialProperty.h"

#include "Data/FieldList.h"

#include <gtest/gtest.h>

namespace {

using keo::Color;
using keo::FieldList;
using keo::PolylineOutlineMaterialProperty;

TEST(PolylineOutlineMaterialPropertyTest, DefaultsAreWhiteWithABlackOutlineOfOnePixel) {
    const PolylineOutlineMaterialProperty p;
    EXPECT_EQ(p.getType(), PolylineOutlineMaterialProperty::TYPE);
    EXPECT_EQ(p.getColor(), Color::WHITE);
    EXPECT_EQ(p.getOutlineColor(), Color::BLACK);
    EXPECT_EQ(p.getOutlineWidth(), 1.0f);
}

TEST(PolylineOutlineMaterialPropertyTest, OptionsAndSettersAreReadBack) {
    PolylineOutlineMaterialProperty p({Color::YELLOW, Color::RED, 3.0f});
    EXPECT_EQ(p.getColor(), Color::YELLOW);
    EXPECT_EQ(p.getOutlineColor(), Color::RED);
    EXPECT_EQ(p.getOutlineWidth(), 3.0f);
    p.setOutlineColor(Color::BLUE);
    p.setOutlineWidth(-2.0f); // stored as given, a renderer draws no outline
    EXPECT_EQ(p.getOutlineColor(), Color::BLUE);
    EXPECT_EQ(p.getOutlineWidth(), -2.0f);
}

TEST(PolylineOutlineMaterialPropertyTest, DescribeAddsOutlineColourAndWidth) {
    FieldList fields;
    PolylineOutlineMaterialProperty({Color::YELLOW, Color::RED, 3.0f}).describe(fields);
    ASSERT_EQ(fields.entries().size(), 5u);
    EXPECT_EQ(fields.entries()[3], (FieldList::Entry{"outlineColor", "\"#ff0000\""}));
    EXPECT_EQ(fields.entries()[4], (FieldList::Entry{"outlineWidth", "3"}));
}

} // namespace
