#include "Data/ColorMaterialProperty.h"

#include "Data/FieldList.h"

#include <gtest/gtest.h>

namespace {

using keo::Color;
using keo::ColorMaterialProperty;

TEST(ColorMaterialPropertyTest, DefaultIsOpaqueWhite) {
    const ColorMaterialProperty p;
    EXPECT_EQ(p.getType(), ColorMaterialProperty::TYPE);
    EXPECT_EQ(p.getColor(), Color::WHITE);
    EXPECT_EQ(ColorMaterialProperty::ConstructorOptions{}.color, Color::WHITE);
}

TEST(ColorMaterialPropertyTest, ColourAndOptionsConstructorsStoreTheColour) {
    EXPECT_EQ(ColorMaterialProperty(Color::RED).getColor(), Color::RED);
    ColorMaterialProperty::ConstructorOptions options;
    options.color = Color(0.1f, 0.2f, 0.3f, 0.4f);
    EXPECT_EQ(ColorMaterialProperty(options).getColor(), Color(0.1f, 0.2f, 0.3f, 0.4f));
}

TEST(ColorMaterialPropertyTest, ColourOutsideTheUnitRangeIsStoredAsGiven) {
    ColorMaterialProperty p;
    p.setColor(Color(2.0f, -1.0f, 0.5f, 1.0f));
    EXPECT_EQ(p.getColor(), Color(2.0f, -1.0f, 0.5f, 1.0f));
}

TEST(ColorMaterialPropertyTest, CopiesAreIndependent) {
    ColorMaterialProperty p(Color::RED);
    const ColorMaterialProperty copy = p;
    p.setColor(Color::BLUE);
    EXPECT_EQ(copy.getColor(), Color::RED);
}

} // namespace
