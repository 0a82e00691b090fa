// Cost of polyline features end to end: building 100,000 named 10-vertex polylines (a dashed
// line and a label), each with its own style, through their first frame update, without and with
// segment and total length labels (time and heap bytes per feature, counted by HeapCounter.cpp);
// moving one vertex of a 1,000-vertex polyline followed by its next frame update; and a frame over
// 100,000 clean polylines.

#include "Common/Cartographic.h"
#include "Common/Color.h"
#include "Feature/Feature.h"
#include "Feature/LabelSymbol.h"
#include "Feature/LengthLabelSymbol.h"
#include "Feature/LineDashMaterial.h"
#include "Feature/LineSymbol.h"
#include "Feature/PolylineGeometry.h"
#include "Feature/PolylineStyle.h"

#include "BuildMany.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace {

using keo::Cartographic;
using keo::Feature::Feature;
using keo::Feature::LabelSymbol;
using keo::Feature::LengthLabelSymbol;
using keo::Feature::LineDashMaterial;
using keo::Feature::LineSymbol;
using keo::Feature::PolylineGeometry;
using keo::Feature::PolylineStyle;

constexpr std::size_t FEATURES = 100000;
constexpr int VERTICES = 10;

std::shared_ptr<PolylineStyle> makeStyle(bool lengthLabels) {
    auto style = std::make_shared<PolylineStyle>();
    auto line = std::make_shared<LineSymbol>();
    line->setWidth(3.0f);
    line->setMaterial(std::make_shared<LineDashMaterial>(keo::Color::YELLOW));
    if (lengthLabels) {
        line->setLengthLabelSymbol(std::make_shared<LengthLabelSymbol>());
    }
    style->setLineSymbol(std::move(line));
    style->setLabelSymbol(std::make_shared<LabelSymbol>());
    return style;
}

// @p vertices positions of a line starting on a grid of 0.01 degree.
std::vector<Cartographic> lineAt(std::size_t index, int vertices) {
    const double west = 100.0 + static_cast<double>(index % 1000) * 0.01;
    const double south = 30.0 + static_cast<double>(index / 1000) * 0.01;
    std::vector<Cartographic> positions;
    positions.reserve(static_cast<std::size_t>(vertices));
    for (int i = 0; i < vertices; ++i) {
        positions.push_back(
            Cartographic::fromDegrees(west + 0.0008 * i, south + 0.0003 * (i % 2), 5.0));
    }
    return positions;
}

std::shared_ptr<Feature> buildFeature(std::size_t index, std::shared_ptr<PolylineStyle> style,
                                      int vertices = VERTICES) {
    auto feature = std::make_shared<Feature>(std::uint64_t{index + 1});
    feature->setName("line " + std::to_string(index));
    feature->setGeometry(std::make_shared<PolylineGeometry>(lineAt(index, vertices)));
    feature->setStyle(std::move(style));
    feature->_updateEntityInCull(false);
    keo::bench::takeEntities(*feature);
    return feature;
}

void BM_BuildPolylineFeaturesWithOwnStyles(benchmark::State& state) {
    keo::bench::buildMany(state, FEATURES,
                          [](std::size_t i) { return buildFeature(i, makeStyle(false)); });
}
BENCHMARK(BM_BuildPolylineFeaturesWithOwnStyles)->Unit(benchmark::kMillisecond)->MinTime(2.0);

// The same lines with a label per segment (9) and one for the total: 10 length labels each.
void BM_BuildPolylineFeaturesWithLengthLabels(benchmark::State& state) {
    keo::bench::buildMany(state, FEATURES,
                          [](std::size_t i) { return buildFeature(i, makeStyle(true)); });
    state.counters["length_labels_per_feature"] = VERTICES;
}
BENCHMARK(BM_BuildPolylineFeaturesWithLengthLabels)->Unit(benchmark::kMillisecond)->MinTime(2.0);

// One vertex of a 1,000-vertex line moves, then the frame update redraws the line.
void BM_MoveOneVertexOfALongLineThenUpdate(benchmark::State& state) {
    const auto feature = buildFeature(0, makeStyle(false), 1000);
    auto& line = static_cast<PolylineGeometry&>(*feature->getGeometry());
    std::vector<Cartographic> positions = line.getPositions();
    std::size_t i = 0;
    for (auto _ : state) {
        positions[500].height = static_cast<double>(++i & 1u) * 10.0;
        line.setPositions(positions);
        feature->_updateEntityInCull(false);
    }
    keo::bench::takeEntities(*feature);
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_MoveOneVertexOfALongLineThenUpdate)->Unit(benchmark::kMicrosecond);

// A frame over built polylines that nothing changed: each is visited and found clean.
void BM_CleanFrameOverPolylines(benchmark::State& state) {
    keo::bench::cleanFramesOver(state, FEATURES,
                                [](std::size_t i) { return buildFeature(i, makeStyle(false)); });
}
BENCHMARK(BM_CleanFrameOverPolylines)->Unit(benchmark::kMillisecond);

} // namespace
