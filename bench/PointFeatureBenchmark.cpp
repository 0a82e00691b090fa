// Cost of point features end to end: building 100,000 named point features (a dot and a label)
// through their first frame update, each with its own style or all with one shared style (time
// and heap bytes per feature, counted by HeapCounter.cpp), and recolouring the dot of one feature
// followed by its next frame update.

#include "BuildMany.h"
#include "Common/Color.h"
#include "Feature/Feature.h"
#include "Feature/PointStyle.h"
#include "Feature/PointSymbol.h"
#include "PointFeatures.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <memory>
#include <utility>

namespace {

using keo::bench::makeDotAndLabelStyle;
using keo::Feature::Feature;
using keo::Feature::PointStyle;

constexpr std::size_t FEATURES = 100000;

// A named point feature on a grid of 0.001 degree, drawn by @p style, through its first frame
// update; the entities it reports are taken as a renderer takes them.
std::shared_ptr<Feature> buildFeature(std::size_t index, std::shared_ptr<PointStyle> style) {
    auto feature = keo::bench::namedGridPoint(index, std::move(style));
    feature->_updateEntityInCull(false);
    keo::bench::takeEntities(*feature);
    return feature;
}

void BM_BuildPointFeaturesWithOwnStyles(benchmark::State& state) {
    keo::bench::buildMany(state, FEATURES,
                          [](std::size_t i) { return buildFeature(i, makeDotAndLabelStyle()); });
}
BENCHMARK(BM_BuildPointFeaturesWithOwnStyles)->Unit(benchmark::kMillisecond)->MinTime(2.0);

void BM_BuildPointFeaturesWithOneSharedStyle(benchmark::State& state) {
    const auto shared = makeDotAndLabelStyle();
    keo::bench::buildMany(state, FEATURES,
                          [&shared](std::size_t i) { return buildFeature(i, shared); });
}
BENCHMARK(BM_BuildPointFeaturesWithOneSharedStyle)->Unit(benchmark::kMillisecond)->MinTime(2.0);

// A new colour on the dot of a built feature, then the frame update that redraws it.
void BM_RecolourPointSymbolThenUpdate(benchmark::State& state) {
    const auto style = makeDotAndLabelStyle();
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
