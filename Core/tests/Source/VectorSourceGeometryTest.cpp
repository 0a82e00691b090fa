// Lines, polygons and multi geometries read from GeoJSON text become features with the styles the
// sheet gives them, and stay live: an attribute edit restyles them on their next update.
#include "Source/VectorSource.h"

#include "SourceTestSupport.h"

#include "Common/Cartographic.h"
#include "Common/Color.h"
#include "Data/Entity.h"
#include "Data/LabelGraphics.h"
#include "Data/MaterialProperty.h"
#include "Data/PolygonGraphics.h"
#include "Data/PolylineGraphics.h"
#include "Data/WallGraphics.h"
#include "Feature/ColorMaterial.h"
#include "Feature/ExtrusionSymbol.h"
#include "Feature/LabelSymbol.h"
#include "Feature/LineDashMaterial.h"
#include "Feature/LineSymbol.h"
#include "Feature/MultiGeometry.h"
#include "Feature/PointStyle.h"
#include "Feature/PolygonGeometry.h"
#include "Feature/PolygonStyle.h"
#include "Feature/PolygonSymbol.h"
#include "Feature/PolylineGeometry.h"
#include "Feature/PolylineStyle.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace {

using keo::Cartographic;
using keo::Color;
using keo::Entity;
using keo::HeightReference;
using keo::Feature::ColorMaterial;
using keo::Feature::ExtrusionSymbol;
using keo::Feature::Feature;
using keo::Feature::Geometry;
using keo::Feature::LineDashMaterial;
using keo::Feature::Material;
using keo::Feature::MultiGeometry;
using keo::Feature::PolygonGeometry;
using keo::Feature::PolygonStyle;
using keo::Feature::PolygonSymbol;
using keo::Feature::PolylineGeometry;
using keo::Feature::PolylineStyle;
using keo::Source::LoadOptions;
using keo::Source::LoadReport;
using keo::Source::StyleSheet;
using keo::Source::VectorSource;
using keo::Source::test::integer;
using keo::Source::test::Loaded;
using keo::Source::test::null;
using keo::Source::test::text;
using Issue = LoadReport::Issue;

// A block with a courtyard (extruded from its base), a lake (flat), a tower (only an extrusion), a
// road with heights and a dashed path, and one record of each multi kind.
const char* const PLACES = R"({"type": "FeatureCollection", "features": [
  {"type": "Feature", "id": 1, "properties": {"name": "Road", "kind": "road", "lanes": 2},
   "geometry": {"type": "LineString", "coordinates": [[6.0, 45.0, 100], [6.1, 45.1, 120], [6.2, 45.0, 140]]}},
  {"type": "Feature", "id": 2, "properties": {"name": "Path", "kind": "path", "lanes": 1},
   "geometry": {"type": "LineString", "coordinates": [[6.0, 45.2], [6.1, 45.3]]}},
  {"type": "Feature", "id": 3, "properties": {"name": "Block", "use": "office", "height": 30, "base": 0},
   "geometry": {"type": "Polygon", "coordinates": [
     [[6, 46], [6.02, 46], [6.02, 46.02], [6, 46.02], [6, 46]],
     [[6.005, 46.005], [6.005, 46.015], [6.015, 46.015], [6.015, 46.005], [6.005, 46.005]]]}},
  {"type": "Feature", "id": 4, "properties": {"name": "Lake", "use": "water"},
   "geometry": {"type": "Polygon", "coordinates": [[[7, 46], [7.1, 46], [7.1, 46.1], [7, 46]]]}},
  {"type": "Feature", "id": 5, "properties": {"name": "Tower", "use": "tower", "height": 120},
   "geometry": {"type": "Polygon", "coordinates": [[[8, 46], [8.001, 46], [8.001, 46.001], [8, 46]]]}},
  {"type": "Feature", "id": 6, "properties": {"name": "Beacons"},
   "geometry": {"type": "MultiPoint", "coordinates": [[9, 45], [9.1, 45], [9.2, 45]]}},
  {"type": "Feature", "id": 7, "properties": {"name": "Delta", "kind": "road", "lanes": 1},
   "geometry": {"type": "MultiLineString", "coordinates": [[[9, 46], [9.1, 46.1]], [[9, 46.2], [9.1, 46.1]]]}},
  {"type": "Feature", "id": 8, "properties": {"name": "Atoll", "use": "water"},
   "geometry": {"type": "MultiPolygon", "coordinates": [
     [[[10, 40], [11, 40], [11, 41], [10, 41], [10, 40]],
      [[10.2, 40.2], [10.2, 40.8], [10.8, 40.8], [10.8, 40.2], [10.2, 40.2]]],
     [[[10.4, 40.4], [10.6, 40.4], [10.6, 40.6], [10.4, 40.6], [10.4, 40.4]]],
     [[[12, 40], [12.5, 40], [12.5, 40.5], [12, 40]]]]}}
]})";

const char* const SHEET = R"json({"rules": [
  {"filter": ["==", ["get", "use"], "tower"],
   "extrusion": {"height": ["get", "height"], "material": "#c0c0c0"}},
  {"filter": ["all", ["has", "height"], ["!=", ["get", "use"], "water"]],
   "polygon": {"fill": ["match", ["get", "use"], "office", "#808080", "home", "#ffa500", "white"],
               "outlineColor": "black", "outlineWidth": 2},
   "extrusion": {"height": ["get", "height"], "base": ["get", "base"],
                 "material": ["match", ["get", "use"], "office", "#404040", "#ffffff"]},
   "label": {"text": ["concat", ["get", "name"], " ", ["to-string", ["get", "height"]], " m"]}},
  {"polygon": {"fill": ["match", ["get", "use"], "water", "blue", "yellow"], "outline": false},
   "label": {"text": ["get", "name"]}},
  {"filter": ["==", ["get", "kind"], "path"],
   "polyline": {"width": 1, "material": {"type": "dash", "color": "white", "gapColor": "black",
                                         "dashPattern": 3855, "dashLength": 8}}},
  {"polyline": {"width": ["*", ["get", "lanes"], 2],
                "material": ["match", ["get", "kind"], "road", "#ff0000", "#00ff00"]},
   "label": {"text": ["concat", ["get", "name"], " (", ["to-string", ["get", "lanes"]], ")"]},
   "heightReference": "clampToGround", "distanceDisplayCondition": [0, 50000]},
  {"point": {"color": "red"}}
]})json";

Loaded load(const char* data = PLACES, const char* json = SHEET, const char* nameField = "name") {
    LoadOptions options;
    options.read.nameField = nameField;
    return keo::Source::test::loadText(data, json, options);
}

Cartographic degrees(double longitude, double latitude, double height = 0.0) {
    return Cartographic::fromDegrees(longitude, latitude, height);
}

void expectPositions(const std::vector<Cartographic>& actual,
                     const std::vector<Cartographic>& expected) {
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < actual.size(); ++i) {
        EXPECT_NEAR(actual[i].longitude.value(), expected[i].longitude.value(), 1e-12) << i;
        EXPECT_NEAR(actual[i].latitude.value(), expected[i].latitude.value(), 1e-12) << i;
        EXPECT_DOUBLE_EQ(actual[i].height, expected[i].height) << i;
    }
}

const PolylineStyle& lineStyleOf(const Feature& feature) {
    return *feature.getStyle()->asPolylineStyle();
}

const PolygonStyle& polygonStyleOf(const Feature& feature) {
    return *feature.getStyle()->asPolygonStyle();
}

const PolygonGeometry& polygonOf(const Feature& feature) {
    return dynamic_cast<const PolygonGeometry&>(*feature.getGeometry());
}

// The colour of a material that paints in one colour (a ColorMaterial or the dashes of a
// LineDashMaterial); transparent for any other.
Color colorOf(const std::shared_ptr<Material>& material) {
    if (const auto* solid = dynamic_cast<const ColorMaterial*>(material.get())) {
        return solid->getColor();
    }
    if (const auto* dash = dynamic_cast<const LineDashMaterial*>(material.get())) {
        return dash->getColor();
    }
    return Color::TRANSPARENT;
}

// The root entity of @p feature after its next update.
const Entity& updated(Feature& feature) {
    feature._updateEntityInCull(false);
    return *feature._getImplHandle();
}

template <typename Graphics>
const Graphics* graphicsOf(const Entity* entity) {
    return entity != nullptr ? dynamic_cast<const Graphics*>(entity->getGeometryGraphics().get())
                             : nullptr;
}

template <typename Graphics>
const Graphics* childGraphics(const Entity& root, const char* name) {
    return graphicsOf<Graphics>(root.getChildByName(name).get());
}

std::string labelOf(const Entity& root) {
    const auto* label = childGraphics<keo::LabelGraphics>(root, "label-symbol");
    return label != nullptr ? label->getText() : std::string("<no label>");
}

Color drawnColor(const keo::GeometryGraphics* graphics) {
    return graphics != nullptr && graphics->getMaterial() != nullptr
               ? graphics->getMaterial()->getColor()
               : Color::TRANSPARENT;
}

// The main line of @p root as a renderer gets it: its width, colour and label.
void expectDrawnLine(const Entity& root, float width, const Color& color,
                     const std::string& label) {
    const auto* line = graphicsOf<keo::PolylineGraphics>(&root);
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->getWidth(), width);
    EXPECT_EQ(drawnColor(line), color);
    EXPECT_EQ(labelOf(root), label);
}

// The extrusion wall of @p root: @p count heights (the ring closed) from @p bottom to @p top.
void expectWall(const Entity& root, std::size_t count, double bottom, double top) {
    const auto* wall = childGraphics<keo::WallGraphics>(root, "extrusion-wall-symbol");
    ASSERT_NE(wall, nullptr);
    EXPECT_EQ(wall->getMinimumHeights(), std::vector<double>(count, bottom));
    EXPECT_EQ(wall->getMaximumHeights(), std::vector<double>(count, top));
}

// ---- lines -------------------------------------------------------------------------------------

TEST(VectorSourceGeometryTest, ALineStringBecomesAPolylineWithItsHeights) {
    Loaded loaded = load();
    ASSERT_NE(loaded.source, nullptr) << loaded.report.toText();
    const auto road = loaded.source->feature(1);
    ASSERT_NE(road, nullptr);
    const auto* line = dynamic_cast<const PolylineGeometry*>(road->getGeometry().get());
    ASSERT_NE(line, nullptr);
    expectPositions(line->getPositions(),
                    {degrees(6.0, 45.0, 100), degrees(6.1, 45.1, 120), degrees(6.2, 45.0, 140)});
}

TEST(VectorSourceGeometryTest, TheLineTakesTheSheetsWidthColourLabelAndConditions) {
    Loaded loaded = load();
    ASSERT_NE(loaded.source, nullptr);
    const auto road = loaded.source->feature(1);
    const PolylineStyle& style = lineStyleOf(*road);
    ASSERT_NE(style.getLineSymbol(), nullptr);
    EXPECT_EQ(style.getLineSymbol()->getWidth(), 4.0f);
    EXPECT_EQ(colorOf(style.getLineSymbol()->getMaterial()), Color::RED);
    EXPECT_EQ(style.getHeightReference(), HeightReference::ClampToGround);
    ASSERT_TRUE(road->getDistanceDisplayCondition());
    EXPECT_EQ(road->getDistanceDisplayCondition()->getFar(), 50000.0f);
    EXPECT_EQ(road->getLabelText(), "Road (2)");

    expectDrawnLine(updated(*road), 4.0f, Color::RED, "Road (2)");
}

TEST(VectorSourceGeometryTest, ADashedLineGetsALineDashMaterial) {
    Loaded loaded = load();
    ASSERT_NE(loaded.source, nullptr);
    const PolylineStyle& style = lineStyleOf(*loaded.source->feature(2));
    ASSERT_NE(style.getLineSymbol(), nullptr);
    const auto* dash =
        dynamic_cast<const LineDashMaterial*>(style.getLineSymbol()->getMaterial().get());
    ASSERT_NE(dash, nullptr);
    EXPECT_EQ(dash->getColor(), Color::WHITE);
    EXPECT_EQ(dash->getGapColor(), Color::BLACK);
    EXPECT_EQ(dash->getDashPattern(), 3855);
    EXPECT_EQ(dash->getDashLength(), 8.0f);
    EXPECT_EQ(style.getLineSymbol()->getWidth(), 1.0f);
    EXPECT_EQ(style.getLabelSymbol(), nullptr) << "the path's rule gives no label";
}

// ---- polygons ----------------------------------------------------------------------------------

TEST(VectorSourceGeometryTest, APolygonWithAHoleBecomesAPolygonHierarchy) {
    Loaded loaded = load();
    ASSERT_NE(loaded.source, nullptr);
    const PolygonGeometry::Hierarchy& rings = polygonOf(*loaded.source->feature(3)).getHierarchy();
    expectPositions(rings.positions,
                    {degrees(6, 46), degrees(6.02, 46), degrees(6.02, 46.02), degrees(6, 46.02)});
    ASSERT_EQ(rings.holes.size(), 1U);
    expectPositions(rings.holes[0].positions, {degrees(6.005, 46.005), degrees(6.005, 46.015),
                                               degrees(6.015, 46.015), degrees(6.015, 46.005)});
    EXPECT_TRUE(rings.holes[0].holes.empty());
}

TEST(VectorSourceGeometryTest, ThePolygonTakesTheSheetsFillOutlineAndExtrusion) {
    Loaded loaded = load();
    ASSERT_NE(loaded.source, nullptr);
    const auto block = loaded.source->feature(3);
    const PolygonStyle& style = polygonStyleOf(*block);
    const auto& surface = style.getPolygonSymbol();
    ASSERT_NE(surface, nullptr);
    EXPECT_TRUE(surface->isEnabled());
    EXPECT_TRUE(surface->isFill());
    EXPECT_EQ(colorOf(surface->getMaterial()), Color(0x80 / 255.0f, 0x80 / 255.0f, 0x80 / 255.0f));
    const keo::Feature::LineSymbol* outline = surface->getOutLineSymbol().get();
    ASSERT_NE(outline, nullptr);
    EXPECT_EQ(outline->getWidth(), 2.0f);
    EXPECT_EQ(colorOf(outline->getMaterial()), Color::BLACK);
    const ExtrusionSymbol* extrusion = style.getExtrusionSymbol();
    ASSERT_NE(extrusion, nullptr);
    EXPECT_EQ(extrusion->getHeight(), 30.0);
    EXPECT_EQ(extrusion->getHeightReference(), ExtrusionSymbol::HeightReference::Relative);
    const auto* wall = dynamic_cast<const PolygonSymbol*>(extrusion->getBodySymbol());
    const auto* roof = dynamic_cast<const PolygonSymbol*>(extrusion->getTailSymbol());
    ASSERT_NE(wall, nullptr);
    ASSERT_NE(roof, nullptr);
    const Color dark(0x40 / 255.0f, 0x40 / 255.0f, 0x40 / 255.0f);
    EXPECT_EQ(colorOf(wall->getMaterial()), dark);
    EXPECT_EQ(colorOf(roof->getMaterial()), dark);
    EXPECT_EQ(block->getLabelText(), "Block 30 m");
}

TEST(VectorSourceGeometryTest, TheExtrudedPolygonIsDrawnWithItsWallRoofOutlinesAndLabel) {
    Loaded loaded = load();
    ASSERT_NE(loaded.source, nullptr);
    const Entity& root = updated(*loaded.source->feature(3));
    const auto* area = graphicsOf<keo::PolygonGraphics>(&root);
    ASSERT_NE(area, nullptr);
    EXPECT_TRUE(area->isShow());
    EXPECT_EQ(area->getHierarchy().holes.size(), 1U);
    EXPECT_NE(childGraphics<keo::PolylineGraphics>(root, "outline-symbol"), nullptr);
    EXPECT_NE(childGraphics<keo::PolylineGraphics>(root, "outline-hole-symbol-0"), nullptr);
    expectWall(root, 5, 0.0, 30.0);
    EXPECT_NE(childGraphics<keo::PolygonGraphics>(root, "extrusion-roof-symbol"), nullptr);
    EXPECT_EQ(labelOf(root), "Block 30 m");
}

TEST(VectorSourceGeometryTest, AFlatPolygonWithoutOutlineHasNeitherOutlineNorExtrusion) {
    Loaded loaded = load();
    ASSERT_NE(loaded.source, nullptr);
    const auto lake = loaded.source->feature(4);
    const PolygonStyle& style = polygonStyleOf(*lake);
    ASSERT_NE(style.getPolygonSymbol(), nullptr);
    EXPECT_EQ(colorOf(style.getPolygonSymbol()->getMaterial()), Color::BLUE);
    EXPECT_EQ(style.getPolygonSymbol()->getOutLineSymbol(), nullptr);
    EXPECT_EQ(style.getExtrusionSymbol(), nullptr);
    const Entity& root = updated(*lake);
    EXPECT_EQ(root.getChildByName("outline-symbol"), nullptr);
    EXPECT_EQ(root.getChildByName("extrusion-wall-symbol"), nullptr);
    EXPECT_EQ(labelOf(root), "Lake");
}

TEST(VectorSourceGeometryTest, ARuleWithOnlyAnExtrusionHidesTheSurface) {
    Loaded loaded = load();
    ASSERT_NE(loaded.source, nullptr);
    const auto tower = loaded.source->feature(5);
    const PolygonStyle& style = polygonStyleOf(*tower);
    ASSERT_NE(style.getPolygonSymbol(), nullptr);
    EXPECT_FALSE(style.getPolygonSymbol()->isEnabled());
    const Entity& root = updated(*tower);
    const auto* area = graphicsOf<keo::PolygonGraphics>(&root);
    ASSERT_NE(area, nullptr);
    EXPECT_FALSE(area->isShow());
    expectWall(root, 4, 0.0, 120.0);
    EXPECT_EQ(drawnColor(childGraphics<keo::WallGraphics>(root, "extrusion-wall-symbol")),
              Color(0xc0 / 255.0f, 0xc0 / 255.0f, 0xc0 / 255.0f));
}

TEST(VectorSourceGeometryTest, AnExtrusionStandsOnItsBase) {
    const char* data = R"({"type": "Feature", "id": 1,
      "properties": {"use": "home", "height": 30, "base": 12},
      "geometry": {"type": "Polygon", "coordinates": [[[6, 46, 5], [6.01, 46, 5], [6.01, 46.01, 5], [6, 46, 5]]]}})";
    Loaded loaded = load(data, SHEET, "");
    ASSERT_NE(loaded.source, nullptr) << loaded.report.toText();
    const auto home = loaded.source->feature(1);
    for (const Cartographic& position : polygonOf(*home).getHierarchy().positions) {
        EXPECT_EQ(position.height, 17.0) << "the file's height 5 raised by the base";
    }
    EXPECT_EQ(polygonStyleOf(*home).getExtrusionSymbol()->getHeight(), 18.0);
    expectWall(updated(*home), 4, 17.0, 35.0);
}

TEST(VectorSourceGeometryTest, ANonFiniteExtrusionHeightIsReportedAndTakesTheDefault) {
    const char* sheet = R"json({"rules": [
      {"polygon": {}, "extrusion": {"height": ["sqrt", ["get", "height"]]}}]})json";
    const char* data = R"({"type": "Feature", "id": 1, "properties": {"height": -4},
      "geometry": {"type": "Polygon", "coordinates": [[[6, 46], [6.01, 46], [6.01, 46.01], [6, 46]]]}})";
    Loaded loaded = load(data, sheet, "");
    ASSERT_NE(loaded.source, nullptr);
    EXPECT_EQ(loaded.report.count(Issue::EvaluationType), 1U);
    ASSERT_FALSE(loaded.report.entries().empty());
    EXPECT_NE(loaded.report.entries().front().message.find(
                  "rules[0].extrusion.height: expected a finite number"),
              std::string::npos)
        << loaded.report.entries().front().message;
    EXPECT_EQ(polygonStyleOf(*loaded.source->feature(1)).getExtrusionSymbol()->getHeight(), 0.0);
}

// ---- multi geometries --------------------------------------------------------------------------

TEST(VectorSourceGeometryTest, MultiRecordsBecomeMultiGeometriesOfTheirParts) {
    Loaded loaded = load();
    ASSERT_NE(loaded.source, nullptr);
    struct Expected {
        std::uint64_t id;
        std::size_t parts;
        Geometry::Type kind;
        keo::Feature::Style::Type style;
    };
    using Style = keo::Feature::Style::Type;
    for (const Expected& expected : {Expected{6, 3, Geometry::Type::Point, Style::Point},
                                     Expected{7, 2, Geometry::Type::Polyline, Style::Polyline},
                                     Expected{8, 2, Geometry::Type::Polygon, Style::Polygon}}) {
        const auto feature = loaded.source->feature(expected.id);
        ASSERT_NE(feature, nullptr) << expected.id;
        const auto* multi = dynamic_cast<const MultiGeometry*>(feature->getGeometry().get());
        ASSERT_NE(multi, nullptr) << expected.id;
        EXPECT_EQ(multi->getNumComponents(), expected.parts) << expected.id;
        EXPECT_EQ(multi->getComponentType(), expected.kind) << expected.id;
        EXPECT_EQ(feature->getStyle()->getType(), expected.style) << expected.id;
        // Each part is drawn into a child entity of its own.
        EXPECT_EQ(updated(*feature).getChildren().size(), expected.parts) << expected.id;
    }
    // The kit logs each multi geometry's style as a mismatch; the load reports nothing of it.
    EXPECT_EQ(loaded.mismatches, 3U);
    EXPECT_EQ(loaded.report.problemCount(), 0U) << loaded.report.toText();
}

TEST(VectorSourceGeometryTest, AnIslandInTheHoleOfAnotherMemberIsAHoleOfTheHole) {
    Loaded loaded = load();
    ASSERT_NE(loaded.source, nullptr);
    const auto* atoll =
        dynamic_cast<const MultiGeometry*>(loaded.source->feature(8)->getGeometry().get());
    ASSERT_NE(atoll, nullptr);
    const auto* ring = dynamic_cast<const PolygonGeometry*>(atoll->getComponents()[0].get());
    ASSERT_NE(ring, nullptr);
    const PolygonGeometry::Hierarchy& rings = ring->getHierarchy();
    ASSERT_EQ(rings.holes.size(), 1U);
    ASSERT_EQ(rings.holes[0].holes.size(), 1U);
    expectPositions(rings.holes[0].holes[0].positions, {degrees(10.4, 40.4), degrees(10.6, 40.4),
                                                        degrees(10.6, 40.6), degrees(10.4, 40.6)});
}

TEST(VectorSourceGeometryTest, EveryPartOfAMultiPolygonIsDrawnWithTheOneStyle) {
    Loaded loaded = load();
    ASSERT_NE(loaded.source, nullptr);
    const Entity& root = updated(*loaded.source->feature(8));
    ASSERT_EQ(root.getChildren().size(), 2U);
    for (const auto& part : root.getChildren()) {
        EXPECT_EQ(drawnColor(graphicsOf<keo::PolygonGraphics>(part.get())), Color::BLUE);
        EXPECT_EQ(labelOf(*part), "Atoll");
    }
}

TEST(VectorSourceGeometryTest, AMixedCollectionGivesOneFeaturePerKind) {
    const char* data =
        R"({"type": "Feature", "id": 3, "properties": {"name": "Camp", "kind": "road", "lanes": 1},
      "geometry": {"type": "GeometryCollection", "geometries": [
        {"type": "Point", "coordinates": [1, 2]},
        {"type": "LineString", "coordinates": [[1, 2], [1.1, 2.1]]},
        {"type": "Point", "coordinates": [1.2, 2]}]}})";
    Loaded loaded = load(data);
    ASSERT_NE(loaded.source, nullptr);
    ASSERT_EQ(loaded.source->size(), 2U);
    EXPECT_EQ(loaded.report.count(Issue::CollectionSplit), 1U);
    EXPECT_EQ(loaded.report.count(Issue::IdReplaced), 1U) << "the second kind's feature";
    const auto& features = loaded.source->group()->getFeatures();
    const auto* points = dynamic_cast<const Feature*>(features.front().get());
    const auto* line = dynamic_cast<const Feature*>(features.back().get());
    ASSERT_NE(points, nullptr);
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(points->getId(), 3U);
    EXPECT_EQ(points->getGeometry()->getType(), Geometry::Type::Multi);
    EXPECT_EQ(line->getGeometry()->getType(), Geometry::Type::Multi);
    EXPECT_EQ(line->getName(), "Camp");
}

// ---- the load report ---------------------------------------------------------------------------

TEST(VectorSourceGeometryTest, TheLoadReportCountsWhatWasSkippedAndNothingForTheFeaturesMade) {
    const char* data = R"({"type": "FeatureCollection", "features": [
      {"type": "Feature", "properties": {"kind": "road", "lanes": 1}, "geometry": null},
      {"type": "Feature", "properties": {"kind": "road", "lanes": 1},
       "geometry": {"type": "LineString", "coordinates": []}},
      {"type": "Feature", "properties": {"kind": "road", "lanes": 1},
       "geometry": {"type": "LineString", "coordinates": [[1, 2]]}},
      {"type": "Feature", "properties": {"use": "water"},
       "geometry": {"type": "Polygon", "coordinates": [[[1, 2], [1.1, 2], [1, 2]]]}},
      {"type": "Feature", "properties": {"use": "water"},
       "geometry": {"type": "MultiPolygon", "coordinates": [
         [[[1, 2], [1.1, 2], [1, 2]]], [[[3, 4], [3.1, 4], [3.1, 4.1], [3, 4]]]]}},
      {"type": "Feature", "properties": {"kind": "road", "lanes": 3},
       "geometry": {"type": "LineString", "coordinates": [[1, 2], [1.1, 2.1]]}},
      {"type": "Feature", "properties": {"use": "water"},
       "geometry": {"type": "Polygon", "coordinates": [[[5, 6], [5.1, 6], [5.1, 6.1], [5, 6]]]}}
    ]})";
    const char* sheet = R"json({"rules": [
      {"polyline": {"width": ["get", "lanes"]}},
      {"filter": ["==", ["get", "use"], "water"], "polygon": {"fill": "blue"}}]})json";
    Loaded loaded = load(data, sheet, "");
    ASSERT_NE(loaded.source, nullptr);
    const LoadReport& report = loaded.report;
    EXPECT_EQ(report.sourceFeatures, 7U);
    EXPECT_EQ(report.count(Issue::NullGeometry), 1U);
    EXPECT_EQ(report.count(Issue::EmptyGeometry), 1U);
    EXPECT_EQ(report.count(Issue::LineTooShort), 1U);
    EXPECT_EQ(report.count(Issue::RingTooShort), 2U) << "a polygon, and one member of the multi";
    EXPECT_EQ(report.skippedFeatures, 4U);
    EXPECT_EQ(report.records, 3U);
    EXPECT_EQ(report.features, 3U);
    EXPECT_EQ(loaded.source->size(), 3U);
    EXPECT_EQ(report.problemCount(), 5U);
    EXPECT_EQ(loaded.mismatches, 1U) << "the multi polygon left with one member";
}

TEST(VectorSourceGeometryTest, ARecordWithoutPartsGetsNoFeatureAndIsCounted) {
    LoadReport sheetReport;
    VectorSource source(StyleSheet::parse(SHEET, sheetReport));
    keo::Source::RecordSet records;
    keo::Source::Record record;
    record.id = 9;
    record.geometry.kind = keo::Source::GeometryKind::Polygon;
    records.records.push_back(record);
    LoadReport report;
    EXPECT_EQ(source.add(records, report), 0U);
    ASSERT_EQ(report.count(Issue::EmptyGeometry), 1U);
    EXPECT_EQ(report.entries().front().message,
              "feature 0 (id 9): a polygon record without any polygon; no feature");
}

// ---- live values -------------------------------------------------------------------------------

// Counts the definition changes of a feature.
struct Changes {
    explicit Changes(Feature& feature) {
        feature._addDefinitionChangedEventListener([this](Feature*) { ++count; });
    }
    int count = 0;
};

TEST(VectorSourceGeometryTest, AnEditRecoloursThePolygonOnTheNextUpdateAndNothingElse) {
    Loaded loaded = load();
    ASSERT_NE(loaded.source, nullptr);
    const auto block = loaded.source->feature(3);
    const auto lake = loaded.source->feature(4);
    updated(*block);
    updated(*lake);
    const Changes blockChanges(*block);
    const Changes lakeChanges(*lake);
    LoadReport report;
    EXPECT_TRUE(loaded.source->setAttribute(3, "use", text("home"), report));
    EXPECT_EQ(blockChanges.count, 1);
    EXPECT_EQ(lakeChanges.count, 0);
    EXPECT_TRUE(lake->_isEntityReady());
    EXPECT_FALSE(block->_isEntityReady());
    const Entity& root = updated(*block);
    EXPECT_EQ(drawnColor(graphicsOf<keo::PolygonGraphics>(&root)),
              Color(1.0f, 0xa5 / 255.0f, 0.0f));
    EXPECT_EQ(drawnColor(childGraphics<keo::WallGraphics>(root, "extrusion-wall-symbol")),
              Color::WHITE);
    EXPECT_EQ(report.problemCount(), 0U);
}

TEST(VectorSourceGeometryTest, AnEditHandsOnOnlyThePartsOfTheStyleItEvaluatedAgain) {
    Loaded loaded = load();
    ASSERT_NE(loaded.source, nullptr);
    const auto block = loaded.source->feature(3);
    const auto& surface = polygonStyleOf(*block).getPolygonSymbol();
    ASSERT_NE(surface, nullptr);
    // An edit made by the application on the outline, which no value of the sheet reads again.
    const keo::Feature::LineSymbol* outline = surface->getOutLineSymbol().get();
    ASSERT_NE(outline, nullptr);
    auto* outlineColour = dynamic_cast<ColorMaterial*>(outline->getMaterial().get());
    ASSERT_NE(outlineColour, nullptr);
    outlineColour->setColor(Color::RED);
    LoadReport report;
    loaded.source->setAttribute(3, "use", text("home"), report);
    EXPECT_EQ(colorOf(surface->getMaterial()), Color(1.0f, 0xa5 / 255.0f, 0.0f));
    EXPECT_EQ(outlineColour->getColor(), Color::RED) << "the outline was not evaluated again";
    loaded.source->setAttribute(3, "use", text("water"), report);
    EXPECT_EQ(polygonStyleOf(*block).getPolygonSymbol()->getOutLineSymbol(), nullptr)
        << "a new rule hands on every part";
}

TEST(VectorSourceGeometryTest, AnEditReExtrudesAndRelabelsThePolygon) {
    Loaded loaded = load();
    ASSERT_NE(loaded.source, nullptr);
    const auto block = loaded.source->feature(3);
    updated(*block);
    LoadReport report;
    loaded.source->setAttribute(3, "height", integer(75), report);
    const Entity& root = updated(*block);
    expectWall(root, 5, 0.0, 75.0);
    EXPECT_EQ(labelOf(root), "Block 75 m");
}

TEST(VectorSourceGeometryTest, AnEditOfTheBaseRaisesTheRingsAndPutsThemBack) {
    Loaded loaded = load();
    ASSERT_NE(loaded.source, nullptr);
    const auto block = loaded.source->feature(3);
    LoadReport report;
    loaded.source->setAttribute(3, "base", integer(10), report);
    expectWall(updated(*block), 5, 10.0, 30.0);
    EXPECT_EQ(polygonOf(*block).getHierarchy().holes[0].positions[0].height, 10.0);
    loaded.source->setAttribute(3, "base", integer(0), report);
    for (const Cartographic& position : polygonOf(*block).getHierarchy().positions) {
        EXPECT_EQ(position.height, 0.0);
    }
}

TEST(VectorSourceGeometryTest, AnEditThatChangesThePolygonsRuleDropsItsExtrusion) {
    Loaded loaded = load();
    ASSERT_NE(loaded.source, nullptr);
    const auto block = loaded.source->feature(3);
    LoadReport report;
    loaded.source->setAttribute(3, "base", integer(10), report);
    loaded.source->setAttribute(3, "use", text("water"), report);
    EXPECT_EQ(polygonStyleOf(*block).getExtrusionSymbol(), nullptr);
    EXPECT_EQ(polygonOf(*block).getHierarchy().positions[0].height, 0.0) << "no extrusion, no base";
    const Entity& root = updated(*block);
    EXPECT_EQ(root.getChildByName("extrusion-wall-symbol"), nullptr);
    EXPECT_EQ(drawnColor(graphicsOf<keo::PolygonGraphics>(&root)), Color::BLUE);
    EXPECT_EQ(labelOf(root), "Block");
}

TEST(VectorSourceGeometryTest, AnEditWidensRecoloursAndRelabelsTheLine) {
    Loaded loaded = load();
    ASSERT_NE(loaded.source, nullptr);
    const auto road = loaded.source->feature(1);
    const auto path = loaded.source->feature(2);
    updated(*road);
    updated(*path);
    LoadReport report;
    loaded.source->setAttribute(1, "lanes", integer(3), report);
    loaded.source->setAttribute(1, "kind", text("track"), report);
    EXPECT_TRUE(path->_isEntityReady());
    expectDrawnLine(updated(*road), 6.0f, Color::GREEN, "Road (3)");
}

TEST(VectorSourceGeometryTest, AnEditThatTurnsALineIntoAPathGivesItDashes) {
    Loaded loaded = load();
    ASSERT_NE(loaded.source, nullptr);
    const auto road = loaded.source->feature(1);
    LoadReport report;
    loaded.source->setAttribute(1, "kind", text("path"), report);
    const auto& material = lineStyleOf(*road).getLineSymbol()->getMaterial();
    ASSERT_NE(material, nullptr);
    EXPECT_EQ(material->getType(), Material::Type::LineDash);
    EXPECT_EQ(lineStyleOf(*road).getLabelSymbol(), nullptr);
    EXPECT_EQ(labelOf(updated(*road)), "<no label>");
    loaded.source->setAttribute(1, "kind", text("road"), report);
    EXPECT_EQ(lineStyleOf(*road).getLineSymbol()->getMaterial()->getType(), Material::Type::Color);
}

TEST(VectorSourceGeometryTest, AnEditOfAMultiGeometryRestylesEveryPart) {
    Loaded loaded = load();
    ASSERT_NE(loaded.source, nullptr);
    const auto atoll = loaded.source->feature(8);
    updated(*atoll);
    LoadReport report;
    loaded.source->setAttribute(8, "use", text("sand"), report);
    loaded.source->setAttribute(8, "name", text("Reef"), report);
    const Entity& root = updated(*atoll);
    for (const auto& part : root.getChildren()) {
        EXPECT_EQ(drawnColor(graphicsOf<keo::PolygonGraphics>(part.get())), Color::YELLOW);
        EXPECT_EQ(labelOf(*part), "Reef");
    }
    LoadReport nullReport;
    loaded.source->setAttribute(7, "lanes", null(), nullReport);
    const auto& delta = lineStyleOf(*loaded.source->feature(7));
    EXPECT_EQ(delta.getLineSymbol()->getWidth(), 2.0f) << "no number of lanes: the default width";
    EXPECT_EQ(nullReport.count(Issue::EvaluationType), 1U) << nullReport.toText();
}

} // namespace
