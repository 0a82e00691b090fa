#include "Feature/EllipseGeometry.h"

#include "Common/Cartographic.h"
#include "Common/Color.h"
#include "Common/Ellipsoid.h"
#include "Common/Math.h"
#include "Data/ColorMaterialProperty.h"
#include "Data/EllipseGraphics.h"
#include "Data/Entity.h"
#include "Data/LabelGraphics.h"
#include "Data/PointGraphics.h"
#include "Data/PositionProperty.h"
#include "Data/TimePoint.h"
#include "EntityTestSupport.h"
#include "Feature/ColorMaterial.h"
#include "Feature/EllipseStyle.h"
#include "Feature/EllipseSymbol.h"
#include "Feature/Feature.h"
#include "Feature/LabelSymbol.h"
#include "Feature/PointGeometry.h"
#include "Feature/PolygonStyle.h"
#include "FeatureTestSupport.h"
#include "RendererModel.h"
#include "SymbolTestSupport.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace {

using keo::Cartographic;
using keo::Color;
using keo::DistanceDisplayCondition;
using keo::EllipseGraphics;
using keo::Ellipsoid;
using keo::Entity;
using keo::HeightReference;
using keo::Vector3;
using keo::Feature::ColorMaterial;
using keo::Feature::EllipseGeometry;
using keo::Feature::EllipseStyle;
using keo::Feature::EllipseSymbol;
using keo::Feature::Feature;
using keo::Feature::Geometry;
using keo::Feature::LabelSymbol;
using keo::Feature::test::CapturedLog;
using keo::Feature::test::cartesian;
using keo::Feature::test::EventRecorder;
using keo::Feature::test::expectAssignKindLogged;
using keo::Feature::test::GeometryScene;
using keo::Feature::test::graphicsOf;
using keo::Feature::test::positionOf;
using keo::Feature::test::RendererModel;

constexpr const char* LABEL = "label-symbol";
constexpr const char* HINT_LINE = "hint-line";
constexpr const char* INVALID_AXES = "椭圆半轴长不能为0.0。";

const Cartographic CENTRE = Cartographic::fromDegrees(121.47, 31.23, 12.0);

struct EllipseScene : GeometryScene<EllipseGeometry, EllipseStyle> {
    EllipseScene()
        : GeometryScene("search area", CENTRE, 800.0, 500.0) {
        style.setEllipseSymbol(
            std::make_shared<EllipseSymbol>(std::make_shared<ColorMaterial>(Color::YELLOW)));
    }

    const EllipseGraphics* ellipse() const { return graphicsOf<EllipseGraphics>(*root); }
};

// --- data, setters, copy and assign ------------------------------------------------------------

TEST(EllipseGeometryTest, ANewEllipseIsOfKind304AtTheOriginWithBothAxesZero) {
    const EllipseGeometry ellipse;
    EXPECT_EQ(ellipse.getType(), Geometry::Type::Ellipse);
    EXPECT_EQ(static_cast<int>(ellipse.getType()), 304);
    EXPECT_EQ(ellipse.getCenter(), Cartographic(keo::Radian(0.0), keo::Radian(0.0), 0.0));
    EXPECT_EQ(ellipse.getSemiMajorAxis(), 0.0);
    EXPECT_EQ(ellipse.getSemiMinorAxis(), 0.0);
    const EllipseGeometry given(CENTRE, 3.0, 2.0);
    EXPECT_EQ(given.getCenter(), CENTRE);
    EXPECT_EQ(given.getSemiMajorAxis(), 3.0);
    EXPECT_EQ(given.getSemiMinorAxis(), 2.0);
}

TEST(EllipseGeometryTest, SettingTheSameSemiMajorAxisTwiceRaisesTwoSetsOfEvents) {
    EllipseGeometry ellipse(CENTRE, 800.0, 500.0);
    const EventRecorder recorder(ellipse);
    ellipse.setSemiMajorAxis(800.0);
    ellipse.setSemiMajorAxis(800.0);
    EXPECT_EQ(recorder.events, "LUDLUD");
}

TEST(EllipseGeometryTest, EverySetterNotifiesOnEveryCallButTheStoredCentreItself) {
    EllipseGeometry ellipse(CENTRE, 800.0, 500.0);
    const EventRecorder recorder(ellipse);
    ellipse.setSemiMinorAxis(500.0);
    EXPECT_EQ(recorder.events, "LUD");
    const Cartographic sameCentre = CENTRE;
    ellipse.setCenter(sameCentre);
    EXPECT_EQ(recorder.events, "LUDLUD");
    ellipse.setCenter(ellipse.getCenter());
    EXPECT_EQ(recorder.events, "LUDLUD");
}

TEST(EllipseGeometryTest, AssignCopiesTheConditionThenTheCentreAndTheAxesEachNotifying) {
    EllipseGeometry source(CENTRE, 10.0, 20.0);
    source.setDistanceDisplayCondition(DistanceDisplayCondition(5.0f, 50.0f));
    EllipseGeometry target(CENTRE, 10.0, 20.0);
    const EventRecorder recorder(target);
    target.assign(source);
    EXPECT_EQ(recorder.events, "LUDLUDLUDLUD"); // condition, centre, major, minor
    EXPECT_EQ(target.getDistanceDisplayCondition(), DistanceDisplayCondition(5.0f, 50.0f));
    EXPECT_EQ(target.getSemiMinorAxis(), 20.0);
}

TEST(EllipseGeometryTest, AssignFromAnotherKindLogsAndChangesNothing) {
    const CapturedLog log;
    EllipseGeometry target(CENTRE, 10.0, 20.0);
    const EventRecorder recorder(target);
    target.assign(keo::Feature::PointGeometry(Cartographic()));
    EXPECT_EQ(recorder.events, "");
    EXPECT_EQ(target.getSemiMajorAxis(), 10.0);
    expectAssignKindLogged(log, "Core/src/Feature/EllipseGeometry",
                           "keo::Feature::EllipseGeometry::assign");
}

TEST(EllipseGeometryTest, ACloneAndACopyHaveTheFieldsButNotTheAnchorAndEventsOfTheirOwn) {
    EllipseScene scene;
    ASSERT_TRUE(scene.updateBoth());
    ASSERT_TRUE(scene.geometry.getDistanceDisplayConditionAnchor());
    const EventRecorder sourceRecorder(scene.geometry);
    const auto cloned = scene.geometry.clone();
    ASSERT_EQ(cloned->getType(), Geometry::Type::Ellipse);
    auto& clone = static_cast<EllipseGeometry&>(*cloned);
    EllipseGeometry copy(scene.geometry);
    for (EllipseGeometry* each : {&clone, &copy}) {
        EXPECT_EQ(each->getCenter(), CENTRE);
        EXPECT_EQ(each->getSemiMajorAxis(), 800.0);
        EXPECT_EQ(each->getSemiMinorAxis(), 500.0);
        EXPECT_FALSE(each->getDistanceDisplayConditionAnchor());
        const EventRecorder recorder(*each);
        each->setSemiMinorAxis(1.0);
        EXPECT_EQ(recorder.events, "LUD");
    }
    EXPECT_EQ(sourceRecorder.events, "");
}

// --- bad axes ----------------------------------------------------------------------------------

TEST(EllipseGeometryTest, AxesTenAndZeroOrMinusOneAndFiveAreRejectedWithTheirWarning) {
    for (const auto& [major, minor] : {std::pair{10.0, 0.0}, std::pair{-1.0, 5.0}}) {
        SCOPED_TRACE(major);
        EllipseScene scene;
        scene.geometry.setSemiMajorAxis(major);
        scene.geometry.setSemiMinorAxis(minor);
        const CapturedLog log;
        EXPECT_FALSE(scene.updateGeometry());
        EXPECT_FALSE(scene.updateStyle());
        EXPECT_EQ(scene.root->getGeometryGraphics(), nullptr);
        EXPECT_EQ(scene.root->getPosition(), nullptr);
        const auto records = log.records();
        ASSERT_EQ(records.size(), 2u);
        for (const auto& record : records) {
            EXPECT_EQ(record.message, INVALID_AXES);
            EXPECT_EQ(record.level, 3);
            EXPECT_EQ(record.location.file, "Core/src/Feature/EllipseGeometry");
        }
        EXPECT_EQ(records[0].location.function, "keo::Feature::EllipseGeometry::_updateGeometry");
        EXPECT_EQ(records[1].location.function, "keo::Feature::EllipseGeometry::_updateStyle");
    }
}

TEST(EllipseGeometryTest, BadAxesLeaveADrawnEllipseAsItWas) {
    EllipseScene scene;
    ASSERT_TRUE(scene.updateBoth());
    const CapturedLog log;
    scene.geometry.setSemiMinorAxis(0.0);
    EXPECT_FALSE(scene.updateBoth());
    ASSERT_NE(scene.ellipse(), nullptr);
    EXPECT_EQ(scene.ellipse()->getSemiMinorAxis(), 500.0);
}

TEST(EllipseGeometryTest, AMinorAxisLargerThanTheMajorAndANaNAxisAreAccepted) {
    EllipseScene scene;
    scene.geometry.setSemiMajorAxis(100.0);
    scene.geometry.setSemiMinorAxis(900.0);
    const CapturedLog log;
    ASSERT_TRUE(scene.updateBoth());
    EXPECT_EQ(scene.ellipse()->getSemiMajorAxis(), 100.0);
    EXPECT_EQ(scene.ellipse()->getSemiMinorAxis(), 900.0);
    scene.geometry.setSemiMajorAxis(std::numeric_limits<double>::quiet_NaN());
    EXPECT_TRUE(scene.updateBoth());
    EXPECT_TRUE(log.records().empty());
}

TEST(EllipseGeometryTest, ANewEllipseIsNotDrawnUntilItsAxesAreSet) {
    Feature feature(std::uint64_t{2});
    auto geometry = std::make_shared<EllipseGeometry>();
    feature.setGeometry(geometry);
    const CapturedLog log;
    feature._updateEntityInCull(false);
    EXPECT_EQ(feature._getImplHandle()->getGeometryGraphics(), nullptr);
    EXPECT_FALSE(log.records().empty());
    geometry->setSemiMajorAxis(10.0);
    geometry->setSemiMinorAxis(5.0);
    feature._updateEntityInCull(false);
    EXPECT_NE(graphicsOf<EllipseGraphics>(*feature._getImplHandle()), nullptr);
}

// --- the geometry step -------------------------------------------------------------------------

TEST(EllipseGeometryTest, TheGeometryStepMovesTheRootAndGivesItsEllipseTheAxes) {
    EllipseScene scene;
    ASSERT_TRUE(scene.updateBoth());
    const Cartographic moved = Cartographic::fromDegrees(121.5, 31.2, 0.0);
    scene.geometry.setCenter(moved);
    scene.geometry.setSemiMajorAxis(1200.0);
    ASSERT_TRUE(scene.updateGeometry());
    EXPECT_EQ(positionOf(*scene.root), cartesian(moved));
    EXPECT_EQ(scene.ellipse()->getSemiMajorAxis(), 1200.0);
    EXPECT_EQ(scene.ellipse()->getSemiMinorAxis(), 500.0);
    EXPECT_EQ(scene.geometry.getDistanceDisplayConditionAnchor(), cartesian(moved));
}

TEST(EllipseGeometryTest, TheGeometryStepStoresNoAnchorBeforeTheStyleStepDid) {
    EllipseScene scene;
    ASSERT_TRUE(scene.updateGeometry());
    EXPECT_FALSE(scene.geometry.getDistanceDisplayConditionAnchor());
    ASSERT_TRUE(scene.updateStyle());
    EXPECT_EQ(scene.geometry.getDistanceDisplayConditionAnchor(), cartesian(CENTRE));
}

TEST(EllipseGeometryTest, GraphicsOfAnotherKindAreClearedInTheGeometryStep) {
    EllipseScene scene;
    scene.root->setGeometryGraphics(std::make_shared<keo::PointGraphics>());
    ASSERT_TRUE(scene.updateGeometry());
    EXPECT_EQ(scene.root->getGeometryGraphics(), nullptr);
    EXPECT_EQ(positionOf(*scene.root), cartesian(CENTRE));
}

TEST(EllipseGeometryTest, ALabelWithAPositionIsMovedByTheGeometryStepButNotByTheStyleStep) {
    EllipseScene scene;
    auto label = std::make_shared<LabelSymbol>();
    label->setShowHintLine(true);
    scene.style.setLabelSymbol(label);
    ASSERT_TRUE(scene.updateBoth());
    const auto labelEntity = scene.child(LABEL);
    ASSERT_NE(labelEntity, nullptr);
    EXPECT_EQ(positionOf(*labelEntity), cartesian(CENTRE));
    EXPECT_EQ(positionOf(*labelEntity->getChildByName(HINT_LINE)), cartesian(CENTRE));

    const Cartographic moved = Cartographic::fromDegrees(121.6, 31.3, 0.0);
    scene.geometry.setCenter(moved);
    ASSERT_TRUE(scene.updateStyle());
    EXPECT_EQ(positionOf(*labelEntity), cartesian(CENTRE)) << "the style step keeps a position";
    ASSERT_TRUE(scene.updateGeometry());
    EXPECT_EQ(positionOf(*labelEntity), cartesian(moved));
    EXPECT_EQ(positionOf(*labelEntity->getChildByName(HINT_LINE)), cartesian(moved));
}

// --- the style step ----------------------------------------------------------------------------

TEST(EllipseGeometryTest, TheSymbolFillsTheEllipseWithItsMaterialAndTheOutlineOff) {
    EllipseScene scene;
    scene.style.getEllipseSymbol()->setFill(false);
    ASSERT_TRUE(scene.updateBoth());
    const EllipseGraphics* ellipse = scene.ellipse();
    ASSERT_NE(ellipse, nullptr);
    EXPECT_FALSE(ellipse->isFill());
    EXPECT_FALSE(ellipse->isOutline());
    EXPECT_EQ(ellipse->getSemiMajorAxis(), 800.0);
    EXPECT_EQ(ellipse->getSemiMinorAxis(), 500.0);
    EXPECT_EQ(positionOf(*scene.root), cartesian(CENTRE));
    ASSERT_NE(ellipse->getMaterial(), nullptr);
    EXPECT_EQ(ellipse->getMaterial()->getColor(), Color::YELLOW);
    scene.feature.setHighlight(true);
    ASSERT_TRUE(scene.updateStyle());
    EXPECT_EQ(ellipse->getMaterial()->getColor(), Color::HIGHLIGHTCOLOR);
}

TEST(EllipseGeometryTest, ANewSymbolIsFilledWithoutMaterialAndTheBuilderClearsTheMaterial) {
    EllipseScene scene;
    ASSERT_TRUE(scene.updateBoth());
    ASSERT_NE(scene.ellipse()->getMaterial(), nullptr);
    scene.style.setEllipseSymbol(std::make_shared<EllipseSymbol>());
    ASSERT_TRUE(scene.updateStyle());
    EXPECT_TRUE(scene.ellipse()->isFill());
    EXPECT_EQ(scene.ellipse()->getMaterial(), nullptr);
}

TEST(EllipseGeometryTest, WithNoStyleAndNoLabelADefaultEllipseIsInstalledAndClampedToTerrain) {
    EllipseScene scene;
    scene.root->setGeometryGraphics(std::make_shared<keo::PointGraphics>());
    ASSERT_TRUE(scene.geometry._updateStyle(*scene.root, scene.feature, nullptr));
    const EllipseGraphics* ellipse = scene.ellipse();
    ASSERT_NE(ellipse, nullptr);
    EXPECT_EQ(ellipse->getSemiMajorAxis(), 800.0);
    EXPECT_EQ(ellipse->getSemiMinorAxis(), 500.0);
    EXPECT_EQ(ellipse->getGranularity(), 0.017453292519943295);
    EXPECT_EQ(ellipse->getOutlineColor(), Color::BLACK);
    EXPECT_EQ(ellipse->getOutlineWidth(), 1.0f);
    EXPECT_EQ(ellipse->getMaterial(), nullptr);
    EXPECT_EQ(ellipse->getClassificationType(), keo::ClassificationType::Terrain);
    EXPECT_EQ(positionOf(*scene.root), cartesian(CENTRE));
}

TEST(EllipseGeometryTest, WithAHiddenSymbolAndALabelTheEntityKeepsNoEllipseGraphics) {
    EllipseScene scene;
    scene.style.setLabelSymbol(std::make_shared<LabelSymbol>());
    ASSERT_TRUE(scene.updateBoth());
    ASSERT_NE(scene.ellipse(), nullptr);
    scene.style.getEllipseSymbol()->setEnabled(false);
    ASSERT_TRUE(scene.updateStyle());
    EXPECT_EQ(scene.root->getGeometryGraphics(), nullptr);
    EXPECT_NE(scene.child(LABEL), nullptr);
    scene.style.setEllipseSymbol(nullptr);
    ASSERT_TRUE(scene.updateStyle());
    EXPECT_EQ(scene.root->getGeometryGraphics(), nullptr);
}

TEST(EllipseGeometryTest, WithAHiddenSymbolAndNoLabelTheEllipseIsLeftOrADefaultOneMade) {
    EllipseScene scene;
    ASSERT_TRUE(scene.updateBoth());
    const EllipseGraphics* drawn = scene.ellipse();
    scene.style.getEllipseSymbol()->setEnabled(false);
    ASSERT_TRUE(scene.updateStyle());
    EXPECT_EQ(scene.ellipse(), drawn); // left as it was
    EllipseScene fresh;
    fresh.style.getEllipseSymbol()->setEnabled(false);
    ASSERT_TRUE(fresh.updateBoth());
    ASSERT_NE(fresh.ellipse(), nullptr); // nothing drawn: the default ellipse
    EXPECT_EQ(fresh.ellipse()->getMaterial(), nullptr);
}

TEST(EllipseGeometryTest, AStyleOfAnotherKindClearsTheEllipseAndAFeatureWithALabelShowsItAlone) {
    EllipseScene scene;
    ASSERT_TRUE(scene.updateBoth());
    keo::Feature::PolygonStyle polygonStyle;
    ASSERT_TRUE(scene.geometry._updateStyle(*scene.root, scene.feature, &polygonStyle));
    // Cleared in the symbol step, then, with nothing else drawn, the default ellipse.
    ASSERT_NE(scene.ellipse(), nullptr);
    EXPECT_EQ(scene.ellipse()->getMaterial(), nullptr);
    polygonStyle.setLabelSymbol(std::make_shared<LabelSymbol>());
    ASSERT_TRUE(scene.geometry._updateStyle(*scene.root, scene.feature, &polygonStyle));
    EXPECT_EQ(scene.root->getGeometryGraphics(), nullptr);
    EXPECT_NE(scene.child(LABEL), nullptr);
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
     "多边形不支持相对于地表的高度参考，改为使用贴合地表的高度参考。"},
    {HeightReference::ClampToTerrain, keo::ClassificationType::Terrain, nullptr},
    {HeightReference::RelativeToTerrain, keo::ClassificationType::Terrain,
     "多边形不支持相对于地形的高度参考，改为使用贴合地形的高度参考。"},
    {HeightReference::ClampTo3DTiles, keo::ClassificationType::Tiles3D, nullptr},
    {HeightReference::RelativeTo3DTiles, keo::ClassificationType::Tiles3D,
     "多边形不支持相对于3DTiles的高度参考，改为使用贴合3DTiles的高度参考。"},
};

TEST(EllipseGeometryTest, EachHeightReferenceSetsTheClassificationWithThePolygonsWording) {
    for (const auto& c : HEIGHT_CASES) {
        SCOPED_TRACE(static_cast<int>(c.reference));
        EllipseScene scene;
        scene.style.setHeightReference(c.reference);
        const CapturedLog log;
        ASSERT_TRUE(scene.updateBoth());
        EXPECT_EQ(scene.ellipse()->getClassificationType(), c.classification);
        // Only on absolute heights is the ellipse raised to its centre's height.
        EXPECT_EQ(scene.ellipse()->getHeight(),
                  c.reference == HeightReference::Absolute ? 12.0 : 0.0);
        const auto records = log.records();
        if (c.warning == nullptr) {
            EXPECT_TRUE(records.empty());
            continue;
        }
        ASSERT_EQ(records.size(), 1u);
        EXPECT_EQ(records[0].message, c.warning);
        EXPECT_EQ(records[0].level, 3);
        EXPECT_EQ(records[0].location.file, "Core/src/Feature/EllipseGeometry");
        EXPECT_EQ(records[0].location.function, "keo::Feature::EllipseGeometry::_updateStyle");
    }
}

TEST(EllipseGeometryTest, AHeightReferencePastSixLeavesTheClassification) {
    EllipseScene scene;
    scene.style.setHeightReference(HeightReference::ClampTo3DTiles);
    ASSERT_TRUE(scene.updateBoth());
    scene.style.setHeightReference(static_cast<HeightReference>(7));
    ASSERT_TRUE(scene.updateStyle());
    EXPECT_EQ(scene.ellipse()->getClassificationType(), keo::ClassificationType::Tiles3D);
}

TEST(EllipseGeometryTest, TheConditionsOfFeatureAndGeometryIntersectOnTheEllipse) {
    EllipseScene scene;
    scene.geometry.setDistanceDisplayCondition(DistanceDisplayCondition(100.0f, 5000.0f));
    ASSERT_TRUE(scene.updateBoth());
    EXPECT_EQ(scene.ellipse()->getDistanceDisplayCondition(),
              DistanceDisplayCondition(100.0f, 5000.0f));
    scene.feature.setDistanceDisplayCondition(DistanceDisplayCondition(10.0f, 1000.0f));
    ASSERT_TRUE(scene.updateStyle());
    EXPECT_EQ(scene.ellipse()->getDistanceDisplayCondition(),
              DistanceDisplayCondition(100.0f, 1000.0f));
}

TEST(EllipseGeometryTest, TheStylesShadowsReachTheRoot) {
    EllipseScene scene;
    scene.style.setShadows(1);
    ASSERT_TRUE(scene.updateBoth());
    EXPECT_EQ(scene.ellipse()->getShadows(), keo::ShadowMode::Enabled);
}

// --- the feature -------------------------------------------------------------------------------

TEST(EllipseGeometryTest, AnEllipseStyleOnAnEllipseIsLoggedAsAMismatchAndStillDraws) {
    const CapturedLog log;
    Feature feature(std::uint64_t{3});
    auto style = std::make_shared<EllipseStyle>();
    style->setEllipseSymbol(std::make_shared<EllipseSymbol>());
    feature.setStyle(style);
    feature.setGeometry(std::make_shared<EllipseGeometry>(CENTRE, 10.0, 5.0));
    const auto records = log.records();
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].message, "风格和几何体不匹配，风格不起作用。");
    EXPECT_EQ(records[0].location.line, 201);
    EXPECT_EQ(records[0].location.function, "keo::Feature::Feature::setGeometry");
    feature._updateEntityInCull(false);
    const auto* ellipse = graphicsOf<EllipseGraphics>(*feature._getImplHandle());
    ASSERT_NE(ellipse, nullptr);
    EXPECT_FALSE(ellipse->isOutline());
}

TEST(EllipseGeometryTest, EditsFrameAfterFrameKeepTheLiveSetEqualToTheTree) {
    Feature feature(std::uint64_t{4});
    feature.setName("search area");
    auto geometry = std::make_shared<EllipseGeometry>(CENTRE, 800.0, 500.0);
    auto style = std::make_shared<EllipseStyle>();
    style->setEllipseSymbol(
        std::make_shared<EllipseSymbol>(std::make_shared<ColorMaterial>(Color::YELLOW)));
    feature.setGeometry(geometry);
    {
        const CapturedLog log;
        feature.setStyle(style);
    }
    RendererModel renderer(feature);
    auto label = std::make_shared<LabelSymbol>();
    label->setShowHintLine(true);
    const std::vector<std::function<void()>> edits = {
        [&] { style->setLabelSymbol(label); },
        [&] { geometry->setSemiMajorAxis(1500.0); },
        [&] { geometry->setSemiMinorAxis(0.0); },
        [&] { geometry->setSemiMinorAxis(700.0); },
        [&] { style->getEllipseSymbol()->setEnabled(false); },
        [&] { label->setShowHintLine(false); },
        [&] { style->setLabelSymbol(nullptr); },
        [&] { style->getEllipseSymbol()->setEnabled(true); },
        [&] { feature.setGeometry(std::make_shared<keo::Feature::PointGeometry>(Cartographic())); },
        [&] { feature.setGeometry(std::make_shared<EllipseGeometry>(CENTRE, 5.0, 5.0)); },
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
    EXPECT_NE(graphicsOf<EllipseGraphics>(*feature._getImplHandle()), nullptr);
}

} // namespace
