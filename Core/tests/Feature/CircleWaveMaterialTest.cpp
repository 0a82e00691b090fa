#include "Feature/CircleWaveMaterial.h"

#include "FeatureTestSupport.h"
#include "MaterialTestSupport.h"

#include "Data/CircleWaveMaterialProperty.h"
#include "Data/EllipseGraphics.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace {

using keo::CircleWaveMaterialProperty;
using keo::Color;
using keo::Feature::CircleWaveMaterial;
using keo::Feature::Material;

CircleWaveMaterialProperty& waveOf(Material& material) {
    return *material._getMaterial(false)->asCircleWaveMaterialProperty();
}

TEST(CircleWaveMaterialTest, GetTypeIsTenNotNine) {
    EXPECT_EQ(static_cast<int>(CircleWaveMaterial().getType()), 10);
}

TEST(CircleWaveMaterialTest, DefaultsAreOneWhiteRingAtSpeedTenWithoutDuration) {
    const CircleWaveMaterial material;
    EXPECT_EQ(material.getColor(), Color::WHITE);
    EXPECT_EQ(material.getCount(), 1);
    EXPECT_EQ(material.getSpeed(), 10.0f);
    EXPECT_EQ(material.getDuration(), 0.0f);
}

TEST(CircleWaveMaterialTest, ConstructorStoresColourCountSpeedAndDuration) {
    const CircleWaveMaterial material(Color::RED, 3, 2.5f, 5.0f);
    EXPECT_EQ(material.getColor(), Color::RED);
    EXPECT_EQ(material.getCount(), 3);
    EXPECT_EQ(material.getSpeed(), 2.5f);
    EXPECT_EQ(material.getDuration(), 5.0f);
}

TEST(CircleWaveMaterialTest, EverySetterFollowsTheEditRuleAndSetsTheChangedFlag) {
    const CircleWaveMaterial prototype;
    using keo::Feature::test::expectSetterRule;
    expectSetterRule(prototype, &CircleWaveMaterial::setColor, &CircleWaveMaterial::getColor,
                     Color::RED);
    expectSetterRule(prototype, &CircleWaveMaterial::setCount, &CircleWaveMaterial::getCount,
                     static_cast<unsigned char>(3));
    expectSetterRule(prototype, &CircleWaveMaterial::setSpeed, &CircleWaveMaterial::getSpeed, 2.5f);
    expectSetterRule(prototype, &CircleWaveMaterial::setDuration, &CircleWaveMaterial::getDuration,
                     5.0f);
}

TEST(CircleWaveMaterialTest, AssignCopiesColourCountSpeedAndDurationInOrder) {
    const auto trace = keo::Feature::test::traceAssign<CircleWaveMaterial>(
        CircleWaveMaterial(), CircleWaveMaterial(Color::RED, 3, 2.5f, 5.0f),
        {{"color", [](const auto& a, const auto& b) { return a.getColor() == b.getColor(); }},
         {"count", [](const auto& a, const auto& b) { return a.getCount() == b.getCount(); }},
         {"speed", [](const auto& a, const auto& b) { return a.getSpeed() == b.getSpeed(); }},
         {"duration",
          [](const auto& a, const auto& b) { return a.getDuration() == b.getDuration(); }}});
    EXPECT_EQ(trace.order, (std::vector<std::string>{"color", "count", "speed", "duration"}));
    EXPECT_EQ(trace.events, "LUDLUDLUDLUD");
}

TEST(CircleWaveMaterialTest, FirstUpdateBuildsOutwardRingsFromTheValues) {
    const CircleWaveMaterial material(Color::RED, 3, 2.5f, 5.0f);
    keo::EllipseGraphics graphics;
    material.update(graphics, false);
    const auto* wave = graphics.getMaterial()->asCircleWaveMaterialProperty();
    ASSERT_NE(wave, nullptr);
    EXPECT_EQ(wave->getColor(), Color::RED);
    EXPECT_EQ(wave->getCount(), 3);
    EXPECT_EQ(wave->getSpeed(), 2.5f);
    EXPECT_EQ(wave->getDuration(), std::optional<float>(5.0f));
    EXPECT_EQ(wave->getDirection(), 1);
}

TEST(CircleWaveMaterialTest, DurationOfZeroOrLessGivesANewPropertyNoDuration) {
    CircleWaveMaterial none(Color::RED, 3, 2.5f, 0.0f);
    EXPECT_EQ(waveOf(none).getDuration(), std::nullopt);
    CircleWaveMaterial negative(Color::RED, 3, 2.5f, -1.0f);
    EXPECT_EQ(waveOf(negative).getDuration(), std::nullopt);
}

TEST(CircleWaveMaterialTest, LaterUpdateRefreshesCountSpeedAndDurationOnlyWhenChanged) {
    CircleWaveMaterial material(Color::RED, 3, 2.5f, 5.0f);
    auto& wave = waveOf(material);
    wave.setCount(9);
    wave.setSpeed(9.0f);
    wave.setDuration(9.0f);
    material._getMaterial(false);
    EXPECT_EQ(wave.getCount(), 9);
    EXPECT_EQ(wave.getSpeed(), 9.0f);
    EXPECT_EQ(wave.getDuration(), std::optional<float>(9.0f));
    material.setColor(Color::BLUE);
    material._getMaterial(false);
    EXPECT_EQ(wave.getCount(), 3);
    EXPECT_EQ(wave.getSpeed(), 2.5f);
    EXPECT_EQ(wave.getDuration(), std::optional<float>(5.0f));
    EXPECT_EQ(wave.getColor(), Color::BLUE);
}

TEST(CircleWaveMaterialTest, DurationFiveThenSetToZeroLeavesThePropertyWithDurationFive) {
    CircleWaveMaterial material(Color::RED, 3, 2.5f, 5.0f);
    auto& wave = waveOf(material);
    material.setDuration(0.0f);
    material.setSpeed(4.0f);
    material._getMaterial(false);
    EXPECT_EQ(wave.getSpeed(), 4.0f); // the refresh ran
    EXPECT_EQ(wave.getDuration(), std::optional<float>(5.0f));
}

} // namespace
