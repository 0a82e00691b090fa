// Cost of point features end to end: building 100,000 named point features (a dot and a label)
// through their first frame update, each with its own style or all with one shared style (time
// and heap bytes per feature, counted by HeapCounter.cpp), and recolouring the dot of one feature
// followed by its next frame update.

#include "Common/Cartographic.h"
#include "Common/Color.h"
#include "Data/Entity.h"
#include "Feature/Feature.h"
#include "Feature/LabelSymbol.h"
#include "Feature/PointGeometry.h"
#include "Feature/PointStyle.h"
#include "Feature/PointSymbol.h"
#include "HeapCounter.h"

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
using keo::Feature::PointGeometry;
using keo::Feature::PointStyle;
using keo::Feature::PointSymbol;

constexpr std::size_t FEATURES = 100000;

std::shared_ptr<PointStyle> makeStyle() {
    auto style = std::make_shared<PointStyle>();
    auto point = std::make_shared<PointSymbol>();
    point->setPixelSize(8.0f);
    point->setColor(keo::Color::RED);
    style->setPointSymbol(std::move(point));
    style->setLabelSymbol(std::make_shared<LabelSymbol>());
    return style;
}

// A named point feature on a grid of 0.001 degree, drawn by @p style, through its first frame
// update; the entities it reports are taken as a renderer takes them.
std::shared_ptr<Feature> buildFeature(std::size_t index, std::shared_ptr<PointStyle> style) {
    auto feature = std::make_shared<Feature>(std::uint64_t{index + 1});
    feature->setName("point " + std::to_string(index));
    const double column = static_cast<double>(index % 1000);
    const double row = static_cast<double>(index / 1000);
    feature->setGeometry(std::make_shared<PointGeometry>(
        Cartographic::fromDegrees(100.0 + column * 0.001, 30.0 + row * 0.001, 10.0)));
    feature->setStyle(std::move(style));
    feature->_updateEntityInCull(false);
    benchmark::DoNotOptimize(feature->_takeAddedEntities());
    return feature;
}

// Builds FEATURES features per iteration with @p styleFor(index) and reports the time, the
// bytes allocated and the bytes still held afterwards, per feature. One untimed build comes
// first, and the benchmarks run for at least two seconds: the first builds in a process also pay
// for the pages the heap takes from the system and for the allocator sorting the freed blocks of
// the previous build, which vary from run to run; the figure is that of a process in its stride.
template <typename StyleFor>
void buildMany(benchmark::State& state, StyleFor&& styleFor) {
    std::vector<std::shared_ptr<Feature>> features;
    features.reserve(FEATURES);
    for (std::size_t i = 0; i < FEATURES; ++i) {
        features.push_back(buildFeature(i, styleFor(i)));
    }
    features.clear();
    std::size_t allocated = 0;
    std::size_t live = 0;
    for (auto _ : state) {
        const std::size_t allocatedBefore = keo::bench::allocatedBytes();
        const std::size_t freedBefore = keo::bench::freedBytes();
        for (std::size_t i = 0; i < FEATURES; ++i) {
            features.push_back(buildFeature(i, styleFor(i)));
        }
        const std::size_t allocatedNow = keo::bench::allocatedBytes() - allocatedBefore;
        allocated += allocatedNow;
        live += allocatedNow - (keo::bench::freedBytes() - freedBefore);
        benchmark::DoNotOptimize(features.data());
        state.PauseTiming();
        features.clear();
        state.ResumeTiming();
    }
    const auto count = static_cast<double>(state.iterations()) * static_cast<double>(FEATURES);
    state.counters["time_per_feature"] = benchmark::Counter(
        static_cast<double>(FEATURES),
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    state.counters["allocated_bytes_per_feature"] = static_cast<double>(allocated) / count;
    state.counters["live_bytes_per_feature"] = static_cast<double>(live) / count;
}

void BM_BuildPointFeaturesWithOwnStyles(benchmark::State& state) {
    buildMany(state, [](std::size_t) { return makeStyle(); });
}
BENCHMARK(BM_BuildPointFeaturesWithOwnStyles)->Unit(benchmark::kMillisecond)->MinTime(2.0);

void BM_BuildPointFeaturesWithOneSharedStyle(benchmark::State& state) {
    const auto shared = makeStyle();
    buildMany(state, [&shared](std::size_t) { return shared; });
}
BENCHMARK(BM_BuildPointFeaturesWithOneSharedStyle)->Unit(benchmark::kMillisecond)->MinTime(2.0);

// A new colour on the dot of a built feature, then the frame update that redraws it.
void BM_RecolourPointSymbolThenUpdate(benchmark::State& state) {
    const auto style = makeStyle();
    const auto feature = buildFeature(0, style);
    const keo::Color colors[2] = {keo::Color::GREEN, keo::Color::BLUE};
    std::size_t i = 0;
    for (auto _ : state) {
        style->getPointSymbol()->setColor(colors[++i & 1u]);
        feature->_updateEntityInCull(false);
    }
    if (feature->_takeAddedEntities().size() + feature->_takeRemovedEntities().size() != 0) {
        state.SkipWithError("a recolour must not add or drop entities");
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_RecolourPointSymbolThenUpdate);

} // namespace
