#include "JsonParser.h"
#include "JsonWriter.h"
#include "MemoryUse.h"
#include "Program.h"
#include "Sample.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

using keo::scene::JsonWriter;
using keo::scene::test::JsonParser;
using keo::scene::test::JsonValue;

// A file name in the test's working directory, removed when the test ends.
struct TemporaryFile {
    explicit TemporaryFile(std::string name)
        : path(std::move(name)) {}
    ~TemporaryFile() { std::remove(path.c_str()); }
    std::string read() const {
        std::ifstream in(path);
        std::stringstream text;
        text << in.rdbuf();
        return text.str();
    }
    std::string path;
};

// Runs the program in-process; returns its exit status and fills the two streams.
int run(const std::vector<std::string>& arguments, std::string& out, std::string& err) {
    std::ostringstream outStream;
    std::ostringstream errStream;
    const int status = keo::scene::runProgram(arguments, outStream, errStream, false);
    out = outStream.str();
    err = errStream.str();
    return status;
}

const JsonValue& featureNamed(const JsonValue& report, const std::string& name) {
    for (const JsonValue& feature : report["features"].array) {
        if (feature["name"].string == name) {
            return feature;
        }
    }
    throw std::runtime_error("no feature " + name);
}

std::vector<std::string> childNames(const JsonValue& entity) {
    std::vector<std::string> names;
    for (const JsonValue& child : entity["children"].array) {
        names.push_back(child["name"].string);
    }
    return names;
}

TEST(JsonReportTest, TheReportHoldsEveryFrameAndTheEntityTreeOfTheTower) {
    TemporaryFile file("keo-scene-report-test.json");
    std::string out;
    std::string err;
    ASSERT_EQ(run({"--json", file.path, "--quiet"}, out, err), keo::scene::EXIT_OK) << err;
    EXPECT_EQ(err, "");

    const JsonValue report = JsonParser::parse(file.read());
    EXPECT_EQ(report["program"].string, "keo-scene");
    EXPECT_EQ(report["mode"].string, "sample");
    EXPECT_EQ(report["frameSeconds"].number, 0.5);
    ASSERT_EQ(report["frames"].array.size(), 12u);
    const JsonValue& first = report["frames"].array.front();
    const auto features = static_cast<double>(keo::scene::sampleEntries().size());
    EXPECT_EQ(first["frame"].number, 1.0);
    EXPECT_EQ(first["time"].number, 0.0);
    EXPECT_EQ(first["features"].number, features);
    EXPECT_EQ(first["updated"].number, features);
    EXPECT_EQ(first["added"].number, first["live"].number);
    EXPECT_EQ(first["collection"]["notifications"].number, 1.0);
    EXPECT_EQ(first["collection"]["added"].number, features);
    // The styles of the ellipse and the three multi geometries are logged as not matching;
    // the road's and the field's height references are drawn clamped, with the kit's warnings.
    ASSERT_EQ(first["log"].array.size(), 3u);
    EXPECT_NE(first["log"].array[0].string.find("keo::Feature::Feature::setStyle"),
              std::string::npos);
    EXPECT_NE(first["log"].array[0].string.find("(4 times)"), std::string::npos);
    EXPECT_NE(first["log"].array[1].string.find("keo::Feature::setPolylineHeightReference"),
              std::string::npos);
    EXPECT_NE(first["log"].array[2].string.find("keo::Feature::PolygonGeometry::_updateStyle"),
              std::string::npos);
    EXPECT_TRUE(report["frames"].array[1]["log"].array.empty());
    EXPECT_EQ(report["frames"].array[1]["edits"].array.at(0).string,
              "recolour the dot of \"Marker\" from red to yellow");
    EXPECT_EQ(report["time"].number, 5.5);

    const JsonValue& tower = featureNamed(report, "Tower");
    EXPECT_EQ(tower["id"].number, 1003.0);
    EXPECT_EQ(tower["group"].string, "models");
    const JsonValue& root = tower["entities"];
    EXPECT_EQ(root["name"].string, "");
    EXPECT_TRUE(root["show"].boolean);
    EXPECT_EQ(root["position"].array.size(), 3u);
    // Only a model and the label: no dot of its own on the root.
    EXPECT_EQ(root["graphics"].kind, JsonValue::Kind::Null);
    EXPECT_EQ(childNames(root), (std::vector<std::string>{"label-symbol", "model-symbol"}));

    const JsonValue& label = root["children"].array[0];
    EXPECT_EQ(label["graphics"]["type"].string, "LabelGraphics");
    EXPECT_EQ(label["graphics"]["text"].string, "TOWER");
    const JsonValue& model = root["children"].array[1];
    EXPECT_EQ(model["graphics"]["type"].string, "ModelGraphics");
    EXPECT_TRUE(model["graphics"]["ready"].boolean);
    EXPECT_EQ(model["graphics"]["boundingBox"]["halfExtents"].array.at(2).number, 15.0);
    // The loaded tower's box (centre 15 m up, half height 15 m) at scale 2: the label rides
    // 15 + 15 * 2 m above the model's position.
    const auto height = [](const JsonValue& entity) {
        const auto& p = entity["position"].array;
        return std::sqrt(p[0].number * p[0].number + p[1].number * p[1].number +
                         p[2].number * p[2].number);
    };
    EXPECT_NEAR(height(label) - height(model), 45.0, 0.1);
}

TEST(JsonReportTest, TheDroneModelTurnsAlongItsPath) {
    TemporaryFile file("keo-scene-drone-test.json");
    std::string out;
    std::string err;
    ASSERT_EQ(run({"--json", file.path, "--quiet", "--frames", "3"}, out, err), 0) << err;
    const JsonValue report = JsonParser::parse(file.read());
    const JsonValue& drone = featureNamed(report, "Drone");
    const JsonValue& model = drone["entities"]["children"].array.at(1);
    EXPECT_EQ(model["name"].string, "model-symbol");
    EXPECT_EQ(model["orientation"].array.size(), 4u);
    EXPECT_EQ(drone["entities"]["orientation"].kind, JsonValue::Kind::Null);
}

TEST(JsonReportTest, TheScaleRunReportsEveryFrameOfItsThreePhases) {
    TemporaryFile file("keo-scene-scale-test.json");
    std::string out;
    std::string err;
    ASSERT_EQ(run({"--json", file.path, "--quiet", "--features", "20", "--frames", "2"}, out, err),
              0)
        << err;
    const JsonValue report = JsonParser::parse(file.read());
    EXPECT_EQ(report["mode"].string, "scale");
    EXPECT_EQ(report["frames"].array.size(), 5u);
    EXPECT_EQ(report["features"].array.size(), 20u);
    EXPECT_NE(out.find("entities/s"), std::string::npos);
    // The phases with their rates, as the table prints them.
    const auto& phases = report["phases"].array;
    ASSERT_EQ(phases.size(), 3u);
    EXPECT_EQ(phases[0]["name"].string, "build");
    EXPECT_EQ(phases[1]["name"].string, "clean frames");
    EXPECT_EQ(phases[2]["name"].string, "edits");
    for (const auto& phase : phases) {
        EXPECT_EQ(phase["features"].number, phase["name"].string == "build" ? 20.0 : 40.0);
        EXPECT_GT(phase["entities"].number, phase["features"].number);
        if (phase["seconds"].number > 0.0) {
            EXPECT_DOUBLE_EQ(phase["featuresPerSecond"].number,
                             phase["features"].number / phase["seconds"].number);
        }
    }
    EXPECT_GT(report["logRecords"].number, 0.0);
}

TEST(JsonReportTest, TheScaleRunReportsTheMemoryOfItsFeaturesEachKindAndItsTeardown) {
    TemporaryFile file("keo-scene-memory-test.json");
    std::string out;
    std::string err;
    ASSERT_EQ(run({"--json", file.path, "--quiet", "--features", "50", "--frames", "1"}, out, err),
              0)
        << err;
    const JsonValue report = JsonParser::parse(file.read());
    const JsonValue& memory = report["memory"];
    EXPECT_EQ(memory["allocator"].string, keo::scene::allocatorName());
    // Fifty features of the sample's kinds hold far more than nothing and far less than a
    // megabyte each.
    EXPECT_GT(memory["heapBytesPerFeature"].number, 500.0);
    EXPECT_LT(memory["heapBytesPerFeature"].number, 1.0e6);
    EXPECT_GE(memory["residentBytesPerFeature"].number, 0.0);
    EXPECT_GE(memory["teardownSeconds"].number, 0.0);
    // One row per kind of the sample, in the sample's order, each a real amount.
    const auto& kinds = memory["kinds"].array;
    ASSERT_EQ(kinds.size(), keo::scene::sampleEntries().size());
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        EXPECT_EQ(kinds[i]["kind"].string, keo::scene::sampleEntries()[i].name);
    }
    for (const auto& kind : kinds) {
        EXPECT_GT(kind["heapBytesPerFeature"].number, 300.0) << kind["kind"].string;
    }
    EXPECT_NE(out.find("memory: "), std::string::npos);
    EXPECT_NE(out.find("kind             heap B/feature\n"), std::string::npos);
    EXPECT_NE(out.find("teardown: "), std::string::npos);
}

TEST(JsonReportTest, TheDataRunReportsTheLoadedFeaturesInTheirLayersGroup) {
    TemporaryFile file("keo-scene-data-test.json");
    std::string out;
    std::string err;
    const std::string countries = std::string(KEO_DATA_DIR) + "/countries/";
    ASSERT_EQ(run({"--json", file.path, "--frames", "2", "--data",
                   countries + "countries-land-10km.geojson", "--style",
                   countries + "countries.style.json"},
                  out, err),
              0)
        << err;
    const JsonValue report = JsonParser::parse(file.read());
    EXPECT_EQ(report["mode"].string, "data");
    EXPECT_EQ(report["frames"].array.size(), 2u);
    ASSERT_EQ(report["features"].array.size(), 220u);
    const JsonValue& russia = featureNamed(report, "RUS");
    EXPECT_EQ(russia["group"].string, "countries-land-10km");
    // A multi polygon: one child per part, each extruded.
    const JsonValue& parts = russia["entities"]["children"];
    ASSERT_FALSE(parts.array.empty());
    const std::vector<std::string> names = childNames(parts.array.front());
    EXPECT_NE(std::find(names.begin(), names.end(), "extrusion-wall-symbol"), names.end());
    EXPECT_NE(std::find(names.begin(), names.end(), "label-symbol"), names.end());
    EXPECT_NE(out.find("load report: read 220 source features"), std::string::npos) << out;
}

TEST(JsonWriterTest, EscapesStringsAndNestsWithTwoSpacesPerLevel) {
    JsonWriter json;
    json.beginObject();
    json.key("text");
    json.value("a \"quoted\" \\ line\n\x01");
    json.key("list");
    json.beginArray();
    json.value(0.1);
    json.value(std::uint64_t{18446744073709551615u});
    json.value(true);
    json.endArray();
    json.key("empty");
    json.beginObject();
    json.endObject();
    json.key("raw");
    json.rawValue("{\n  \"a\": 1\n}\n");
    json.endObject();
    EXPECT_EQ(json.text(), "{\n"
                           "  \"text\": \"a \\\"quoted\\\" \\\\ line\\n\\u0001\",\n"
                           "  \"list\": [\n"
                           "    0.1,\n"
                           "    18446744073709551615,\n"
                           "    true\n"
                           "  ],\n"
                           "  \"empty\": {},\n"
                           "  \"raw\": {\n"
                           "    \"a\": 1\n"
                           "  }\n"
                           "}\n");
    const JsonValue parsed = JsonParser::parse(json.text());
    EXPECT_EQ(parsed["text"].string, "a \"quoted\" \\ line\n\x01");
    EXPECT_EQ(parsed["raw"]["a"].number, 1.0);
}

TEST(JsonWriterTest, NumbersJsonCannotHoldAreWrittenAsNull) {
    JsonWriter json;
    json.beginArray();
    json.value(std::numeric_limits<double>::quiet_NaN());
    json.value(std::numeric_limits<double>::infinity());
    json.endArray();
    EXPECT_EQ(json.text(), "[\n  null,\n  null\n]\n");
}

} // namespace
