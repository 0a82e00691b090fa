#include "Data/PolylineGraphics.h"

#include "Data/ColorMaterialProperty.h"
#include "Data/ConstantPositionArrayProperty.h"
#include "Data/FieldList.h"
#include "Data/PathPositionArrayProperty.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <vector>

namespace {

using keo::PolylineGraphics;
using keo::Vector2;
using keo::Vector3;

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

TEST(PolylineGraphicsTest, DefaultsAreAOnePixelLineWithoutPositions) {
    const PolylineGraphics graphics;
    EXPECT_EQ(graphics.getPositions(), nullptr);
    EXPECT_TRUE(graphics.getPositionValues(keo::TimePoint()).empty());
    EXPECT_EQ(graphics.getWidth(), 1.0f);
    EXPECT_FALSE(graphics.isClampToGround());
    EXPECT_EQ(graphics.getShadowVolumeHeightScale(), 1.0);
    EXPECT_TRUE(graphics.getPixelOffsets().empty());
    EXPECT_EQ(graphics.getMaterial(), nullptr);
}

TEST(PolylineGraphicsTest, PlainPointsAreWrappedInAConstantProperty) {
    PolylineGraphics graphics;
    const std::vector<Vector3<double>> points{{1.0, 2.0, 3.0}, {4.0, 5.0, 6.0}};
    graphics.setPositions(points);
    const auto* constant =
        dynamic_cast<const keo::ConstantPositionArrayProperty*>(graphics.getPositions().get());
    ASSERT_NE(constant, nullptr);
    EXPECT_EQ(constant->getPoints(), points);
    EXPECT_EQ(graphics.getPositionValues(keo::TimePoint::fromSeconds(99.0)), points);
}

TEST(PolylineGraphicsTest, APropertyIsGivenBackAsTheSameObject) {
    PolylineGraphics graphics;
    const auto path = std::make_shared<keo::PathPositionArrayProperty>(
        std::vector<Vector3<double>>{{0.0, 0.0, 0.0}, {100.0, 0.0, 0.0}});
    graphics.setPositions(path);
    EXPECT_EQ(graphics.getPositions(), path);
    EXPECT_NE(dynamic_cast<keo::PathPositionArrayProperty*>(graphics.getPositions().get()),
              nullptr);
    graphics.setPositions(nullptr);
    EXPECT_EQ(graphics.getPositions(), nullptr);
}

TEST(PolylineGraphicsTest, PointsWithNanAreDroppedFromPlainPositions) {
    PolylineGraphics graphics;
    graphics.setPositions(
        std::vector<Vector3<double>>{{1.0, 0.0, 0.0}, {NOT_A_NUMBER, 0.0, 0.0}, {2.0, 0.0, 0.0}});
    EXPECT_EQ(graphics.getPositionValues(keo::TimePoint()),
              (std::vector<Vector3<double>>{{1.0, 0.0, 0.0}, {2.0, 0.0, 0.0}}));
}

TEST(PolylineGraphicsTest, FieldsReadBackAsSet) {
    PolylineGraphics graphics;
    graphics.setWidth(3.0f);
    graphics.setClampToGround(true);
    graphics.setShadowVolumeHeightScale(2.5);
    graphics.setPixelOffsets({{0.0f, 0.0f}, {20.0f, 30.0f}});
    EXPECT_EQ(graphics.getWidth(), 3.0f);
    EXPECT_TRUE(graphics.isClampToGround());
    EXPECT_EQ(graphics.getShadowVolumeHeightScale(), 2.5);
    EXPECT_EQ(graphics.getPixelOffsets(),
              (std::vector<Vector2<float>>{{0.0f, 0.0f}, {20.0f, 30.0f}}));
}

TEST(PolylineGraphicsTest, BadNumbersAreIgnoredOrClamped) {
    PolylineGraphics graphics;
    graphics.setWidth(std::numeric_limits<float>::quiet_NaN());
    graphics.setShadowVolumeHeightScale(-2.0);
    graphics.setPixelOffsets({{1.0f, 1.0f}, {std::numeric_limits<float>::quiet_NaN(), 0.0f}});
    EXPECT_EQ(graphics.getWidth(), 1.0f);
    EXPECT_EQ(graphics.getShadowVolumeHeightScale(), 0.0);
    EXPECT_EQ(graphics.getPixelOffsets(), (std::vector<Vector2<float>>{{1.0f, 1.0f}}));
}

TEST(PolylineGraphicsTest, DefaultMaterialIsANewOpaqueWhiteColourEachTime) {
    const auto first = PolylineGraphics::getDefaultMaterial();
    const auto second = PolylineGraphics::getDefaultMaterial();
    ASSERT_NE(first, nullptr);
    ASSERT_NE(first->asColorMaterialProperty(), nullptr);
    EXPECT_EQ(first->getColor(), keo::Color::WHITE);
    EXPECT_NE(first, second);
}

TEST(PolylineGraphicsTest, OptionsAreTakenAsGiven) {
    PolylineGraphics::ConstructorOptions options;
    options.positions = std::make_shared<keo::ConstantPositionArrayProperty>(
        std::vector<Vector3<double>>{{1.0, 1.0, 1.0}, {2.0, 2.0, 2.0}});
    options.width = 1.0f;
    options.material = PolylineGraphics::getDefaultMaterial();
    const PolylineGraphics graphics(options);
    EXPECT_EQ(graphics.getPositions(), options.positions);
    EXPECT_EQ(graphics.getMaterial(), options.material);
}

TEST(PolylineGraphicsTest, DescribeEvaluatesThePositionsAtTheGivenTime) {
    PolylineGraphics graphics;
    // A path of 100 m travelled at 10 m/s: after 5 s the line reaches (50, 0, 0).
    const auto path = std::make_shared<keo::PathPositionArrayProperty>(
        std::vector<Vector3<double>>{{0.0, 0.0, 0.0}, {100.0, 0.0, 0.0}});
    path->setSpeed(10.0);
    graphics.setPositions(path);
    const auto start = keo::TimePoint::fromSeconds(0.0);
    (void)path->getValues(start); // the path's clock starts at its first evaluation
    keo::FieldList fields;
    graphics.describe(fields, start + 5.0);
    const auto& e = fields.entries();
    ASSERT_EQ(e.size(), 12u);
    EXPECT_EQ(e[6], (keo::FieldList::Entry{"positions", "[[0, 0, 0], [50, 0, 0]]"}));
    EXPECT_EQ(e[7], (keo::FieldList::Entry{"positionsConstant", "false"}));
}

} // namespace
