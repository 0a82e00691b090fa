#include "Feature/PolygonDynamicMaterial.h"

#include "Feature/ImageTileSizeUnit.h"

#include "FeatureTestSupport.h"
#include "MaterialTestSupport.h"

#include "Data/PolylineGraphics.h"
#include "Data/WallDynamicMaterialProperty.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace {

using keo::Color;
using keo::Vector2;
using keo::WallDynamicMaterialProperty;
using keo::Feature::ImageTileSizeUnit;
using keo::Feature::Material;
using keo::Feature::PolygonDynamicMaterial;
using keo::Feature::test::EventRecorder;
using keo::Feature::test::expectSetterRule;

const WallDynamicMaterialProperty& wallProperty(const keo::GeometryGraphics& graphics) {
    return *graphics.getMaterial()->asWallDynamicMaterialProperty();
}

PolygonDynamicMaterial scrollingTiles() {
    PolygonDynamicMaterial material("tiles.png", Color::RED, 30.0f, {3.0f, 2.0f}, {5.0f, 6.0f});
    material.setMovementDirection({0.0f, 1.0f});
    material.setMoving(false);
    return material;
}

TEST(PolygonDynamicMaterialTest, DefaultsAreOneTileCountWhiteMovingAlongUAtSixty) {
    const PolygonDynamicMaterial material;
    EXPECT_EQ(material.getImage(), keo::ImageSource(std::string()));
    EXPECT_EQ(material.getRepeat(), Vector2<float>(1.0f, 1.0f));
    EXPECT_EQ(material.getTileSize(), Vector2<float>(1.0f, 1.0f));
    EXPECT_EQ(material.getTileSizeUnit(), ImageTileSizeUnit::Count);
    EXPECT_EQ(material.getColor(), Color::WHITE);
    EXPECT_EQ(material.getRate(), 60.0f);
    EXPECT_EQ(material.getMovementDirection(), Vector2<float>(1.0f, 0.0f));
    EXPECT_TRUE(material.isMoving());
    EXPECT_EQ(material.getType(), Material::Type::PolygonDynamic);
}

TEST(PolygonDynamicMaterialTest, ConstructorStoresImageColourRateTileSizeAndRepeat) {
    const PolygonDynamicMaterial material("tiles.png", Color::RED, 30.0f, {3.0f, 2.0f},
                                          {5.0f, 6.0f});
    EXPECT_EQ(material.getImage(), keo::ImageSource(std::string("tiles.png")));
    EXPECT_EQ(material.getColor(), Color::RED);
    EXPECT_EQ(material.getRate(), 30.0f);
    EXPECT_EQ(material.getTileSize(), Vector2<float>(3.0f, 2.0f));
    EXPECT_EQ(material.getRepeat(), Vector2<float>(5.0f, 6.0f));
    EXPECT_EQ(material.getMovementDirection(), Vector2<float>(1.0f, 0.0f));
    EXPECT_TRUE(material.isMoving());
    EXPECT_EQ(material.getTileSizeUnit(), ImageTileSizeUnit::Count);
}

TEST(PolygonDynamicMaterialTest, CopyConstructorCopiesEveryValueWithTheRepeat) {
    PolygonDynamicMaterial material = scrollingTiles();
    material.setTileSizeUnit(ImageTileSizeUnit::Meter);
    const PolygonDynamicMaterial copy(material);
    EXPECT_EQ(copy.getImage(), material.getImage());
    EXPECT_EQ(copy.getRepeat(), Vector2<float>(5.0f, 6.0f));
    EXPECT_EQ(copy.getTileSize(), material.getTileSize());
    EXPECT_EQ(copy.getTileSizeUnit(), ImageTileSizeUnit::Meter);
    EXPECT_EQ(copy.getColor(), material.getColor());
    EXPECT_EQ(copy.getRate(), material.getRate());
    EXPECT_EQ(copy.getMovementDirection(), material.getMovementDirection());
    EXPECT_FALSE(copy.isMoving());
}

TEST(PolygonDynamicMaterialTest, EverySetterFollowsTheEditRuleAndSetsTheChangedFlag) {
    const PolygonDynamicMaterial prototype;
    expectSetterRule(prototype, &PolygonDynamicMaterial::setImage,
                     &PolygonDynamicMaterial::getImage, keo::ImageSource(std::string("tiles.png")));
    expectSetterRule(prototype, &PolygonDynamicMaterial::setRepeat,
                     &PolygonDynamicMaterial::getRepeat, Vector2<float>(5.0f, 6.0f));
    expectSetterRule(prototype, &PolygonDynamicMaterial::setTileSize,
                     &PolygonDynamicMaterial::getTileSize, Vector2<float>(3.0f, 2.0f));
    expectSetterRule(prototype, &PolygonDynamicMaterial::setTileSizeUnit,
                     &PolygonDynamicMaterial::getTileSizeUnit, ImageTileSizeUnit::Meter);
    expectSetterRule(prototype, &PolygonDynamicMaterial::setColor,
                     &PolygonDynamicMaterial::getColor, Color::RED);
    expectSetterRule(prototype, &PolygonDynamicMaterial::setRate, &PolygonDynamicMaterial::getRate,
                     30.0f);
    expectSetterRule(prototype, &PolygonDynamicMaterial::setMovementDirection,
                     &PolygonDynamicMaterial::getMovementDirection, Vector2<float>(0.0f, 1.0f));
    expectSetterRule(prototype, &PolygonDynamicMaterial::setMoving,
                     &PolygonDynamicMaterial::isMoving, false);
}

TEST(PolygonDynamicMaterialTest, SetColorWithItsOwnFieldDoesNothingEvenWhenNan) {
    const float nan = std::numeric_limits<float>::quiet_NaN();
    PolygonDynamicMaterial material;
    material.setColor({nan, 0.0f, 0.0f, 1.0f});
    EventRecorder recorder(material);
    material.setColor(material.getColor());
    EXPECT_EQ(recorder.events, "");
    const Color copy = material.getColor();
    material.setColor(copy); // an equal-looking value elsewhere: NaN is never equal
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(PolygonDynamicMaterialTest, AssignCopiesEveryValueInOrderButNotTheRepeat) {
    PolygonDynamicMaterial source = scrollingTiles();
    source.setTileSizeUnit(ImageTileSizeUnit::Meter);
    const auto trace = keo::Feature::test::traceAssign<PolygonDynamicMaterial>(
        PolygonDynamicMaterial(), source,
        {{"image", [](const auto& a, const auto& b) { return a.getImage() == b.getImage(); }},
         {"tileSize",
          [](const auto& a, const auto& b) { return a.getTileSize() == b.getTileSize(); }},
         {"tileSizeUnit",
          [](const auto& a, const auto& b) { return a.getTileSizeUnit() == b.getTileSizeUnit(); }},
         {"color", [](const auto& a, const auto& b) { return a.getColor() == b.getColor(); }},
         {"rate", [](const auto& a, const auto& b) { return a.getRate() == b.getRate(); }},
         {"movementDirection",
          [](const auto& a, const auto& b) {
              return a.getMovementDirection() == b.getMovementDirection();
          }},
         {"moving", [](const auto& a, const auto& b) { return a.isMoving() == b.isMoving(); }},
         {"repeat", [](const auto& a, const auto& b) { return a.getRepeat() == b.getRepeat(); }}});
    EXPECT_EQ(trace.order, (std::vector<std::string>{"image", "tileSize", "tileSizeUnit", "color",
                                                     "rate", "movementDirection", "moving"}));
    EXPECT_EQ(trace.events, "LUDLUDLUDLUDLUDLUDLUD");
}

TEST(PolygonDynamicMaterialTest, AfterAssignTheRepeatKeepsItsOldValueUntilTheNextUpdate) {
    PolygonDynamicMaterial target;
    target.setRepeat({7.0f, 8.0f});
    const PolygonDynamicMaterial source("tiles.png", Color::RED, 30.0f, {3.0f, 2.0f}, {5.0f, 6.0f});
    target.assign(source);
    EXPECT_EQ(target.getRepeat(), Vector2<float>(7.0f, 8.0f));
    keo::PolylineGraphics graphics;
    target.update(graphics, false);
    EXPECT_EQ(target.getRepeat(), Vector2<float>(3.0f, 2.0f));
}

TEST(PolygonDynamicMaterialTest, FirstUpdateBuildsTheMovingImagePropertyFromTheValues) {
    PolygonDynamicMaterial material = scrollingTiles();
    const auto property = material._getMaterial(false);
    const auto& wall = *property->asWallDynamicMaterialProperty();
    EXPECT_EQ(wall.getColor(), Color::RED);
    EXPECT_EQ(wall.getRate(), 30.0f);
    EXPECT_EQ(wall.getImage(), keo::ImageSource(std::string("tiles.png")));
    EXPECT_EQ(wall.getRepeat(), Vector2<float>(5.0f, 6.0f)); // no update derived it yet
    EXPECT_EQ(wall.getMovementDirection(), Vector2<float>(0.0f, 1.0f));
    EXPECT_FALSE(wall.isDynamic());
}

TEST(PolygonDynamicMaterialTest, LaterUpdateRefreshesTheMovementOnlyWhenChanged) {
    PolygonDynamicMaterial material = scrollingTiles();
    auto& wall = *material._getMaterial(false)->asWallDynamicMaterialProperty();
    wall.setRate(1.0f);
    wall.setImage(std::string("other.png"));
    wall.setMovementDirection({1.0f, 1.0f});
    wall.setDynamic(true);
    wall.setRepeat({9.0f, 9.0f});
    material._getMaterial(false);
    EXPECT_EQ(wall.getRate(), 1.0f);
    EXPECT_EQ(wall.getImage(), keo::ImageSource(std::string("other.png")));
    EXPECT_EQ(wall.getMovementDirection(), Vector2<float>(1.0f, 1.0f));
    EXPECT_TRUE(wall.isDynamic());
    EXPECT_EQ(wall.getRepeat(), Vector2<float>(5.0f, 6.0f)); // the repeat is pushed every time
    material.setColor(Color::BLUE);
    material._getMaterial(false);
    EXPECT_EQ(wall.getRate(), 30.0f);
    EXPECT_EQ(wall.getImage(), keo::ImageSource(std::string("tiles.png")));
    EXPECT_EQ(wall.getMovementDirection(), Vector2<float>(0.0f, 1.0f));
    EXPECT_FALSE(wall.isDynamic());
}

TEST(PolygonDynamicMaterialTest, CountUnitWithTileSizeFourByTwoSetsRepeatFourByTwoOnAnyGraphics) {
    PolygonDynamicMaterial material;
    material.setTileSize({4.0f, 2.0f});
    keo::PolylineGraphics line;
    const auto polygon = keo::Feature::test::polygonOfDegrees(10.0, -0.5, 11.0, 0.5);
    const auto wall = keo::Feature::test::wallOf1000By50();
    for (keo::GeometryGraphics* graphics :
         std::vector<keo::GeometryGraphics*>{&line, polygon.get(), wall.get()}) {
        material.setRepeat({1.0f, 1.0f});
        material.update(*graphics, false);
        EXPECT_EQ(material.getRepeat(), Vector2<float>(4.0f, 2.0f));
        EXPECT_EQ(wallProperty(*graphics).getRepeat(), Vector2<float>(4.0f, 2.0f));
    }
}

TEST(PolygonDynamicMaterialTest, MeterUnitOnOtherGraphicsLeavesTheRepeatAsItIs) {
    PolygonDynamicMaterial material;
    material.setTileSizeUnit(ImageTileSizeUnit::Meter);
    material.setRepeat({5.0f, 6.0f});
    keo::PolylineGraphics line;
    material.update(line, false);
    EXPECT_EQ(material.getRepeat(), Vector2<float>(5.0f, 6.0f));
    EXPECT_EQ(wallProperty(line).getRepeat(), Vector2<float>(5.0f, 6.0f));
}

TEST(PolygonDynamicMaterialTest, HighlightUpdateShowsTheHighlightColourAndANormalOneRestoresIt) {
    PolygonDynamicMaterial material = scrollingTiles();
    keo::PolylineGraphics graphics;
    material.update(graphics, true);
    EXPECT_EQ(wallProperty(graphics).getColor(), Color::HIGHLIGHTCOLOR);
    material.update(graphics, false);
    EXPECT_EQ(wallProperty(graphics).getColor(), Color::RED);
}

} // namespace
