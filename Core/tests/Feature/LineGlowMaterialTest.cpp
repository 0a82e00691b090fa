#include "Feature/LineGlowMaterial.h"

#include "MaterialTestSupport.h"

#include "Data/PolylineGlowMaterialProperty.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using keo::Color;
using keo::PolylineGlowMaterialProperty;
using keo::Feature::LineGlowMaterial;
using keo::Feature::Material;

PolylineGlowMaterialProperty& glowOf(Material& material) {
    return *material._getMaterial(false)->asPolylineGlowMaterialProperty();
}

TEST(LineGlowMaterialTest, DefaultsAreAWhiteGlowOfPowerAQuarterWithoutTaper) {
    const LineGlowMaterial material;
    EXPECT_EQ(material.getColor(), Color::WHITE);
    EXPECT_EQ(material.getGlowPower(), 0.25f);
    EXPECT_EQ(material.getTaperPower(), 1.0f);
    EXPECT_EQ(material.getType(), Material::Type::LineGlow);
}

TEST(LineGlowMaterialTest, ConstructorStoresColourGlowPowerAndTaperPower) {
    const LineGlowMaterial material(Color::RED, 0.5f, 2.0f);
    EXPECT_EQ(material.getColor(), Color::RED);
    EXPECT_EQ(material.getGlowPower(), 0.5f);
    EXPECT_EQ(material.getTaperPower(), 2.0f);
}

TEST(LineGlowMaterialTest, EverySetterFollowsTheEditRuleAndSetsTheChangedFlag) {
    const LineGlowMaterial prototype;
    using keo::Feature::test::expectSetterRule;
    expectSetterRule(prototype, &LineGlowMaterial::setColor, &LineGlowMaterial::getColor,
                     Color::RED);
    expectSetterRule(prototype, &LineGlowMaterial::setGlowPower, &LineGlowMaterial::getGlowPower,
                     0.5f);
    expectSetterRule(prototype, &LineGlowMaterial::setTaperPower, &LineGlowMaterial::getTaperPower,
                     2.0f);
}

TEST(LineGlowMaterialTest, AssignCopiesColourGlowPowerAndTaperPowerInOrder) {
    const auto trace = keo::Feature::test::traceAssign<LineGlowMaterial>(
        LineGlowMaterial(), LineGlowMaterial(Color::RED, 0.5f, 2.0f),
        {{"color", [](const auto& a, const auto& b) { return a.getColor() == b.getColor(); }},
         {"glowPower",
          [](const auto& a, const auto& b) { return a.getGlowPower() == b.getGlowPower(); }},
         {"taperPower",
          [](const auto& a, const auto& b) { return a.getTaperPower() == b.getTaperPower(); }}});
    EXPECT_EQ(trace.order, (std::vector<std::string>{"color", "glowPower", "taperPower"}));
    EXPECT_EQ(trace.events, "LUDLUDLUD");
}

TEST(LineGlowMaterialTest, FirstUpdateBuildsTheGlowFromTheValues) {
    LineGlowMaterial material(Color::RED, 0.5f, 2.0f);
    const auto& glow = glowOf(material);
    EXPECT_EQ(glow.getColor(), Color::RED);
    EXPECT_EQ(glow.getGlowPower(), 0.5f);
    EXPECT_EQ(glow.getTaperPower(), 2.0f);
}

TEST(LineGlowMaterialTest, LaterUpdateRefreshesGlowAndTaperPowerOnlyWhenChanged) {
    LineGlowMaterial material(Color::RED, 0.5f, 2.0f);
    auto& glow = glowOf(material);
    glow.setGlowPower(0.9f);
    glow.setTaperPower(9.0f);
    material._getMaterial(false);
    EXPECT_EQ(glow.getGlowPower(), 0.9f);
    EXPECT_EQ(glow.getTaperPower(), 9.0f);
    material.setColor(Color::BLUE);
    material._getMaterial(false);
    EXPECT_EQ(glow.getGlowPower(), 0.5f);
    EXPECT_EQ(glow.getTaperPower(), 2.0f);
}

} // namespace
