// keoSource on a generated GeoJSON of 100,000 features (a third each points, 10-position lines
// and polygons of 20 positions with a hole; five attributes each), styled by a sheet with match,
// interpolate and a concatenated label (and an extrusion of the polygons):
// - OgrRead: GDAL/OGR alone, walking every feature, its geometry and its fields;
// - ReadRecords: Reader::readText, OGR's reading plus the kit's conversion into records (the kit's
//   share is the difference to OgrRead);
// - ResolveStyles: the sheet resolved for every record;
// - BuildFeatures/<kind>: the records of one kind (point, line, polygon, or all: the whole file)
//   styled and built into features in a group;
// - FirstFrame/<kind>: those features' first update, which makes the entities a renderer draws;
// - LoadStyleFirstFrame: all of it for the whole file as VectorSource::loadText does it (read,
//   then hand the records over to a source) and the first update of every feature, with the time
//   of each phase as counters (read_s, build_s, frame_s);
// - ReevaluateAfterEdit/<kind>: one attribute changed on each feature of a kind, the values that
//   read it evaluated again and handed to the style objects; RedrawAfterEdit/<kind> adds the
//   feature's next update; EditThatNoValueReads: an edit of an attribute the sheet does not read,
//   the part of an edit before any evaluation.
//
// `keoSourceBenchmarks --write-geojson FILE [--write-style FILE]` writes the generated file (and
// the sheet) instead of measuring, for timing `keo-scene --data FILE --style FILE` on them.
#include "Feature/Feature.h"
#include "Feature/FeatureGroup.h"
#include "Source/GeometryKind.h"
#include "Source/LoadReport.h"
#include "Source/Reader.h"
#include "Source/StyleSheet.h"
#include "Source/VectorSource.h"

#include <benchmark/benchmark.h>
#include <cpl_vsi.h>
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace {

using keo::Source::GeometryKind;

constexpr int FEATURE_COUNT = 100000;
constexpr const char* CATEGORIES[] = {"road", "river", "park", "city", "forest", "lake"};
// The records of one kind, or (empty) of every kind.
using KindFilter = std::optional<GeometryKind>;
const std::pair<KindFilter, const char*> KINDS[] = {{GeometryKind::Point, "point"},
                                                    {GeometryKind::Line, "line"},
                                                    {GeometryKind::Polygon, "polygon"},
                                                    {std::nullopt, "all"}};

const char* const SHEET = R"json({"rules": [{
  "point": {"color": ["match", ["get", "category"], "city", "red", "park", "green", "road", "gray", "white"],
            "size": ["interpolate", ["linear"], ["get", "value"], 0, 4, 100, 16]},
  "polyline": {"width": ["interpolate", ["linear"], ["get", "value"], 0, 1, 100, 6],
               "material": ["match", ["get", "category"], "river", "blue", "road", "gray", "black"]},
  "polygon": {"fill": ["interpolate", ["linear"], ["get", "value"], 0, "#00ff00", 100, "#ff0000"]},
  "extrusion": {"height": ["*", ["get", "value"], 10],
                "material": ["match", ["get", "category"], "city", "#808080", "#c0c0c0"]},
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

std::string generate(int count) {
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
                R"(,"geometry":)" + geometryOf(i, x, y) + "}";
    }
    return text + "]}";
}

const std::string& mixedText() {
    static const std::string TEXT = generate(FEATURE_COUNT);
    return TEXT;
}

std::shared_ptr<const keo::Source::StyleSheet> sheet() {
    keo::Source::LoadReport report;
    return keo::Source::StyleSheet::parse(SHEET, report);
}

const keo::Source::RecordSet& mixedRecords() {
    static const keo::Source::RecordSet RECORDS = [] {
        keo::Source::LoadReport report;
        return keo::Source::Reader::readText(mixedText(), {}, report);
    }();
    return RECORDS;
}

// The records of one kind of the mixed file (a third of them), or all of them.
keo::Source::RecordSet recordsOf(KindFilter kind) {
    keo::Source::RecordSet records;
    records.fields = mixedRecords().fields;
    for (const auto& record : mixedRecords().records) {
        if (!kind || record.geometry.kind == *kind) {
            records.records.push_back(record);
        }
    }
    return records;
}

std::vector<keo::Feature::Feature*> featuresOf(const keo::Source::VectorSource& source) {
    std::vector<keo::Feature::Feature*> features;
    for (const auto& node : source.group()->getFeatures()) {
        features.push_back(static_cast<keo::Feature::Feature*>(node.get()));
    }
    return features;
}

// The update a renderer runs on each feature once a frame.
void updateAll(const std::vector<keo::Feature::Feature*>& features, bool entered) {
    for (keo::Feature::Feature* feature : features) {
        feature->_updateEntityInCull(entered);
    }
}

double secondsSince(std::chrono::steady_clock::time_point start) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
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

void ReadRecords(benchmark::State& state) {
    const std::string& text = mixedText();
    for (auto _ : state) {
        keo::Source::LoadReport report;
        const auto records = keo::Source::Reader::readText(text, {}, report);
        benchmark::DoNotOptimize(records.records.data());
    }
    state.SetItemsProcessed(state.iterations() * FEATURE_COUNT);
}

void ResolveStyles(benchmark::State& state) {
    const auto& records = mixedRecords();
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

void BuildFeatures(benchmark::State& state, KindFilter kind) {
    const keo::Source::RecordSet records = recordsOf(kind);
    const auto styles = sheet();
    std::size_t built = 0;
    for (auto _ : state) {
        auto source = std::make_unique<keo::Source::VectorSource>(styles);
        keo::Source::LoadReport load;
        built = source->add(records, load);
        state.PauseTiming(); // the features go untimed
        source.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(built));
}

void FirstFrame(benchmark::State& state, KindFilter kind) {
    const keo::Source::RecordSet records = recordsOf(kind);
    const auto styles = sheet();
    std::size_t updated = 0;
    for (auto _ : state) {
        state.PauseTiming();
        auto source = std::make_unique<keo::Source::VectorSource>(styles);
        keo::Source::LoadReport load;
        source->add(records, load);
        const auto features = featuresOf(*source);
        state.ResumeTiming();
        updateAll(features, true);
        updated = features.size();
        state.PauseTiming();
        source.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(updated));
}

// The whole load of the file as an application does it; the counters split it into reading
// (OGR and the records), styling and building, and the first frame.
void LoadStyleFirstFrame(benchmark::State& state) {
    const std::string& text = mixedText();
    keo::Source::LoadOptions options;
    options.styleSheet = sheet();
    double read = 0.0;
    double build = 0.0;
    double frame = 0.0;
    for (auto _ : state) {
        auto start = std::chrono::steady_clock::now();
        keo::Source::LoadReport report;
        auto records = std::make_unique<keo::Source::RecordSet>(
            keo::Source::Reader::readText(text, options.read, report));
        read += secondsSince(start);
        start = std::chrono::steady_clock::now();
        auto source = std::make_unique<keo::Source::VectorSource>(options.styleSheet);
        source->add(std::move(*records), report); // as loadText adds what it read
        build += secondsSince(start);
        start = std::chrono::steady_clock::now();
        updateAll(featuresOf(*source), true);
        frame += secondsSince(start);
        state.PauseTiming(); // the features and records go untimed
        source.reset();
        records.reset();
        state.ResumeTiming();
    }
    const auto perIteration = benchmark::Counter::kAvgIterations;
    state.counters["read_s"] = benchmark::Counter(read, perIteration);
    state.counters["build_s"] = benchmark::Counter(build, perIteration);
    state.counters["frame_s"] = benchmark::Counter(frame, perIteration);
    state.SetItemsProcessed(state.iterations() * FEATURE_COUNT);
}

// The features of one kind, built and drawn once, with their ids.
struct DrawnSource {
    explicit DrawnSource(KindFilter kind)
        : source(sheet()) {
        keo::Source::LoadReport report;
        source.add(recordsOf(kind), report);
        features = featuresOf(source);
        updateAll(features, true);
        for (const keo::Feature::Feature* feature : features) {
            ids.push_back(feature->getId());
        }
    }
    keo::Source::VectorSource source;
    std::vector<keo::Feature::Feature*> features;
    std::vector<std::uint64_t> ids;
};

// Edits the attribute @p name of each feature of @p kind per iteration, and with @p redraw
// gives each its next update.
void editEveryFeature(benchmark::State& state, KindFilter kind, const char* name, bool redraw) {
    DrawnSource drawn(kind);
    double value = 0.0;
    for (auto _ : state) {
        value += 1.0;
        keo::Source::LoadReport edits;
        for (const std::uint64_t id : drawn.ids) {
            drawn.source.setAttribute(id, name, {2, value}, edits);
        }
        if (redraw) {
            updateAll(drawn.features, false);
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(drawn.ids.size()));
}

// "value" drives the dot size, the line width, the fill, the extrusion height and the label:
// each is evaluated again and set.
void ReevaluateAfterEdit(benchmark::State& state, KindFilter kind) {
    editEveryFeature(state, kind, "value", false);
}

void RedrawAfterEdit(benchmark::State& state, KindFilter kind) {
    editEveryFeature(state, kind, "value", true);
}

// No value reads "flag": what an edit costs before any evaluation (the feature's own attribute
// table and the source's lookups).
void EditThatNoValueReads(benchmark::State& state) {
    editEveryFeature(state, GeometryKind::Polygon, "flag", false);
}

// Writes @p text to the file at @p path; false (with a message) when it cannot.
bool writeFile(const char* path, const std::string& text) {
    std::FILE* file = std::fopen(path, "wb");
    if (file == nullptr) {
        std::fprintf(stderr, "cannot open %s for writing\n", path);
        return false;
    }
    const bool written = std::fwrite(text.data(), 1, text.size(), file) == text.size();
    return std::fclose(file) == 0 && written;
}

// The benchmarks in the order they run; those of one kind of feature once per kind.
void registerBenchmarks() {
    using Run = void (*)(benchmark::State&);
    using RunKind = void (*)(benchmark::State&, KindFilter);
    const auto whole = [](const char* name, Run run, int iterations) {
        benchmark::RegisterBenchmark(name, run)
            ->Unit(benchmark::kMillisecond)
            ->Iterations(iterations);
    };
    const auto perKind = [](const char* name, RunKind run, int iterations) {
        for (const auto& [kind, kindName] : KINDS) {
            benchmark::RegisterBenchmark((std::string(name) + "/" + kindName).c_str(), run, kind)
                ->Unit(benchmark::kMillisecond)
                ->Iterations(iterations);
        }
    };
    whole("OgrRead", OgrRead, 3);
    whole("ReadRecords", ReadRecords, 3);
    whole("ResolveStyles", ResolveStyles, 3);
    perKind("BuildFeatures", BuildFeatures, 3);
    perKind("FirstFrame", FirstFrame, 3);
    whole("LoadStyleFirstFrame", LoadStyleFirstFrame, 3);
    perKind("ReevaluateAfterEdit", ReevaluateAfterEdit, 5);
    perKind("RedrawAfterEdit", RedrawAfterEdit, 3);
    whole("EditThatNoValueReads", EditThatNoValueReads, 5);
}

} // namespace

int main(int argc, char** argv) {
    // `--write-geojson FILE [--write-style FILE]`: the generated file and the sheet, for
    // keo-scene --data FILE --style FILE.
    if (argc >= 3 && std::strcmp(argv[1], "--write-geojson") == 0) {
        const bool style = argc == 5 && std::strcmp(argv[3], "--write-style") == 0;
        if (argc != 3 && !style) {
            std::fprintf(stderr, "usage: %s --write-geojson FILE [--write-style FILE]\n", argv[0]);
            return 2;
        }
        return writeFile(argv[2], mixedText()) && (!style || writeFile(argv[4], SHEET)) ? 0 : 1;
    }
    registerBenchmarks();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
