// keoSource on a generated GeoJSON of 100,000 features (a third each points, 10-position lines
// and polygons of 20 positions with a hole; five attributes each):
// - OgrRead: GDAL/OGR alone, walking every feature, its geometry and its fields;
// - ReadRecords: Reader::readText, OGR's reading plus the kit's conversion into records (the kit's
//   share is the difference to OgrRead);
// - ResolveStyles: a sheet with match, interpolate and a concatenated label resolved for every
//   record;
// - BuildPointFeatures: the point records styled and built into features in a group;
// - ReevaluateAfterEdit: 100,000 point features, one attribute changed on each, the values that
//   read it evaluated again and handed to the style objects; EditThatNoValueReads: the same edits
//   of an attribute the sheet does not read, the part of an edit before any evaluation.
#include "Source/LoadReport.h"
#include "Source/Reader.h"
#include "Source/StyleSheet.h"
#include "Source/VectorSource.h"

#include <benchmark/benchmark.h>
#include <cpl_vsi.h>
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr int FEATURE_COUNT = 100000;
constexpr const char* CATEGORIES[] = {"road", "river", "park", "city", "forest", "lake"};

const char* const SHEET = R"json({"rules": [{
  "point": {"color": ["match", ["get", "category"], "city", "red", "park", "green", "road", "gray", "white"],
            "size": ["interpolate", ["linear"], ["get", "value"], 0, 4, 100, 16]},
  "polyline": {"width": ["interpolate", ["linear"], ["get", "value"], 0, 1, 100, 6],
               "material": ["match", ["get", "category"], "river", "blue", "road", "gray", "black"]},
  "polygon": {"fill": ["interpolate", ["linear"], ["get", "value"], 0, "#00ff00", 100, "#ff0000"]},
  "label": {"text": ["concat", ["get", "name"], " (", ["number-format", ["get", "value"], {"max-fraction-digits": 1}], ")"]}
}]})json";

void appendRing(std::string& text, double x, double y, double radius, int count) {
    text += "[";
    for (int i = 0; i <= count; ++i) {
        const double angle = 6.283185307179586 * (i % count) / count;
        char position[64];
        std::snprintf(position, sizeof position, "%s[%.6f,%.6f]", i == 0 ? "" : ",",
                      x + radius * std::cos(angle), y + radius * std::sin(angle));
        text += position;
    }
    text += "]";
}

std::string geometryOf(int i, double x, double y) {
    std::string text;
    char position[64];
    switch (i % 3) {
    case 0:
        std::snprintf(position, sizeof position, "[%.6f,%.6f]", x, y);
        return std::string(R"({"type":"Point","coordinates":)") + position + "}";
    case 1:
        text = R"({"type":"LineString","coordinates":[)";
        for (int k = 0; k < 10; ++k) {
            std::snprintf(position, sizeof position, "%s[%.6f,%.6f]", k == 0 ? "" : ",",
                          x + 0.001 * k, y + 0.0005 * (k % 2));
            text += position;
        }
        return text + "]}";
    default:
        // 15 positions around, 5 around the hole: 20 in all (the closing ones not counted).
        text = R"({"type":"Polygon","coordinates":[)";
        appendRing(text, x, y, 0.01, 15);
        text += ",";
        appendRing(text, x, y, 0.003, 5);
        return text + "]}";
    }
}

std::string generate(int count, bool pointsOnly) {
    std::string text = R"({"type":"FeatureCollection","features":[)";
    for (int i = 0; i < count; ++i) {
        const double x = -170.0 + 340.0 * (i % 1000) / 1000.0;
        const double y = -80.0 + 160.0 * (i / 1000 % 100) / 100.0;
        char properties[256];
        std::snprintf(properties, sizeof properties,
                      R"({"id":%d,"name":"feature %d","category":"%s","value":%.2f,"flag":%s})",
                      i + 1, i, CATEGORIES[i % 6], (i % 1000) / 10.0,
                      i % 2 == 0 ? "true" : "false");
        text += std::string(i == 0 ? "" : ",") + R"({"type":"Feature","properties":)" + properties +
                R"(,"geometry":)" + geometryOf(pointsOnly ? 0 : i, x, y) + "}";
    }
    return text + "]}";
}

const std::string& mixedText() {
    static const std::string TEXT = generate(FEATURE_COUNT, false);
    return TEXT;
}

const std::string& pointText() {
    static const std::string TEXT = generate(FEATURE_COUNT, true);
    return TEXT;
}

std::shared_ptr<const keo::Source::StyleSheet> sheet() {
    keo::Source::LoadReport report;
    return keo::Source::StyleSheet::parse(SHEET, report);
}

void OgrRead(benchmark::State& state) {
    GDALAllRegister();
    const std::string& text = mixedText();
    // Opened as the reader opens text: by content, without a file name extension.
    const char* path = "/vsimem/keo-source-benchmark";
    VSILFILE* file = VSIFOpenL(path, "wb");
    VSIFWriteL(text.data(), 1, text.size(), file);
    VSIFCloseL(file);
    for (auto _ : state) {
        GDALDatasetUniquePtr dataset(GDALDataset::Open(path, GDAL_OF_VECTOR));
        OGRLayer* layer = dataset->GetLayer(0);
        std::int64_t touched = 0;
        for (auto& feature : *layer) {
            const OGRGeometry* geometry = feature->GetGeometryRef();
            touched += geometry != nullptr ? geometry->getDimension() : 0;
            for (int i = 0; i < feature->GetFieldCount(); ++i) {
                touched += feature->IsFieldSetAndNotNull(i) ? 1 : 0;
            }
        }
        benchmark::DoNotOptimize(touched);
    }
    VSIUnlink(path);
    state.SetItemsProcessed(state.iterations() * FEATURE_COUNT);
}
BENCHMARK(OgrRead)->Unit(benchmark::kMillisecond)->Iterations(3);

void ReadRecords(benchmark::State& state) {
    const std::string& text = mixedText();
    for (auto _ : state) {
        keo::Source::LoadReport report;
        const auto records = keo::Source::Reader::readText(text, {}, report);
        benchmark::DoNotOptimize(records.records.data());
    }
    state.SetItemsProcessed(state.iterations() * FEATURE_COUNT);
}
BENCHMARK(ReadRecords)->Unit(benchmark::kMillisecond)->Iterations(3);

void ResolveStyles(benchmark::State& state) {
    keo::Source::LoadReport report;
    const auto records = keo::Source::Reader::readText(mixedText(), {}, report);
    const auto styles = sheet();
    for (auto _ : state) {
        keo::Source::LoadReport evaluation;
        for (const auto& record : records.records) {
            auto style = styles->resolve(record.geometry.kind, record.attributes, 1, evaluation);
            benchmark::DoNotOptimize(style);
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(records.records.size()));
}
BENCHMARK(ResolveStyles)->Unit(benchmark::kMillisecond)->Iterations(3);

void BuildPointFeatures(benchmark::State& state) {
    keo::Source::LoadReport report;
    const auto records = keo::Source::Reader::readText(mixedText(), {}, report);
    const auto styles = sheet();
    std::size_t built = 0;
    for (auto _ : state) {
        keo::Source::VectorSource source(styles);
        keo::Source::LoadReport load;
        built = source.add(records, load);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(built));
}
BENCHMARK(BuildPointFeatures)->Unit(benchmark::kMillisecond)->Iterations(3);

// Edits the attribute @p name of each of 100,000 point features per iteration.
void editEveryFeature(benchmark::State& state, const char* name) {
    keo::Source::LoadReport report;
    const auto records = keo::Source::Reader::readText(pointText(), {}, report);
    keo::Source::VectorSource source(sheet());
    source.add(records, report);
    std::vector<std::uint64_t> ids;
    for (const auto& node : source.group()->getFeatures()) {
        ids.push_back(node->getId());
    }
    double value = 0.0;
    for (auto _ : state) {
        value += 1.0;
        keo::Source::LoadReport edits;
        for (const std::uint64_t id : ids) {
            source.setAttribute(id, name, {2, value}, edits);
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(ids.size()));
}

// "value" drives the dot size and the label: both are evaluated again and set.
void ReevaluateAfterEdit(benchmark::State& state) {
    editEveryFeature(state, "value");
}
BENCHMARK(ReevaluateAfterEdit)->Unit(benchmark::kMillisecond)->Iterations(5);

// No value reads "flag": what an edit costs before any evaluation (the feature's own attribute
// table and the source's lookups).
void EditThatNoValueReads(benchmark::State& state) {
    editEveryFeature(state, "flag");
}
BENCHMARK(EditThatNoValueReads)->Unit(benchmark::kMillisecond)->Iterations(5);

} // namespace
