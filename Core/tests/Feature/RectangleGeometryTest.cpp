#include "Feature/RectangleGeometry.h"

#include "Common/Cartographic.h"
#include "Common/Color.h"
#include "Common/Ellipsoid.h"
#include "Common/InvalidParametersException.h"
#include "Common/Math.h"
#include "Data/ColorMaterialProperty.h"
#include "Data/Entity.h"
#include "Data/LabelGraphics.h"
#include "Data/PointGraphics.h"
#include "Data/PositionProperty.h"
#include "Data/RectangleGraphics.h"
#include "Data/TimePoint.h"
#include "Data/WallGraphics.h"
#include "EntityTestSupport.h"
#include "Feature/ColorMaterial.h"
#include "Feature/EllipseStyle.h"
#include "Feature/ExtrusionSymbol.h"
#include "Feature/Feature.h"
#include "Feature/LabelSymbol.h"
#include "Feature/LineSymbol.h"
#include "Feature/PointGeometry.h"
#include "Feature/PolygonStyle.h"
#include "Feature/PolygonSymbol.h"
#include "FeatureTestSupport.h"
#include "RendererModel.h"
#include "SymbolTestSupport.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace {

using keo::Cartographic;
using keo::Color;
using keo::DistanceDisplayCondition;
using keo::Ellipsoid;
using keo::Entity;
using keo::GlobeRectangle;
using keo::HeightReference;
using keo::InvalidParametersException;
using keo::Radian;
using keo::RectangleGraphics;
using keo::Vector3;
using keo::WallGraphics;
using keo::Feature::ColorMaterial;
using keo::Feature::ExtrusionSymbol;
using keo::Feature::Feature;
using keo::Feature::Geometry;
using keo::Feature::LabelSymbol;
using keo::Feature::PolygonStyle;
using keo::Feature::PolygonSymbol;
using keo::Feature::RectangleGeometry;
using keo::Feature::test::CapturedLog;
using keo::Feature::test::EventRecorder;
using keo::Feature::test::expectAssignKindLogged;
using keo::Feature::test::GeometryScene;
using keo::Feature::test::graphicsOf;
using keo::Feature::test::positionOf;
using keo::Feature::test::RendererModel;

constexpr const char* LABEL = "label-symbol";
constexpr const char* HINT_LINE = "hint-line";
constexpr const char* WALL = "extrusion-wall-symbol";
// "矩形的范围错误." in the GBK code page.
const std::string EMPTY_RECTANGLE_GBK =
    "\xBE\xD8\xD0\xCE\xB5\xC4\xB7\xB6\xCE\xA7\xB4\xED\xCE\xF3\x2E";

// A stadium-sized rectangle near Beijing, in degrees.
GlobeRectangle stadium() {
    return GlobeRectangle(keo::Math::toRadians(116.39), keo::Math::toRadians(39.99),
                          keo::Math::toRadians(116.40), keo::Math::toRadians(40.00));
}

Vector3<double> cartesian(double westRadians, double southRadians) {
    return Ellipsoid::WGS84.cartographicToCartesian(
        Cartographic(Radian(westRadians), Radian(southRadians), 0.0));
}

Vector3<double> centreOf(const GlobeRectangle& rectangle) {
    return Ellipsoid::WGS84.cartographicToCartesian(rectangle.computeCenter());
}

std::shared_ptr<PolygonSymbol> fillOf(const Color& color) {
    return std::make_shared<PolygonSymbol>(std::make_shared<ColorMaterial>(color));
}

std::shared_ptr<ExtrusionSymbol> extrusionOf(double height) {
    auto extrusion = std::make_shared<ExtrusionSymbol>();
    extrusion->setHeight(height);
    extrusion->setBodySymbol(fillOf(Color(0.8f, 0.8f, 0.8f, 1.0f)));
    return extrusion;
}

struct RectangleScene : GeometryScene<RectangleGeometry, PolygonStyle> {
    RectangleScene()
        : GeometryScene("stadium", stadium()) {
        style.setPolygonSymbol(fillOf(Color::GREEN));
    }

    const RectangleGraphics* rectangle() const { return graphicsOf<RectangleGraphics>(*root); }
};

// --- data, setters, copy and assign ------------------------------------------------------------

TEST(RectangleGeometryTest, ANewRectangleIsOfKind303EmptyAndNotRotated) {
    const RectangleGeometry rectangle;
    EXPECT_EQ(rectangle.getType(), Geometry::Type::Rectangle);
    EXPECT_EQ(static_cast<int>(rectangle.getType()), 303);
    EXPECT_EQ(rectangle.getCoordinates(), GlobeRectangle::EMPTY);
    EXPECT_TRUE(rectangle.getCoordinates().isEmpty());
    EXPECT_EQ(rectangle.getRotate().value(), 0.0);
    const RectangleGeometry given(stadium());
    EXPECT_EQ(given.getCoordinates(), stadium());
    EXPECT_EQ(given.getRotate().value(), 0.0);
}

TEST(RectangleGeometryTest, SettingTheSameCoordinatesTwiceRaisesTwiceAndTheSameRotationOnce) {
    RectangleGeometry rectangle;
    const EventRecorder recorder(rectangle);
    rectangle.setCoordinates(stadium());
    rectangle.setCoordinates(stadium());
    EXPECT_EQ(recorder.events, "LUDLUD");
    rectangle.setRotate(Radian(0.5));
    rectangle.setRotate(Radian(0.5));
    EXPECT_EQ(recorder.events, "LUDLUDLUD");
    EXPECT_EQ(rectangle.getCoordinates(), stadium());
    EXPECT_EQ(rectangle.getRotate().value(), 0.5);
}

TEST(RectangleGeometryTest, SettingTheStoredCoordinatesThemselvesRaisesNothing) {
    RectangleGeometry rectangle(stadium());
    const EventRecorder recorder(rectangle);
    rectangle.setCoordinates(rectangle.getCoordinates());
    EXPECT_EQ(recorder.events, "");
}

TEST(RectangleGeometryTest,
     AssignCopiesTheConditionTheCoordinatesAlwaysAndTheRotationWhenItDiffers) {
    RectangleGeometry source(stadium());
    source.setDistanceDisplayCondition(DistanceDisplayCondition(1.0f, 9.0f));
    RectangleGeometry target(stadium());
    {
        const EventRecorder recorder(target);
        target.assign(source);
        EXPECT_EQ(recorder.events, "LUDLUD"); // the condition, the coordinates; the rotation is 0
    }
    EXPECT_EQ(target.getDistanceDisplayCondition(), DistanceDisplayCondition(1.0f, 9.0f));
    source.setRotate(Radian(1.0));
    const EventRecorder recorder(target);
    target.assign(source);
    EXPECT_EQ(recorder.events, "LUDLUD"); // the coordinates again, then the rotation
    EXPECT_EQ(target.getRotate().value(), 1.0);
    const EventRecorder self(target);
    target.assign(target); // the coordinates are its own: nothing at all
    EXPECT_EQ(self.events, "");
}

TEST(RectangleGeometryTest, AssignFromAnotherKindLogsAndChangesNothing) {
    const CapturedLog log;
    RectangleGeometry target(stadium());
    const EventRecorder recorder(target);
    target.assign(keo::Feature::PointGeometry(Cartographic()));
    EXPECT_EQ(recorder.events, "");
    EXPECT_EQ(target.getCoordinates(), stadium());
    expectAssignKindLogged(log, "Core/src/Feature/RectangleGeometry",
                           "keo::Feature::RectangleGeometry::assign");
}

TEST(RectangleGeometryTest, ACloneAndACopyHaveTheFieldsAndEventsOfTheirOwn) {
    RectangleGeometry source(stadium());
    source.setRotate(Radian(0.25));
    source.setDistanceDisplayCondition(DistanceDisplayCondition(0.0f, 100.0f));
    const EventRecorder sourceRecorder(source);
    const auto cloned = source.clone();
    ASSERT_EQ(cloned->getType(), Geometry::Type::Rectangle);
    auto& clone = static_cast<RectangleGeometry&>(*cloned);
    RectangleGeometry copy(source);
    for (RectangleGeometry* each : {&clone, &copy}) {
        EXPECT_EQ(each->getCoordinates(), stadium());
        EXPECT_EQ(each->getRotate().value(), 0.25);
        EXPECT_EQ(each->getDistanceDisplayCondition(), DistanceDisplayCondition(0.0f, 100.0f));
        const EventRecorder recorder(*each);
        each->setRotate(Radian(0.0));
        EXPECT_EQ(recorder.events, "LUD");
    }
    EXPECT_EQ(sourceRecorder.events, "");
}

// --- the empty rectangle -----------------------------------------------------------------------

TEST(RectangleGeometryTest, ADefaultConstructedRectangleThrowsOnItsFirstUpdate) {
    RectangleScene scene;
    RectangleGeometry empty;
    for (int step = 0; step < 2; ++step) {
        SCOPED_TRACE(step);
        try {
            if (step == 0) {
                empty._updateGeometry(*scene.root, &scene.style);
            } else {
                empty._updateStyle(*scene.root, scene.feature, &scene.style);
            }
            FAIL() << "no exception";
        } catch (const InvalidParametersException& e) {
            EXPECT_EQ(e.getErrorCode(), 2);
            EXPECT_EQ(e.getMessage(), EMPTY_RECTANGLE_GBK);
            EXPECT_EQ(e.getFunction(), "RectangleGeometry::update");
            EXPECT_EQ(e.getFile(), "Core/src/Feature/RectangleGeometry");
            EXPECT_GT(e.getLine(), 0);
        }
    }
    // Nothing was changed before the throw.
    EXPECT_EQ(scene.root->getGeometryGraphics(), nullptr);
    EXPECT_TRUE(scene.root->getChildren().empty());
    EXPECT_EQ(scene.root->getPosition(), nullptr);
}

TEST(RectangleGeometryTest, TheEmptyRectangleMessageIsTheGbkTextOfItsUtf8Words) {
    // The UTF-8 words are 21 bytes; their GBK text is 15, two per character and the full stop.
    EXPECT_EQ(std::string("矩形的范围错误.").size(), 22u);
    EXPECT_EQ(EMPTY_RECTANGLE_GBK.size(), 15u);
    try {
        RectangleGeometry().setRotate(Radian(1.0));
        Entity root;
        RectangleGeometry()._updateGeometry(root, nullptr);
        FAIL() << "no exception";
    } catch (const InvalidParametersException& e) {
        EXPECT_EQ(e.getMessage(), EMPTY_RECTANGLE_GBK);
        EXPECT_NE(std::string(e.what()).find(EMPTY_RECTANGLE_GBK), std::string::npos);
    }
}

TEST(RectangleGeometryTest, AnEmptyRectangleInAFeatureFailsTheUpdateAndASetRectangleDrawsAgain) {
    Feature feature(std::uint64_t{3});
    auto geometry = std::make_shared<RectangleGeometry>();
    auto style = std::make_shared<PolygonStyle>();
    style->setPolygonSymbol(fillOf(Color::GREEN));
    feature.setGeometry(geometry);
    feature.setStyle(style);
    EXPECT_THROW(feature._updateEntityInCull(false), InvalidParametersException);
    EXPECT_EQ(feature._getImplHandle()->getGeometryGraphics(), nullptr);
    geometry->setCoordinates(stadium());
    feature._updateEntityInCull(false);
    EXPECT_NE(graphicsOf<RectangleGraphics>(*feature._getImplHandle()), nullptr);
}

// --- the rectangle graphics --------------------------------------------------------------------

TEST(RectangleGeometryTest, TheGraphicsCarryTheCoordinatesTheRotationAndTheTextureRotation) {
    RectangleScene scene;
    scene.geometry.setRotate(Radian(0.3));
    ASSERT_TRUE(scene.updateBoth());
    const RectangleGraphics* rectangle = scene.rectangle();
    ASSERT_NE(rectangle, nullptr);
    EXPECT_EQ(rectangle->getCoordinates(), stadium());
    EXPECT_EQ(rectangle->getRotation().value(), 0.3);
    EXPECT_EQ(rectangle->getStRotation().value(), 0.3);
    EXPECT_TRUE(rectangle->isShow());
    EXPECT_TRUE(rectangle->isFill());
    ASSERT_NE(rectangle->getMaterial(), nullptr);
    EXPECT_EQ(rectangle->getMaterial()->getType(), keo::ColorMaterialProperty::TYPE);
    EXPECT_EQ(rectangle->getMaterial()->getColor(), Color::GREEN);
}

TEST(RectangleGeometryTest, TheGeometryStepTurnsAndMovesTheRectangleTheWallAndTheLabel) {
    RectangleScene scene;
    scene.style.setExtrusionSymbol(extrusionOf(30.0));
    scene.style.setLabelSymbol(std::make_shared<LabelSymbol>());
    ASSERT_TRUE(scene.updateBoth());
    const GlobeRectangle moved(stadium().getWest() + 0.001, stadium().getSouth(),
                               stadium().getEast() + 0.001, stadium().getNorth());
    scene.geometry.setCoordinates(moved);
    scene.geometry.setRotate(Radian(-0.2));
    ASSERT_TRUE(scene.updateGeometry());
    EXPECT_EQ(scene.rectangle()->getCoordinates(), moved);
    EXPECT_EQ(scene.rectangle()->getRotation().value(), -0.2);
    EXPECT_EQ(scene.rectangle()->getStRotation().value(), -0.2);
    const auto* wall = graphicsOf<WallGraphics>(*scene.child(WALL));
    EXPECT_EQ(wall->getPositions()[0], cartesian(moved.getWest(), moved.getSouth()));
    EXPECT_EQ(positionOf(*scene.child(LABEL)), centreOf(moved));
}

TEST(RectangleGeometryTest, GraphicsOfAnotherKindAreRemovedInTheGeometryStep) {
    RectangleScene scene;
    scene.root->setGeometryGraphics(std::make_shared<keo::PointGraphics>());
    ASSERT_TRUE(scene.updateGeometry());
    EXPECT_EQ(scene.root->getGeometryGraphics(), nullptr);
    ASSERT_TRUE(scene.updateStyle());
    EXPECT_NE(scene.rectangle(), nullptr);
}

TEST(RectangleGeometryTest, WithoutAPolygonSymbolThereIsNoRectangleAndAHiddenOneHidesIt) {
    RectangleScene scene;
    scene.style.setPolygonSymbol(nullptr);
    ASSERT_TRUE(scene.updateBoth());
    EXPECT_EQ(scene.root->getGeometryGraphics(), nullptr);
    ASSERT_TRUE(scene.updateStyle());
    EXPECT_EQ(scene.root->getGeometryGraphics(), nullptr);

    scene.style.setPolygonSymbol(fillOf(Color::BLUE));
    ASSERT_TRUE(scene.updateStyle());
    ASSERT_NE(scene.rectangle(), nullptr);
    scene.style.getPolygonSymbol()->setEnabled(false);
    ASSERT_TRUE(scene.updateStyle());
    ASSERT_NE(scene.rectangle(), nullptr);
    EXPECT_FALSE(scene.rectangle()->isShow());
    scene.style.getPolygonSymbol()->setEnabled(true);
    ASSERT_TRUE(scene.updateStyle());
    EXPECT_TRUE(scene.rectangle()->isShow());
    scene.style.setPolygonSymbol(nullptr);
    ASSERT_TRUE(scene.updateStyle());
    EXPECT_EQ(scene.root->getGeometryGraphics(), nullptr);
}

TEST(RectangleGeometryTest, AHiddenPolygonSymbolMakesNoRectangleOnAFreshEntity) {
    RectangleScene scene;
    scene.style.getPolygonSymbol()->setEnabled(false);
    ASSERT_TRUE(scene.updateBoth());
    EXPECT_EQ(scene.root->getGeometryGraphics(), nullptr);
}

TEST(RectangleGeometryTest, TheConditionOfTheFeatureAndTheGeometryIntersectOnTheRectangle) {
    RectangleScene scene;
    scene.feature.setDistanceDisplayCondition(DistanceDisplayCondition(10.0f, 1000.0f));
    scene.geometry.setDistanceDisplayCondition(DistanceDisplayCondition(100.0f, 5000.0f));
    ASSERT_TRUE(scene.updateBoth());
    EXPECT_EQ(scene.rectangle()->getDistanceDisplayCondition(),
              DistanceDisplayCondition(100.0f, 1000.0f));
}

// --- the wall ----------------------------------------------------------------------------------

TEST(RectangleGeometryTest, TheWallHasFivePositionsTheLastEqualToTheFirstWhateverTheRotation) {
    for (const double rotate : {0.0, 0.7, -2.0}) {
        SCOPED_TRACE(rotate);
        RectangleScene scene;
        scene.geometry.setRotate(Radian(rotate));
        scene.style.setExtrusionSymbol(extrusionOf(40.0));
        ASSERT_TRUE(scene.updateBoth());
        const auto* wall = graphicsOf<WallGraphics>(*scene.child(WALL));
        ASSERT_NE(wall, nullptr);
        const GlobeRectangle r = stadium();
        const std::vector<Vector3<double>> expected{
            cartesian(r.getWest(), r.getSouth()), cartesian(r.getEast(), r.getSouth()),
            cartesian(r.getEast(), r.getNorth()), cartesian(r.getWest(), r.getNorth()),
            cartesian(r.getWest(), r.getSouth())};
        EXPECT_EQ(wall->getPositions(), expected);
        EXPECT_EQ(wall->getPositions().front(), wall->getPositions().back());
        ASSERT_TRUE(scene.updateGeometry());
        EXPECT_EQ(wall->getPositions(), expected);
    }
}

TEST(RectangleGeometryTest, TheWallRisesFromTheGroundToTheExtrusionOrSinksToANegativeOne) {
    RectangleScene scene;
    scene.style.setExtrusionSymbol(extrusionOf(40.0));
    ASSERT_TRUE(scene.updateBoth());
    const auto* wall = graphicsOf<WallGraphics>(*scene.child(WALL));
    EXPECT_EQ(wall->getMinimumHeights(), std::vector<double>(5, 0.0));
    EXPECT_EQ(wall->getMaximumHeights(), std::vector<double>(5, 40.0));
    EXPECT_TRUE(wall->isFill());
    scene.style.getExtrusionSymbol()->setHeight(-15.0);
    ASSERT_TRUE(scene.updateStyle());
    EXPECT_EQ(wall->getMinimumHeights(), std::vector<double>(5, -15.0));
    EXPECT_EQ(wall->getMaximumHeights(), std::vector<double>(5, 0.0));
}

TEST(RectangleGeometryTest, AnAbsentOrHiddenExtrusionRemovesTheWallAndReportsIt) {
    Feature feature(std::uint64_t{2});
    auto geometry = std::make_shared<RectangleGeometry>(stadium());
    auto style = std::make_shared<PolygonStyle>();
    style->setPolygonSymbol(fillOf(Color::GREEN));
    style->setExtrusionSymbol(extrusionOf(25.0));
    feature.setGeometry(geometry);
    feature.setStyle(style);
    RendererModel renderer(feature);
    renderer.frame();
    ASSERT_NE(feature._getImplHandle()->getChildByName(WALL), nullptr);
    style->getExtrusionSymbol()->setEnabled(false);
    renderer.frame();
    EXPECT_EQ(feature._getImplHandle()->getChildByName(WALL), nullptr);
    renderer.expectLiveSetIsTheTree();
    style->getExtrusionSymbol()->setEnabled(true);
    renderer.frame();
    ASSERT_NE(feature._getImplHandle()->getChildByName(WALL), nullptr);
    style->setExtrusionSymbol(nullptr);
    renderer.frame();
    EXPECT_EQ(feature._getImplHandle()->getChildByName(WALL), nullptr);
    renderer.expectLiveSetIsTheTree();
}

// --- label and height reference ----------------------------------------------------------------

TEST(RectangleGeometryTest, TheLabelAndItsHintLineStandAtTheCentre) {
    RectangleScene scene;
    auto label = std::make_shared<LabelSymbol>();
    label->setShowHintLine(true);
    scene.style.setLabelSymbol(label);
    ASSERT_TRUE(scene.updateBoth());
    const auto labelEntity = scene.child(LABEL);
    ASSERT_NE(labelEntity, nullptr);
    EXPECT_EQ(positionOf(*labelEntity), centreOf(stadium()));
    const auto hint = labelEntity->getChildByName(HINT_LINE);
    ASSERT_NE(hint, nullptr);
    EXPECT_EQ(positionOf(*hint), centreOf(stadium()));
    EXPECT_EQ(graphicsOf<keo::LabelGraphics>(*labelEntity)->getText(), "stadium");
}

struct HeightCase {
    HeightReference reference;
    std::optional<keo::ClassificationType> classification;
    const char* warning;
};

const HeightCase HEIGHT_CASES[] = {
    {HeightReference::Absolute, std::nullopt, nullptr},
    {HeightReference::ClampToGround, keo::ClassificationType::Both, nullptr},
    {HeightReference::RelativeToGround, keo::ClassificationType::Both,
     "矩形不支持相对于地表的高度参考，改为使用贴合地表的高度参考。"},
    {HeightReference::ClampToTerrain, keo::ClassificationType::Terrain, nullptr},
    {HeightReference::RelativeToTerrain, keo::ClassificationType::Terrain,
     "矩形不支持相对于地形的高度参考，改为使用贴合地形的高度参考。"},
    {HeightReference::ClampTo3DTiles, keo::ClassificationType::Tiles3D, nullptr},
    {HeightReference::RelativeTo3DTiles, keo::ClassificationType::Tiles3D,
     "矩形不支持相对于3DTiles的高度参考，改为使用贴合3DTiles的高度参考。"},
};

TEST(RectangleGeometryTest, EachHeightReferenceSetsTheClassificationWithTheRectanglesWarning) {
    for (const auto& c : HEIGHT_CASES) {
        SCOPED_TRACE(static_cast<int>(c.reference));
        RectangleScene scene;
        scene.style.setHeightReference(c.reference);
        const CapturedLog log;
        ASSERT_TRUE(scene.updateBoth());
        EXPECT_EQ(scene.rectangle()->getClassificationType(), c.classification);
        const auto records = log.records();
        if (c.warning == nullptr) {
            EXPECT_TRUE(records.empty());
            continue;
        }
        ASSERT_EQ(records.size(), 1u);
        EXPECT_EQ(records[0].message, c.warning);
        EXPECT_EQ(records[0].level, 3);
        EXPECT_EQ(records[0].location.file, "Core/src/Feature/RectangleGeometry");
        EXPECT_EQ(records[0].location.function, "keo::Feature::RectangleGeometry::_updateStyle");
    }
}

TEST(RectangleGeometryTest, HeightReferenceFourLogsTheTerrainWarningAndClassifiesOnTerrain) {
    RectangleScene scene;
    scene.style.setHeightReference(HeightReference::RelativeToTerrain);
    const CapturedLog log;
    ASSERT_TRUE(scene.updateBoth());
    EXPECT_EQ(scene.rectangle()->getClassificationType(), keo::ClassificationType::Terrain);
    ASSERT_EQ(log.records().size(), 1u);
    EXPECT_EQ(log.records()[0].message,
              "矩形不支持相对于地形的高度参考，改为使用贴合地形的高度参考。");
}

TEST(RectangleGeometryTest, WithoutAStyleNothingIsDrawnAndAHeightPastSixChangesNothing) {
    RectangleScene scene;
    ASSERT_TRUE(scene.geometry._updateStyle(*scene.root, scene.feature, nullptr));
    EXPECT_EQ(scene.root->getGeometryGraphics(), nullptr); // no polygon symbol without a style
    scene.style.setHeightReference(HeightReference::ClampTo3DTiles);
    ASSERT_TRUE(scene.updateBoth());
    scene.style.setHeightReference(static_cast<HeightReference>(9));
    const CapturedLog log;
    ASSERT_TRUE(scene.updateStyle());
    EXPECT_EQ(scene.rectangle()->getClassificationType(), keo::ClassificationType::Tiles3D);
    EXPECT_TRUE(log.records().empty());
}

// --- the feature -------------------------------------------------------------------------------

TEST(RectangleGeometryTest, APolygonStyleMatchesTheRectangleAndAnEllipseStyleIsLogged) {
    const CapturedLog log;
    Feature feature;
    feature.setStyle(std::make_shared<PolygonStyle>());
    feature.setGeometry(std::make_shared<RectangleGeometry>(stadium()));
    EXPECT_TRUE(log.records().empty());
    feature.setStyle(std::make_shared<keo::Feature::EllipseStyle>());
    const auto records = log.records();
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].message, "风格和几何体不匹配，风格不起作用。");
    EXPECT_EQ(records[0].location.file, "Core/src/Feature/Feature");
    EXPECT_EQ(records[0].location.line, 244);
    EXPECT_EQ(records[0].location.function, "keo::Feature::Feature::setStyle");
}

TEST(RectangleGeometryTest, EditsFrameAfterFrameKeepTheLiveSetEqualToTheTree) {
    Feature feature(std::uint64_t{4});
    feature.setName("stadium");
    auto geometry = std::make_shared<RectangleGeometry>(stadium());
    auto style = std::make_shared<PolygonStyle>();
    style->setPolygonSymbol(fillOf(Color::GREEN));
    feature.setGeometry(geometry);
    feature.setStyle(style);
    RendererModel renderer(feature);
    auto label = std::make_shared<LabelSymbol>();
    label->setShowHintLine(true);
    const std::vector<std::function<void()>> edits = {
        [&] { style->setLabelSymbol(label); },
        [&] { style->setExtrusionSymbol(extrusionOf(35.0)); },
        [&] { geometry->setRotate(Radian(0.4)); },
        [&] { geometry->setCoordinates(stadium()); },
        [&] { style->getPolygonSymbol()->setEnabled(false); },
        [&] { label->setShowHintLine(false); },
        [&] { style->setExtrusionSymbol(nullptr); },
        [&] { feature.setName(""); },
        [&] { feature.setGeometry(std::make_shared<keo::Feature::PointGeometry>(Cartographic())); },
        [&] { feature.setGeometry(std::make_shared<RectangleGeometry>(stadium())); },
        [&] { style->getPolygonSymbol()->setEnabled(true); },
    };
    renderer.frame();
    renderer.expectLiveSetIsTheTree();
    for (std::size_t i = 0; i < edits.size(); ++i) {
        SCOPED_TRACE(i);
        const CapturedLog log;
        edits[i]();
        renderer.frame();
        renderer.expectLiveSetIsTheTree();
    }
    EXPECT_NE(graphicsOf<RectangleGraphics>(*feature._getImplHandle()), nullptr);
}

} // namespace
