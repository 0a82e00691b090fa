// The repeat count that ImageMaterial and PolygonDynamicMaterial derive from a tile size in
// metres over the polygon or wall graphics they paint, checked through both kinds.

#include "Feature/ImageMaterial.h"
#include "Feature/ImageTileSizeUnit.h"
#include "Feature/PolygonDynamicMaterial.h"

#include "FeatureTestSupport.h"
#include "MaterialTestSupport.h"

#include "Data/ImageMaterialProperty.h"
#include "Data/PolylineGraphics.h"
#include "Data/WallDynamicMaterialProperty.h"

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>
#include <string>

namespace {

using keo::GeometryGraphics;
using keo::Vector2;
using keo::Feature::ImageMaterial;
using keo::Feature::ImageTileSizeUnit;
using keo::Feature::PolygonDynamicMaterial;
using keo::Feature::test::EventRecorder;
using keo::Feature::test::polygonOfDegrees;
using keo::Feature::test::takeChangedFlag;
using keo::Feature::test::wallOf;
using keo::Feature::test::wallOf1000By50;

// The repeat a graphics' material property shows, for each kind's property class.
template <typename M>
Vector2<float> shownRepeat(const GeometryGraphics& graphics);

template <>
Vector2<float> shownRepeat<ImageMaterial>(const GeometryGraphics& graphics) {
    return graphics.getMaterial()->asImageMaterialProperty()->getRepeat();
}

template <>
Vector2<float> shownRepeat<PolygonDynamicMaterial>(const GeometryGraphics& graphics) {
    return graphics.getMaterial()->asWallDynamicMaterialProperty()->getRepeat();
}

template <typename M>
class TileRepeatTest : public ::testing::Test {
protected:
    TileRepeatTest() {
        material_.setTileSizeUnit(ImageTileSizeUnit::Meter);
        material_.setTileSize({100.0f, 100.0f});
    }

    Vector2<float> repeatOn(GeometryGraphics& graphics) {
        material_.update(graphics, false);
        return shownRepeat<M>(graphics);
    }

    M material_;
};

using TilingKinds = ::testing::Types<ImageMaterial, PolygonDynamicMaterial>;
TYPED_TEST_SUITE(TileRepeatTest, TilingKinds);

TYPED_TEST(TileRepeatTest, WallOfTwoPositions1000MetresApartFrom0To50MetresGivesTenByHalf) {
    const auto wall = wallOf1000By50();
    EXPECT_EQ(this->repeatOn(*wall), Vector2<float>(10.0f, 0.5f));
}

TYPED_TEST(TileRepeatTest, WallLengthAddsTheStraightDistancesBetweenConsecutivePositions) {
    const auto wall =
        wallOf({{0.0, 0.0, 6378137.0}, {300.0, 0.0, 6378137.0}, {300.0, 400.0, 6378137.0}},
               {0.0, 0.0, 0.0}, {10.0, 10.0, 10.0});
    EXPECT_EQ(this->repeatOn(*wall).x, 7.0f); // 300 m + 400 m over 100 m tiles
}

TYPED_TEST(TileRepeatTest, WallHeightIsTheLargestSpanOverThePositions) {
    const auto wall =
        wallOf({{6378137.0, 0.0, 0.0}, {6378137.0, 1000.0, 0.0}}, {10.0, 20.0}, {40.0, 90.0});
    EXPECT_EQ(this->repeatOn(*wall).y, 0.7f); // max(30, 70) over 100 m
}

TYPED_TEST(TileRepeatTest, WallWhoseTopsAreBelowTheFeetHasHeightZero) {
    const auto wall =
        wallOf({{6378137.0, 0.0, 0.0}, {6378137.0, 1000.0, 0.0}}, {50.0, 50.0}, {0.0, 10.0});
    EXPECT_EQ(this->repeatOn(*wall).y, 0.0f);
}

TYPED_TEST(TileRepeatTest, WallWithTooShortHeightListsThrowsOutOfRangeAndHandsNothingOver) {
    const auto wall = wallOf({{6378137.0, 0.0, 0.0}, {6378137.0, 1000.0, 0.0}}, {0.0}, {50.0});
    try {
        this->material_.update(*wall, false);
        FAIL() << "no exception";
    } catch (const std::out_of_range& error) {
        EXPECT_EQ(std::string(error.what()), "invalid vector subscript");
    }
    EXPECT_EQ(wall->getMaterial(), nullptr);
}

TYPED_TEST(TileRepeatTest, FailedWallUpdateLeavesTheRepeatAndTheGraphicsAsTheyWere) {
    const auto good = wallOf1000By50();
    this->material_.update(*good, false);
    const auto shortLists =
        wallOf({{6378137.0, 0.0, 0.0}, {6378137.0, 3000.0, 0.0}}, {0.0, 0.0}, {200.0});
    keo::PolylineGraphics before;
    this->material_.update(before, false);
    EXPECT_THROW(this->material_.update(*shortLists, false), std::out_of_range);
    EXPECT_EQ(shortLists->getMaterial(), nullptr);
    this->material_.update(before, false); // other graphics show the last derived repeat
    EXPECT_EQ(shownRepeat<TypeParam>(before), Vector2<float>(10.0f, 0.5f));
}

TYPED_TEST(TileRepeatTest, PolygonNearerThePoleGetsFewerHorizontalRepeats) {
    const auto equator = polygonOfDegrees(10.0, -0.5, 11.0, 0.5);
    const auto north = polygonOfDegrees(10.0, 59.5, 11.0, 60.5);
    const Vector2<float> atEquator = this->repeatOn(*equator);
    const Vector2<float> atSixty = this->repeatOn(*north);
    // One degree of arc on a sphere of the equatorial radius, in 100 m tiles.
    const double degreeInTiles = 6378137.0 * 3.14159265358979323846 / 180.0 / 100.0;
    EXPECT_NEAR(atEquator.x, degreeInTiles, 1e-3);
    EXPECT_NEAR(atEquator.y, degreeInTiles, 1e-3);
    EXPECT_LT(atSixty.x, atEquator.x);
    EXPECT_NEAR(atSixty.x, degreeInTiles * 0.5, 1e-3); // cos 60 degrees
    EXPECT_NEAR(atSixty.y, atEquator.y, 1e-3);         // north-south extent not shortened
}

TYPED_TEST(TileRepeatTest, OtherGraphicsKeepTheLastDerivedRepeat) {
    const auto wall = wallOf1000By50();
    this->repeatOn(*wall);
    keo::PolylineGraphics line;
    EXPECT_EQ(this->repeatOn(line), Vector2<float>(10.0f, 0.5f));
}

TYPED_TEST(TileRepeatTest, ZeroTileSizeGivesAnUnboundedRepeatWithoutAnyCheck) {
    this->material_.setTileSize({0.0f, 100.0f});
    const auto wall = wallOf1000By50();
    const Vector2<float> repeat = this->repeatOn(*wall);
    EXPECT_TRUE(std::isinf(repeat.x));
    EXPECT_EQ(repeat.y, 0.5f);
}

TYPED_TEST(TileRepeatTest, DerivingTheRepeatRaisesNoEventAndLeavesTheChangedFlag) {
    const auto wall = wallOf1000By50();
    const auto polygon = polygonOfDegrees(10.0, -0.5, 11.0, 0.5);
    this->material_.update(*wall, false);
    EventRecorder recorder(this->material_);
    this->material_.update(*polygon, false);
    EXPECT_EQ(recorder.events, "");
    EXPECT_FALSE(takeChangedFlag(this->material_, *polygon->getMaterial()));
    EXPECT_GT(shownRepeat<TypeParam>(*polygon).x, 100.0f); // yet the new repeat is shown
}

} // namespace
