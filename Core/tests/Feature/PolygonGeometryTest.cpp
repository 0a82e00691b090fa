#include "Feature/PolygonGeometry.h"

#include "Common/Cartographic.h"
#include "Common/Color.h"
#include "Common/Ellipsoid.h"
#include "Common/Math.h"
#include "Data/ClosedRingPositionArrayProperty.h"
#include "Data/ColorMaterialProperty.h"
#include "Data/Entity.h"
#include "Data/ImageMaterialProperty.h"
#include "Data/LabelGraphics.h"
#include "Data/MaterialProperty.h"
#include "Data/PointGraphics.h"
#include "Data/PolygonGraphics.h"
#include "Data/PolylineGraphics.h"
#include "Data/PositionArrayProperty.h"
#include "Data/PositionProperty.h"
#include "Data/TimePoint.h"
#include "Data/WallGraphics.h"
#include "EntityTestSupport.h"
#include "Feature/ColorMaterial.h"
#include "Feature/ExtrusionSymbol.h"
#include "Feature/Feature.h"
#include "Feature/ImageMaterial.h"
#include "Feature/ImageTileSizeUnit.h"
#include "Feature/LabelSymbol.h"
#include "Feature/LengthLabelSymbol.h"
#include "Feature/LineSymbol.h"
#include "Feature/PolygonStyle.h"
#include "Feature/PolygonSymbol.h"
#include "Feature/PolylineGeometry.h"
#include "FeatureTestSupport.h"
#include "RendererModel.h"
#include "SymbolTestSupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <random>
#include <stdexcept>
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
using keo::PolygonGraphics;
using keo::PolylineGraphics;
using keo::Vector3;
using keo::WallGraphics;
using keo::Feature::ColorMaterial;
using keo::Feature::ExtrusionSymbol;
using keo::Feature::Feature;
using keo::Feature::Geometry;
using keo::Feature::LabelSymbol;
using keo::Feature::LengthLabelSymbol;
using keo::Feature::LineSymbol;
using keo::Feature::PolygonGeometry;
using keo::Feature::PolygonStyle;
using keo::Feature::PolygonSymbol;
using keo::Feature::test::CapturedLog;
using keo::Feature::test::cartesian;
using keo::Feature::test::EventRecorder;
using keo::Feature::test::expectAssignKindLogged;
using keo::Feature::test::GeometryScene;
using keo::Feature::test::graphicsOf;
using keo::Feature::test::hasChild;
using keo::Feature::test::RendererModel;
using keo::Feature::test::sortedChildNames;
using Hierarchy = PolygonGeometry::Hierarchy;

constexpr const char* LABEL = "label-symbol";
constexpr const char* HINT_LINE = "hint-line";
constexpr const char* OUTLINE = "outline-symbol";
constexpr const char* WALL = "extrusion-wall-symbol";
constexpr const char* ROOF = "extrusion-roof-symbol";
constexpr const char* ROOF_OUTLINE = "extrusion-roof-outline-symbol";
constexpr const char* TOO_FEW = "折线的顶点数量不能少于3个。";

Cartographic degrees(double longitude, double latitude, double height = 0.0) {
    return Cartographic::fromDegrees(longitude, latitude, height);
}

// A ring of @p points given as (longitude, latitude) degrees, at @p height.
std::vector<Cartographic> ringOf(const std::vector<std::pair<double, double>>& points,
                                 double height = 0.0) {
    std::vector<Cartographic> ring;
    for (const auto& [longitude, latitude] : points) {
        ring.push_back(degrees(longitude, latitude, height));
    }
    return ring;
}

// A small square park near Beijing with a square pond in it.
Hierarchy park(double height = 0.0) {
    Hierarchy hierarchy;
    hierarchy.positions =
        ringOf({{116.40, 39.90}, {116.42, 39.90}, {116.42, 39.92}, {116.40, 39.92}}, height);
    Hierarchy pond;
    pond.positions =
        ringOf({{116.405, 39.905}, {116.41, 39.905}, {116.41, 39.91}, {116.405, 39.91}}, height);
    hierarchy.holes.push_back(pond);
    return hierarchy;
}

std::string segmentName(std::size_t i) {
    return "length-label-segment-" + std::to_string(i);
}

std::shared_ptr<LineSymbol> lineOf(const Color& color, float width) {
    auto line = std::make_shared<LineSymbol>();
    line->setWidth(width);
    line->setMaterial(std::make_shared<ColorMaterial>(color));
    return line;
}

std::shared_ptr<PolygonSymbol> fillOf(const Color& color) {
    return std::make_shared<PolygonSymbol>(std::make_shared<ColorMaterial>(color));
}

// A green fill outlined by a red line 3 pixels wide.
std::shared_ptr<PolygonSymbol> outlinedFill() {
    auto symbol = fillOf(Color::GREEN);
    symbol->setOutLineSymbol(lineOf(Color::RED, 3.0f));
    return symbol;
}

struct PolygonScene : GeometryScene<PolygonGeometry, PolygonStyle> {
    PolygonScene()
        : GeometryScene("park", park()) {}
};

// --- data, setters, copy and assign ------------------------------------------------------------

TEST(PolygonGeometryTest, ANewPolygonIsOfKind302WithAnEmptyRingAndScaleOne) {
    const PolygonGeometry polygon;
    EXPECT_EQ(polygon.getType(), Geometry::Type::Polygon);
    EXPECT_EQ(static_cast<int>(polygon.getType()), 302);
    EXPECT_TRUE(polygon.getHierarchy().positions.empty());
    EXPECT_TRUE(polygon.getHierarchy().holes.empty());
    EXPECT_EQ(polygon.getShadowVolumeHeightScale(), 1.0);
}

TEST(PolygonGeometryTest, TheHierarchyIsCopiedDeeplyHolesOfHolesIncluded) {
    Hierarchy hierarchy = park();
    Hierarchy island;
    island.positions = ringOf({{116.406, 39.906}, {116.407, 39.906}, {116.407, 39.907}});
    hierarchy.holes[0].holes.push_back(island);
    const PolygonGeometry polygon(hierarchy);
    hierarchy.holes[0].holes.clear();
    ASSERT_EQ(polygon.getHierarchy().holes.size(), 1u);
    ASSERT_EQ(polygon.getHierarchy().holes[0].holes.size(), 1u);
    EXPECT_EQ(polygon.getHierarchy().holes[0].holes[0].positions, island.positions);
}

TEST(PolygonGeometryTest, SettingACopyOfTheHierarchyStillRaisesTheEvents) {
    PolygonGeometry polygon(park());
    const EventRecorder recorder(polygon);
    const Hierarchy copy = polygon.getHierarchy();
    polygon.setHierarchy(copy);
    EXPECT_EQ(recorder.events, "LUD");
    polygon.setHierarchy(polygon.getHierarchy()); // the stored hierarchy itself: nothing
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(PolygonGeometryTest, SettingScaleOneOnANewPolygonRaisesNothing) {
    PolygonGeometry polygon;
    const EventRecorder recorder(polygon);
    polygon.setShadowVolumeHeightScale(1.0);
    EXPECT_EQ(recorder.events, "");
    polygon.setShadowVolumeHeightScale(2.0);
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(PolygonGeometryTest, AssignCopiesTheConditionTheHierarchyAlwaysAndTheScaleWhenItDiffers) {
    PolygonGeometry source(park());
    source.setDistanceDisplayCondition(DistanceDisplayCondition(1.0f, 9.0f));
    PolygonGeometry target(park());
    const EventRecorder recorder(target);
    target.assign(source);
    EXPECT_EQ(target.getDistanceDisplayCondition(), DistanceDisplayCondition(1.0f, 9.0f));
    EXPECT_EQ(recorder.events, "LUDLUD"); // the condition, then the hierarchy; the scale is equal
    EXPECT_EQ(target.getHierarchy().positions, park().positions);
}

TEST(PolygonGeometryTest, AssignFromAnotherKindLogsAndChangesNothing) {
    const CapturedLog log;
    PolygonGeometry target(park());
    const EventRecorder recorder(target);
    target.assign(keo::Feature::PolylineGeometry());
    EXPECT_EQ(recorder.events, "");
    expectAssignKindLogged(log, "Core/src/Feature/PolygonGeometry",
                           "keo::Feature::PolygonGeometry::assign");
}

TEST(PolygonGeometryTest, ACloneCopiesEverythingButTheAnchor) {
    PolygonScene scene;
    scene.geometry.setShadowVolumeHeightScale(3.0);
    scene.style.setLabelSymbol(std::make_shared<LabelSymbol>());
    ASSERT_TRUE(scene.updateBoth());
    ASSERT_TRUE(scene.geometry.getDistanceDisplayConditionAnchor());
    const auto clone = scene.geometry.clone();
    const auto& copy = static_cast<const PolygonGeometry&>(*clone);
    EXPECT_EQ(copy.getHierarchy().positions, scene.geometry.getHierarchy().positions);
    EXPECT_EQ(copy.getHierarchy().holes.size(), 1u);
    EXPECT_EQ(copy.getShadowVolumeHeightScale(), 3.0);
    EXPECT_FALSE(copy.getDistanceDisplayConditionAnchor());
}

// --- conversions -----------------------------------------------------------------------------

TEST(PolygonGeometryTest, TheCartesianRingHasOnePointPerPositionAndTheHierarchyKeepsItsHoles) {
    const Hierarchy hierarchy = park();
    const auto ring = PolygonGeometry::_toCartesianRing(hierarchy.positions);
    ASSERT_EQ(ring.size(), 4u);
    EXPECT_EQ(ring[2], cartesian(hierarchy.positions[2]));
    const keo::PolygonHierarchy converted = PolygonGeometry::_toPolygonHierarchy(hierarchy);
    EXPECT_EQ(converted.positions, ring);
    ASSERT_EQ(converted.holes.size(), 1u);
    EXPECT_EQ(converted.holes[0].positions,
              PolygonGeometry::_toCartesianRing(hierarchy.holes[0].positions));
}

// --- the label point ---------------------------------------------------------------------------

// The flat list the label routine tests points against: longitudes continuous along the ring.
std::vector<double> flatDegrees(const std::vector<Cartographic>& ring) {
    std::vector<double> flat;
    double previous = 0.0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        double longitude = keo::Math::toDegrees(ring[i].longitude.value());
        while (i > 0 && longitude - previous > 180.0) {
            longitude -= 360.0;
        }
        while (i > 0 && longitude - previous < -180.0) {
            longitude += 360.0;
        }
        previous = longitude;
        flat.push_back(longitude);
        flat.push_back(keo::Math::toDegrees(ring[i].latitude.value()));
    }
    return flat;
}

// Checks that the label point of @p ring is (@p longitude, @p latitude) degrees at @p height and
// lies inside the ring.
void expectLabelAt(const std::vector<Cartographic>& ring, double longitude, double latitude,
                   double height) {
    const Vector3<double> point = PolygonGeometry::_computeLabelPosition(ring);
    EXPECT_NEAR((point - cartesian(degrees(longitude, latitude, height))).magnitude(), 0.0, 1e-6);
    const auto back = Ellipsoid::WGS84.cartesianToCartographic(point);
    ASSERT_TRUE(back);
    double x = keo::Math::toDegrees(back->longitude.value());
    const std::vector<double> flat = flatDegrees(ring);
    // Into the ring's own longitudes when it was followed across the antimeridian.
    if (x < flat.front() - 180.0) {
        x += 360.0;
    }
    EXPECT_TRUE(PolygonGeometry::_isInsideRing(flat, 0, flat.size(), x,
                                               keo::Math::toDegrees(back->latitude.value())));
}

TEST(PolygonGeometryTest, TheLabelOfAConvexRingIsItsMiddle) {
    expectLabelAt(ringOf({{0, 0}, {2, 0}, {2, 2}, {0, 2}}), 1.0, 1.0, 0.0);
}

TEST(PolygonGeometryTest, TheLabelOfAConcaveRingAvoidsTheNotch) {
    // An L: the middle of the box (2, 2) is outside; the widest span inside on the parallel 2 is
    // the upright from 0 to 1.
    expectLabelAt(ringOf({{0, 0}, {4, 0}, {4, 1}, {1, 1}, {1, 4}, {0, 4}}), 0.5, 2.0, 0.0);
}

TEST(PolygonGeometryTest, AUShapedRingIsLabelledInItsWiderArmNotInTheNotch) {
    // The middle of the box (1.5, 1.5) lies in the notch between the arms; the western arm, 1.5
    // wide, is wider than the eastern one.
    expectLabelAt(ringOf({{0, 0}, {3, 0}, {3, 3}, {2, 3}, {2, 1}, {1.5, 1}, {1.5, 3}, {0, 3}}),
                  0.75, 1.5, 0.0);
}

TEST(PolygonGeometryTest, AWiderEasternArmOfAUWinsOverANarrowerWesternOne) {
    expectLabelAt(ringOf({{0, 0}, {5, 0}, {5, 3}, {2, 3}, {2, 1}, {1, 1}, {1, 3}, {0, 3}}), 3.5,
                  1.5, 0.0);
}

TEST(PolygonGeometryTest, ACShapedRingIsLabelledInItsBack) {
    expectLabelAt(ringOf({{0, 0}, {3, 0}, {3, 1}, {1, 1}, {1, 2}, {3, 2}, {3, 3}, {0, 3}}), 0.5,
                  1.5, 0.0);
}

TEST(PolygonGeometryTest, ARingAcrossTheAntimeridianIsLabelledOnIt) {
    expectLabelAt(ringOf({{179, -1}, {-179, -1}, {-179, 1}, {179, 1}}), 180.0, 0.0, 0.0);
    expectLabelAt(ringOf({{178, 10}, {-176, 10}, {-176, 12}, {178, 12}}), -179.0, 11.0, 0.0);
}

TEST(PolygonGeometryTest, ARingNearAPoleIsLabelledInside) {
    expectLabelAt(ringOf({{10, 88}, {40, 88}, {40, 89.5}, {10, 89.5}}), 25.0, 88.75, 0.0);
    expectLabelAt(ringOf({{-60, -89}, {60, -89}, {60, -87}, {-60, -87}}), 0.0, -88.0, 0.0);
}

TEST(PolygonGeometryTest, TheLabelStandsAtTheHighestVertex) {
    std::vector<Cartographic> ring{degrees(0, 0, 0.0), degrees(2, 0, 50.0), degrees(1, 2, 200.0)};
    const auto point = PolygonGeometry::_computeLabelPosition(ring);
    const auto back = Ellipsoid::WGS84.cartesianToCartographic(point);
    ASSERT_TRUE(back);
    EXPECT_NEAR(back->height, 200.0, 1e-6);
}

TEST(PolygonGeometryTest, AnEmptyRingIsLabelledAtTheOrigin) {
    EXPECT_EQ(PolygonGeometry::_computeLabelPosition({}), Vector3<double>(0.0, 0.0, 0.0));
}

// An independent test for simple rings: a ray to the east crosses the ring an odd number of times.
bool evenOddInside(const std::vector<double>& flat, double x, double y) {
    bool inside = false;
    const std::size_t n = flat.size() / 2;
    for (std::size_t i = 0, j = n - 1; i < n; j = i++) {
        const double xi = flat[2 * i];
        const double yi = flat[2 * i + 1];
        const double xj = flat[2 * j];
        const double yj = flat[2 * j + 1];
        if ((yi > y) != (yj > y) && x < (xj - xi) * (y - yi) / (yj - yi) + xi) {
            inside = !inside;
        }
    }
    return inside;
}

TEST(PolygonGeometryTest, TheWindingTestAgreesWithAnIndependentTestOnThousandsOfPoints) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    for (int polygon = 0; polygon < 20; ++polygon) {
        // A star-shaped ring: vertices at growing angles, random radii; simple by construction.
        std::vector<double> flat;
        const int vertices = 5 + polygon;
        for (int i = 0; i < vertices; ++i) {
            const double angle = keo::Math::TWO_PI * (i + 0.5 * unit(random)) / vertices;
            const double radius = 0.3 + 0.7 * unit(random);
            flat.push_back(radius * std::cos(angle));
            flat.push_back(radius * std::sin(angle));
        }
        if (polygon % 2 == 1) { // clockwise rings too
            std::vector<double> reversed;
            for (std::size_t i = flat.size(); i >= 2; i -= 2) {
                reversed.push_back(flat[i - 2]);
                reversed.push_back(flat[i - 1]);
            }
            flat = reversed;
        }
        for (int n = 0; n < 500; ++n) {
            const double x = 2.2 * unit(random) - 1.1;
            const double y = 2.2 * unit(random) - 1.1;
            EXPECT_EQ(PolygonGeometry::_isInsideRing(flat, 0, flat.size(), x, y),
                      evenOddInside(flat, x, y))
                << "polygon " << polygon << " at (" << x << ", " << y << ")";
        }
    }
}

TEST(PolygonGeometryTest, TheWindingTestSeesOnlyItsRangeAndAnEmptyRangeIsOutside) {
    // Two squares one after the other in one flat list: each range sees its own.
    const std::vector<double> flat{0, 0, 1, 0, 1, 1, 0, 1, 5, 5, 6, 5, 6, 6, 5, 6};
    EXPECT_TRUE(PolygonGeometry::_isInsideRing(flat, 0, 8, 0.5, 0.5));
    EXPECT_FALSE(PolygonGeometry::_isInsideRing(flat, 0, 8, 5.5, 5.5));
    EXPECT_TRUE(PolygonGeometry::_isInsideRing(flat, 8, 16, 5.5, 5.5));
    EXPECT_FALSE(PolygonGeometry::_isInsideRing(flat, 4, 4, 0.5, 0.5));
}

TEST(PolygonGeometryTest, ComputingTheLabelOfAHundredThousandVertexRingStaysNearLinear) {
    // A circle of 100,000 vertices: the routine sorts its crossings, nothing quadratic; this
    // only checks the result (the speed is a benchmark's).
    std::vector<Cartographic> ring;
    const int vertices = 100000;
    for (int i = 0; i < vertices; ++i) {
        const double angle = keo::Math::TWO_PI * i / vertices;
        ring.push_back(degrees(10.0 + std::cos(angle), 20.0 + std::sin(angle)));
    }
    expectLabelAt(ring, 10.0, 20.0, 0.0);
}

TEST(PolygonGeometryTest, ALabelPointIsTheSameBeforeAndAfterAVeryLongRingIsLabelled) {
    // The lists the label point is worked out in are kept from one ring to the next (and let go
    // after a very long one): nothing of one ring may reach the next.
    const std::vector<Cartographic> small =
        ringOf({{116.40, 39.90}, {116.43, 39.90}, {116.43, 39.93}, {116.40, 39.93}});
    const Vector3<double> first = PolygonGeometry::_computeLabelPosition(small);
    std::vector<Cartographic> ring;
    const int vertices = 80000;
    for (int i = 0; i < vertices; ++i) {
        const double angle = keo::Math::TWO_PI * i / vertices;
        ring.push_back(degrees(-30.0 + std::cos(angle), -20.0 + std::sin(angle)));
    }
    expectLabelAt(ring, -30.0, -20.0, 0.0);
    EXPECT_EQ(PolygonGeometry::_computeLabelPosition(small), first);
    expectLabelAt(small, 116.415, 39.915, 0.0);
}

// --- invalid rings -----------------------------------------------------------------------------

TEST(PolygonGeometryTest, ARingUnderThreeVerticesLeavesTheTreeUntouchedWithItsRecords) {
    PolygonScene scene;
    scene.style.setPolygonSymbol(fillOf(Color::GREEN));
    scene.style.setLabelSymbol(std::make_shared<LabelSymbol>());
    ASSERT_TRUE(scene.updateBoth());
    const auto names = sortedChildNames(*scene.root);
    const auto graphics = scene.root->getGeometryGraphics();
    scene.feature._takeAddedEntities();
    Hierarchy tooShort;
    tooShort.positions = ringOf({{0, 0}, {1, 0}});
    scene.geometry.setHierarchy(tooShort);
    const CapturedLog log;
    EXPECT_FALSE(scene.updateGeometry());
    EXPECT_FALSE(scene.updateStyle());
    EXPECT_EQ(sortedChildNames(*scene.root), names);
    EXPECT_EQ(scene.root->getGeometryGraphics(), graphics);
    EXPECT_TRUE(scene.feature._takeAddedEntities().empty());
    EXPECT_TRUE(scene.feature._takeRemovedEntities().empty());
    const auto records = log.records();
    ASSERT_EQ(records.size(), 2u);
    EXPECT_EQ(records[0].message, TOO_FEW);
    EXPECT_EQ(records[0].level, 3);
    EXPECT_EQ(records[0].location.file, "Core/src/Feature/PolygonGeometry");
    EXPECT_EQ(records[0].location.function, "keo::Feature::PolygonGeometry::_updateGeometry");
    EXPECT_EQ(records[1].message, TOO_FEW);
    EXPECT_EQ(records[1].location.file, "Core/src/Feature/PolygonGeometry");
    EXPECT_EQ(records[1].location.line, 707);
    EXPECT_EQ(records[1].location.function, "keo::Feature::PolygonGeometry::_updateStyle");
}

TEST(PolygonGeometryTest, AClosedRingOfThreeStoredPositionsPassesButGetsNoEdgeLabels) {
    PolygonScene scene;
    Hierarchy sliver;
    sliver.positions = ringOf({{0, 0}, {1, 0}, {0, 0}});
    scene.geometry.setHierarchy(sliver);
    auto symbol = fillOf(Color::GREEN);
    symbol->setLengthLabelSymbol(std::make_shared<LengthLabelSymbol>());
    scene.style.setPolygonSymbol(symbol);
    EXPECT_TRUE(scene.updateBoth());
    EXPECT_EQ(PolygonGeometry::_countEdges(sliver.positions), 2u);
    EXPECT_FALSE(hasChild(*scene.root, segmentName(0)));
}

// --- the area, its outlines and the geometry step ---------------------------------------------

TEST(PolygonGeometryTest, TheAreaCarriesTheHierarchyTheFillAndTheMaterial) {
    PolygonScene scene;
    auto symbol = fillOf(Color::GREEN);
    symbol->setFill(false);
    scene.style.setPolygonSymbol(symbol);
    ASSERT_TRUE(scene.updateBoth());
    const auto* area = graphicsOf<PolygonGraphics>(*scene.root);
    ASSERT_NE(area, nullptr);
    EXPECT_EQ(area->getHierarchy(), PolygonGeometry::_toPolygonHierarchy(park()));
    EXPECT_FALSE(area->isFill());
    EXPECT_EQ(area->getMaterial()->getColor(), Color::GREEN);
    scene.feature.setHighlight(true);
    ASSERT_TRUE(scene.updateStyle());
    EXPECT_EQ(area->getMaterial()->getColor(), Color::HIGHLIGHTCOLOR);
}

TEST(PolygonGeometryTest, WithoutAPolygonSymbolTheAreaIsStillThereWithTheDefaults) {
    PolygonScene scene;
    EXPECT_TRUE(scene.geometry._updateStyle(*scene.root, scene.feature, nullptr));
    const auto* area = graphicsOf<PolygonGraphics>(*scene.root);
    ASSERT_NE(area, nullptr);
    EXPECT_TRUE(area->isFill());
    EXPECT_TRUE(area->isShow());
    // Without a style: clamped to the terrain.
    EXPECT_EQ(area->getClassificationType(), keo::ClassificationType::Terrain);
    EXPECT_FALSE(area->isPerPositionHeight());
}

TEST(PolygonGeometryTest, AHiddenPolygonSymbolHidesTheAreaAndDropsItsOutlines) {
    PolygonScene scene;
    auto symbol = fillOf(Color::GREEN);
    symbol->setOutLineSymbol(lineOf(Color::BLACK, 2.0f));
    scene.style.setPolygonSymbol(symbol);
    ASSERT_TRUE(scene.updateBoth());
    EXPECT_TRUE(hasChild(*scene.root, OUTLINE));
    symbol->setEnabled(false);
    ASSERT_TRUE(scene.updateStyle());
    EXPECT_FALSE(graphicsOf<PolygonGraphics>(*scene.root)->isShow());
    EXPECT_FALSE(hasChild(*scene.root, OUTLINE));
    EXPECT_FALSE(hasChild(*scene.root, "outline-hole-symbol-0"));
}

TEST(PolygonGeometryTest, TheOutlineClosesTheOuterRingAndEachHoleGetsAColourOutline) {
    PolygonScene scene;
    scene.style.setPolygonSymbol(outlinedFill());
    ASSERT_TRUE(scene.updateBoth());
    const auto* outline = graphicsOf<PolylineGraphics>(*scene.child(OUTLINE));
    ASSERT_NE(outline, nullptr);
    EXPECT_EQ(outline->getWidth(), 3.0f);
    const auto points = outline->getPositions()->getValues(keo::TimePoint());
    ASSERT_EQ(points.size(), 5u);
    EXPECT_EQ(points.front(), points.back());
    const auto* hole = graphicsOf<PolylineGraphics>(*scene.child("outline-hole-symbol-0"));
    ASSERT_NE(hole, nullptr);
    EXPECT_EQ(hole->getWidth(), 3.0f);
    ASSERT_NE(hole->getMaterial(), nullptr);
    EXPECT_EQ(hole->getMaterial()->getType(), keo::ColorMaterialProperty::TYPE);
    EXPECT_EQ(hole->getMaterial()->getColor(), Color::RED);
    EXPECT_EQ(hole->getPositions()->getValues(keo::TimePoint()).size(), 5u);
}

TEST(PolygonGeometryTest, OutlinesReadTheRingsOfTheAreaInsteadOfCopiesAndFollowAnEdit) {
    PolygonScene scene;
    scene.style.setPolygonSymbol(outlinedFill());
    ASSERT_TRUE(scene.updateBoth());
    const auto ringOf = [&scene](const std::string& name) {
        const auto* line = graphicsOf<PolylineGraphics>(*scene.child(name));
        const auto* closed =
            dynamic_cast<const keo::ClosedRingPositionArrayProperty*>(line->getPositions().get());
        return closed != nullptr ? closed->getRing().get() : nullptr;
    };
    const auto& area = graphicsOf<PolygonGraphics>(*scene.root)->getHierarchy();
    EXPECT_EQ(ringOf(OUTLINE), &area.positions);
    EXPECT_EQ(ringOf("outline-hole-symbol-0"), &area.holes.at(0).positions);
    // A moved vertex gives the area a new hierarchy, and the outline reads the new one.
    auto hierarchy = scene.geometry.getHierarchy();
    hierarchy.positions[0].height += 100.0;
    scene.geometry.setHierarchy(hierarchy);
    ASSERT_TRUE(scene.updateBoth());
    const auto& moved = graphicsOf<PolygonGraphics>(*scene.root)->getHierarchy();
    EXPECT_EQ(ringOf(OUTLINE), &moved.positions);
    const auto points = graphicsOf<PolylineGraphics>(*scene.child(OUTLINE))
                            ->getPositions()
                            ->getValues(keo::TimePoint());
    ASSERT_EQ(points.size(), moved.positions.size() + 1);
    EXPECT_EQ(points.front(), moved.positions.front());
    EXPECT_EQ(points.back(), moved.positions.front());
}

TEST(PolygonGeometryTest, TheRingsAreConvertedOnceUntilTheHierarchyIsSetAgain) {
    PolygonScene scene;
    scene.style.setPolygonSymbol(fillOf(Color::GREEN));
    ASSERT_TRUE(scene.updateBoth());
    const auto converted = graphicsOf<PolygonGraphics>(*scene.root)->getSharedHierarchy();
    EXPECT_EQ(*converted, PolygonGeometry::_toPolygonHierarchy(scene.geometry.getHierarchy()));
    // Styling again and refreshing the positions reuse the conversion.
    scene.style.getPolygonSymbol()->setMaterial(std::make_shared<ColorMaterial>(Color::BLUE));
    ASSERT_TRUE(scene.updateBoth());
    EXPECT_EQ(graphicsOf<PolygonGraphics>(*scene.root)->getSharedHierarchy(), converted);
    // A hierarchy set again, even an equal one, is converted again; the old one is left intact.
    const Hierarchy same = scene.geometry.getHierarchy();
    scene.geometry.setHierarchy(same);
    ASSERT_TRUE(scene.updateGeometry());
    const auto again = graphicsOf<PolygonGraphics>(*scene.root)->getSharedHierarchy();
    EXPECT_NE(again, converted);
    EXPECT_EQ(*again, *converted);
    // A copy of the geometry draws from the same conversion until either is edited.
    const PolygonGeometry copy(scene.geometry);
    Hierarchy moved = same;
    moved.positions[0].height += 50.0;
    scene.geometry.setHierarchy(moved);
    ASSERT_TRUE(scene.updateBoth());
    EXPECT_EQ(graphicsOf<PolygonGraphics>(*scene.root)->getHierarchy(),
              PolygonGeometry::_toPolygonHierarchy(moved));
    EXPECT_EQ(copy.getHierarchy().positions, same.positions);
    EXPECT_EQ(PolygonGeometry::_toPolygonHierarchy(copy.getHierarchy()), *converted);
}

TEST(PolygonGeometryTest, PunchingASecondHoleAddsItsOutlineAndFillingOneRemovesIt) {
    PolygonScene scene;
    scene.style.setPolygonSymbol(outlinedFill());
    ASSERT_TRUE(scene.updateBoth());
    Hierarchy twoHoles = park();
    Hierarchy second;
    second.positions =
        ringOf({{116.412, 39.912}, {116.415, 39.912}, {116.415, 39.915}, {116.412, 39.915}});
    twoHoles.holes.push_back(second);
    scene.geometry.setHierarchy(twoHoles);
    ASSERT_TRUE(scene.updateBoth());
    EXPECT_TRUE(hasChild(*scene.root, "outline-hole-symbol-1"));
    EXPECT_EQ(graphicsOf<PolygonGraphics>(*scene.root)->getHierarchy().holes.size(), 2u);
    scene.geometry.setHierarchy(park());
    ASSERT_TRUE(scene.updateBoth());
    EXPECT_FALSE(hasChild(*scene.root, "outline-hole-symbol-1"));
    EXPECT_TRUE(hasChild(*scene.root, "outline-hole-symbol-0"));
}

TEST(PolygonGeometryTest, AnEntityWithGraphicsOfAnotherKindLosesThemInTheGeometryStep) {
    PolygonScene scene;
    scene.root->setGeometryGraphics(std::make_shared<keo::PointGraphics>());
    ASSERT_TRUE(scene.updateGeometry());
    EXPECT_EQ(scene.root->getGeometryGraphics(), nullptr);
}

TEST(PolygonGeometryTest, TheGeometryStepMovesTheAreaTheWallTheLabelAndTheEdgeLabels) {
    PolygonScene scene;
    auto symbol = fillOf(Color::GREEN);
    symbol->setLengthLabelSymbol(std::make_shared<LengthLabelSymbol>());
    scene.style.setPolygonSymbol(symbol);
    auto extrusion = std::make_shared<ExtrusionSymbol>();
    extrusion->setBodySymbol(fillOf(Color::RED));
    scene.style.setExtrusionSymbol(extrusion);
    auto label = std::make_shared<LabelSymbol>();
    label->setShowHintLine(true);
    scene.style.setLabelSymbol(label);
    ASSERT_TRUE(scene.updateBoth());
    const Hierarchy raised = park(100.0);
    scene.geometry.setHierarchy(raised);
    ASSERT_TRUE(scene.updateGeometry());
    EXPECT_EQ(graphicsOf<PolygonGraphics>(*scene.root)->getHierarchy(),
              PolygonGeometry::_toPolygonHierarchy(raised));
    const auto wallPoints = graphicsOf<WallGraphics>(*scene.child(WALL))->getPositions();
    ASSERT_EQ(wallPoints.size(), 5u);
    EXPECT_EQ(wallPoints[0], cartesian(raised.positions[0]));
    EXPECT_EQ(wallPoints[4], wallPoints[0]);
    const auto anchor = PolygonGeometry::_computeLabelPosition(raised.positions);
    EXPECT_EQ(scene.geometry.getDistanceDisplayConditionAnchor(), anchor);
    const auto labelEntity = scene.child(LABEL);
    EXPECT_EQ(labelEntity->getPosition()->getValue(keo::TimePoint()), anchor);
    EXPECT_EQ(labelEntity->getChildByName(HINT_LINE)->getPosition(), labelEntity->getPosition());
    const auto edge = scene.child(segmentName(1))->getPosition()->getValue(keo::TimePoint());
    EXPECT_EQ(edge, (cartesian(raised.positions[1]) + cartesian(raised.positions[2])) * 0.5);
}

TEST(PolygonGeometryTest, TheScaleReachesTheAreaTheOutlineAndTheHoleOutlines) {
    PolygonScene scene;
    auto symbol = fillOf(Color::GREEN);
    symbol->setOutLineSymbol(lineOf(Color::RED, 1.0f));
    scene.style.setPolygonSymbol(symbol);
    scene.geometry.setShadowVolumeHeightScale(2.5);
    ASSERT_TRUE(scene.updateBoth());
    EXPECT_EQ(graphicsOf<PolygonGraphics>(*scene.root)->getShadowVolumeHeightScale(), 2.5);
    EXPECT_EQ(graphicsOf<PolylineGraphics>(*scene.child(OUTLINE))->getShadowVolumeHeightScale(),
              2.5);
    EXPECT_EQ(graphicsOf<PolylineGraphics>(*scene.child("outline-hole-symbol-0"))
                  ->getShadowVolumeHeightScale(),
              2.5);
}

// --- height references ---------------------------------------------------------------------------

struct HeightCase {
    HeightReference reference;
    std::optional<keo::ClassificationType> classification;
    bool perPosition;
    const char* warning;
};

const HeightCase HEIGHT_CASES[] = {
    {HeightReference::Absolute, std::nullopt, true, nullptr},
    {HeightReference::ClampToGround, keo::ClassificationType::Both, false, nullptr},
    {HeightReference::RelativeToGround, keo::ClassificationType::Both, false,
     "多边形不支持相对于地表的高度参考，改为使用贴合地表的高度参考。"},
    {HeightReference::ClampToTerrain, keo::ClassificationType::Terrain, false, nullptr},
    {HeightReference::RelativeToTerrain, keo::ClassificationType::Terrain, false,
     "多边形不支持相对于地形的高度参考，改为使用贴合地形的高度参考。"},
    {HeightReference::ClampTo3DTiles, keo::ClassificationType::Tiles3D, false, nullptr},
    {HeightReference::RelativeTo3DTiles, keo::ClassificationType::Tiles3D, false,
     "多边形不支持相对于3DTiles的高度参考，改为使用贴合3DTiles的高度参考。"},
};

TEST(PolygonGeometryTest, EachHeightReferenceSetsTheAreasClassificationAndHeightsWithItsWarning) {
    for (const auto& c : HEIGHT_CASES) {
        SCOPED_TRACE(static_cast<int>(c.reference));
        PolygonScene scene;
        auto symbol = fillOf(Color::GREEN);
        symbol->setOutLineSymbol(lineOf(Color::RED, 1.0f));
        scene.style.setPolygonSymbol(symbol);
        scene.style.setHeightReference(c.reference);
        const CapturedLog log;
        ASSERT_TRUE(scene.updateBoth());
        ASSERT_TRUE(scene.updateStyle());
        const auto* area = graphicsOf<PolygonGraphics>(*scene.root);
        EXPECT_EQ(area->getClassificationType(), c.classification);
        EXPECT_EQ(area->isPerPositionHeight(), c.perPosition);
        for (const char* name : {OUTLINE, "outline-hole-symbol-0"}) {
            const auto* line = graphicsOf<PolylineGraphics>(*scene.child(name));
            EXPECT_EQ(line->isClampToGround(), c.classification.has_value());
            EXPECT_EQ(line->getClassificationType(), c.classification);
        }
        const auto records = log.records();
        if (c.warning == nullptr) {
            EXPECT_TRUE(records.empty());
            continue;
        }
        ASSERT_EQ(records.size(), 2u); // once per styling step
        for (const auto& record : records) {
            EXPECT_EQ(record.message, c.warning);
            EXPECT_EQ(record.location.function, "keo::Feature::PolygonGeometry::_updateStyle");
        }
    }
}

TEST(PolygonGeometryTest, AHeightReferencePastSixTouchesNeitherTheAreaNorTheOutlines) {
    PolygonScene scene;
    auto symbol = fillOf(Color::GREEN);
    symbol->setOutLineSymbol(lineOf(Color::RED, 1.0f));
    scene.style.setPolygonSymbol(symbol);
    scene.style.setHeightReference(HeightReference::ClampTo3DTiles);
    ASSERT_TRUE(scene.updateBoth());
    scene.style.setHeightReference(static_cast<HeightReference>(9));
    ASSERT_TRUE(scene.updateStyle());
    EXPECT_EQ(graphicsOf<PolygonGraphics>(*scene.root)->getClassificationType(),
              keo::ClassificationType::Tiles3D);
    EXPECT_TRUE(graphicsOf<PolylineGraphics>(*scene.child(OUTLINE))->isClampToGround());
    PolygonGeometry::_applyOutlineHeightReference(nullptr, HeightReference::Absolute);
}

// --- edge labels
// -----------------------------------------------------------------------------------

std::vector<std::string> edgeLabelTexts(const Entity& root) {
    std::vector<std::string> texts;
    for (std::size_t i = 0;; ++i) {
        const auto child = root.getChildByName(segmentName(i));
        if (!child) {
            return texts;
        }
        texts.push_back(graphicsOf<LabelGraphics>(*child)->getText());
    }
}

TEST(PolygonGeometryTest, AnOpenAndAClosedTriangleGetTheSameThreeEdgeLabels) {
    const auto open = ringOf({{116.40, 39.90}, {116.41, 39.90}, {116.405, 39.91}});
    auto closedRing = open;
    closedRing.push_back(open.front());
    std::vector<std::vector<std::string>> texts;
    for (const auto& ring : {open, closedRing}) {
        PolygonScene scene;
        Hierarchy triangle;
        triangle.positions = ring;
        scene.geometry.setHierarchy(triangle);
        auto symbol = fillOf(Color::GREEN);
        symbol->setLengthLabelSymbol(std::make_shared<LengthLabelSymbol>());
        scene.style.setPolygonSymbol(symbol);
        ASSERT_TRUE(scene.updateBoth());
        EXPECT_EQ(sortedChildNames(*scene.root),
                  (std::vector<std::string>{segmentName(0), segmentName(1), segmentName(2)}));
        texts.push_back(edgeLabelTexts(*scene.root));
    }
    EXPECT_EQ(texts[0], texts[1]);
}

TEST(PolygonGeometryTest, EdgeLabelsCarryChordLengthsOnAbsoluteAndGeodesicOnesOtherwise) {
    for (const HeightReference reference :
         {HeightReference::Absolute, HeightReference::ClampToGround}) {
        SCOPED_TRACE(static_cast<int>(reference));
        PolygonScene scene;
        auto symbol = fillOf(Color::GREEN);
        auto lengths = std::make_shared<LengthLabelSymbol>();
        lengths->setDecimalPlaces(4);
        symbol->setLengthLabelSymbol(lengths);
        scene.style.setPolygonSymbol(symbol);
        scene.style.setHeightReference(reference);
        ASSERT_TRUE(scene.updateBoth());
        const auto& ring = scene.geometry.getHierarchy().positions;
        for (std::size_t i = 0; i < 4; ++i) {
            const std::size_t j = (i + 1) % 4;
            const double expected = reference == HeightReference::Absolute
                                        ? cartesian(ring[i]).distance(cartesian(ring[j]))
                                        : keo::Math::computeVincentyDistR(ring[i], ring[j]);
            EXPECT_EQ(edgeLabelTexts(*scene.root).at(i), lengths->formatLength(expected));
        }
        EXPECT_FALSE(hasChild(*scene.root, "length-label-total"));
    }
}

TEST(PolygonGeometryTest, TurningTheEdgeLabelsOffRemovesThemAll) {
    PolygonScene scene;
    auto symbol = fillOf(Color::GREEN);
    symbol->setLengthLabelSymbol(std::make_shared<LengthLabelSymbol>());
    scene.style.setPolygonSymbol(symbol);
    ASSERT_TRUE(scene.updateBoth());
    EXPECT_EQ(edgeLabelTexts(*scene.root).size(), 4u);
    symbol->getLengthLabelSymbol()->setShowSegments(false);
    ASSERT_TRUE(scene.updateStyle());
    EXPECT_TRUE(edgeLabelTexts(*scene.root).empty());
}

TEST(PolygonGeometryTest, ANonNumericEdgeLabelSuffixFailsTheUpdateWithTheStandardWords) {
    PolygonScene scene;
    auto symbol = fillOf(Color::GREEN);
    symbol->setLengthLabelSymbol(std::make_shared<LengthLabelSymbol>());
    scene.style.setPolygonSymbol(symbol);
    auto stray = std::make_shared<Entity>("length-label-segment-x");
    stray->setParent(scene.root);
    try {
        scene.updateStyle();
        FAIL() << "expected std::invalid_argument";
    } catch (const std::invalid_argument& error) {
        EXPECT_STREQ(error.what(), "invalid stoul argument");
    }
    stray->setName("length-label-segment-99999999999999999999999");
    try {
        scene.updateStyle();
        FAIL() << "expected std::out_of_range";
    } catch (const std::out_of_range& error) {
        EXPECT_STREQ(error.what(), "stoul argument out of range");
    }
}

// --- extrusion -----------------------------------------------------------------------------------

std::shared_ptr<ExtrusionSymbol> extrusionOf(double height,
                                             ExtrusionSymbol::HeightReference reference) {
    auto extrusion = std::make_shared<ExtrusionSymbol>();
    extrusion->setHeight(height);
    extrusion->setHeightReference(reference);
    auto body = fillOf(Color(0.8f, 0.8f, 0.8f, 1.0f));
    body->setOutLineSymbol(lineOf(Color::BLUE, 2.0f));
    extrusion->setBodySymbol(body);
    auto tail = fillOf(Color::RED);
    tail->setOutLineSymbol(lineOf(Color::BLACK, 1.5f));
    extrusion->setTailSymbol(tail);
    return extrusion;
}

TEST(PolygonGeometryTest, AStyleWithoutExtrusionHasNoExtrusionChildAndRemovingOneDropsAllThree) {
    PolygonScene scene;
    ASSERT_TRUE(scene.updateBoth());
    for (const char* name : {WALL, ROOF, ROOF_OUTLINE}) {
        EXPECT_FALSE(hasChild(*scene.root, name));
    }
    scene.style.setExtrusionSymbol(extrusionOf(45.0, ExtrusionSymbol::HeightReference::Relative));
    ASSERT_TRUE(scene.updateStyle());
    for (const char* name : {WALL, ROOF, ROOF_OUTLINE}) {
        EXPECT_TRUE(hasChild(*scene.root, name)) << name;
    }
    scene.feature._takeRemovedEntities();
    scene.style.setExtrusionSymbol(nullptr);
    ASSERT_TRUE(scene.updateStyle());
    std::vector<std::string> removed;
    for (const auto& entity : scene.feature._takeRemovedEntities()) {
        removed.push_back(entity->getName());
    }
    EXPECT_EQ(removed, (std::vector<std::string>{WALL, ROOF, ROOF_OUTLINE}));
}

TEST(PolygonGeometryTest, TheWallSpansTheRingAndTheExtrusionInEachModeWhateverTheSign) {
    using Reference = ExtrusionSymbol::HeightReference;
    // Minus 20 relative on a ring at 100: from 80 to 100. 30 absolute on a ring at 50: from 30
    // to 50. And the other signs and a zero.
    struct Case {
        Reference reference;
        double ring;
        double height;
        double minimum;
        double maximum;
    };
    const Case cases[] = {
        {Reference::Relative, 100.0, -20.0, 80.0, 100.0},
        {Reference::Relative, 100.0, 20.0, 100.0, 120.0},
        {Reference::Relative, 100.0, 0.0, 100.0, 100.0},
        {Reference::Absolute, 50.0, 30.0, 30.0, 50.0},
        {Reference::Absolute, 50.0, 80.0, 50.0, 80.0},
        {Reference::Absolute, 50.0, 0.0, 0.0, 50.0},
        {Reference::Absolute, 50.0, -10.0, -10.0, 50.0},
        {static_cast<Reference>(4), 50.0, 80.0, 50.0, 80.0}, // others extrude as absolute
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::to_string(static_cast<int>(c.reference)) + " " +
                     std::to_string(c.height));
        PolygonScene scene;
        scene.geometry.setHierarchy(park(c.ring));
        scene.style.setExtrusionSymbol(extrusionOf(c.height, c.reference));
        ASSERT_TRUE(scene.updateBoth());
        const auto* wall = graphicsOf<WallGraphics>(*scene.child(WALL));
        ASSERT_NE(wall, nullptr);
        // One entry more than the ring has vertices: the first is repeated to close the wall.
        ASSERT_EQ(wall->getMinimumHeights().size(), 5u);
        ASSERT_EQ(wall->getMaximumHeights().size(), 5u);
        ASSERT_EQ(wall->getPositions().size(), 5u);
        for (std::size_t i = 0; i < 5; ++i) {
            EXPECT_EQ(wall->getMinimumHeights()[i], c.minimum);
            EXPECT_EQ(wall->getMaximumHeights()[i], c.maximum);
        }
    }
}

TEST(PolygonGeometryTest, TheWallOfAClosedRingStillHasOnePointMoreThanTheRing) {
    PolygonScene scene;
    Hierarchy closedPark = park();
    closedPark.positions.push_back(closedPark.positions.front());
    scene.geometry.setHierarchy(closedPark);
    scene.style.setExtrusionSymbol(extrusionOf(10.0, ExtrusionSymbol::HeightReference::Relative));
    ASSERT_TRUE(scene.updateBoth());
    const auto* wall = graphicsOf<WallGraphics>(*scene.child(WALL));
    EXPECT_EQ(wall->getPositions().size(), 6u);
    EXPECT_EQ(wall->getMinimumHeights().size(), 6u);
}

TEST(PolygonGeometryTest, TheWallTakesTheBodysFillOutlineAndMaterialAndTheRoofTheTails) {
    PolygonScene scene;
    scene.style.setExtrusionSymbol(extrusionOf(45.0, ExtrusionSymbol::HeightReference::Relative));
    ASSERT_TRUE(scene.updateBoth());
    const auto* wall = graphicsOf<WallGraphics>(*scene.child(WALL));
    EXPECT_TRUE(wall->isFill());
    EXPECT_TRUE(wall->isOutline());
    EXPECT_EQ(wall->getOutlineWidth(), 2.0f);
    EXPECT_EQ(wall->getOutlineColor(), Color::BLUE);
    EXPECT_EQ(wall->getMaterial()->getColor(), Color(0.8f, 0.8f, 0.8f, 1.0f));
    const auto* roof = graphicsOf<PolygonGraphics>(*scene.child(ROOF));
    ASSERT_NE(roof, nullptr);
    EXPECT_TRUE(roof->isPerPositionHeight());
    EXPECT_FALSE(roof->isOutline());
    EXPECT_EQ(roof->getMaterial()->getColor(), Color::RED);
    EXPECT_TRUE(roof->getHierarchy().holes.empty());
    const auto& ring = scene.geometry.getHierarchy().positions;
    Cartographic top = ring[0];
    top.height += 45.0;
    EXPECT_NEAR(roof->getHierarchy().positions[0].distance(cartesian(top)), 0.0, 1e-9);
    const auto* roofOutline = graphicsOf<PolylineGraphics>(*scene.child(ROOF_OUTLINE));
    ASSERT_NE(roofOutline, nullptr);
    EXPECT_EQ(roofOutline->getWidth(), 1.5f);
    EXPECT_EQ(roofOutline->getPositions()->getValues(keo::TimePoint()).size(), 5u);
}

TEST(PolygonGeometryTest, AWallTiledByTheMetreMeasuresTheHeightsOfThisUpdate) {
    // The material is laid on the wall after its heights are set: the first update does not
    // find them missing, and a raised wall is tiled by its new height at once.
    PolygonScene scene;
    auto tiles = std::make_shared<keo::Feature::ImageMaterial>();
    tiles->setTileSizeUnit(keo::Feature::ImageTileSizeUnit::Meter);
    tiles->setTileSize({10.0f, 10.0f});
    auto body = std::make_shared<PolygonSymbol>(tiles);
    auto extrusion = std::make_shared<ExtrusionSymbol>();
    extrusion->setHeight(40.0);
    extrusion->setBodySymbol(body);
    scene.style.setExtrusionSymbol(extrusion);
    ASSERT_TRUE(scene.updateBoth());
    const auto* wall = graphicsOf<WallGraphics>(*scene.child(WALL));
    ASSERT_NE(wall, nullptr);
    EXPECT_FLOAT_EQ(wall->getMaterial()->asImageMaterialProperty()->getRepeat().y, 4.0f);
    extrusion->setHeight(60.0);
    ASSERT_TRUE(scene.updateStyle());
    EXPECT_FLOAT_EQ(wall->getMaterial()->asImageMaterialProperty()->getRepeat().y, 6.0f);
}

TEST(PolygonGeometryTest, AWallOutlineWithoutASolidColourMaterialIsPaleGreen) {
    PolygonScene scene;
    auto extrusion = extrusionOf(45.0, ExtrusionSymbol::HeightReference::Relative);
    static_cast<PolygonSymbol&>(*extrusion->getBodySymbol())
        .setOutLineSymbol(std::make_shared<LineSymbol>());
    scene.style.setExtrusionSymbol(extrusion);
    ASSERT_TRUE(scene.updateBoth());
    EXPECT_EQ(graphicsOf<WallGraphics>(*scene.child(WALL))->getOutlineColor(),
              Color(0.5f, 1.0f, 0.5f, 1.0f));
}

TEST(PolygonGeometryTest, ABodySymbolThatIsALineGivesNoWallWhileAValidTailStillGivesARoof) {
    PolygonScene scene;
    auto extrusion = extrusionOf(45.0, ExtrusionSymbol::HeightReference::Relative);
    extrusion->setBodySymbol(lineOf(Color::RED, 1.0f));
    scene.style.setExtrusionSymbol(extrusion);
    const CapturedLog log;
    ASSERT_TRUE(scene.updateBoth());
    EXPECT_FALSE(hasChild(*scene.root, WALL));
    EXPECT_TRUE(hasChild(*scene.root, ROOF));
    EXPECT_TRUE(log.records().empty());
}

TEST(PolygonGeometryTest, ATailWithoutOutlineDropsTheRoofOutlineAndATailOfAnotherKindTheRoof) {
    PolygonScene scene;
    auto extrusion = extrusionOf(45.0, ExtrusionSymbol::HeightReference::Relative);
    scene.style.setExtrusionSymbol(extrusion);
    ASSERT_TRUE(scene.updateBoth());
    static_cast<PolygonSymbol&>(*extrusion->getTailSymbol()).setOutLineSymbol(nullptr);
    ASSERT_TRUE(scene.updateStyle());
    EXPECT_TRUE(hasChild(*scene.root, ROOF));
    EXPECT_FALSE(hasChild(*scene.root, ROOF_OUTLINE));
    extrusion->setTailSymbol(lineOf(Color::RED, 1.0f));
    ASSERT_TRUE(scene.updateStyle());
    EXPECT_FALSE(hasChild(*scene.root, ROOF));
    EXPECT_TRUE(hasChild(*scene.root, WALL));
}

TEST(PolygonGeometryTest, TheExtrusionHeightComesFromTheNamedNumberAttribute) {
    PolygonScene scene;
    auto extrusion = extrusionOf(10.0, ExtrusionSymbol::HeightReference::Relative);
    extrusion->setFieldName("floors_height");
    scene.style.setExtrusionSymbol(extrusion);
    scene.feature.setAttribute("floors_height", {0, 33});
    ASSERT_TRUE(scene.updateBoth());
    EXPECT_EQ(graphicsOf<WallGraphics>(*scene.child(WALL))->getMaximumHeights()[0], 33.0);
}

// --- every combination of symbols, frame after frame --------------------------------------------

enum class Presence { Absent, Hidden, Shown };

struct Combination {
    Presence polygon;
    Presence outline;
    Presence lengths;
    Presence extrusion;
    bool label;
};

template <typename Symbol>
std::shared_ptr<Symbol> present(Presence presence, std::shared_ptr<Symbol> symbol) {
    if (presence == Presence::Absent) {
        return nullptr;
    }
    symbol->setEnabled(presence == Presence::Shown);
    return symbol;
}

void applyCombination(PolygonStyle& style, const Combination& c) {
    auto polygon = fillOf(Color::GREEN);
    polygon->setOutLineSymbol(present(c.outline, lineOf(Color::BLACK, 1.0f)));
    polygon->setLengthLabelSymbol(present(c.lengths, std::make_shared<LengthLabelSymbol>()));
    style.setPolygonSymbol(present(c.polygon, polygon));
    style.setExtrusionSymbol(
        present(c.extrusion, extrusionOf(20.0, ExtrusionSymbol::HeightReference::Relative)));
    style.setLabelSymbol(c.label ? std::make_shared<LabelSymbol>() : nullptr);
}

std::vector<std::string> expectedChildren(const Combination& c) {
    std::vector<std::string> names;
    if (c.label) {
        names.push_back(LABEL);
    }
    if (c.polygon == Presence::Shown && c.outline == Presence::Shown) {
        names.push_back(OUTLINE);
        names.push_back("outline-hole-symbol-0");
    }
    if (c.polygon != Presence::Absent && c.lengths == Presence::Shown) {
        for (std::size_t i = 0; i < 4; ++i) {
            names.push_back(segmentName(i));
        }
    }
    if (c.extrusion == Presence::Shown) {
        names.push_back(WALL);
        names.push_back(ROOF);
        names.push_back(ROOF_OUTLINE);
    }
    std::sort(names.begin(), names.end());
    return names;
}

TEST(PolygonGeometryTest, EveryCombinationOfSymbolsBuildsExactlyItsChildrenFrameAfterFrame) {
    Feature feature(std::uint64_t{5});
    feature.setName("park");
    auto geometry = std::make_shared<PolygonGeometry>(park());
    auto style = std::make_shared<PolygonStyle>();
    feature.setGeometry(geometry);
    feature.setStyle(style);
    RendererModel renderer(feature);
    const Presence each[] = {Presence::Absent, Presence::Hidden, Presence::Shown};
    for (const Presence polygon : each) {
        for (const Presence outline : each) {
            for (const Presence lengths : each) {
                for (const Presence extrusion : each) {
                    for (const bool label : {false, true}) {
                        const Combination c{polygon, outline, lengths, extrusion, label};
                        applyCombination(*style, c);
                        renderer.frame();
                        renderer.expectLiveSetIsTheTree();
                        ASSERT_EQ(sortedChildNames(*feature._getImplHandle()), expectedChildren(c));
                        const auto* area = graphicsOf<PolygonGraphics>(*feature._getImplHandle());
                        ASSERT_NE(area, nullptr);
                        EXPECT_EQ(area->isShow(), polygon != Presence::Hidden);
                    }
                }
            }
        }
    }
}

TEST(PolygonGeometryTest, EditsFrameAfterFrameKeepTheLiveSetEqualToTheTree) {
    Feature feature(std::uint64_t{6});
    feature.setName("district");
    auto geometry = std::make_shared<PolygonGeometry>(park());
    auto style = std::make_shared<PolygonStyle>();
    auto symbol = fillOf(Color::GREEN);
    symbol->setOutLineSymbol(lineOf(Color::BLACK, 1.0f));
    symbol->setLengthLabelSymbol(std::make_shared<LengthLabelSymbol>());
    style->setPolygonSymbol(symbol);
    style->setLabelSymbol(std::make_shared<LabelSymbol>());
    feature.setGeometry(geometry);
    feature.setStyle(style);
    RendererModel renderer(feature);
    Hierarchy twoHoles = park();
    twoHoles.holes.push_back(twoHoles.holes.front());
    Hierarchy tooShort;
    tooShort.positions = ringOf({{0, 0}, {1, 1}});
    const std::vector<std::function<void()>> edits = {
        [&] { geometry->setHierarchy(twoHoles); },
        [&] { symbol->getLengthLabelSymbol()->setShowSegments(false); },
        [&] {
            style->setExtrusionSymbol(
                extrusionOf(45.0, ExtrusionSymbol::HeightReference::Relative));
        },
        [&] { style->getExtrusionSymbol()->setHeight(60.0); },
        [&] { geometry->setHierarchy(tooShort); },
        [&] { geometry->setHierarchy(park()); },
        [&] { symbol->setMaterial(std::make_shared<ColorMaterial>(Color::RED)); },
        [&] { feature.setGeometry(std::make_shared<keo::Feature::PolylineGeometry>()); },
        [&] { feature.setGeometry(std::make_shared<PolygonGeometry>(park())); },
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
}

TEST(PolygonGeometryTest, TheFeaturesExtentComesFromTheOuterRing) {
    Feature feature;
    feature.setGeometry(std::make_shared<PolygonGeometry>(park()));
    const auto& rectangle = feature._getGlobeRectangle();
    ASSERT_TRUE(rectangle);
    EXPECT_NEAR(rectangle->getWest(), keo::Math::toRadians(116.40), 1e-12);
    EXPECT_NEAR(rectangle->getEast(), keo::Math::toRadians(116.42), 1e-12);
    EXPECT_NEAR(rectangle->getSouth(), keo::Math::toRadians(39.90), 1e-12);
    EXPECT_NEAR(rectangle->getNorth(), keo::Math::toRadians(39.92), 1e-12);
}

} // namespace
