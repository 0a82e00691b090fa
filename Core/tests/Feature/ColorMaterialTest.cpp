#include "Feature/ColorMaterial.h"

#include "MaterialTestSupport.h"

#include "Data/ColorMaterialProperty.h"
#include "Data/PolygonGraphics.h"

#include <gtest/gtest.h>

namespace {

using keo::Color;
using keo::Feature::ColorMaterial;
using keo::Feature::Material;

TEST(ColorMaterialTest, DefaultIsOpaqueWhite) {
    const ColorMaterial material;
    EXPECT_EQ(material.getColor(), Color(1.0f, 1.0f, 1.0f, 1.0f));
    EXPECT_EQ(material.getType(), Material::Type::Color);
}

TEST(ColorMaterialTest, ConstructorStoresTheColourAsGiven) {
    const ColorMaterial material(Color(2.0f, -1.0f, 0.5f, 0.25f));
    EXPECT_EQ(material.getColor(), Color(2.0f, -1.0f, 0.5f, 0.25f));
}

TEST(ColorMaterialTest, SetColorFollowsTheEditRuleAndSetsTheChangedFlag) {
    keo::Feature::test::expectSetterRule(ColorMaterial(), &ColorMaterial::setColor,
                                         &ColorMaterial::getColor, Color::RED);
}

TEST(ColorMaterialTest, FirstUpdateBuildsAColourPropertyOfTheColour) {
    const ColorMaterial material(Color::YELLOW);
    keo::PolygonGraphics graphics;
    material.update(graphics, false);
    const auto* property = graphics.getMaterial()->asColorMaterialProperty();
    ASSERT_NE(property, nullptr);
    EXPECT_EQ(property->getColor(), Color::YELLOW);
}

TEST(ColorMaterialTest, FirstHighlightedUpdateBuildsThePropertyInTheHighlightColour) {
    const ColorMaterial material(Color::YELLOW);
    keo::PolygonGraphics graphics;
    material.update(graphics, true);
    EXPECT_EQ(graphics.getMaterial()->getColor(), Color::HIGHLIGHTCOLOR);
}

TEST(ColorMaterialTest, CleanUpdatePushesTheColourAgain) {
    ColorMaterial material(Color::YELLOW);
    const auto property = material._getMaterial(false);
    property->setColor(Color::BLACK);
    material._getMaterial(false);
    EXPECT_EQ(property->getColor(), Color::YELLOW);
}

} // namespace
