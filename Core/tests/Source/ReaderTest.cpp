#include "Source/Reader.h"

#include "RecordDump.h"
#include "SourceTestSupport.h"

#include "Common/Cartographic.h"

#include <GeographicLib/PolygonArea.hpp>
#include <GeographicLib/UTMUPS.hpp>
#include <cpl_vsi.h>
#include <gdal.h>
#include <gdal_utils.h>
#include <gtest/gtest.h>

#include <unistd.h>

#include <cmath>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

namespace {

using keo::Cartographic;
using keo::Source::AttributeType;
using keo::Source::Field;
using keo::Source::GeometryKind;
using keo::Source::LoadReport;
using keo::Source::PolygonRings;
using keo::Source::Reader;
using keo::Source::ReadOptions;
using keo::Source::Record;
using keo::Source::RecordSet;
using keo::Source::Value;
using keo::Source::test::dump;
using Issue = LoadReport::Issue;

RecordSet read(const std::string& text, LoadReport& report, const ReadOptions& options = {}) {
    return Reader::readText(text, options, report);
}

std::string collection(const std::string& features) {
    return R"({"type": "FeatureCollection", "features": [)" + features + "]}";
}

std::string feature(const std::string& geometry, const std::string& properties = "{}") {
    return R"({"type": "Feature", "properties": )" + properties + R"(, "geometry": )" + geometry +
           "}";
}

Cartographic deg(double lon, double lat, double height = 0.0) {
    return Cartographic::fromDegrees(lon, lat, height);
}

Value attribute(const Record& record, const std::string& name) {
    const auto found = record.attributes.find(name);
    return found == record.attributes.end() ? Value("<absent>")
                                            : Value::fromAttribute(found->second);
}

TEST(ReaderTest, APointBecomesOnePointRecordWithHeightFromZ) {
    LoadReport report;
    const RecordSet set =
        read(collection(feature(R"({"type": "Point", "coordinates": [2.5, 48.25, 35]})") + "," +
                        feature(R"({"type": "Point", "coordinates": [-73.5, 40.75]})")),
             report);
    ASSERT_EQ(set.records.size(), 2U) << report.toText();
    EXPECT_EQ(set.records[0].geometry.kind, GeometryKind::Point);
    EXPECT_FALSE(set.records[0].geometry.multi);
    EXPECT_EQ(set.records[0].geometry.points, (std::vector<Cartographic>{deg(2.5, 48.25, 35.0)}));
    EXPECT_EQ(set.records[1].geometry.points, (std::vector<Cartographic>{deg(-73.5, 40.75)}));
    EXPECT_EQ(report.sourceFeatures, 2U);
    EXPECT_EQ(report.records, 2U);
    EXPECT_EQ(report.problemCount(), 0U);
}

TEST(ReaderTest, ALineStringBecomesOneLineRecord) {
    LoadReport report;
    const RecordSet set =
        read(collection(feature(
                 R"({"type": "LineString", "coordinates": [[0, 0, 1], [1, 1, 2], [2, 0, 3]]})")),
             report);
    ASSERT_EQ(set.records.size(), 1U);
    const auto& geometry = set.records[0].geometry;
    EXPECT_EQ(geometry.kind, GeometryKind::Line);
    EXPECT_FALSE(geometry.multi);
    ASSERT_EQ(geometry.lines.size(), 1U);
    EXPECT_EQ(geometry.lines[0],
              (std::vector<Cartographic>{deg(0, 0, 1), deg(1, 1, 2), deg(2, 0, 3)}));
}

TEST(ReaderTest, APolygonKeepsItsHolesWithoutClosingPositionsAndOriented) {
    LoadReport report;
    // The outer ring runs clockwise and the hole counter-clockwise in the file: both turn.
    const RecordSet set = read(collection(feature(R"({"type": "Polygon", "coordinates": [
        [[0, 0], [0, 10], [10, 10], [10, 0], [0, 0]],
        [[2, 2], [4, 2], [4, 4], [2, 4], [2, 2]]]})")),
                               report);
    ASSERT_EQ(set.records.size(), 1U) << report.toText();
    const auto& geometry = set.records[0].geometry;
    EXPECT_EQ(geometry.kind, GeometryKind::Polygon);
    ASSERT_EQ(geometry.polygons.size(), 1U);
    const PolygonRings& polygon = geometry.polygons[0];
    EXPECT_EQ(polygon.positions,
              (std::vector<Cartographic>{deg(0, 0), deg(10, 0), deg(10, 10), deg(0, 10)}));
    ASSERT_EQ(polygon.holes.size(), 1U);
    EXPECT_EQ(polygon.holes[0].positions,
              (std::vector<Cartographic>{deg(2, 2), deg(2, 4), deg(4, 4), deg(4, 2)}));
    EXPECT_TRUE(polygon.holes[0].holes.empty());
}

TEST(ReaderTest, MultiGeometriesBecomeMultiRecordsOfTheirKind) {
    LoadReport report;
    const RecordSet set = read(
        collection(
            feature(R"({"type": "MultiPoint", "coordinates": [[1, 2], [3, 4]]})") + "," +
            feature(
                R"({"type": "MultiLineString", "coordinates": [[[0, 0], [1, 1]], [[2, 2], [3, 3], [4, 2]]]})") +
            "," +
            feature(
                R"({"type": "MultiPolygon", "coordinates": [[[[0, 0], [1, 0], [1, 1], [0, 0]]], [[[5, 5], [6, 5], [6, 6], [5, 5]]]]})")),
        report);
    ASSERT_EQ(set.records.size(), 3U) << report.toText();
    EXPECT_EQ(dump(set.records[0].geometry), "point multi: (1 2 0) (3 4 0)");
    EXPECT_EQ(set.records[1].geometry.kind, GeometryKind::Line);
    EXPECT_TRUE(set.records[1].geometry.multi);
    EXPECT_EQ(set.records[1].geometry.lines.size(), 2U);
    EXPECT_EQ(set.records[2].geometry.kind, GeometryKind::Polygon);
    EXPECT_TRUE(set.records[2].geometry.multi);
    EXPECT_EQ(set.records[2].geometry.polygons.size(), 2U);
}

TEST(ReaderTest, AnIslandInAHoleOfAnotherMemberBecomesAHoleOfThatHole) {
    LoadReport report;
    // A square with a lake, an island in the lake, a pond on the island, and a separate square.
    const RecordSet set = read(collection(feature(R"({"type": "MultiPolygon", "coordinates": [
        [[[0, 0], [10, 0], [10, 10], [0, 10], [0, 0]], [[2, 2], [2, 8], [8, 8], [8, 2], [2, 2]]],
        [[[20, 0], [21, 0], [21, 1], [20, 0]]],
        [[[3, 3], [7, 3], [7, 7], [3, 7], [3, 3]], [[4, 4], [4, 6], [6, 6], [6, 4], [4, 4]]]]})")),
                               report);
    ASSERT_EQ(set.records.size(), 1U) << report.toText();
    EXPECT_EQ(set.records[0].geometry.polygons.size(), 2U);
    EXPECT_EQ(
        dump(set.records[0].geometry),
        "polygon multi: {[(0 0 0)(10 0 0)(10 10 0)(0 10 0)] hole {[(2 2 0)(2 8 0)(8 8 0)(8 2 0)] "
        "hole {[(3 3 0)(7 3 0)(7 7 0)(3 7 0)] hole {[(4 4 0)(4 6 0)(6 6 0)(6 4 0)]}}}} "
        "{[(20 0 0)(21 0 0)(21 1 0)]}");
}

TEST(ReaderTest, AMixedCollectionBecomesOneRecordPerKindWithANote) {
    LoadReport report;
    const RecordSet set = read(collection(feature(R"({"type": "GeometryCollection", "geometries": [
            {"type": "Point", "coordinates": [1, 1]},
            {"type": "LineString", "coordinates": [[0, 0], [1, 1]]},
            {"type": "Point", "coordinates": [2, 2]}]})",
                                                  R"({"n": 1})")),
                               report);
    ASSERT_EQ(set.records.size(), 2U);
    EXPECT_EQ(dump(set.records[0].geometry), "point multi: (1 1 0) (2 2 0)");
    EXPECT_EQ(dump(set.records[1].geometry), "line multi: [(0 0 0)(1 1 0)]");
    EXPECT_EQ(set.records[0].index, 0U);
    EXPECT_EQ(set.records[1].index, 0U);
    EXPECT_EQ(attribute(set.records[1], "n"), Value(1.0));
    EXPECT_EQ(report.count(Issue::CollectionSplit), 1U);
    EXPECT_EQ(report.problemCount(), 0U);
    EXPECT_EQ(report.records, 2U);
}

TEST(ReaderTest, ACollectionOfOneKindIsOneMultiRecordWithoutANote) {
    LoadReport report;
    const RecordSet set = read(collection(feature(R"({"type": "GeometryCollection", "geometries": [
            {"type": "Point", "coordinates": [1, 1]}]})")),
                               report);
    ASSERT_EQ(set.records.size(), 1U);
    EXPECT_EQ(dump(set.records[0].geometry), "point multi: (1 1 0)");
    EXPECT_EQ(report.count(Issue::CollectionSplit), 0U);
}

TEST(ReaderTest, NullAndEmptyGeometriesAreSkippedAndCounted) {
    LoadReport report;
    const RecordSet set = read(
        collection(feature("null") + "," + feature(R"({"type": "LineString", "coordinates": []})") +
                   "," + feature(R"({"type": "GeometryCollection", "geometries": []})") + "," +
                   feature(R"({"type": "Point", "coordinates": [1, 1]})")),
        report);
    ASSERT_EQ(set.records.size(), 1U);
    EXPECT_EQ(set.records[0].index, 3U);
    EXPECT_EQ(report.count(Issue::NullGeometry), 1U);
    EXPECT_EQ(report.count(Issue::EmptyGeometry), 2U);
    EXPECT_EQ(report.sourceFeatures, 4U);
    EXPECT_EQ(report.skippedFeatures, 3U);
    EXPECT_EQ(report.entries()[0].message, "feature 0 (id 0) has no geometry; it is skipped");
    EXPECT_EQ(report.entries()[1].message, "feature 1 (id 1) has an empty geometry; it is skipped");
}

TEST(ReaderTest, BadPartsAreDroppedAndCountedByKind) {
    LoadReport report;
    const RecordSet set = read(
        collection(
            // A hole of two positions: the hole goes, the polygon stays.
            feature(
                R"({"type": "Polygon", "coordinates": [[[0, 0], [5, 0], [5, 5], [0, 0]], [[1, 1], [2, 1], [1, 1]]]})") +
            "," +
            // An outer ring of two positions: the polygon goes, and with it the feature.
            feature(R"({"type": "Polygon", "coordinates": [[[0, 0], [5, 0], [0, 0]]]})") + "," +
            // A line of one position.
            feature(R"({"type": "MultiLineString", "coordinates": [[[0, 0]], [[0, 0], [1, 1]]]})") +
            "," +
            // A latitude of 95 degrees.
            feature(R"({"type": "MultiPoint", "coordinates": [[0, 95], [1, 1]]})") + "," +
            // A longitude of 400 degrees.
            feature(R"({"type": "LineString", "coordinates": [[0, 0], [400, 0]]})") + "," +
            // A NaN coordinate, and an infinite one.
            feature(R"({"type": "LineString", "coordinates": [[0, 0], [NaN, 1]]})") + "," +
            feature(R"({"type": "Point", "coordinates": [1e999, 1]})")),
        report);
    EXPECT_EQ(report.count(Issue::RingTooShort), 2U) << report.toText();
    EXPECT_EQ(report.count(Issue::LineTooShort), 1U);
    EXPECT_EQ(report.count(Issue::CoordinateOutOfRange), 2U);
    EXPECT_EQ(report.count(Issue::NonFiniteCoordinate), 2U);
    EXPECT_EQ(report.sourceFeatures, 7U);
    EXPECT_EQ(report.skippedFeatures, 4U);
    ASSERT_EQ(set.records.size(), 3U);
    EXPECT_TRUE(set.records[0].geometry.polygons[0].holes.empty());
    EXPECT_EQ(dump(set.records[1].geometry), "line multi: [(0 0 0)(1 1 0)]");
    EXPECT_EQ(dump(set.records[2].geometry), "point multi: (1 1 0)");
    EXPECT_EQ(report.entries()[0].message,
              "feature 0 (id 0): polygon 0, hole 0: a ring of 2 positions (3 needed); the hole is "
              "dropped");
    EXPECT_EQ(report.entries()[3].message,
              "feature 3 (id 3): point 0: position 0 lies outside longitude ±360°, latitude ±90°; "
              "the point is dropped");
    EXPECT_EQ(report.entries()[5].message,
              "feature 5 (id 5): line 0: position 1 has a NaN or infinite coordinate; the line is "
              "dropped");
}

TEST(ReaderTest, TheStrictOptionTurnsTheFirstProblemIntoAnError) {
    LoadReport report;
    ReadOptions options;
    options.strict = true;
    const RecordSet set = read(collection(feature(R"({"type": "Point", "coordinates": [1, 1]})") +
                                          "," + feature("null") + "," +
                                          feature(R"({"type": "Point", "coordinates": [2, 2]})")),
                               report, options);
    EXPECT_TRUE(set.records.empty());
    EXPECT_TRUE(report.failed());
    EXPECT_EQ(report.error(), "feature 1 (id 1) has no geometry; it is skipped");
    EXPECT_EQ(report.sourceFeatures, 2U);
}

TEST(ReaderTest, TheStrictOptionLetsNotesPass) {
    LoadReport report;
    ReadOptions options;
    options.strict = true;
    const RecordSet set = read(collection(feature(R"({"type": "GeometryCollection", "geometries": [
            {"type": "Point", "coordinates": [1, 1]}, {"type": "LineString", "coordinates": [[0, 0], [1, 1]]}]})")),
                               report, options);
    EXPECT_FALSE(report.failed());
    EXPECT_EQ(set.records.size(), 2U);
}

TEST(ReaderTest, AttributesKeepTheirTypes) {
    LoadReport report;
    const RecordSet set = read(
        collection(
            feature(
                R"({"type": "Point", "coordinates": [0, 0]})",
                R"({"i": 42, "big": 9007199254740993, "r": 2.5, "s": "Lyon", "b": true, "d": "2024-05-01", "dt": "2024-05-01T12:30:15Z", "t": "08:15:30", "n": null})") +
            "," + feature(R"({"type": "Point", "coordinates": [0, 0]})", R"({"i": 7})")),
        report);
    ASSERT_EQ(set.records.size(), 2U);
    const auto& attributes = set.records[0].attributes;
    const auto tag = [&](const char* name) {
        return static_cast<AttributeType>(attributes.at(name).type);
    };
    EXPECT_EQ(tag("i"), AttributeType::Integer);
    EXPECT_EQ(std::any_cast<std::int64_t>(attributes.at("i").value), 42);
    EXPECT_EQ(std::any_cast<std::int64_t>(attributes.at("big").value), 9007199254740993LL);
    EXPECT_EQ(tag("r"), AttributeType::Real);
    EXPECT_EQ(std::any_cast<double>(attributes.at("r").value), 2.5);
    EXPECT_EQ(tag("s"), AttributeType::String);
    EXPECT_EQ(std::any_cast<std::string>(attributes.at("s").value), "Lyon");
    EXPECT_EQ(tag("b"), AttributeType::Boolean);
    EXPECT_EQ(std::any_cast<bool>(attributes.at("b").value), true);
    EXPECT_EQ(tag("d"), AttributeType::Date);
    EXPECT_EQ(std::any_cast<std::string>(attributes.at("d").value), "2024-05-01");
    EXPECT_EQ(tag("dt"), AttributeType::DateTime);
    EXPECT_EQ(std::any_cast<std::string>(attributes.at("dt").value), "2024-05-01T12:30:15Z");
    EXPECT_EQ(tag("t"), AttributeType::Time);
    EXPECT_EQ(std::any_cast<std::string>(attributes.at("t").value), "08:15:30");
    EXPECT_TRUE(attributes.at("n").isNull());
    // The second feature sets only "i": the others are absent, not null.
    EXPECT_EQ(set.records[1].attributes.size(), 1U);
    ASSERT_GE(set.fields.size(), 9U);
    EXPECT_EQ(set.fields[0], (Field{"i", AttributeType::Integer}));
}

TEST(ReaderTest, IdsComeFromTheFeatureIdOrANamedFieldAndNamesFromANamedField) {
    const std::string text = collection(
        R"({"type": "Feature", "id": 17, "properties": {"code": 301, "label": "A", "pop": 2.5}, "geometry": {"type": "Point", "coordinates": [0, 0]}},)"
        R"({"type": "Feature", "id": 18, "properties": {"code": null, "label": 12, "pop": 3}, "geometry": {"type": "Point", "coordinates": [0, 0]}})");
    LoadReport report;
    const RecordSet byFid = read(text, report);
    ASSERT_EQ(byFid.records.size(), 2U);
    EXPECT_EQ(byFid.records[0].id, 17);
    EXPECT_EQ(byFid.records[1].id, 18);
    EXPECT_EQ(byFid.records[0].name, "");
    ReadOptions options;
    options.idField = "code";
    options.nameField = "label";
    const RecordSet byField = read(text, report, options);
    ASSERT_EQ(byField.records.size(), 2U);
    EXPECT_EQ(byField.records[0].id, 301);
    EXPECT_FALSE(byField.records[1].id.has_value());
    EXPECT_EQ(byField.records[0].name, "A");
    EXPECT_EQ(byField.records[1].name, "12");
    EXPECT_FALSE(report.failed());
}

TEST(ReaderTest, AMissingIdOrNameFieldIsAnError) {
    LoadReport report;
    ReadOptions options;
    options.nameField = "title";
    const RecordSet set =
        read(collection(feature(R"({"type": "Point", "coordinates": [0, 0]})", R"({"name": "x"})")),
             report, options);
    EXPECT_TRUE(set.records.empty());
    EXPECT_TRUE(report.failed());
    EXPECT_EQ(report.count(Issue::FieldMissing), 1U);
    EXPECT_EQ(report.error(), "the text has no field \"title\" for the name");
}

TEST(ReaderTest, AMissingFileIsAnError) {
    LoadReport report;
    const RecordSet set = Reader::readFile("/nonexistent/countries.geojson", {}, report);
    EXPECT_TRUE(set.records.empty());
    EXPECT_TRUE(report.failed());
    EXPECT_EQ(report.count(Issue::FileUnreadable), 1U);
    EXPECT_EQ(
        report.error().rfind("cannot open \"/nonexistent/countries.geojson\" as vector data: ", 0),
        0U)
        << report.error();
}

TEST(ReaderTest, TextThatIsNoVectorDataIsAnError) {
    LoadReport report;
    const RecordSet set = read("this is not a vector file {", report);
    EXPECT_TRUE(set.records.empty());
    EXPECT_EQ(report.count(Issue::FileUnreadable), 1U);
}

TEST(ReaderTest, AMissingLayerIsAnErrorThatListsTheLayers) {
    LoadReport report;
    ReadOptions options;
    options.layer = "rivers";
    const RecordSet set =
        read(collection(feature(R"({"type": "Point", "coordinates": [0, 0]})")), report, options);
    EXPECT_TRUE(set.records.empty());
    EXPECT_EQ(report.count(Issue::LayerMissing), 1U);
    EXPECT_NE(report.error().find("has no layer \"rivers\" (layers: "), std::string::npos)
        << report.error();
}

TEST(ReaderTest, ProjectedCoordinatesAreReprojectedToLongitudeLatitude) {
    // Three points given in UTM zone 33 north, placed by GeographicLib's own projection.
    const std::vector<std::pair<double, double>> lonLat{{15.0, 0.0}, {12.5, 45.25}, {17.9, 70.1}};
    std::string features;
    for (const auto& [lon, lat] : lonLat) {
        int zone = 33;
        bool north = true;
        double x = 0.0;
        double y = 0.0;
        GeographicLib::UTMUPS::Forward(lat, lon, zone, north, x, y, 33);
        char coordinates[128];
        std::snprintf(coordinates, sizeof coordinates, "[%.6f, %.6f]", x, y);
        features +=
            std::string(features.empty() ? "" : ",") +
            feature(std::string(R"({"type": "Point", "coordinates": )") + coordinates + "}");
    }
    const std::string text =
        R"({"type": "FeatureCollection", "crs": {"type": "name", "properties": {"name": "urn:ogc:def:crs:EPSG::32633"}}, "features": [)" +
        features + "]}";
    LoadReport report;
    const RecordSet set = read(text, report);
    ASSERT_EQ(set.records.size(), 3U) << report.toText();
    for (std::size_t i = 0; i < lonLat.size(); ++i) {
        // The coordinates were written to the micrometre: 1e-10 degrees is about 11 micrometres.
        const Cartographic expected = deg(lonLat[i].first, lonLat[i].second);
        EXPECT_TRUE(set.records[i].geometry.points[0].equalsEpsilon(expected, 1e-11))
            << dump(set.records[i].geometry.points[0]) << " vs " << dump(expected);
    }
}

TEST(ReaderTest, TheAreaFieldMatchesTheGeodesicAreaWithinHalfAPercent) {
    // A quadrilateral over France and a square near the equator with a hole.
    const std::string text = collection(
        feature(
            R"({"type": "Polygon", "coordinates": [[[-4.5, 43.5], [7.5, 43.5], [7.5, 50.5], [-4.5, 50.5], [-4.5, 43.5]]]})") +
        "," +
        feature(
            R"({"type": "Polygon", "coordinates": [[[10, 0], [12, 0], [12, 2], [10, 2], [10, 0]], [[10.5, 0.5], [10.5, 1], [11, 1], [11, 0.5], [10.5, 0.5]]]})") +
        "," + feature(R"({"type": "Point", "coordinates": [0, 0]})"));
    ReadOptions options;
    options.areaField = "area";
    LoadReport report;
    const RecordSet set = read(text, report, options);
    ASSERT_EQ(set.records.size(), 3U);
    EXPECT_EQ(set.fields.back(), (Field{"area", AttributeType::Real}));
    const auto geodesicArea = [](const std::vector<std::pair<double, double>>& ring) {
        GeographicLib::PolygonArea polygon(GeographicLib::Geodesic::WGS84(), false);
        for (const auto& [lon, lat] : ring) {
            polygon.AddPoint(lat, lon);
        }
        double perimeter = 0.0;
        double area = 0.0;
        polygon.Compute(false, true, perimeter, area);
        return std::fabs(area) / 1e6;
    };
    const double france = geodesicArea({{-4.5, 43.5}, {7.5, 43.5}, {7.5, 50.5}, {-4.5, 50.5}});
    const double square = geodesicArea({{10, 0}, {12, 0}, {12, 2}, {10, 2}}) -
                          geodesicArea({{10.5, 0.5}, {10.5, 1}, {11, 1}, {11, 0.5}});
    EXPECT_NEAR(attribute(set.records[0], "area").asNumber(), france, france * 0.005);
    EXPECT_NEAR(attribute(set.records[1], "area").asNumber(), square, square * 0.005);
    EXPECT_TRUE(attribute(set.records[2], "area").isNull());
}

namespace round_trip {

using keo::Source::test::dump;

const char* const FIELDS_A =
    R"({"name": "alpha", "count": 3, "value": 2.5, "flag": true, "day": "2024-05-01"})";
const char* const FIELDS_B =
    R"({"name": "beta", "count": -40, "value": -0.125, "flag": false, "day": "1999-12-31"})";
const char* const FIELDS_NULL =
    R"({"name": null, "count": 7, "value": null, "flag": true, "day": null})";

/** The layers written to each format: one geometry family each, as a shapefile needs. */
std::vector<std::pair<std::string, std::string>> layers() {
    return {
        {"points",
         collection(
             feature(R"({"type": "Point", "coordinates": [2.5, 48.25, 35.5]})", FIELDS_A) + "," +
             feature(R"({"type": "Point", "coordinates": [-73.125, 40.75, -2]})", FIELDS_B) + "," +
             feature(R"({"type": "Point", "coordinates": [139.5, 35.75, 0]})", FIELDS_NULL))},
        {"multipoints",
         collection(feature(R"({"type": "MultiPoint", "coordinates": [[1, 2], [3, 4], [5, 6]]})",
                            FIELDS_A) +
                    "," +
                    feature(R"({"type": "MultiPoint", "coordinates": [[-1, -2]]})", FIELDS_B))},
        {"lines",
         collection(
             feature(R"({"type": "LineString", "coordinates": [[0, 0], [1, 1], [2, 0]]})",
                     FIELDS_A) +
             "," +
             feature(
                 R"({"type": "MultiLineString", "coordinates": [[[10, 10], [11, 11]], [[12, 12], [13, 12], [14, 13]]]})",
                 FIELDS_B))},
        {"polygons",
         collection(
             feature(
                 R"({"type": "Polygon", "coordinates": [[[0, 0], [10, 0], [10, 10], [0, 10], [0, 0]], [[2, 2], [2, 4], [4, 4], [4, 2], [2, 2]]]})",
                 FIELDS_A) +
             "," +
             feature(
                 R"({"type": "MultiPolygon", "coordinates": [[[[20, 0], [21, 0], [21, 1], [20, 0]]], [[[30, 0], [31, 0], [31, 1], [30, 1], [30, 0]]]]})",
                 FIELDS_B) +
             "," +
             feature(R"({"type": "MultiPolygon", "coordinates": [
                [[[40, 0], [50, 0], [50, 10], [40, 10], [40, 0]], [[42, 2], [42, 8], [48, 8], [48, 2], [42, 2]]],
                [[[43, 3], [47, 3], [47, 7], [43, 7], [43, 3]]]]})",
                     FIELDS_NULL))},
    };
}

/** A folder of its own under the system's temporary folder, removed with the object. */
class TemporaryFolder {
public:
    TemporaryFolder() {
        path_ =
            std::filesystem::temp_directory_path() /
            ("keo-source-test-" + std::to_string(::getpid()) + "-" + std::to_string(counter_++));
        std::filesystem::create_directories(path_);
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    std::string file(const std::string& name) const { return (path_ / name).string(); }

private:
    static inline int counter_ = 0;
    std::filesystem::path path_;
};

/** Writes the first layer of @p geojson to a new file of @p driver at @p path through OGR. */
bool writeThroughOgr(const std::string& geojson, const char* driver, const std::string& path) {
    GDALAllRegister();
    const std::string source = "/vsimem/keo-source-round-trip.geojson";
    VSILFILE* file = VSIFOpenL(source.c_str(), "wb");
    VSIFWriteL(geojson.data(), 1, geojson.size(), file);
    VSIFCloseL(file);
    GDALDatasetH input = GDALOpenEx(source.c_str(), GDAL_OF_VECTOR, nullptr, nullptr, nullptr);
    std::string format = "-f";
    std::string name = driver;
    char* arguments[] = {format.data(), name.data(), nullptr};
    GDALVectorTranslateOptions* options = GDALVectorTranslateOptionsNew(arguments, nullptr);
    int failed = 0;
    GDALDatasetH output = GDALVectorTranslate(path.c_str(), nullptr, 1, &input, options, &failed);
    GDALVectorTranslateOptionsFree(options);
    const bool written = output != nullptr && failed == 0;
    GDALClose(output);
    GDALClose(input);
    VSIUnlink(source.c_str());
    return written;
}

// A shapefile has no boolean type: OGR writes a boolean field as an integer field of 0 and 1,
// which reads back as such.
void booleansAsIntegers(RecordSet& set) {
    for (Record& record : set.records) {
        for (auto& [name, value] : record.attributes) {
            if (value.type == static_cast<std::int32_t>(AttributeType::Boolean)) {
                value.type = static_cast<std::int32_t>(AttributeType::Integer);
                if (!value.isNull()) {
                    value.value = std::int64_t{std::any_cast<bool>(value.value) ? 1 : 0};
                }
            }
        }
    }
}

void expectSameRecords(const char* driver, const char* extension, bool hasBooleans) {
    const TemporaryFolder folder;
    for (const auto& [name, text] : layers()) {
        LoadReport fromText;
        RecordSet expected = Reader::readText(text, {}, fromText);
        if (!hasBooleans) {
            booleansAsIntegers(expected);
        }
        ASSERT_FALSE(fromText.failed()) << fromText.error();
        ASSERT_FALSE(expected.records.empty());
        const std::string path = folder.file(name + extension);
        ASSERT_TRUE(writeThroughOgr(text, driver, path)) << driver << " " << name;
        LoadReport fromFile;
        const RecordSet actual = Reader::readFile(path, {}, fromFile);
        ASSERT_FALSE(fromFile.failed()) << fromFile.error();
        // Feature ids are numbered by each format in its own way; everything else must agree.
        EXPECT_EQ(dump(actual, false), dump(expected, false)) << driver << " " << name;
        EXPECT_EQ(fromFile.problemCount(), 0U);
    }
}

TEST(ReaderTest, RecordsWrittenToGeoPackageReadBackIdentical) {
    expectSameRecords("GPKG", ".gpkg", true);
}

TEST(ReaderTest, RecordsWrittenToShapefilesReadBackIdentical) {
    expectSameRecords("ESRI Shapefile", ".shp", false);
}

} // namespace round_trip

TEST(ReaderTest, CsvTextIsReadWhenItsExtensionIsGiven) {
    LoadReport report;
    const RecordSet set = Reader::readText(
        "WKT,name\n\"POINT (3 4)\",a\n\"LINESTRING (0 0,1 1)\",b\n", {}, report, ".csv");
    ASSERT_EQ(set.records.size(), 2U) << report.toText();
    EXPECT_EQ(dump(set.records[0].geometry), "point: (3 4 0)");
    EXPECT_EQ(dump(set.records[1].geometry), "line: [(0 0 0)(1 1 0)]");
    EXPECT_EQ(attribute(set.records[1], "name"), Value("b"));
}

} // namespace
