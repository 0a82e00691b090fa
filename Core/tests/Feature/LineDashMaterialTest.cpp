#include "Feature/LineDashMaterial.h"

#include "FeatureTestSupport.h"
#include "MaterialTestSupport.h"

#include "Data/PolylineDashMaterialProperty.h"
#include "Data/PolylineGraphics.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using keo::Color;
using keo::PolylineDashMaterialProperty;
using keo::Feature::LineDashMaterial;
using keo::Feature::Material;
using keo::Feature::test::EventRecorder;
using keo::Feature::test::takeChangedFlag;

PolylineDashMaterialProperty& dashOf(Material& material, bool highlight) {
    return *material._getMaterial(highlight)->asPolylineDashMaterialProperty();
}

TEST(LineDashMaterialTest, DefaultsAreAWhiteDashOfSixteenWithTransparentGapsPattern255) {
    const LineDashMaterial material;
    EXPECT_EQ(material.getColor(), Color::WHITE);
    EXPECT_EQ(material.getGapColor(), Color::TRANSPARENT);
    EXPECT_EQ(material.getDashPattern(), 0x00FF);
    EXPECT_EQ(material.getDashLength(), 16.0f);
    EXPECT_EQ(material.getType(), Material::Type::LineDash);
}

TEST(LineDashMaterialTest, ConstructorStoresColourGapColourPatternAndLength) {
    const LineDashMaterial material(Color::RED, Color::BLUE, 0x0F0F, 8.0f);
    EXPECT_EQ(material.getColor(), Color::RED);
    EXPECT_EQ(material.getGapColor(), Color::BLUE);
    EXPECT_EQ(material.getDashPattern(), 0x0F0F);
    EXPECT_EQ(material.getDashLength(), 8.0f);
}

TEST(LineDashMaterialTest, EverySetterFollowsTheEditRuleAndSetsTheChangedFlag) {
    const LineDashMaterial prototype;
    using keo::Feature::test::expectSetterRule;
    expectSetterRule(prototype, &LineDashMaterial::setColor, &LineDashMaterial::getColor,
                     Color::RED);
    expectSetterRule(prototype, &LineDashMaterial::setGapColor, &LineDashMaterial::getGapColor,
                     Color::BLUE);
    expectSetterRule(prototype, &LineDashMaterial::setDashPattern,
                     &LineDashMaterial::getDashPattern, static_cast<unsigned short>(0x0F0F));
    expectSetterRule(prototype, &LineDashMaterial::setDashLength, &LineDashMaterial::getDashLength,
                     8.0f);
}

TEST(LineDashMaterialTest, AssignCopiesColourGapColourPatternAndLengthInOrder) {
    const auto trace = keo::Feature::test::traceAssign<LineDashMaterial>(
        LineDashMaterial(), LineDashMaterial(Color::RED, Color::BLUE, 0x0F0F, 8.0f),
        {{"color", [](const auto& a, const auto& b) { return a.getColor() == b.getColor(); }},
         {"gapColor",
          [](const auto& a, const auto& b) { return a.getGapColor() == b.getGapColor(); }},
         {"dashPattern",
          [](const auto& a, const auto& b) { return a.getDashPattern() == b.getDashPattern(); }},
         {"dashLength",
          [](const auto& a, const auto& b) { return a.getDashLength() == b.getDashLength(); }}});
    EXPECT_EQ(trace.order,
              (std::vector<std::string>{"color", "gapColor", "dashPattern", "dashLength"}));
    EXPECT_EQ(trace.events, "LUDLUDLUDLUD");
}

TEST(LineDashMaterialTest, FirstUpdateBuildsTheDashFromTheValues) {
    LineDashMaterial material(Color::RED, Color::BLUE, 0x0F0F, 8.0f);
    const auto& dash = dashOf(material, false);
    EXPECT_EQ(dash.getColor(), Color::RED);
    EXPECT_EQ(dash.getGapColor(), Color::BLUE);
    EXPECT_EQ(dash.getDashPattern(), 0x0F0F);
    EXPECT_EQ(dash.getDashLength(), 8.0f);
}

TEST(LineDashMaterialTest, LaterUpdateRefreshesGapColourPatternAndLengthOnlyWhenChanged) {
    LineDashMaterial material(Color::RED, Color::BLUE, 0x0F0F, 8.0f);
    auto& dash = dashOf(material, false);
    dash.setGapColor(Color::BLACK);
    dash.setDashPattern(1);
    dash.setDashLength(1.0f);
    material._getMaterial(false);
    EXPECT_EQ(dash.getGapColor(), Color::BLACK);
    EXPECT_EQ(dash.getDashPattern(), 1);
    EXPECT_EQ(dash.getDashLength(), 1.0f);
    material.setColor(Color::GREEN);
    material._getMaterial(false);
    EXPECT_EQ(dash.getGapColor(), Color::BLUE);
    EXPECT_EQ(dash.getDashPattern(), 0x0F0F);
    EXPECT_EQ(dash.getDashLength(), 8.0f);
}

TEST(LineDashMaterialTest, FirstHighlightedUpdateGivesColourAndGapColourTheHighlightColour) {
    LineDashMaterial material(Color::RED, Color::BLUE);
    const auto& dash = dashOf(material, true);
    EXPECT_EQ(dash.getColor(), Color::HIGHLIGHTCOLOR);
    EXPECT_EQ(dash.getGapColor(), Color::HIGHLIGHTCOLOR);
}

TEST(LineDashMaterialTest, NormalUpdateRightAfterRestoresTheColourButNotTheGapColour) {
    LineDashMaterial material(Color::RED, Color::BLUE);
    dashOf(material, true);
    const auto& dash = dashOf(material, false);
    EXPECT_EQ(dash.getColor(), Color::RED);
    EXPECT_EQ(dash.getGapColor(), Color::HIGHLIGHTCOLOR);
}

TEST(LineDashMaterialTest, SettingTheDashLengthToItsCurrentValueLeavesTheFlagClearAndIsSilent) {
    LineDashMaterial material;
    const auto property = material._getMaterial(false);
    EventRecorder recorder(material);
    material.setDashLength(16.0f);
    EXPECT_EQ(recorder.events, "");
    EXPECT_FALSE(takeChangedFlag(material, *property));
}

} // namespace
