#include "Feature/LineOutlineMaterial.h"

#include "MaterialTestSupport.h"

#include "Data/PolylineOutlineMaterialProperty.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using keo::Color;
using keo::PolylineOutlineMaterialProperty;
using keo::Feature::LineOutlineMaterial;
using keo::Feature::Material;

PolylineOutlineMaterialProperty& outlineOf(Material& material, bool highlight) {
    return *material._getMaterial(highlight)->asPolylineOutlineMaterialProperty();
}

TEST(LineOutlineMaterialTest, DefaultsAreAWhiteLineWithABlackOutlineOfOnePixel) {
    const LineOutlineMaterial material;
    EXPECT_EQ(material.getColor(), Color::WHITE);
    EXPECT_EQ(material.getOutlineColor(), Color::BLACK);
    EXPECT_EQ(material.getOutlineWidth(), 1.0f);
    EXPECT_EQ(material.getType(), Material::Type::LineOutline);
}

TEST(LineOutlineMaterialTest, ConstructorStoresColourOutlineColourAndWidth) {
    const LineOutlineMaterial material(Color::RED, Color::BLUE, 3.0f);
    EXPECT_EQ(material.getColor(), Color::RED);
    EXPECT_EQ(material.getOutlineColor(), Color::BLUE);
    EXPECT_EQ(material.getOutlineWidth(), 3.0f);
}

TEST(LineOutlineMaterialTest, EverySetterFollowsTheEditRuleAndSetsTheChangedFlag) {
    const LineOutlineMaterial prototype;
    using keo::Feature::test::expectSetterRule;
    expectSetterRule(prototype, &LineOutlineMaterial::setColor, &LineOutlineMaterial::getColor,
                     Color::RED);
    expectSetterRule(prototype, &LineOutlineMaterial::setOutlineColor,
                     &LineOutlineMaterial::getOutlineColor, Color::BLUE);
    expectSetterRule(prototype, &LineOutlineMaterial::setOutlineWidth,
                     &LineOutlineMaterial::getOutlineWidth, 3.0f);
}

TEST(LineOutlineMaterialTest, AssignCopiesColourOutlineColourAndWidthInOrder) {
    const auto trace = keo::Feature::test::traceAssign<LineOutlineMaterial>(
        LineOutlineMaterial(), LineOutlineMaterial(Color::RED, Color::BLUE, 3.0f),
        {{"color", [](const auto& a, const auto& b) { return a.getColor() == b.getColor(); }},
         {"outlineColor",
          [](const auto& a, const auto& b) { return a.getOutlineColor() == b.getOutlineColor(); }},
         {"outlineWidth", [](const auto& a, const auto& b) {
              return a.getOutlineWidth() == b.getOutlineWidth();
          }}});
    EXPECT_EQ(trace.order, (std::vector<std::string>{"color", "outlineColor", "outlineWidth"}));
    EXPECT_EQ(trace.events, "LUDLUDLUD");
}

TEST(LineOutlineMaterialTest, FirstUpdateBuildsTheOutlineFromTheValues) {
    LineOutlineMaterial material(Color::RED, Color::BLUE, 3.0f);
    const auto& outline = outlineOf(material, false);
    EXPECT_EQ(outline.getColor(), Color::RED);
    EXPECT_EQ(outline.getOutlineColor(), Color::BLUE);
    EXPECT_EQ(outline.getOutlineWidth(), 3.0f);
}

TEST(LineOutlineMaterialTest, LaterUpdateRefreshesOutlineColourAndWidthOnlyWhenChanged) {
    LineOutlineMaterial material(Color::RED, Color::BLUE, 3.0f);
    auto& outline = outlineOf(material, false);
    outline.setOutlineColor(Color::GREEN);
    outline.setOutlineWidth(9.0f);
    material._getMaterial(false);
    EXPECT_EQ(outline.getOutlineColor(), Color::GREEN);
    EXPECT_EQ(outline.getOutlineWidth(), 9.0f);
    material.setColor(Color::YELLOW);
    material._getMaterial(false);
    EXPECT_EQ(outline.getOutlineColor(), Color::BLUE);
    EXPECT_EQ(outline.getOutlineWidth(), 3.0f);
}

TEST(LineOutlineMaterialTest, HighlightReplacesBothColoursWhenBuiltButOnlyTheColourAfterwards) {
    LineOutlineMaterial material(Color::RED, Color::BLUE, 3.0f);
    const auto& outline = outlineOf(material, true);
    EXPECT_EQ(outline.getColor(), Color::HIGHLIGHTCOLOR);
    EXPECT_EQ(outline.getOutlineColor(), Color::HIGHLIGHTCOLOR);
    outlineOf(material, false);
    EXPECT_EQ(outline.getColor(), Color::RED);
    EXPECT_EQ(outline.getOutlineColor(), Color::HIGHLIGHTCOLOR); // clean: not pushed again
    material.setOutlineWidth(2.0f);
    outlineOf(material, false);
    EXPECT_EQ(outline.getOutlineColor(), Color::BLUE);
}

} // namespace
