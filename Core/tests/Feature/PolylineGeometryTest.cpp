#include "Feature/PolylineGeometry.h"

#include "Common/Cartographic.h"
#include "Common/Color.h"
#include "Common/Ellipsoid.h"
#include "Common/Math.h"
#include "Data/ConstantPositionArrayProperty.h"
#include "Data/Entity.h"
#include "Data/LabelGraphics.h"
#include "Data/MaterialProperty.h"
#include "Data/PathPositionArrayProperty.h"
#include "Data/PointGraphics.h"
#include "Data/PolylineGraphics.h"
#include "Data/PolylineVolumeGraphics.h"
#include "Data/WallGraphics.h"
#include "EntityTestSupport.h"
#include "Feature/ColorMaterial.h"
#include "Feature/ExtrusionSymbol.h"
#include "Feature/Feature.h"
#include "Feature/LabelSymbol.h"
#include "Feature/LengthLabelSymbol.h"
#include "Feature/LineDashMaterial.h"
#include "Feature/LineSymbol.h"
#include "Feature/LineVolumeSymbol.h"
#include "Feature/PointGeometry.h"
#include "Feature/PolygonSymbol.h"
#include "Feature/PolylineStyle.h"
#include "FeatureTestSupport.h"
#include "RendererModel.h"
#include "SymbolTestSupport.h"

#include <GeographicLib/Geodesic.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

using keo::Cartographic;
using keo::Color;
using keo::DistanceDisplayCondition;
using keo::Ellipsoid;
using keo::Entity;
using keo::HeightReference;
using keo::LabelGraphics;
using keo::PolylineGraphics;
using keo::PolylineVolumeGraphics;
using keo::Vector3;
using keo::WallGraphics;
using keo::Feature::ColorMaterial;
using keo::Feature::ExtrusionSymbol;
using keo::Feature::Feature;
using keo::Feature::Geometry;
using keo::Feature::LabelSymbol;
using keo::Feature::LengthLabelSymbol;
using keo::Feature::LineDashMaterial;
using keo::Feature::LineSymbol;
using keo::Feature::LineVolumeSymbol;
using keo::Feature::Path;
using keo::Feature::PolygonSymbol;
using keo::Feature::PolylineGeometry;
using keo::Feature::PolylineStyle;
using keo::Feature::test::CapturedLog;
using keo::Feature::test::cartesian;
using keo::Feature::test::childNames;
using keo::Feature::test::EventRecorder;
using keo::Feature::test::expectAssignKindLogged;
using keo::Feature::test::GeometryScene;
using keo::Feature::test::graphicsOf;
using keo::Feature::test::hasChild;
using keo::Feature::test::RendererModel;

constexpr const char* LABEL = "label-symbol";
constexpr const char* HINT_LINE = "hint-line";
constexpr const char* OVERLAY = "overlay-line-symbol";
constexpr const char* VOLUME = "line-volume-symbol";
constexpr const char* WALL = "extrusion-wall-symbol";
constexpr const char* ROOF = "extrusion-roof-symbol";
constexpr const char* TOTAL = "length-label-total";
constexpr const char* TOO_FEW = "折线的顶点数量不能少于2个。";

std::vector<Cartographic> lineOf(int vertices, double height = 0.0) {
    std::vector<Cartographic> positions;
    for (int i = 0; i < vertices; ++i) {
        positions.push_back(
            Cartographic::fromDegrees(116.0 + 0.01 * i, 39.9 + 0.004 * (i % 2), height + 10.0 * i));
    }
    return positions;
}

std::shared_ptr<LineSymbol> dashedLine() {
    auto line = std::make_shared<LineSymbol>();
    line->setWidth(3.0f);
    line->setMaterial(std::make_shared<LineDashMaterial>(Color::RED));
    return line;
}

// A geometry, a feature and a root entity, updated as the feature does.
struct LineScene : GeometryScene<PolylineGeometry, PolylineStyle> {
    LineScene()
        : GeometryScene("road", lineOf(5)) {}
};

// --- data, setters, copy and assign ------------------------------------------------------------

TEST(PolylineGeometryTest, ANewLineIsOfKind301WithoutPositionsAndScaleOne) {
    const PolylineGeometry line;
    EXPECT_EQ(line.getType(), Geometry::Type::Polyline);
    EXPECT_EQ(static_cast<int>(line.getType()), 301);
    EXPECT_TRUE(line.getPositions().empty());
    EXPECT_EQ(line.getShadowVolumeHeightScale(), 1.0);
    EXPECT_EQ(PolylineGeometry(lineOf(3)).getPositions(), lineOf(3));
}

TEST(PolylineGeometryTest, SettingTheSamePositionsOrTheSameScaleRaisesNoEvents) {
    PolylineGeometry line(lineOf(3));
    const EventRecorder recorder(line);
    line.setPositions(lineOf(3));
    line.setPositions(line.getPositions());
    line.setShadowVolumeHeightScale(1.0);
    EXPECT_EQ(recorder.events, "");
    line.setPositions(lineOf(4));
    line.setShadowVolumeHeightScale(2.0);
    EXPECT_EQ(recorder.events, "LUDLUD");
}

TEST(PolylineGeometryTest, ANaNScaleAlwaysCountsAsAChange) {
    keo::Feature::test::expectNaNAlwaysChanges<PolylineGeometry>(
        [](PolylineGeometry& g, double v) { g.setShadowVolumeHeightScale(v); }, std::nan(""));
}

TEST(PolylineGeometryTest, ACloneCopiesPositionsScaleAndConditionButNotTheAnchor) {
    LineScene scene;
    scene.geometry.setShadowVolumeHeightScale(3.0);
    scene.geometry.setDistanceDisplayCondition(DistanceDisplayCondition(1.0f, 2.0f));
    ASSERT_TRUE(scene.updateBoth());
    ASSERT_TRUE(scene.geometry.getDistanceDisplayConditionAnchor());
    const auto clone = scene.geometry.clone();
    const auto& copy = static_cast<const PolylineGeometry&>(*clone);
    EXPECT_EQ(copy.getPositions(), scene.geometry.getPositions());
    EXPECT_EQ(copy.getShadowVolumeHeightScale(), 3.0);
    EXPECT_EQ(copy.getDistanceDisplayCondition(), DistanceDisplayCondition(1.0f, 2.0f));
    EXPECT_FALSE(copy.getDistanceDisplayConditionAnchor());
}

TEST(PolylineGeometryTest, AssignCopiesConditionPositionsAndScaleThroughTheSetters) {
    PolylineGeometry source(lineOf(4));
    source.setShadowVolumeHeightScale(2.0);
    source.setDistanceDisplayCondition(DistanceDisplayCondition(5.0f, 50.0f));
    PolylineGeometry target(lineOf(2));
    const EventRecorder recorder(target);
    target.assign(source);
    EXPECT_EQ(target.getPositions(), lineOf(4));
    EXPECT_EQ(target.getShadowVolumeHeightScale(), 2.0);
    EXPECT_EQ(target.getDistanceDisplayCondition(), DistanceDisplayCondition(5.0f, 50.0f));
    EXPECT_EQ(recorder.events, "LUDLUDLUD");
    target.assign(source);
    EXPECT_EQ(recorder.events, "LUDLUDLUD");
}

TEST(PolylineGeometryTest, AssignFromAnotherKindLogsAndChangesNothing) {
    const CapturedLog log;
    PolylineGeometry target(lineOf(3));
    const EventRecorder recorder(target);
    target.assign(keo::Feature::PointGeometry(Cartographic::fromDegrees(1.0, 2.0)));
    EXPECT_EQ(recorder.events, "");
    EXPECT_EQ(target.getPositions(), lineOf(3));
    expectAssignKindLogged(log, "Core/src/Feature/PolylineGeometry",
                           "keo::Feature::PolylineGeometry::assign");
}

// --- measuring -----------------------------------------------------------------------------------

// The running chord lengths at the vertices, computed here from the Cartesian points.
std::vector<double> runningLengths(const std::vector<Cartographic>& positions) {
    std::vector<double> lengths{0.0};
    for (std::size_t i = 1; i < positions.size(); ++i) {
        lengths.push_back(lengths.back() +
                          (cartesian(positions[i]) - cartesian(positions[i - 1])).magnitude());
    }
    return lengths;
}

TEST(PolylineGeometryTest, TheSpaceLengthIsTheSumOfTheChords) {
    const auto positions = lineOf(6, 100.0);
    EXPECT_NEAR(PolylineGeometry(positions).getSpaceLength(), runningLengths(positions).back(),
                1e-9);
    EXPECT_EQ(PolylineGeometry(lineOf(1)).getSpaceLength(), 0.0);
    EXPECT_EQ(PolylineGeometry().getSpaceLength(), 0.0);
}

TEST(PolylineGeometryTest, SpacePointAtZeroIsTheFirstVertexReachedOnlyByInterpolation) {
    const auto positions = lineOf(3);
    const Cartographic point = PolylineGeometry(positions).getSpacePoint(0.0);
    // Walked back from the first segment's end: the first vertex within the conversion's error,
    // not the stored vertex itself.
    EXPECT_NEAR((cartesian(point) - cartesian(positions[0])).magnitude(), 0.0, 1e-6);
}

TEST(PolylineGeometryTest, SpacePointPastTheEndIsTheLastVertexAsStored) {
    const auto positions = lineOf(4);
    const PolylineGeometry line(positions);
    EXPECT_EQ(line.getSpacePoint(line.getSpaceLength() + 1.0), positions.back());
    EXPECT_EQ(line.getSpacePoint(1e12), positions.back());
}

TEST(PolylineGeometryTest, SpacePointAtAVertexRunningLengthWithinTheEpsilonIsThatVertexExactly) {
    const auto positions = lineOf(5, 20.0);
    const PolylineGeometry line(positions);
    const auto lengths = runningLengths(positions);
    for (std::size_t i = 1; i < positions.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(line.getSpacePoint(lengths[i]), positions[i]);
        EXPECT_EQ(line.getSpacePoint(lengths[i] + 5e-11), positions[i]);
    }
}

TEST(PolylineGeometryTest, SpacePointsAlongTheLineMatchAnIndependentInterpolation) {
    const auto positions = lineOf(7, 30.0);
    const PolylineGeometry line(positions);
    const auto lengths = runningLengths(positions);
    std::mt19937 random(42);
    std::uniform_real_distribution<double> along(0.0, lengths.back());
    for (int n = 0; n < 500; ++n) {
        const double d = along(random);
        const auto segment = static_cast<std::size_t>(
            std::upper_bound(lengths.begin(), lengths.end(), d) - lengths.begin());
        ASSERT_GE(segment, 1u);
        ASSERT_LT(segment, lengths.size());
        const double t = (d - lengths[segment - 1]) / (lengths[segment] - lengths[segment - 1]);
        const Vector3<double> expected =
            cartesian(positions[segment - 1]) * (1.0 - t) + cartesian(positions[segment]) * t;
        const Vector3<double> actual = cartesian(line.getSpacePoint(d));
        EXPECT_NEAR((actual - expected).magnitude(), 0.0, 1e-6) << "at " << d;
    }
}

TEST(PolylineGeometryTest, SpacePointOfALineWithFewerThanTwoVerticesLogsAndGivesZero) {
    for (const int vertices : {0, 1}) {
        const CapturedLog log;
        EXPECT_EQ(PolylineGeometry(lineOf(vertices)).getSpacePoint(1.0), Cartographic());
        const auto records = log.records();
        ASSERT_EQ(records.size(), 1u);
        EXPECT_EQ(records[0].message, TOO_FEW);
        EXPECT_EQ(records[0].level, 3);
        EXPECT_EQ(records[0].location.file, "Core/src/Feature/PolylineGeometry");
        EXPECT_EQ(records[0].location.function, "keo::Feature::PolylineGeometry::getSpacePoint");
        EXPECT_EQ(records[0].location.line,
                  keo::Feature::test::logSiteLine("Core/src/Feature/PolylineGeometry",
                                                  "keo::Feature::PolylineGeometry::getSpacePoint"));
    }
}

// --- invalid lines -----------------------------------------------------------------------------

TEST(PolylineGeometryTest, ALineOfFewerThanTwoVerticesLeavesTheTreeUntouchedFromBothSteps) {
    for (const int vertices : {0, 1}) {
        SCOPED_TRACE(vertices);
        LineScene scene;
        scene.style.setLineSymbol(dashedLine());
        scene.style.setLabelSymbol(std::make_shared<LabelSymbol>());
        ASSERT_TRUE(scene.updateBoth());
        const auto before = childNames(*scene.root);
        const auto graphics = scene.root->getGeometryGraphics();
        scene.feature._takeAddedEntities();
        scene.geometry.setPositions(lineOf(vertices));
        const CapturedLog log;
        EXPECT_FALSE(scene.updateGeometry());
        EXPECT_FALSE(scene.updateStyle());
        EXPECT_EQ(childNames(*scene.root), before);
        EXPECT_EQ(scene.root->getGeometryGraphics(), graphics);
        EXPECT_TRUE(scene.feature._takeAddedEntities().empty());
        EXPECT_TRUE(scene.feature._takeRemovedEntities().empty());
        const auto records = log.records();
        ASSERT_EQ(records.size(), 2u);
        EXPECT_EQ(records[0].message, TOO_FEW);
        EXPECT_EQ(records[0].location.function, "keo::Feature::PolylineGeometry::_updateGeometry");
        EXPECT_EQ(records[1].message, TOO_FEW);
        EXPECT_EQ(records[1].location.function, "keo::Feature::PolylineGeometry::_updateStyle");
    }
}

// --- the main line, the default line and the path --------------------------------------------

TEST(PolylineGeometryTest, WithoutAnyStyleTheRootGetsADefaultLineOnePixelWide) {
    LineScene scene;
    EXPECT_TRUE(scene.geometry._updateStyle(*scene.root, scene.feature, nullptr));
    const auto* line = graphicsOf<PolylineGraphics>(*scene.root);
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->getWidth(), 1.0f);
    ASSERT_NE(line->getMaterial(), nullptr);
    const auto defaultMaterial = PolylineGraphics::getDefaultMaterial();
    EXPECT_EQ(line->getMaterial()->getType(), defaultMaterial->getType());
    EXPECT_EQ(line->getMaterial()->getColor(), defaultMaterial->getColor());
    const auto* constant =
        dynamic_cast<const keo::ConstantPositionArrayProperty*>(line->getPositions().get());
    ASSERT_NE(constant, nullptr);
    EXPECT_EQ(constant->getPoints().size(), 5u);
    // Without a style the line is clamped to the terrain.
    EXPECT_TRUE(line->isClampToGround());
    EXPECT_EQ(line->getClassificationType(), keo::ClassificationType::Terrain);
}

TEST(PolylineGeometryTest, TheLineSymbolDrawsTheRootsLineWithItsWidthMaterialAndCondition) {
    LineScene scene;
    scene.style.setLineSymbol(dashedLine());
    scene.feature.setDistanceDisplayCondition(DistanceDisplayCondition(10.0f, 1000.0f));
    scene.geometry.setDistanceDisplayCondition(DistanceDisplayCondition(20.0f, 5000.0f));
    ASSERT_TRUE(scene.updateBoth());
    const auto* line = graphicsOf<PolylineGraphics>(*scene.root);
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->getWidth(), 3.0f);
    ASSERT_NE(line->getMaterial(), nullptr);
    EXPECT_EQ(line->getMaterial()->getColor(), Color::RED);
    EXPECT_EQ(line->getDistanceDisplayCondition(), DistanceDisplayCondition(20.0f, 1000.0f));
    EXPECT_EQ(line->getPositions()->getValues(keo::TimePoint()).size(), 5u);
}

TEST(PolylineGeometryTest, HighlightRecolorsTheLineOnTheNextUpdate) {
    LineScene scene;
    scene.style.setLineSymbol(dashedLine());
    ASSERT_TRUE(scene.updateBoth());
    scene.feature.setHighlight(true);
    ASSERT_TRUE(scene.updateStyle());
    EXPECT_EQ(graphicsOf<PolylineGraphics>(*scene.root)->getMaterial()->getColor(),
              Color::HIGHLIGHTCOLOR);
}

TEST(PolylineGeometryTest, AnEnabledPathInstallsAMovingPathPropertyThatLaterUpdatesKeep) {
    LineScene scene;
    auto line = dashedLine();
    Path path;
    path.enabled = true;
    path.loop = false;
    path.reversed = true;
    path.speed = 50.0f;
    line->setPath(path);
    scene.style.setLineSymbol(line);
    ASSERT_TRUE(scene.updateBoth());
    const auto* graphics = graphicsOf<PolylineGraphics>(*scene.root);
    const auto* moving =
        dynamic_cast<const keo::PathPositionArrayProperty*>(graphics->getPositions().get());
    ASSERT_NE(moving, nullptr);
    EXPECT_FALSE(moving->isLoop());
    EXPECT_TRUE(moving->isReversed());
    EXPECT_EQ(moving->getSpeed(), 50.0);
    const auto property = graphics->getPositions();
    scene.geometry.setPositions(lineOf(6));
    ASSERT_TRUE(scene.updateBoth());
    EXPECT_EQ(graphicsOf<PolylineGraphics>(*scene.root)->getPositions(), property);
    EXPECT_EQ(moving->getPathPoints().size(), 6u);
}

TEST(PolylineGeometryTest, ARestartRequestIsServedOnceAndClearedWithoutEvents) {
    LineScene scene;
    auto line = dashedLine();
    Path path;
    path.enabled = true;
    line->setPath(path);
    scene.style.setLineSymbol(line);
    ASSERT_TRUE(scene.updateBoth());
    line->restartPath();
    EXPECT_TRUE(line->getPath().restartRequest);
    const EventRecorder recorder(*line);
    ASSERT_TRUE(scene.updateStyle());
    EXPECT_FALSE(line->getPath().restartRequest);
    EXPECT_EQ(recorder.events, "");
}

TEST(PolylineGeometryTest, ADisabledPathGivesPlainPoints) {
    LineScene scene;
    scene.style.setLineSymbol(dashedLine());
    ASSERT_TRUE(scene.updateBoth());
    EXPECT_EQ(dynamic_cast<const keo::PathPositionArrayProperty*>(
                  graphicsOf<PolylineGraphics>(*scene.root)->getPositions().get()),
              nullptr);
}

TEST(PolylineGeometryTest, GraphicsOfAnotherKindOnTheRootAreDroppedByTheGeometryStep) {
    LineScene scene;
    scene.root->setGeometryGraphics(std::make_shared<keo::PointGraphics>());
    ASSERT_TRUE(scene.updateGeometry());
    EXPECT_EQ(scene.root->getGeometryGraphics(), nullptr);
}

TEST(PolylineGeometryTest, AHiddenLineSymbolLeavesTheDefaultLineWhenNothingElseIsDrawn) {
    LineScene scene;
    auto line = dashedLine();
    line->setEnabled(false);
    scene.style.setLineSymbol(line);
    EXPECT_TRUE(scene.updateBoth());
    const auto* graphics = graphicsOf<PolylineGraphics>(*scene.root);
    ASSERT_NE(graphics, nullptr);
    EXPECT_EQ(graphics->getWidth(), 1.0f);
}

TEST(PolylineGeometryTest, AHiddenLineSymbolClearsTheRootsGraphicsOnceALabelIsDrawn) {
    LineScene scene;
    scene.style.setLineSymbol(dashedLine());
    ASSERT_TRUE(scene.updateBoth());
    scene.style.getLineSymbol()->setEnabled(false);
    scene.style.setLabelSymbol(std::make_shared<LabelSymbol>());
    ASSERT_TRUE(scene.updateStyle());
    EXPECT_EQ(scene.root->getGeometryGraphics(), nullptr);
    EXPECT_TRUE(hasChild(*scene.root, LABEL));
}

// --- height references -------------------------------------------------------------------------

struct HeightCase {
    HeightReference reference;
    bool clamped;
    std::optional<keo::ClassificationType> classification;
    const char* warning;
};

const HeightCase HEIGHT_CASES[] = {
    {HeightReference::Absolute, false, std::nullopt, nullptr},
    {HeightReference::ClampToGround, true, keo::ClassificationType::Both, nullptr},
    {HeightReference::RelativeToGround, true, keo::ClassificationType::Both,
     "折线不支持相对于地表的高度参考，改为使用贴合地表的高度参考。"},
    {HeightReference::ClampToTerrain, true, keo::ClassificationType::Terrain, nullptr},
    {HeightReference::RelativeToTerrain, true, keo::ClassificationType::Terrain,
     "折线不支持相对于地形的高度参考，改为使用贴合地形的高度参考。"},
    {HeightReference::ClampTo3DTiles, true, keo::ClassificationType::Tiles3D, nullptr},
    {HeightReference::RelativeTo3DTiles, true, keo::ClassificationType::Tiles3D,
     "折线不支持相对于3DTiles的高度参考，改为使用贴合3DTiles的高度参考。"},
};

TEST(PolylineGeometryTest, EachHeightReferenceClampsAndClassifiesTheLineAndItsOverlay) {
    for (const auto& c : HEIGHT_CASES) {
        SCOPED_TRACE(static_cast<int>(c.reference));
        LineScene scene;
        scene.style.setLineSymbol(dashedLine());
        scene.style.setOverlayLineSymbol(dashedLine());
        scene.style.setHeightReference(c.reference);
        ASSERT_TRUE(scene.updateBoth());
        for (const Entity* entity : {scene.root.get(), scene.child(OVERLAY).get()}) {
            const auto* line = graphicsOf<PolylineGraphics>(*entity);
            ASSERT_NE(line, nullptr);
            EXPECT_EQ(line->isClampToGround(), c.clamped);
            EXPECT_EQ(line->getClassificationType(), c.classification);
        }
    }
}

TEST(PolylineGeometryTest, RelativeHeightReferencesLogTheirWarningEveryTimeTheyAreApplied) {
    for (const auto& c : HEIGHT_CASES) {
        if (c.warning == nullptr) {
            continue;
        }
        SCOPED_TRACE(static_cast<int>(c.reference));
        LineScene scene;
        scene.style.setLineSymbol(dashedLine());
        scene.style.setHeightReference(c.reference);
        const CapturedLog log;
        ASSERT_TRUE(scene.updateStyle());
        ASSERT_TRUE(scene.updateStyle());
        const auto records = log.records();
        ASSERT_EQ(records.size(), 2u);
        for (const auto& record : records) {
            EXPECT_EQ(record.message, c.warning);
            EXPECT_EQ(record.level, 3);
            EXPECT_EQ(record.location.file, "Core/src/Feature/PolylineGeometry");
            EXPECT_EQ(record.location.function, "keo::Feature::setPolylineHeightReference");
        }
    }
}

TEST(PolylineGeometryTest, AHeightReferenceOfSevenOrMoreChangesNothing) {
    LineScene scene;
    scene.style.setLineSymbol(dashedLine());
    ASSERT_TRUE(scene.updateBoth()); // absolute: not clamped, no classification
    for (const int value : {7, 8, 255}) {
        scene.style.setHeightReference(static_cast<HeightReference>(value));
        const CapturedLog log;
        ASSERT_TRUE(scene.updateStyle());
        const auto* line = graphicsOf<PolylineGraphics>(*scene.root);
        EXPECT_FALSE(line->isClampToGround());
        EXPECT_EQ(line->getClassificationType(), std::nullopt);
        EXPECT_TRUE(log.records().empty());
    }
}

// --- the label -----------------------------------------------------------------------------------

TEST(PolylineGeometryTest, TheLabelAndItsHintLineStandAtTheHalfLengthPoint) {
    LineScene scene;
    auto label = std::make_shared<LabelSymbol>();
    label->setShowHintLine(true);
    scene.style.setLabelSymbol(label);
    ASSERT_TRUE(scene.updateBoth());
    const auto positions = scene.geometry.getPositions();
    const auto lengths = runningLengths(positions);
    const Vector3<double> expected = cartesian(scene.geometry.getSpacePoint(lengths.back() / 2));
    const auto anchor = scene.geometry.getDistanceDisplayConditionAnchor();
    ASSERT_TRUE(anchor);
    EXPECT_NEAR((*anchor - expected).magnitude(), 0.0, 1e-6);
    const auto labelEntity = scene.child(LABEL);
    const auto at = labelEntity->getPosition()->getValue(keo::TimePoint());
    ASSERT_TRUE(at);
    EXPECT_NEAR((*at - *anchor).magnitude(), 0.0, 1e-9);
    EXPECT_EQ(labelEntity->getChildByName(HINT_LINE)->getPosition(), labelEntity->getPosition());
    EXPECT_EQ(graphicsOf<LabelGraphics>(*labelEntity)->getText(), "road");
}

TEST(PolylineGeometryTest, ATwoVertexLineWithBothVerticesEqualHasItsHalfLengthPointAtTheOrigin) {
    LineScene scene;
    const Cartographic same = Cartographic::fromDegrees(116.0, 39.0, 10.0);
    scene.geometry.setPositions({same, same});
    scene.style.setLabelSymbol(std::make_shared<LabelSymbol>());
    ASSERT_TRUE(scene.updateBoth());
    EXPECT_EQ(scene.geometry.getDistanceDisplayConditionAnchor(), Vector3<double>(0.0, 0.0, 0.0));
}

TEST(PolylineGeometryTest, TheGeometryStepRefreshesTheAnchorOnlyOnceOneIsHeld) {
    LineScene scene;
    scene.style.setLabelSymbol(std::make_shared<LabelSymbol>());
    ASSERT_TRUE(scene.updateGeometry());
    EXPECT_FALSE(scene.geometry.getDistanceDisplayConditionAnchor());
    ASSERT_TRUE(scene.updateStyle());
    const auto first = scene.geometry.getDistanceDisplayConditionAnchor();
    ASSERT_TRUE(first);
    scene.geometry.setPositions(lineOf(3));
    ASSERT_TRUE(scene.updateGeometry());
    EXPECT_NE(scene.geometry.getDistanceDisplayConditionAnchor(), first);
}

// --- length labels -------------------------------------------------------------------------------

std::shared_ptr<LineSymbol> lineWithLengthLabels(bool segments = true, bool total = true) {
    auto line = dashedLine();
    auto lengths = std::make_shared<LengthLabelSymbol>();
    lengths->setShowSegments(segments);
    lengths->setShowTotal(total);
    line->setLengthLabelSymbol(lengths);
    return line;
}

std::string segmentName(std::size_t i) {
    return "length-label-segment-" + std::to_string(i);
}

std::string labelText(const Entity& root, const std::string& name) {
    const auto child = root.getChildByName(name);
    return child ? graphicsOf<LabelGraphics>(*child)->getText() : std::string("(none)");
}

TEST(PolylineGeometryTest, SegmentAndTotalLabelsCarryTheChordLengthsOnAbsoluteHeights) {
    LineScene scene;
    scene.style.setLineSymbol(lineWithLengthLabels());
    ASSERT_TRUE(scene.updateBoth());
    const auto positions = scene.geometry.getPositions();
    const LengthLabelSymbol& symbol = *scene.style.getLineSymbol()->getLengthLabelSymbol();
    double total = 0.0;
    for (std::size_t i = 0; i + 1 < positions.size(); ++i) {
        const double chord = (cartesian(positions[i + 1]) - cartesian(positions[i])).magnitude();
        total += chord;
        EXPECT_EQ(labelText(*scene.root, segmentName(i)), symbol.formatLength(chord));
        const auto at = scene.child(segmentName(i))->getPosition()->getValue(keo::TimePoint());
        EXPECT_NEAR(
            (*at - (cartesian(positions[i]) + cartesian(positions[i + 1])) * 0.5).magnitude(), 0.0,
            1e-9);
    }
    EXPECT_EQ(labelText(*scene.root, TOTAL), "总长：" + symbol.formatLength(total));
    const auto* totalGraphics = graphicsOf<LabelGraphics>(*scene.child(TOTAL));
    EXPECT_EQ(totalGraphics->getHorizontalOrigin(), keo::HorizontalOrigin::Left);
    EXPECT_EQ(totalGraphics->getVerticalOrigin(), keo::VerticalOrigin::Bottom);
    const auto at = scene.child(TOTAL)->getPosition()->getValue(keo::TimePoint());
    EXPECT_NEAR((*at - cartesian(positions.back())).magnitude(), 0.0, 1e-9);
}

TEST(PolylineGeometryTest, OnHeightsOtherThanAbsoluteTheLabelsCarryGeodesicLengths) {
    LineScene scene;
    scene.style.setLineSymbol(lineWithLengthLabels());
    scene.style.setHeightReference(HeightReference::RelativeToGround);
    scene.style.getLineSymbol()->getLengthLabelSymbol()->setDecimalPlaces(3);
    const CapturedLog log; // the downgrade warning
    ASSERT_TRUE(scene.updateBoth());
    const auto positions = scene.geometry.getPositions();
    const auto& geodesic = GeographicLib::Geodesic::WGS84();
    double total = 0.0;
    for (std::size_t i = 0; i + 1 < positions.size(); ++i) {
        double reference = 0.0;
        geodesic.Inverse(keo::Math::toDegrees(positions[i].latitude.value()),
                         keo::Math::toDegrees(positions[i].longitude.value()),
                         keo::Math::toDegrees(positions[i + 1].latitude.value()),
                         keo::Math::toDegrees(positions[i + 1].longitude.value()), reference);
        total += reference;
        // "1234.567 米": the number within a millimetre of GeographicLib's distance.
        const std::string text = labelText(*scene.root, segmentName(i));
        EXPECT_NEAR(std::strtod(text.c_str(), nullptr), reference, 1.5e-3) << text;
        const double chord = (cartesian(positions[i + 1]) - cartesian(positions[i])).magnitude();
        EXPECT_NE(text, scene.style.getLineSymbol()->getLengthLabelSymbol()->formatLength(chord));
    }
    const std::string totalText = labelText(*scene.root, TOTAL);
    EXPECT_NEAR(std::strtod(totalText.substr(std::string("总长：").size()).c_str(), nullptr), total,
                5e-3);
}

TEST(PolylineGeometryTest,
     ShrinkingALineFromFiveToThreeVerticesRemovesTheSegmentLabelsTwoAndThree) {
    LineScene scene;
    scene.style.setLineSymbol(lineWithLengthLabels());
    ASSERT_TRUE(scene.updateBoth());
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_TRUE(hasChild(*scene.root, segmentName(i)));
    }
    scene.feature._takeRemovedEntities();
    scene.geometry.setPositions(lineOf(3));
    ASSERT_TRUE(scene.updateBoth());
    EXPECT_TRUE(hasChild(*scene.root, segmentName(0)));
    EXPECT_TRUE(hasChild(*scene.root, segmentName(1)));
    EXPECT_FALSE(hasChild(*scene.root, segmentName(2)));
    EXPECT_FALSE(hasChild(*scene.root, segmentName(3)));
    std::vector<std::string> removed;
    for (const auto& e : scene.feature._takeRemovedEntities()) {
        removed.push_back(e->getName());
    }
    std::sort(removed.begin(), removed.end());
    EXPECT_EQ(removed, (std::vector<std::string>{segmentName(2), segmentName(3)}));
}

TEST(PolylineGeometryTest, TurningOffTheTotalOrTheSegmentsRemovesThoseLabels) {
    LineScene scene;
    scene.style.setLineSymbol(lineWithLengthLabels());
    ASSERT_TRUE(scene.updateBoth());
    auto& lengths = *scene.style.getLineSymbol()->getLengthLabelSymbol();
    lengths.setShowTotal(false);
    ASSERT_TRUE(scene.updateStyle());
    EXPECT_FALSE(hasChild(*scene.root, TOTAL));
    EXPECT_TRUE(hasChild(*scene.root, segmentName(0)));
    lengths.setShowSegments(false);
    lengths.setShowTotal(true);
    ASSERT_TRUE(scene.updateStyle());
    EXPECT_TRUE(hasChild(*scene.root, TOTAL));
    EXPECT_FALSE(hasChild(*scene.root, segmentName(0)));
    lengths.setEnabled(false);
    ASSERT_TRUE(scene.updateStyle());
    EXPECT_FALSE(hasChild(*scene.root, TOTAL));
}

TEST(PolylineGeometryTest, MovingTheLineMovesItsLengthLabelsInTheGeometryStep) {
    LineScene scene;
    scene.style.setLineSymbol(lineWithLengthLabels());
    ASSERT_TRUE(scene.updateBoth());
    auto moved = lineOf(5, 500.0);
    scene.geometry.setPositions(moved);
    ASSERT_TRUE(scene.updateGeometry());
    const auto at = scene.child(segmentName(1))->getPosition()->getValue(keo::TimePoint());
    EXPECT_NEAR((*at - (cartesian(moved[1]) + cartesian(moved[2])) * 0.5).magnitude(), 0.0, 1e-9);
}

// --- extrusion, overlay and line volume ----------------------------------------------------------

std::shared_ptr<ExtrusionSymbol> extrusionOf(double height,
                                             ExtrusionSymbol::HeightReference reference) {
    auto extrusion = std::make_shared<ExtrusionSymbol>();
    extrusion->setHeight(height);
    extrusion->setHeightReference(reference);
    extrusion->setBodySymbol(std::make_shared<PolygonSymbol>(std::make_shared<ColorMaterial>()));
    extrusion->setTailSymbol(dashedLine());
    return extrusion;
}

TEST(PolylineGeometryTest, TheWallSpansTheVertexAndTheExtrusionInBothModesWhateverTheSign) {
    using Reference = ExtrusionSymbol::HeightReference;
    for (const Reference reference : {Reference::Relative, Reference::Absolute}) {
        for (const double height : {30.0, 0.0, -20.0}) {
            SCOPED_TRACE(std::to_string(static_cast<int>(reference)) + " " +
                         std::to_string(height));
            LineScene scene;
            scene.style.setExtrusionSymbol(extrusionOf(height, reference));
            ASSERT_TRUE(scene.updateBoth());
            const auto* wall = graphicsOf<WallGraphics>(*scene.child(WALL));
            ASSERT_NE(wall, nullptr);
            const auto& positions = scene.geometry.getPositions();
            ASSERT_EQ(wall->getMinimumHeights().size(), positions.size());
            ASSERT_EQ(wall->getMaximumHeights().size(), positions.size());
            for (std::size_t i = 0; i < positions.size(); ++i) {
                const double vertex = positions[i].height;
                const double top = reference == Reference::Relative ? vertex + height : height;
                EXPECT_EQ(wall->getMinimumHeights()[i], std::min(vertex, top));
                EXPECT_EQ(wall->getMaximumHeights()[i], std::max(vertex, top));
            }
            EXPECT_EQ(wall->getPositions().size(), positions.size());
        }
    }
}

TEST(PolylineGeometryTest, AnExtrusionOfAnotherHeightReferenceLeavesTheWallWithoutHeights) {
    LineScene scene;
    scene.style.setExtrusionSymbol(
        extrusionOf(30.0, static_cast<ExtrusionSymbol::HeightReference>(5)));
    ASSERT_TRUE(scene.updateBoth());
    const auto* wall = graphicsOf<WallGraphics>(*scene.child(WALL));
    EXPECT_TRUE(wall->getMinimumHeights().empty());
    EXPECT_TRUE(wall->getMaximumHeights().empty());
    // The roof keeps the vertices' heights.
    const auto* roof = graphicsOf<PolylineGraphics>(*scene.child(ROOF));
    const auto points = roof->getPositions()->getValues(keo::TimePoint());
    EXPECT_NEAR((points[0] - cartesian(scene.geometry.getPositions()[0])).magnitude(), 0.0, 1e-9);
}

TEST(PolylineGeometryTest, TheRoofRunsAlongTheTopWithTheTailsWidthAndMaterial) {
    LineScene scene;
    scene.style.setExtrusionSymbol(extrusionOf(40.0, ExtrusionSymbol::HeightReference::Relative));
    ASSERT_TRUE(scene.updateBoth());
    const auto* roof = graphicsOf<PolylineGraphics>(*scene.child(ROOF));
    ASSERT_NE(roof, nullptr);
    EXPECT_EQ(roof->getWidth(), 3.0f);
    EXPECT_EQ(roof->getMaterial()->getColor(), Color::RED);
    const auto points = roof->getPositions()->getValues(keo::TimePoint());
    const auto& positions = scene.geometry.getPositions();
    ASSERT_EQ(points.size(), positions.size());
    for (std::size_t i = 0; i < positions.size(); ++i) {
        Cartographic raised = positions[i];
        raised.height += 40.0;
        EXPECT_NEAR((points[i] - cartesian(raised)).magnitude(), 0.0, 1e-9);
    }
}

TEST(PolylineGeometryTest, TheExtrusionHeightComesFromTheNamedAttributeWhenItHoldsANumber) {
    LineScene scene;
    auto extrusion = extrusionOf(10.0, ExtrusionSymbol::HeightReference::Absolute);
    extrusion->setFieldName("fence");
    scene.style.setExtrusionSymbol(extrusion);
    scene.feature.setAttribute("fence", {0, 75.0});
    ASSERT_TRUE(scene.updateBoth());
    EXPECT_EQ(graphicsOf<WallGraphics>(*scene.child(WALL))->getMaximumHeights()[0], 75.0);
    scene.feature.setAttribute("fence", {0, std::string("high")});
    ASSERT_TRUE(scene.updateStyle());
    EXPECT_EQ(graphicsOf<WallGraphics>(*scene.child(WALL))->getMaximumHeights()[0], 10.0);
}

TEST(PolylineGeometryTest, ABodyOfAnotherKindGivesNoWallWhileTheRoofStays) {
    LineScene scene;
    auto extrusion = extrusionOf(10.0, ExtrusionSymbol::HeightReference::Relative);
    extrusion->setBodySymbol(dashedLine());
    scene.style.setExtrusionSymbol(extrusion);
    ASSERT_TRUE(scene.updateBoth());
    EXPECT_FALSE(hasChild(*scene.root, WALL));
    EXPECT_TRUE(hasChild(*scene.root, ROOF));
}

TEST(PolylineGeometryTest, ALineVolumeShapeOfTwoPointsRemovesTheLineVolumeChild) {
    LineScene scene;
    auto volume = std::make_shared<LineVolumeSymbol>();
    volume->setShape({{-1.0, -1.0}, {1.0, -1.0}, {0.0, 1.0}});
    scene.style.setLineVolumeSymbol(volume);
    ASSERT_TRUE(scene.updateBoth());
    const auto* graphics = graphicsOf<PolylineVolumeGraphics>(*scene.child(VOLUME));
    ASSERT_NE(graphics, nullptr);
    EXPECT_EQ(graphics->getShape().size(), 3u);
    EXPECT_EQ(graphics->getPositions().size(), 5u);
    scene.feature._takeRemovedEntities();
    volume->setShape({{-1.0, -1.0}, {1.0, -1.0}});
    ASSERT_TRUE(scene.updateStyle());
    EXPECT_FALSE(hasChild(*scene.root, VOLUME));
    const auto removed = scene.feature._takeRemovedEntities();
    ASSERT_EQ(removed.size(), 1u);
    EXPECT_EQ(removed[0]->getName(), VOLUME);
}

TEST(PolylineGeometryTest, TheShadowVolumeScaleReachesTheMainAndOverlayLines) {
    LineScene scene;
    scene.style.setLineSymbol(dashedLine());
    scene.style.setOverlayLineSymbol(dashedLine());
    scene.geometry.setShadowVolumeHeightScale(4.0);
    ASSERT_TRUE(scene.updateBoth());
    EXPECT_EQ(graphicsOf<PolylineGraphics>(*scene.root)->getShadowVolumeHeightScale(), 4.0);
    EXPECT_EQ(graphicsOf<PolylineGraphics>(*scene.child(OVERLAY))->getShadowVolumeHeightScale(),
              4.0);
}

TEST(PolylineGeometryTest, WithoutAPolylineStyleEverySymbolChildIsRemoved) {
    LineScene scene;
    scene.style.setLineSymbol(dashedLine());
    scene.style.setOverlayLineSymbol(dashedLine());
    scene.style.setExtrusionSymbol(extrusionOf(10.0, ExtrusionSymbol::HeightReference::Relative));
    auto volume = std::make_shared<LineVolumeSymbol>();
    volume->setShape({{-1.0, -1.0}, {1.0, -1.0}, {0.0, 1.0}});
    scene.style.setLineVolumeSymbol(volume);
    ASSERT_TRUE(scene.updateBoth());
    EXPECT_EQ(childNames(*scene.root).size(), 4u);
    EXPECT_TRUE(scene.geometry._updateStyle(*scene.root, scene.feature, nullptr));
    EXPECT_TRUE(childNames(*scene.root).empty());
    // Nothing else drawn: the default line.
    EXPECT_EQ(graphicsOf<PolylineGraphics>(*scene.root)->getWidth(), 1.0f);
}

// --- every combination of symbols ----------------------------------------------------------------

enum class Presence { Absent, Hidden, Shown };

struct Combination {
    Presence line;
    Presence overlay;
    Presence extrusion;
    Presence volume;
    bool label;
};

std::vector<Combination> allCombinations() {
    std::vector<Combination> all;
    const Presence each[] = {Presence::Absent, Presence::Hidden, Presence::Shown};
    for (const Presence line : each) {
        for (const Presence overlay : each) {
            for (const Presence extrusion : each) {
                for (const Presence volume : each) {
                    for (const bool label : {false, true}) {
                        all.push_back({line, overlay, extrusion, volume, label});
                    }
                }
            }
        }
    }
    return all;
}

template <typename Symbol>
std::shared_ptr<Symbol> present(Presence presence, std::shared_ptr<Symbol> symbol) {
    if (presence == Presence::Absent) {
        return nullptr;
    }
    symbol->setEnabled(presence == Presence::Shown);
    return symbol;
}

void applyCombination(PolylineStyle& style, const Combination& c) {
    style.setLineSymbol(present(c.line, lineWithLengthLabels()));
    style.setOverlayLineSymbol(present(c.overlay, dashedLine()));
    style.setExtrusionSymbol(
        present(c.extrusion, extrusionOf(10.0, ExtrusionSymbol::HeightReference::Relative)));
    auto volume = std::make_shared<LineVolumeSymbol>();
    volume->setShape({{-1.0, -1.0}, {1.0, -1.0}, {0.0, 1.0}});
    style.setLineVolumeSymbol(present(c.volume, volume));
    style.setLabelSymbol(c.label ? std::make_shared<LabelSymbol>() : nullptr);
}

std::vector<std::string> expectedChildren(const Combination& c) {
    std::vector<std::string> names;
    if (c.label) {
        names.push_back(LABEL);
    }
    if (c.line == Presence::Shown) {
        for (std::size_t i = 0; i < 4; ++i) {
            names.push_back(segmentName(i));
        }
        names.push_back(TOTAL);
    }
    if (c.extrusion == Presence::Shown) {
        names.push_back(WALL);
        names.push_back(ROOF);
    }
    if (c.volume == Presence::Shown) {
        names.push_back(VOLUME);
    }
    if (c.overlay == Presence::Shown) {
        names.push_back(OVERLAY);
    }
    std::sort(names.begin(), names.end());
    return names;
}

TEST(PolylineGeometryTest, EveryCombinationOfSymbolsBuildsExactlyItsChildrenFrameAfterFrame) {
    // One feature goes through every combination in turn; after each frame the renderer's live
    // set (kept from the added and removed lists) must be the feature's entity tree.
    Feature feature(std::uint64_t{7});
    feature.setName("fence");
    auto geometry = std::make_shared<PolylineGeometry>(lineOf(5));
    auto style = std::make_shared<PolylineStyle>();
    feature.setGeometry(geometry);
    feature.setStyle(style);
    RendererModel renderer(feature);
    for (const auto& c : allCombinations()) {
        applyCombination(*style, c);
        renderer.frame();
        renderer.expectLiveSetIsTheTree();
        auto names = childNames(*feature._getImplHandle());
        std::sort(names.begin(), names.end());
        ASSERT_EQ(names, expectedChildren(c));
        const bool anything = c.label || c.line == Presence::Shown ||
                              c.overlay == Presence::Shown || c.extrusion == Presence::Shown ||
                              c.volume == Presence::Shown;
        if (c.line == Presence::Shown) {
            EXPECT_EQ(graphicsOf<PolylineGraphics>(*feature._getImplHandle())->getWidth(), 3.0f);
        } else if (anything) {
            EXPECT_EQ(feature._getImplHandle()->getGeometryGraphics(), nullptr);
        } else {
            EXPECT_NE(graphicsOf<PolylineGraphics>(*feature._getImplHandle()), nullptr);
        }
    }
}

TEST(PolylineGeometryTest, EditsFrameAfterFrameKeepTheLiveSetEqualToTheTree) {
    Feature feature(std::uint64_t{8});
    feature.setName("river");
    auto geometry = std::make_shared<PolylineGeometry>(lineOf(5));
    auto style = std::make_shared<PolylineStyle>();
    style->setLineSymbol(lineWithLengthLabels());
    auto label = std::make_shared<LabelSymbol>();
    label->setShowHintLine(true);
    style->setLabelSymbol(label);
    feature.setGeometry(geometry);
    feature.setStyle(style);
    RendererModel renderer(feature);
    const std::vector<std::function<void()>> edits = {
        [&] { geometry->setPositions(lineOf(6)); },
        [&] { geometry->setPositions(lineOf(3)); },
        [&] { label->setShowHintLine(false); },
        [&] { style->getLineSymbol()->getLengthLabelSymbol()->setShowTotal(false); },
        [&] { geometry->setPositions(lineOf(1)); }, // invalid: the feature drops its children
        [&] { geometry->setPositions(lineOf(4)); },
        [&] { feature.setShow(false); },
        [&] { feature.setShow(true); },
        [&] { style->setLineSymbol(nullptr); },
        [&] { feature.setGeometry(std::make_shared<PolylineGeometry>(lineOf(2))); },
    };
    renderer.frame();
    renderer.expectLiveSetIsTheTree();
    for (std::size_t i = 0; i < edits.size(); ++i) {
        SCOPED_TRACE(i);
        const CapturedLog log; // the invalid line's records
        edits[i]();
        renderer.frame();
        renderer.expectLiveSetIsTheTree();
    }
}

TEST(PolylineGeometryTest, TheFeaturesExtentComesFromTheVertices) {
    Feature feature;
    feature.setGeometry(std::make_shared<PolylineGeometry>(std::vector<Cartographic>{
        Cartographic::fromDegrees(10.0, 20.0), Cartographic::fromDegrees(12.0, 25.0),
        Cartographic::fromDegrees(11.0, 21.0)}));
    const auto& rectangle = feature._getGlobeRectangle();
    ASSERT_TRUE(rectangle);
    EXPECT_NEAR(rectangle->getWest(), keo::Math::toRadians(10.0), 1e-12);
    EXPECT_NEAR(rectangle->getEast(), keo::Math::toRadians(12.0), 1e-12);
    EXPECT_NEAR(rectangle->getSouth(), keo::Math::toRadians(20.0), 1e-12);
    EXPECT_NEAR(rectangle->getNorth(), keo::Math::toRadians(25.0), 1e-12);
}

} // namespace
