// Cost of point features end to end: building 100,000 named point features (a dot and a label)
// through their first frame update, each with its own style or all with one shared style (time
// and heap bytes per feature, counted by HeapCounter.cpp), and recolouring the dot of one feature
// followed by its next frame update.

#include "BuildMany.h"
#include "Common/Cartographic.h"
#include "Common/Color.h"
#include "Data/Entity.h"
#include "Feature/Feature.h"
#include "Feature/LabelSymbol.h"
#include "Feature/PointGeometry.h"
#include "Feature/PointStyle.h"
#include "Feature/PointSymbol.h"

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
    keo::bench::takeEntities(*feature);
    return feature;
}

void BM_BuildPointFeaturesWithOwnStyles(benchmark::State& state) {
    keo::bench::buildMany(state, FEATURES,
                          [](std::size_t i) { return buildFeature(i, makeStyle()); });
}
BENCHMARK(BM_BuildPointFeaturesWithOwnStyles)->Unit(benchmark::kMillisecond)->MinTime(2.0);

void BM_BuildPointFeaturesWithOneSharedStyle(benchmark::State& state) {
    const auto shared = makeStyle();
    keo::bench::buildMany(state, FEATURES,
                          [&shared](std::size_t i) { return buildFeature(i, shared); });
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
