#include "Feature/LineArrowMaterial.h"

#include "MaterialTestSupport.h"

#include "Data/PolylineArrowMaterialProperty.h"

#include <gtest/gtest.h>

namespace {

using keo::Color;
using keo::Feature::LineArrowMaterial;
using keo::Feature::Material;

TEST(LineArrowMaterialTest, DefaultIsAWhiteArrow) {
    const LineArrowMaterial material;
    EXPECT_EQ(material.getColor(), Color::WHITE);
    EXPECT_EQ(material.getType(), Material::Type::LineArrow);
}

TEST(LineArrowMaterialTest, ConstructorStoresTheColour) {
    EXPECT_EQ(LineArrowMaterial(Color::RED).getColor(), Color::RED);
}

TEST(LineArrowMaterialTest, SetColorFollowsTheEditRuleAndSetsTheChangedFlag) {
    keo::Feature::test::expectSetterRule(LineArrowMaterial(), &LineArrowMaterial::setColor,
                                         &LineArrowMaterial::getColor, Color::RED);
}

TEST(LineArrowMaterialTest, FirstUpdateBuildsAnArrowOfTheColour) {
    LineArrowMaterial material(Color::RED);
    const auto property = material._getMaterial(false);
    ASSERT_NE(property->asPolylineArrowMaterialProperty(), nullptr);
    EXPECT_EQ(property->getColor(), Color::RED);
}

TEST(LineArrowMaterialTest, FirstHighlightedUpdateBuildsTheArrowInTheHighlightColour) {
    LineArrowMaterial material(Color::RED);
    EXPECT_EQ(material._getMaterial(true)->getColor(), Color::HIGHLIGHTCOLOR);
}

} // namespace
