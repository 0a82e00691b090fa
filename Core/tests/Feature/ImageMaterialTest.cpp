#include "Feature/ImageMaterial.h"

#include "Feature/ImageTileSizeUnit.h"

#include "FeatureTestSupport.h"
#include "MaterialTestSupport.h"

#include "Common/Matrix2.h"
#include "Data/Image.h"
#include "Data/ImageMaterialProperty.h"
#include "Data/PolylineGraphics.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {

using keo::Color;
using keo::Image;
using keo::ImageMaterialProperty;
using keo::Matrix2;
using keo::Radian;
using keo::Vector2;
using keo::Feature::ImageMaterial;
using keo::Feature::ImageTileSizeUnit;
using keo::Feature::Material;
using keo::Feature::test::EventRecorder;
using keo::Feature::test::expectSetterRule;
using keo::Feature::test::takeChangedFlag;

const ImageMaterialProperty& imageProperty(const keo::GeometryGraphics& graphics) {
    return *graphics.getMaterial()->asImageMaterialProperty();
}

ImageMaterial turnedTiles() {
    ImageMaterial material("tiles.png", {3.0f, 2.0f}, Color::RED);
    material.setOffset({0.25f, 0.5f});
    material.setRotation(Radian(0.3));
    return material;
}

TEST(ImageMaterialTest, DefaultsAreAnEmptyPathOneTileCountNoOffsetNoRotationWhite) {
    const ImageMaterial material;
    EXPECT_EQ(material.getImage(), keo::ImageSource(std::string()));
    EXPECT_EQ(material.getTileSize(), Vector2<float>(1.0f, 1.0f));
    EXPECT_EQ(material.getTileSizeUnit(), ImageTileSizeUnit::Count);
    EXPECT_EQ(material.getOffset(), Vector2<float>(0.0f, 0.0f));
    EXPECT_EQ(material.getRotation(), Radian(0.0));
    EXPECT_EQ(material.getColor(), Color::WHITE);
    EXPECT_FALSE(material.isEnableBreathing());
    EXPECT_EQ(material.getBreathingRate(), 100.0f);
}

TEST(ImageMaterialTest, ConstructorTakesPathTileSizeAndColourWithCountUnitNoOffsetNoRotation) {
    const ImageMaterial material("tiles.png", {3.0f, 2.0f}, Color::RED);
    EXPECT_EQ(material.getImage(), keo::ImageSource(std::string("tiles.png")));
    EXPECT_EQ(material.getTileSize(), Vector2<float>(3.0f, 2.0f));
    EXPECT_EQ(material.getColor(), Color::RED);
    EXPECT_EQ(material.getTileSizeUnit(), ImageTileSizeUnit::Count);
    EXPECT_EQ(material.getOffset(), Vector2<float>(0.0f, 0.0f));
    EXPECT_EQ(material.getRotation(), Radian(0.0));
}

TEST(ImageMaterialTest, RepeatStartsAtZeroUntilAnUpdateDerivesIt) {
    ImageMaterial material("tiles.png", {3.0f, 2.0f}, Color::RED);
    EXPECT_EQ(material._getMaterial(false)->asImageMaterialProperty()->getRepeat(),
              Vector2<float>(0.0f, 0.0f));
}

TEST(ImageMaterialTest, CopyConstructorCopiesEveryValueButResetsTheRepeatToZero) {
    ImageMaterial material = turnedTiles();
    keo::PolylineGraphics graphics;
    material.update(graphics, false); // repeat (3, 2)
    const ImageMaterial copy(material);
    EXPECT_EQ(copy.getImage(), material.getImage());
    EXPECT_EQ(copy.getTileSize(), material.getTileSize());
    EXPECT_EQ(copy.getOffset(), material.getOffset());
    EXPECT_EQ(copy.getRotation(), material.getRotation());
    EXPECT_EQ(copy.getColor(), material.getColor());
    const auto property = copy.clone()->_getMaterial(false);
    EXPECT_EQ(property->asImageMaterialProperty()->getRepeat(), Vector2<float>(0.0f, 0.0f));
    ImageMaterial direct(material);
    EXPECT_EQ(direct._getMaterial(false)->asImageMaterialProperty()->getRepeat(),
              Vector2<float>(0.0f, 0.0f));
}

TEST(ImageMaterialTest, EverySetterFollowsTheEditRuleAndSetsTheChangedFlag) {
    const ImageMaterial prototype;
    expectSetterRule(prototype, &ImageMaterial::setImage, &ImageMaterial::getImage,
                     keo::ImageSource(std::string("tiles.png")));
    expectSetterRule(prototype, &ImageMaterial::setTileSize, &ImageMaterial::getTileSize,
                     Vector2<float>(3.0f, 2.0f));
    expectSetterRule(prototype, &ImageMaterial::setTileSizeUnit, &ImageMaterial::getTileSizeUnit,
                     ImageTileSizeUnit::Meter);
    expectSetterRule(prototype, &ImageMaterial::setOffset, &ImageMaterial::getOffset,
                     Vector2<float>(0.25f, 0.5f));
    expectSetterRule(prototype, &ImageMaterial::setRotation, &ImageMaterial::getRotation,
                     Radian(0.3));
    expectSetterRule(prototype, &ImageMaterial::setColor, &ImageMaterial::getColor, Color::RED);
}

TEST(ImageMaterialTest, ImageIsEqualBySameAlternativeThenTextOrImageIdentity) {
    ImageMaterial material;
    EventRecorder recorder(material);
    const std::string path = "tiles.png";
    material.setImage(path);
    material.setImage(std::string("tiles.png")); // same text, another string
    EXPECT_EQ(recorder.events, "LUD");
    const auto image = std::make_shared<Image>(1, 1, std::vector<std::uint8_t>{1, 2, 3, 4});
    material.setImage(image);
    material.setImage(image); // the same object
    EXPECT_EQ(recorder.events, "LUDLUD");
    material.setImage(std::make_shared<Image>(*image)); // an equal image, another object
    EXPECT_EQ(recorder.events, "LUDLUDLUD");
    material.setImage(std::shared_ptr<Image>()); // null image, same alternative
    material.setImage(std::string());            // empty path, other alternative
    EXPECT_EQ(recorder.events, "LUDLUDLUDLUDLUD");
}

TEST(ImageMaterialTest, AssignCopiesEveryValueInOrderButNotTheRepeat) {
    ImageMaterial source = turnedTiles();
    source.setTileSizeUnit(ImageTileSizeUnit::Meter);
    const auto trace = keo::Feature::test::traceAssign<ImageMaterial>(
        ImageMaterial(), source,
        {{"image", [](const auto& a, const auto& b) { return a.getImage() == b.getImage(); }},
         {"tileSize",
          [](const auto& a, const auto& b) { return a.getTileSize() == b.getTileSize(); }},
         {"tileSizeUnit",
          [](const auto& a, const auto& b) { return a.getTileSizeUnit() == b.getTileSizeUnit(); }},
         {"offset", [](const auto& a, const auto& b) { return a.getOffset() == b.getOffset(); }},
         {"rotation",
          [](const auto& a, const auto& b) { return a.getRotation() == b.getRotation(); }},
         {"color", [](const auto& a, const auto& b) { return a.getColor() == b.getColor(); }}});
    EXPECT_EQ(trace.order, (std::vector<std::string>{"image", "tileSize", "tileSizeUnit", "offset",
                                                     "rotation", "color"}));
    EXPECT_EQ(trace.events, "LUDLUDLUDLUDLUDLUD");

    keo::PolylineGraphics graphics;
    source.setTileSizeUnit(ImageTileSizeUnit::Count);
    source.update(graphics, false); // the source's repeat is now (3, 2)
    ImageMaterial target;
    target.assign(source);
    EXPECT_EQ(target._getMaterial(false)->asImageMaterialProperty()->getRepeat(),
              Vector2<float>(0.0f, 0.0f));
}

TEST(ImageMaterialTest, FirstUpdateBuildsThePropertyFromTheValues) {
    const ImageMaterial material = turnedTiles();
    keo::PolylineGraphics graphics;
    material.update(graphics, false);
    const auto& property = imageProperty(graphics);
    EXPECT_EQ(property.getImage(), keo::ImageSource(std::string("tiles.png")));
    EXPECT_EQ(property.getRepeat(), Vector2<float>(3.0f, 2.0f));
    EXPECT_EQ(property.getOffset(), Vector2<float>(0.25f, 0.5f));
    EXPECT_EQ(property.getMatrix(), Matrix2::fromRotation(Radian(0.3)));
    EXPECT_EQ(property.getColor(), Color::RED);
}

TEST(ImageMaterialTest, LaterUpdateRefreshesImageAndOffsetOnlyWhenChanged) {
    ImageMaterial material = turnedTiles();
    auto& property = *material._getMaterial(false)->asImageMaterialProperty();
    property.setImage(std::string("other.png"));
    property.setOffset({9.0f, 9.0f});
    material._getMaterial(false);
    EXPECT_EQ(property.getImage(), keo::ImageSource(std::string("other.png")));
    EXPECT_EQ(property.getOffset(), Vector2<float>(9.0f, 9.0f));
    material.setColor(Color::BLUE);
    material._getMaterial(false);
    EXPECT_EQ(property.getImage(), keo::ImageSource(std::string("tiles.png")));
    EXPECT_EQ(property.getOffset(), Vector2<float>(0.25f, 0.5f));
}

TEST(ImageMaterialTest, RotationIsAsGivenOnTheFirstBuildAndNegatedOnLaterRefreshes) {
    ImageMaterial material = turnedTiles();
    keo::PolylineGraphics graphics;
    material.update(graphics, false);
    EXPECT_EQ(imageProperty(graphics).getMatrix(), Matrix2::fromRotation(Radian(0.3)));
    material.update(graphics, false); // clean: the matrix is not pushed
    EXPECT_EQ(imageProperty(graphics).getMatrix(), Matrix2::fromRotation(Radian(0.3)));
    material.setOffset({0.0f, 0.0f});
    material.update(graphics, false);
    EXPECT_EQ(imageProperty(graphics).getMatrix(), Matrix2::fromRotation(Radian(-0.3)));
}

TEST(ImageMaterialTest, CountUnitWithTileSizeThreeByTwoShowsRepeatThreeByTwo) {
    const ImageMaterial material("tiles.png", {3.0f, 2.0f}, Color::WHITE);
    keo::PolylineGraphics graphics;
    material.update(graphics, false);
    EXPECT_EQ(imageProperty(graphics).getRepeat(), Vector2<float>(3.0f, 2.0f));
}

TEST(ImageMaterialTest, MeterUnitOnOtherGraphicsKeepsRepeatZeroUntilAPolygonOrWallIsPainted) {
    ImageMaterial material("tiles.png", {100.0f, 100.0f}, Color::WHITE);
    material.setTileSizeUnit(ImageTileSizeUnit::Meter);
    keo::PolylineGraphics line;
    material.update(line, false);
    EXPECT_EQ(imageProperty(line).getRepeat(), Vector2<float>(0.0f, 0.0f));
    const auto wall = keo::Feature::test::wallOf1000By50();
    material.update(*wall, false);
    material.update(line, false);
    EXPECT_EQ(imageProperty(line).getRepeat(), Vector2<float>(10.0f, 0.5f));
}

} // namespace
