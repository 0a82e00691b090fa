#include "Feature/LineDynamicMaterial.h"

#include "MaterialTestSupport.h"

#include "Data/PolylineDynamicMaterialProperty.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using keo::Color;
using keo::PolylineDynamicMaterialProperty;
using keo::Feature::LineDynamicMaterial;
using keo::Feature::Material;

PolylineDynamicMaterialProperty& flowOf(Material& material) {
    return *material._getMaterial(false)->asPolylineDynamicMaterialProperty();
}

TEST(LineDynamicMaterialTest, DefaultHasEmptyImageTileLength50Rate60AndAlpha0_99999) {
    const LineDynamicMaterial material;
    EXPECT_EQ(material.getImage(), keo::ImageSource(std::string()));
    EXPECT_EQ(material.getTileLength(), 50.0f);
    EXPECT_EQ(material.getRate(), 60.0f);
    EXPECT_EQ(material.getColor().r, 1.0f);
    EXPECT_EQ(material.getColor().g, 1.0f);
    EXPECT_EQ(material.getColor().b, 1.0f);
    EXPECT_EQ(static_cast<double>(material.getColor().a), 0.9999899864196777);
    EXPECT_EQ(material.getType(), Material::Type::LineDynamic);
}

TEST(LineDynamicMaterialTest, ConstructorStoresImageColourRateAndTileLength) {
    const LineDynamicMaterial material("flow.png", Color::RED, 30.0f, 20.0f);
    EXPECT_EQ(material.getImage(), keo::ImageSource(std::string("flow.png")));
    EXPECT_EQ(material.getColor(), Color::RED);
    EXPECT_EQ(material.getRate(), 30.0f);
    EXPECT_EQ(material.getTileLength(), 20.0f);
}

TEST(LineDynamicMaterialTest, EverySetterFollowsTheEditRuleAndSetsTheChangedFlag) {
    const LineDynamicMaterial prototype;
    using keo::Feature::test::expectSetterRule;
    expectSetterRule(prototype, &LineDynamicMaterial::setImage, &LineDynamicMaterial::getImage,
                     keo::ImageSource(std::string("flow.png")));
    expectSetterRule(prototype, &LineDynamicMaterial::setTileLength,
                     &LineDynamicMaterial::getTileLength, 20.0f);
    expectSetterRule(prototype, &LineDynamicMaterial::setColor, &LineDynamicMaterial::getColor,
                     Color::RED);
    expectSetterRule(prototype, &LineDynamicMaterial::setRate, &LineDynamicMaterial::getRate,
                     30.0f);
}

TEST(LineDynamicMaterialTest, AssignCopiesImageTileLengthColourAndRateInOrder) {
    const auto trace = keo::Feature::test::traceAssign<LineDynamicMaterial>(
        LineDynamicMaterial(), LineDynamicMaterial("flow.png", Color::RED, 30.0f, 20.0f),
        {{"image", [](const auto& a, const auto& b) { return a.getImage() == b.getImage(); }},
         {"tileLength",
          [](const auto& a, const auto& b) { return a.getTileLength() == b.getTileLength(); }},
         {"color", [](const auto& a, const auto& b) { return a.getColor() == b.getColor(); }},
         {"rate", [](const auto& a, const auto& b) { return a.getRate() == b.getRate(); }}});
    EXPECT_EQ(trace.order, (std::vector<std::string>{"image", "tileLength", "color", "rate"}));
    EXPECT_EQ(trace.events, "LUDLUDLUDLUD");
}

TEST(LineDynamicMaterialTest, FirstUpdateBuildsTheFlowWithTheTileLengthAsTextureSize) {
    LineDynamicMaterial material("flow.png", Color::RED, 30.0f, 20.0f);
    const auto& flow = flowOf(material);
    EXPECT_EQ(flow.getRate(), 30.0f);
    EXPECT_EQ(flow.getImage(), keo::ImageSource(std::string("flow.png")));
    EXPECT_EQ(flow.getTextureSize(), 20.0f);
    EXPECT_EQ(flow.getColor(), Color::RED);
}

TEST(LineDynamicMaterialTest, LaterUpdateRefreshesRateImageAndTextureSizeOnlyWhenChanged) {
    LineDynamicMaterial material("flow.png", Color::RED, 30.0f, 20.0f);
    auto& flow = flowOf(material);
    flow.setRate(1.0f);
    flow.setImage(std::string("other.png"));
    flow.setTextureSize(1.0f);
    material._getMaterial(false);
    EXPECT_EQ(flow.getRate(), 1.0f);
    EXPECT_EQ(flow.getImage(), keo::ImageSource(std::string("other.png")));
    EXPECT_EQ(flow.getTextureSize(), 1.0f);
    material.setColor(Color::BLUE);
    material._getMaterial(false);
    EXPECT_EQ(flow.getRate(), 30.0f);
    EXPECT_EQ(flow.getImage(), keo::ImageSource(std::string("flow.png")));
    EXPECT_EQ(flow.getTextureSize(), 20.0f);
}

} // namespace
