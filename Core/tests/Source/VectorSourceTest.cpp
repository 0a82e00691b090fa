#include "Source/VectorSource.h"

#include "Source/Reader.h"

#include "SourceTestSupport.h"

#include "Common/Color.h"
#include "Data/Entity.h"
#include "Data/LabelGraphics.h"
#include "Data/PointGraphics.h"
#include "Feature/BillboardSymbol.h"
#include "Feature/FeatureCollection.h"
#include "Feature/FeatureGroup.h"
#include "Feature/LabelSymbol.h"
#include "Feature/PointGeometry.h"
#include "Feature/PointStyle.h"
#include "Feature/PointSymbol.h"
#include "Feature/PolygonStyle.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

namespace {

using keo::Color;
using keo::Entity;
using keo::HeightReference;
using keo::LabelGraphics;
using keo::PointGraphics;
using keo::Feature::Feature;
using keo::Feature::FeatureCollection;
using keo::Feature::FeatureGroup;
using keo::Feature::PointStyle;
using keo::Source::LoadOptions;
using keo::Source::LoadReport;
using keo::Source::StyleSheet;
using keo::Source::VectorSource;
using keo::Source::test::CapturedLog;
using keo::Source::test::integer;
using keo::Source::test::Loaded;
using keo::Source::test::real;
using keo::Source::test::STYLE_MISMATCH;
using keo::Source::test::text;
using Issue = LoadReport::Issue;

const char* const CITIES = R"({"type": "FeatureCollection", "features": [
  {"type": "Feature", "id": 11, "properties": {"name": "Lyon", "pop": 522000, "kind": "city"},
   "geometry": {"type": "Point", "coordinates": [4.83, 45.76]}},
  {"type": "Feature", "id": 12, "properties": {"name": "Annecy", "pop": 130000, "kind": "town"},
   "geometry": {"type": "Point", "coordinates": [6.13, 45.9]}},
  {"type": "Feature", "id": 13, "properties": {"name": "Rhône", "pop": 0, "kind": "river"},
   "geometry": {"type": "LineString", "coordinates": [[4.8, 45.7], [4.9, 45.8]]}},
  {"type": "Feature", "id": 14, "properties": {"name": "Lac", "pop": 0, "kind": "lake"},
   "geometry": {"type": "Polygon", "coordinates": [[[6, 45], [7, 45], [7, 46], [6, 45]]]}},
  {"type": "Feature", "id": 15, "properties": {"name": "Alps", "pop": 0, "kind": "peaks"},
   "geometry": {"type": "MultiPoint", "coordinates": [[6.86, 45.83], [7.66, 45.98]]}},
  {"type": "Feature", "id": 16, "properties": {"name": "Hamlet", "pop": 12, "kind": "hamlet"},
   "geometry": {"type": "Point", "coordinates": [5, 46]}}
]})";

const char* const SHEET = R"json({"rules": [
  {"filter": ["!=", ["get", "kind"], "hamlet"],
   "point": {"color": ["match", ["get", "kind"], "city", "red", "town", "yellow", "white"],
             "size": ["interpolate", ["linear"], ["get", "pop"], 0, 4, 1000000, 20],
             "image": ["case", ["==", ["get", "kind"], "city"], "icons/city.png", ""]},
   "polyline": {"width": 2}, "polygon": {"fill": "blue"},
   "label": {"text": ["concat", ["get", "name"], " (", ["number-format", ["/", ["get", "pop"], 1000], {"max-fraction-digits": 0}], "k)"],
             "size": 14, "color": "#00ff00", "offset": [0, 10]},
   "heightReference": "clampToGround",
   "distanceDisplayCondition": [10, 1e6],
   "visible": ["!=", ["get", "hidden"], true]}
]})json";

std::shared_ptr<const StyleSheet> sheet(const char* json = SHEET) {
    LoadReport report;
    auto parsed = StyleSheet::parse(json, report);
    EXPECT_NE(parsed, nullptr) << report.error();
    return parsed;
}

Loaded load(const char* data = CITIES, const char* json = SHEET, bool strict = false,
            std::shared_ptr<FeatureCollection> collection = nullptr) {
    LoadOptions options;
    options.read.nameField = "name";
    options.read.strict = strict;
    options.collection = std::move(collection);
    return keo::Source::test::loadText(data, json, options);
}

const PointStyle& pointStyleOf(const Feature& feature) {
    return *feature.getStyle()->asPointStyle();
}

// The dot colour and the label text the renderer gets after the feature's next update.
struct Drawn {
    Color dot;
    std::string label;
};

Drawn drawn(Feature& feature) {
    feature._updateEntityInCull(false);
    const Entity* root = feature._getImplHandle().get();
    const auto* dot = dynamic_cast<const PointGraphics*>(root->getGeometryGraphics().get());
    const auto label = root->getChildByName("label-symbol");
    const auto* text = label != nullptr
                           ? dynamic_cast<const LabelGraphics*>(label->getGeometryGraphics().get())
                           : nullptr;
    return {dot != nullptr ? dot->getColor() : Color::TRANSPARENT,
            text != nullptr ? text->getText() : std::string("<no label>")};
}

TEST(VectorSourceTest, RecordsOfEveryKindBecomeFeaturesInSourceOrder) {
    auto collection = std::make_shared<FeatureCollection>();
    Loaded loaded = load(CITIES, SHEET, false, collection);
    ASSERT_NE(loaded.source, nullptr) << loaded.report.toText();
    EXPECT_EQ(loaded.source->size(), 5U);
    std::vector<std::uint64_t> ids;
    for (const auto& node : loaded.source->group()->getFeatures()) {
        ids.push_back(node->getId());
    }
    EXPECT_EQ(ids, (std::vector<std::uint64_t>{11, 12, 13, 14, 15}));
    EXPECT_EQ(collection->getValues().size(), 5U);
    EXPECT_EQ(loaded.source->collection(), collection);
    const auto lyon = loaded.source->feature(11);
    ASSERT_NE(lyon, nullptr);
    EXPECT_EQ(lyon->getName(), "Lyon");
    EXPECT_EQ(std::any_cast<std::int64_t>(lyon->getAttributes().at("pop").value), 522000);
    using Type = keo::Feature::Geometry::Type;
    const std::vector<Type> types{Type::Point, Type::Point, Type::Polyline, Type::Polygon,
                                  Type::Multi};
    for (std::size_t i = 0; i < ids.size(); ++i) {
        EXPECT_EQ(loaded.source->feature(ids[i])->getGeometry()->getType(), types[i]) << ids[i];
    }
    EXPECT_EQ(loaded.report.features, 5U);
}

TEST(VectorSourceTest, OnlyRecordsWithoutRuleAreCountedAndTheMultiGeometryOnlyLogs) {
    Loaded loaded = load();
    ASSERT_NE(loaded.source, nullptr);
    EXPECT_EQ(loaded.report.count(Issue::NoMatchingRule), 1U);
    EXPECT_EQ(loaded.report.problemCount(), 1U);
    EXPECT_EQ(loaded.report.records, 6U);
    EXPECT_EQ(loaded.report.features, 5U);
    std::vector<std::string> messages;
    for (const auto& entry : loaded.report.entries()) {
        messages.push_back(entry.message);
    }
    EXPECT_EQ(messages, (std::vector<std::string>{
                            "feature 5 (id 16): no rule styles this point; no feature"}));
    // The kit logs the point style of the peaks' multi geometry as not matching it, and draws it.
    EXPECT_EQ(loaded.mismatches, 1U);
}

TEST(VectorSourceTest, TheStrictOptionStopsAtTheFirstProblemAndAddsNothing) {
    Loaded loaded = load(CITIES, SHEET, true);
    EXPECT_EQ(loaded.source, nullptr);
    EXPECT_TRUE(loaded.report.failed());
    EXPECT_EQ(loaded.report.error(), "feature 5 (id 16): no rule styles this point; no feature");
}

TEST(VectorSourceTest, TheResolvedStyleReachesThePointStyleAndTheFeature) {
    Loaded loaded = load();
    ASSERT_NE(loaded.source, nullptr);
    const auto lyon = loaded.source->feature(11);
    const PointStyle& style = pointStyleOf(*lyon);
    ASSERT_NE(style.getPointSymbol(), nullptr);
    EXPECT_EQ(style.getPointSymbol()->getColor(), Color::RED);
    EXPECT_FLOAT_EQ(style.getPointSymbol()->getPixelSize(), 4.0f + 16.0f * 0.522f);
    ASSERT_NE(style.getBillboardSymbol(), nullptr);
    EXPECT_EQ(std::get<std::string>(style.getBillboardSymbol()->getImage()), "icons/city.png");
    const auto label = style.getLabelSymbol();
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->getSize(), 14.0f);
    EXPECT_EQ(label->getFillColor(), Color::GREEN);
    EXPECT_EQ(label->getPixelOffset().y, 10.0f);
    EXPECT_EQ(lyon->getLabelText(), "Lyon (522k)");
    EXPECT_EQ(style.getHeightReference(), HeightReference::ClampToGround);
    ASSERT_TRUE(lyon->getDistanceDisplayCondition());
    EXPECT_EQ(lyon->getDistanceDisplayCondition()->getNear(), 10.0f);
    EXPECT_TRUE(lyon->isShow());
    const auto annecy = loaded.source->feature(12);
    EXPECT_EQ(pointStyleOf(*annecy).getPointSymbol()->getColor(), Color::YELLOW);
    EXPECT_EQ(pointStyleOf(*annecy).getBillboardSymbol(), nullptr);
    EXPECT_EQ(drawn(*lyon).label, "Lyon (522k)");
}

TEST(VectorSourceTest, AnAttributeEditRecoloursAndRelabelsOnTheNextUpdateAndNothingElse) {
    Loaded loaded = load();
    ASSERT_NE(loaded.source, nullptr);
    const auto lyon = loaded.source->feature(11);
    const auto annecy = loaded.source->feature(12);
    EXPECT_EQ(drawn(*lyon).dot, Color::RED);
    drawn(*annecy);
    int lyonChanges = 0;
    int annecyChanges = 0;
    lyon->_addDefinitionChangedEventListener([&](Feature*) { ++lyonChanges; });
    annecy->_addDefinitionChangedEventListener([&](Feature*) { ++annecyChanges; });

    LoadReport report;
    EXPECT_TRUE(loaded.source->setAttribute(11, "kind", text("town"), report));
    EXPECT_TRUE(loaded.source->setAttribute(11, "name", text("Lugdunum"), report));

    EXPECT_EQ(lyonChanges, 1) << "raised once until the next update";
    EXPECT_EQ(annecyChanges, 0);
    EXPECT_FALSE(lyon->_isEntityReady());
    EXPECT_TRUE(annecy->_isEntityReady());
    const Drawn after = drawn(*lyon);
    EXPECT_EQ(after.dot, Color::YELLOW);
    EXPECT_EQ(after.label, "Lugdunum (522k)");
    EXPECT_EQ(pointStyleOf(*lyon).getBillboardSymbol(), nullptr) << "the image depended on kind";
    EXPECT_EQ(std::any_cast<std::string>(lyon->getAttributes().at("name").value), "Lugdunum");
    EXPECT_EQ(report.problemCount(), 0U);
}

TEST(VectorSourceTest, AnEditOfAnAttributeThatNoValueReadsChangesNoStyle) {
    Loaded loaded = load();
    ASSERT_NE(loaded.source, nullptr);
    const auto lyon = loaded.source->feature(11);
    drawn(*lyon);
    int changes = 0;
    lyon->_addDefinitionChangedEventListener([&](Feature*) { ++changes; });
    LoadReport report;
    EXPECT_TRUE(loaded.source->setAttribute(11, "mayor", text("someone"), report));
    EXPECT_EQ(changes, 0);
    EXPECT_TRUE(lyon->_isEntityReady());
    EXPECT_EQ(lyon->getAttributes().count("mayor"), 1U);
}

TEST(VectorSourceTest, AnEditThatGivesTheSameValuesRaisesNoEvent) {
    Loaded loaded = load();
    ASSERT_NE(loaded.source, nullptr);
    const auto lyon = loaded.source->feature(11);
    drawn(*lyon);
    int changes = 0;
    lyon->_addDefinitionChangedEventListener([&](Feature*) { ++changes; });
    LoadReport report;
    EXPECT_TRUE(loaded.source->setAttribute(11, "pop", integer(522000), report));
    EXPECT_EQ(changes, 0);
}

TEST(VectorSourceTest, AnEditThatAFilterReadsChoosesTheRuleAgain) {
    Loaded loaded = load();
    ASSERT_NE(loaded.source, nullptr);
    const auto lyon = loaded.source->feature(11);
    LoadReport report;
    loaded.source->setAttribute(11, "kind", text("hamlet"), report);
    EXPECT_FALSE(lyon->isShow()) << "no rule styles a hamlet: hidden";
    EXPECT_EQ(report.count(Issue::NoMatchingRule), 1U);
    loaded.source->setAttribute(11, "kind", text("city"), report);
    EXPECT_TRUE(lyon->isShow());
    EXPECT_EQ(pointStyleOf(*lyon).getPointSymbol()->getColor(), Color::RED);
}

TEST(VectorSourceTest, VisibilityFollowsItsExpression) {
    Loaded loaded = load();
    ASSERT_NE(loaded.source, nullptr);
    LoadReport report;
    loaded.source->setAttribute(12, "hidden", keo::Source::test::boolean(true), report);
    EXPECT_FALSE(loaded.source->feature(12)->isShow());
    loaded.source->setAttribute(12, "hidden", keo::Source::test::null(), report);
    EXPECT_TRUE(loaded.source->feature(12)->isShow());
}

TEST(VectorSourceTest, AValueOfTheWrongTypeAfterAnEditIsReportedAndTakesTheDefault) {
    Loaded loaded = load();
    ASSERT_NE(loaded.source, nullptr);
    LoadReport report;
    loaded.source->setAttribute(11, "pop", text("many"), report);
    EXPECT_EQ(pointStyleOf(*loaded.source->feature(11)).getPointSymbol()->getPixelSize(), 8.0f);
    // The label reads the population too: both values fall back.
    ASSERT_EQ(report.count(Issue::EvaluationType), 2U);
    EXPECT_EQ(report.entries()[0].message,
              "feature 11: rules[0].label.text[3][1][1]: expected a number, got \"many\"; the "
              "default is used");
    EXPECT_EQ(report.entries()[1].message,
              "feature 11: rules[0].point.size[2]: expected a number, got \"many\"; the default "
              "is used");
    EXPECT_EQ(loaded.source->feature(11)->getLabelText(), "");
}

TEST(VectorSourceTest, AnUnknownIdIsRefused) {
    Loaded loaded = load();
    ASSERT_NE(loaded.source, nullptr);
    LoadReport report;
    EXPECT_FALSE(loaded.source->setAttribute(99, "kind", text("city"), report));
    EXPECT_EQ(loaded.source->resolvedStyle(99), nullptr);
    EXPECT_NE(loaded.source->resolvedStyle(11), nullptr);
}

TEST(VectorSourceTest, IdsOfZeroOrTakenAreReplacedWithANote) {
    const char* data = R"({"type": "FeatureCollection", "features": [
      {"type": "Feature", "properties": {"code": 0}, "geometry": {"type": "Point", "coordinates": [0, 0]}},
      {"type": "Feature", "properties": {"code": 5}, "geometry": {"type": "Point", "coordinates": [1, 1]}},
      {"type": "Feature", "properties": {"code": 5}, "geometry": {"type": "Point", "coordinates": [2, 2]}}]})";
    LoadOptions options;
    options.read.idField = "code";
    LoadReport report;
    const auto source = VectorSource::loadText(data, options, report);
    ASSERT_NE(source, nullptr);
    EXPECT_EQ(source->size(), 3U);
    EXPECT_EQ(report.count(Issue::IdReplaced), 2U);
    EXPECT_NE(source->feature(5), nullptr);
    std::vector<std::uint64_t> ids;
    for (const auto& node : source->group()->getFeatures()) {
        ids.push_back(node->getId());
    }
    EXPECT_EQ(ids[1], 5U);
    EXPECT_NE(ids[0], 0U);
    EXPECT_NE(ids[2], 5U);
}

TEST(VectorSourceTest, WithoutASheetTheDefaultStyleIsUsed) {
    LoadReport report;
    const auto source = VectorSource::loadText(
        R"({"type": "Feature", "properties": {}, "geometry": {"type": "Point", "coordinates": [0, 0]}})",
        {}, report);
    ASSERT_NE(source, nullptr) << report.toText();
    ASSERT_EQ(source->size(), 1U);
    const auto& node = source->group()->getFeatures().front();
    const auto* feature = dynamic_cast<const Feature*>(node.get());
    ASSERT_NE(feature, nullptr);
    EXPECT_EQ(pointStyleOf(*feature).getPointSymbol()->getPixelSize(), 8.0f);
}

TEST(VectorSourceTest, AFileThatCannotBeReadGivesNoSource) {
    LoadReport report;
    EXPECT_EQ(VectorSource::loadFile("/nonexistent.geojson", {}, report), nullptr);
    EXPECT_TRUE(report.failed());
    EXPECT_EQ(report.count(Issue::FileUnreadable), 1U);
}

TEST(VectorSourceTest, FeaturesGoIntoTheGroupGiven) {
    auto group = std::make_shared<FeatureGroup>();
    VectorSource source(sheet(), group);
    LoadReport report;
    keo::Source::RecordSet records;
    keo::Source::Record record;
    record.id = 3;
    record.geometry.points.push_back(keo::Cartographic::fromDegrees(1, 2));
    record.attributes["kind"] = text("city");
    record.attributes["pop"] = real(10.0);
    records.records.push_back(record);
    EXPECT_EQ(source.add(records, report), 1U);
    EXPECT_EQ(group->getFeatures().size(), 1U);
    EXPECT_EQ(source.group(), group);
    EXPECT_EQ(source.add(records, report), 1U) << "the same id again gets a fresh one";
    EXPECT_EQ(report.count(Issue::IdReplaced), 1U);
    EXPECT_EQ(group->getFeatures().size(), 2U);
}

TEST(VectorSourceTest, RecordsGivenUpHandTheirAttributesOverAndRecordsLentKeepThem) {
    LoadReport report;
    auto records = keo::Source::Reader::readText(CITIES, {}, report);
    ASSERT_EQ(records.records.size(), 6U);
    VectorSource lent(sheet());
    lent.add(records, report);
    EXPECT_EQ(records.records[0].attributes.size(), 3U) << "a record lent is left as it was";
    VectorSource given(sheet());
    given.add(std::move(records), report);
    // The source's contract: records given up are left in place, without their attributes.
    EXPECT_TRUE(records.records[0].attributes.empty()); // NOLINT(bugprone-use-after-move)
    const auto lyon = given.feature(11);
    ASSERT_NE(lyon, nullptr);
    EXPECT_EQ(std::any_cast<std::string>(lyon->getAttributes().at("kind").value), "city");
    EXPECT_EQ(lyon->getAttributes().size(), 3U);
    EXPECT_EQ(lent.feature(11)->getAttributes().size(), 3U);
    EXPECT_EQ(pointStyleOf(*lyon).getPointSymbol()->getColor(), Color::RED);
}

namespace countries {

std::string fileText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

TEST(VectorSourceTest, TheShippedCountriesLoadWithTheirStyleSheetAndComputedArea) {
    LoadReport report;
    LoadOptions options;
    options.read.areaField = "area_km2";
    options.read.nameField = "A3";
    options.styleSheet = StyleSheet::parse(
        fileText(std::string(KEO_DATA_DIR) + "/countries/countries.style.json"), report);
    ASSERT_NE(options.styleSheet, nullptr) << report.error();
    const std::string path = std::string(KEO_DATA_DIR) + "/countries/countries-land-10km.geojson";
    const auto records = keo::Source::Reader::readFile(path, options.read, report);
    ASSERT_EQ(records.records.size(), 220U) << report.toText();
    EXPECT_EQ(report.problemCount(), 0U) << report.toText();
    // Every record is styled by a rule without a value of the wrong type.
    std::size_t extruded = 0;
    for (const auto& record : records.records) {
        const auto style = options.styleSheet->resolve(record.geometry.kind, record.attributes,
                                                       std::nullopt, report);
        ASSERT_TRUE(style.has_value()) << record.name;
        ASSERT_TRUE(style->polygon.has_value());
        extruded += style->extrusion ? 1U : 0U;
        if (record.name == "RUS") {
            // Russia is about 17.1 million square kilometres.
            const double area =
                keo::Source::Value::fromAttribute(record.attributes.at("area_km2")).asNumber();
            EXPECT_NEAR(area, 17.1e6, 0.5e6);
            ASSERT_TRUE(style->label && style->label->text);
            EXPECT_EQ(style->label->text->rfind("RUS 1", 0), 0U) << *style->label->text;
        }
    }
    EXPECT_GT(extruded, 50U);
    EXPECT_EQ(report.problemCount(), 0U) << report.toText();
    // Every country becomes a feature: a polygon, or a multi geometry of polygons.
    LoadReport load;
    const CapturedLog log;
    const auto source = VectorSource::loadFile(path, options, load);
    ASSERT_NE(source, nullptr);
    EXPECT_EQ(source->size(), 220U);
    EXPECT_EQ(load.problemCount(), 0U) << load.toText();
    std::size_t multi = 0;
    for (const auto& node : source->group()->getFeatures()) {
        const auto* feature = dynamic_cast<const Feature*>(node.get());
        ASSERT_NE(feature, nullptr);
        multi += feature->getGeometry()->getType() == keo::Feature::Geometry::Type::Multi ? 1U : 0U;
    }
    EXPECT_EQ(multi, 113U);
    EXPECT_EQ(log.count(STYLE_MISMATCH), 113U) << "one record per multi geometry's style";
}

TEST(VectorSourceTest, TheCountriesSheetAsksForItsNameAndAreaFields) {
    LoadReport report;
    LoadOptions options;
    options.styleSheet = StyleSheet::parse(
        fileText(std::string(KEO_DATA_DIR) + "/countries/countries.style.json"), report);
    ASSERT_NE(options.styleSheet, nullptr) << report.error();
    const CapturedLog log;
    const auto source = VectorSource::loadFile(
        std::string(KEO_DATA_DIR) + "/countries/countries-land-10km.geojson", options, report);
    ASSERT_NE(source, nullptr) << report.toText();
    EXPECT_EQ(report.problemCount(), 0U) << report.toText();
    std::size_t extruded = 0;
    for (const auto& node : source->group()->getFeatures()) {
        const auto* feature = dynamic_cast<const Feature*>(node.get());
        ASSERT_NE(feature, nullptr);
        EXPECT_EQ(feature->getName().size(), 3U) << "named by its A3 code";
        EXPECT_EQ(feature->getAttributes().count("area_km2"), 1U) << feature->getName();
        const auto* style = feature->getStyle()->asPolygonStyle();
        ASSERT_NE(style, nullptr);
        extruded += style->getExtrusionSymbol() != nullptr ? 1U : 0U;
    }
    EXPECT_GT(extruded, 50U);
}

} // namespace countries

} // namespace
