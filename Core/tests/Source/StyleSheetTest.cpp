#include "Source/StyleSheet.h"

#include "SourceTestSupport.h"

#include "Common/Color.h"
#include "Data/HeightReference.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>

namespace {

using keo::Color;
using keo::HeightReference;
using keo::Source::GeometryKind;
using keo::Source::LoadReport;
using keo::Source::ResolvedMaterial;
using keo::Source::ResolvedStyle;
using keo::Source::StyleSheet;
using keo::Source::test::Attributes;
using keo::Source::test::integer;
using keo::Source::test::real;
using keo::Source::test::text;

std::shared_ptr<const StyleSheet> parse(const std::string& json) {
    LoadReport report;
    auto sheet = StyleSheet::parse(json, report);
    EXPECT_NE(sheet, nullptr) << report.error();
    return sheet;
}

std::string parseError(const std::string& json) {
    LoadReport report;
    const auto sheet = StyleSheet::parse(json, report);
    EXPECT_EQ(sheet, nullptr);
    EXPECT_TRUE(report.failed());
    return report.error();
}

ResolvedStyle resolve(const StyleSheet& sheet, GeometryKind kind, const Attributes& attributes,
                      LoadReport* out = nullptr) {
    LoadReport report;
    const auto style = sheet.resolve(kind, attributes, 5, report);
    EXPECT_TRUE(style.has_value());
    if (out != nullptr) {
        *out = report;
    } else {
        EXPECT_EQ(report.problemCount(), 0U) << report.toText();
    }
    return style.value_or(ResolvedStyle());
}

const char* const COUNTRIES = R"({
  "version": 1,
  "rules": [
    {
      "name": "large",
      "filter": [">", ["get", "area"], 1000000],
      "polygon": {
        "fill": ["interpolate", ["linear"], ["get", "area"], 1000000, "#00ff00", 9000000, "#ff0000"],
        "outlineColor": "black",
        "outlineWidth": 2
      },
      "extrusion": {"height": ["*", ["get", "area"], 0.01], "base": 10},
      "label": {"text": ["concat", ["get", "A3"], ": ", ["number-format", ["/", ["get", "area"], 1000000], {"max-fraction-digits": 1}], " Mkm²"],
                "size": 16, "color": "#ffff00", "offset": [0, -4]},
      "heightReference": "clampToGround",
      "distanceDisplayCondition": [0, 5e6]
    },
    {
      "polygon": {"fill": {"type": "dash", "color": "blue", "gapColor": "white", "dashPattern": 3855, "dashLength": 8}, "filled": false},
      "visible": ["!=", ["get", "A3"], "ATA"]
    },
    {
      "point": {"color": ["match", ["get", "kind"], "city", "red", "town", "orange", "gray"], "size": ["step", ["get", "population"], 4, 100000, 8, 1000000, 12]},
      "polyline": {"width": 3, "material": "#00ffff"}
    }
  ]
})";

TEST(StyleSheetTest, TheFirstMatchingRuleStylesTheRecord) {
    const auto sheet = parse(COUNTRIES);
    ASSERT_NE(sheet, nullptr);
    EXPECT_EQ(sheet->ruleCount(), 3U);
    EXPECT_EQ(resolve(*sheet, GeometryKind::Polygon, {{"area", real(5e6)}}).rule, 0U);
    EXPECT_EQ(resolve(*sheet, GeometryKind::Polygon, {{"area", real(5e5)}}).rule, 1U);
    // Rules 0 and 1 give no point style, so a point goes on to rule 2.
    EXPECT_EQ(
        resolve(*sheet, GeometryKind::Point, {{"area", real(5e6)}, {"population", integer(1)}})
            .rule,
        2U);
    EXPECT_EQ(resolve(*sheet, GeometryKind::Line, {}).rule, 2U);
}

TEST(StyleSheetTest, ResolvedPolygonValuesMatchHandComputedOnes) {
    const auto sheet = parse(COUNTRIES);
    ASSERT_NE(sheet, nullptr);
    const ResolvedStyle style =
        resolve(*sheet, GeometryKind::Polygon, {{"area", real(3e6)}, {"A3", text("FRA")}});
    ASSERT_TRUE(style.polygon && style.extrusion && style.label);
    EXPECT_FALSE(style.point || style.polyline);
    // (3e6 - 1e6) / 8e6 = a quarter of the way from green to red.
    EXPECT_EQ(style.polygon->fill.kind, ResolvedMaterial::Kind::Solid);
    EXPECT_FLOAT_EQ(style.polygon->fill.color.r, 0.25f);
    EXPECT_FLOAT_EQ(style.polygon->fill.color.g, 0.75f);
    EXPECT_EQ(style.polygon->outlineColor, Color::BLACK);
    EXPECT_EQ(style.polygon->outlineWidth, 2.0f);
    EXPECT_TRUE(style.polygon->filled);
    EXPECT_DOUBLE_EQ(style.extrusion->height, 30000.0);
    EXPECT_DOUBLE_EQ(style.extrusion->base, 10.0);
    EXPECT_EQ(style.label->text, "FRA: 3 Mkm²");
    EXPECT_EQ(style.label->size, 16.0f);
    EXPECT_EQ(style.label->color, Color::YELLOW);
    EXPECT_EQ(style.label->offset.y, -4.0f);
    EXPECT_EQ(style.heightReference, HeightReference::ClampToGround);
    ASSERT_TRUE(style.distanceDisplayCondition);
    EXPECT_EQ(style.distanceDisplayCondition->getFar(), 5e6f);
    EXPECT_TRUE(style.visible);
}

TEST(StyleSheetTest, DashMaterialsAndDefaultsResolve) {
    const auto sheet = parse(COUNTRIES);
    ASSERT_NE(sheet, nullptr);
    const ResolvedStyle style =
        resolve(*sheet, GeometryKind::Polygon, {{"area", real(10.0)}, {"A3", text("ATA")}});
    ASSERT_TRUE(style.polygon);
    EXPECT_FALSE(style.extrusion || style.label || style.distanceDisplayCondition);
    EXPECT_FALSE(style.visible);
    EXPECT_FALSE(style.polygon->filled);
    EXPECT_EQ(style.polygon->fill.kind, ResolvedMaterial::Kind::Dash);
    EXPECT_EQ(style.polygon->fill.color, Color::BLUE);
    EXPECT_EQ(style.polygon->fill.gapColor, Color::WHITE);
    EXPECT_EQ(style.polygon->fill.dashPattern, 3855);
    EXPECT_EQ(style.polygon->fill.dashLength, 8.0f);
    EXPECT_EQ(style.polygon->outlineWidth, 1.0f);
    EXPECT_EQ(style.heightReference, HeightReference::Absolute);
}

TEST(StyleSheetTest, PointAndLineValuesResolve) {
    const auto sheet = parse(COUNTRIES);
    ASSERT_NE(sheet, nullptr);
    const ResolvedStyle town = resolve(*sheet, GeometryKind::Point,
                                       {{"kind", text("town")}, {"population", integer(250000)}});
    ASSERT_TRUE(town.point);
    EXPECT_EQ(town.point->color, Color(1.0f, 165.0f / 255.0f, 0.0f, 1.0f));
    EXPECT_EQ(town.point->size, 8.0f);
    // Without a population, step has no number to work on: its value takes the default.
    LoadReport report;
    const ResolvedStyle other = resolve(*sheet, GeometryKind::Point, {}, &report);
    EXPECT_EQ(other.point->color, Color(128.0f / 255.0f, 128.0f / 255.0f, 128.0f / 255.0f, 1.0f));
    EXPECT_EQ(other.point->size, 8.0f);
    ASSERT_EQ(report.count(LoadReport::Issue::EvaluationType), 1U);
    EXPECT_EQ(report.entries().front().message,
              "feature 5: rules[2].point.size[1]: expected a number, got null; the default is "
              "used");
    const ResolvedStyle line = resolve(*sheet, GeometryKind::Line, {});
    ASSERT_TRUE(line.polyline);
    EXPECT_EQ(line.polyline->width, 3.0f);
    EXPECT_EQ(line.polyline->material.color, Color(0.0f, 1.0f, 1.0f, 1.0f));
}

TEST(StyleSheetTest, NoMatchingRuleGivesNoStyle) {
    const auto sheet = parse(R"({"rules": [{"filter": ["==", ["get", "a"], 1], "point": {}}]})");
    ASSERT_NE(sheet, nullptr);
    LoadReport report;
    EXPECT_FALSE(sheet->resolve(GeometryKind::Point, {{"a", integer(2)}}, 1, report));
    EXPECT_FALSE(sheet->resolve(GeometryKind::Polygon, {{"a", integer(1)}}, 1, report));
    EXPECT_TRUE(sheet->resolve(GeometryKind::Point, {{"a", integer(1)}}, 1, report));
    EXPECT_EQ(report.problemCount(), 0U);
}

TEST(StyleSheetTest, AValueOfTheWrongTypeTakesTheDefaultAndIsReported) {
    const auto sheet =
        parse(R"({"rules": [{"point": {"size": ["get", "s"], "color": ["get", "c"]}}]})");
    ASSERT_NE(sheet, nullptr);
    LoadReport report;
    const ResolvedStyle style =
        resolve(*sheet, GeometryKind::Point, {{"s", text("big")}, {"c", text("#00ff00")}}, &report);
    EXPECT_EQ(style.point->size, 8.0f);
    EXPECT_EQ(style.point->color, Color::GREEN) << "a colour text converts";
    ASSERT_EQ(report.count(LoadReport::Issue::EvaluationType), 1U);
    EXPECT_EQ(report.entries().front().message,
              "feature 5: rules[0].point.size: expected a number, got \"big\"; the default is "
              "used");
}

TEST(StyleSheetTest, AColourTextThatIsNoColourIsReportedAtEvaluation) {
    const auto sheet = parse(R"({"rules": [{"point": {"color": ["get", "c"]}}]})");
    ASSERT_NE(sheet, nullptr);
    LoadReport report;
    const ResolvedStyle style =
        resolve(*sheet, GeometryKind::Point, {{"c", text("blueish")}}, &report);
    EXPECT_EQ(style.point->color, Color::WHITE);
    ASSERT_EQ(report.entries().size(), 1U);
    EXPECT_EQ(report.entries().front().message,
              "feature 5: rules[0].point.color: expected a color, got \"blueish\"; the default is "
              "used");
}

TEST(StyleSheetTest, AFilterOfTheWrongTypeCountsAsFalseAndIsReported) {
    const auto sheet = parse(R"({"rules": [{"filter": ["get", "f"], "point": {}}]})");
    ASSERT_NE(sheet, nullptr);
    LoadReport report;
    EXPECT_FALSE(sheet->resolve(GeometryKind::Point, {{"f", integer(1)}}, 9, report));
    ASSERT_EQ(report.count(LoadReport::Issue::EvaluationType), 1U);
    EXPECT_EQ(report.entries().front().message,
              "feature 9: rules[0].filter: expected a boolean, got 1; the filter counts as false");
}

TEST(StyleSheetTest, HeightReferenceNamesAreCheckedWhenConstantAndAtEvaluation) {
    EXPECT_EQ(parseError(R"({"rules": [{"point": {}, "heightReference": "floating"}]})"),
              "style sheet: rules[0].heightReference: expected a height reference name, got "
              "\"floating\"");
    const auto sheet = parse(R"({"rules": [{"point": {}, "heightReference": ["get", "h"]}]})");
    ASSERT_NE(sheet, nullptr);
    EXPECT_EQ(
        resolve(*sheet, GeometryKind::Point, {{"h", text("relativeTo3DTiles")}}).heightReference,
        HeightReference::RelativeTo3DTiles);
    LoadReport report;
    EXPECT_EQ(resolve(*sheet, GeometryKind::Point, {{"h", text("up")}}, &report).heightReference,
              HeightReference::Absolute);
    EXPECT_EQ(report.count(LoadReport::Issue::EvaluationType), 1U);
}

TEST(StyleSheetTest, LabelTextTakesNumbersAsText) {
    const auto sheet = parse(R"({"rules": [{"point": {}, "label": {"text": ["get", "n"]}}]})");
    ASSERT_NE(sheet, nullptr);
    EXPECT_EQ(resolve(*sheet, GeometryKind::Point, {{"n", integer(42)}}).label->text, "42");
    EXPECT_EQ(resolve(*sheet, GeometryKind::Point, {}).label->text, "");
}

TEST(StyleSheetTest, ALabelWithoutTextLeavesTheTextEmpty) {
    const auto sheet = parse(R"({"rules": [{"point": {}, "label": {"size": 20}}]})");
    ASSERT_NE(sheet, nullptr);
    const ResolvedStyle style = resolve(*sheet, GeometryKind::Point, {});
    ASSERT_TRUE(style.label);
    EXPECT_FALSE(style.label->text);
    EXPECT_EQ(style.label->size, 20.0f);
}

TEST(StyleSheetTest, ErrorsNameTheirPathInTheSheet) {
    const std::vector<std::pair<const char*, const char*>> table{
        {R"({"rules": [{"point": {}}, {"point": {}}, {"polygon": {"fill": ["gett", "x"]}}]})",
         "style sheet: rules[2].polygon.fill: unknown operator \"gett\""},
        {R"({"rules": [{"polygon": {"fill": ["interpolate", ["linear"], ["get", "a"], 0]}}]})",
         "style sheet: rules[0].polygon.fill: \"interpolate\" takes at least 4 arguments, got 3"},
        {R"({"rules": [{"point": {"size": ["+", 1, ["get"]]}}]})",
         "style sheet: rules[0].point.size[2]: \"get\" takes 1 argument, got 0"},
        {R"({"rules": [{"point": {"colour": "red"}}]})",
         "style sheet: rules[0].point.colour: unknown property"},
        {R"({"rules": [{"point": {"color": 3}}]})",
         "style sheet: rules[0].point.color: expected a color, got a number"},
        {R"({"rules": [{"point": {"size": "big"}}]})",
         "style sheet: rules[0].point.size: expected a number, got a string"},
        {R"({"rules": [{"point": {"color": "reddish"}}]})",
         "style sheet: rules[0].point.color: \"reddish\" is not a color"},
        {R"({"rules": [{"filter": 3, "point": {}}]})",
         "style sheet: rules[0].filter: expected a boolean, got a number"},
        {R"({"rules": [{"label": {}}]})",
         "style sheet: rules[0]: a rule needs a style for at least one kind: \"point\", "
         "\"polyline\", \"polygon\" or \"extrusion\""},
        {R"({"rules": [{"point": {}, "label": {"offset": [1]}}]})",
         "style sheet: rules[0].label.offset: expected a pair of values [0, 1]"},
        {R"({"rules": [{"point": {}, "distanceDisplayCondition": [0, "far"]}]})",
         "style sheet: rules[0].distanceDisplayCondition[1]: expected a number, got a string"},
        {R"({"rules": [{"polyline": {"material": {"type": "glow"}}}]})",
         "style sheet: rules[0].polyline.material.type: expected \"solid\" or \"dash\""},
        {R"({"rules": [{"polyline": {"material": {"type": "dash", "dashPattern": 70000}}}]})",
         "style sheet: rules[0].polyline.material.dashPattern: expected a whole number from 0 to "
         "65535, got 70000"},
        {R"({"rules": [{"polyline": {"material": {"type": "solid", "gapColor": "red"}}}]})",
         "style sheet: rules[0].polyline.material.gapColor: unknown property"},
        {R"({"rules": [{"point": {"material": "red"}}]})",
         "style sheet: rules[0].point.material: unknown property"},
        {R"({"rules": [{"point": {}, "name": 3}]})",
         "style sheet: rules[0].name: expected a string"},
        {R"({"rules": [3]})", "style sheet: rules[0]: expected an object"},
        {R"({"rule": []})", "style sheet: rule: unknown property"},
        {R"({})", "style sheet: rules: expected an array of rules"},
        {R"({"rules": [], "version": 2})", "style sheet: version: expected 1"},
        {R"([1])", "style sheet: sheet: expected an object with a \"rules\" array"},
        {R"({"rules": [], "read": ["A3"]})", "style sheet: read: expected an object"},
        {R"({"rules": [], "read": {"labelField": "A3"}})",
         "style sheet: read.labelField: unknown property"},
        {R"({"rules": [], "read": {"nameField": ""}})",
         "style sheet: read.nameField: expected the name of a field"},
        {R"({"rules": [], "read": {"areaField": 3}})",
         "style sheet: read.areaField: expected the name of a field"},
        {R"({"rules": [{"polygon": {}, "extrusion": {"height": "tall"}}]})",
         "style sheet: rules[0].extrusion.height: expected a number, got a string"},
    };
    for (const auto& [json, message] : table) {
        EXPECT_EQ(parseError(json), message) << json;
    }
}

TEST(StyleSheetTest, JsonThatDoesNotParseGivesLineAndColumn) {
    LoadReport report;
    EXPECT_EQ(StyleSheet::parse("{\"rules\": [\n  {\"point\": {}},\n  {\"point\" {}}\n]}", report),
              nullptr);
    ASSERT_TRUE(report.failed());
    EXPECT_EQ(report.count(LoadReport::Issue::StyleSyntax), 1U);
    EXPECT_EQ(report.error().rfind("style sheet: JSON does not parse at line 3, column 12: ", 0),
              0U)
        << report.error();
}

TEST(StyleSheetTest, AttributeNamesListWhatTheSheetReads) {
    const auto sheet = parse(COUNTRIES);
    ASSERT_NE(sheet, nullptr);
    EXPECT_EQ(sheet->attributeNames(),
              (std::vector<std::string>{"area", "A3", "kind", "population"}));
}

TEST(StyleSheetTest, TheFieldsTheSheetAsksForFillOnlyTheReadOptionsLeftEmpty) {
    const auto sheet = parse(R"({"read": {"nameField": "A3", "areaField": "area_km2"},
                                 "rules": [{"polygon": {}}]})");
    ASSERT_NE(sheet, nullptr);
    keo::Source::ReadOptions given;
    given.layer = "countries";
    given.nameField = "NAME";
    given.strict = true;
    const keo::Source::ReadOptions complete = sheet->completeReadOptions(given);
    EXPECT_EQ(complete.nameField, "NAME") << "the caller's own field wins";
    EXPECT_EQ(complete.areaField, "area_km2");
    EXPECT_EQ(complete.idField, "");
    EXPECT_EQ(complete.layer, "countries");
    EXPECT_TRUE(complete.strict);
    EXPECT_EQ(StyleSheet::defaultSheet()->completeReadOptions({}).areaField, "");
}

TEST(StyleSheetTest, TheDefaultSheetStylesEveryKind) {
    const auto sheet = StyleSheet::defaultSheet();
    ASSERT_NE(sheet, nullptr);
    EXPECT_TRUE(resolve(*sheet, GeometryKind::Point, {}).point);
    EXPECT_TRUE(resolve(*sheet, GeometryKind::Line, {}).polyline);
    EXPECT_TRUE(resolve(*sheet, GeometryKind::Polygon, {}).polygon);
    EXPECT_EQ(resolve(*sheet, GeometryKind::Point, {}).point->size, 8.0f);
}

} // namespace
