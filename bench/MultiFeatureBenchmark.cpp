// Cost of multi geometries: building 10,000 features of 10 points each (a fleet of markers, each
// feature with its own point style) through their first frame update (time and heap bytes per
// feature, counted by HeapCounter.cpp), and moving one marker of a fleet with the next frame.

#include "Common/Cartographic.h"
#include "Common/Color.h"
#include "Feature/Feature.h"
#include "Feature/MultiGeometry.h"
#include "Feature/PointGeometry.h"
#include "Feature/PointStyle.h"
#include "Feature/PointSymbol.h"

#include "BuildMany.h"
#include "CountedLog.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace {

using keo::Cartographic;
using keo::Feature::Feature;
using keo::Feature::MultiGeometry;
using keo::Feature::PointGeometry;

constexpr std::size_t FEATURES = 10000;
constexpr std::size_t POINTS = 10;

std::shared_ptr<keo::Feature::PointStyle> markerStyle() {
    auto style = std::make_shared<keo::Feature::PointStyle>();
    auto symbol = std::make_shared<keo::Feature::PointSymbol>();
    symbol->setColor(keo::Color::RED);
    symbol->setPixelSize(8.0f);
    style->setPointSymbol(std::move(symbol));
    return style;
}

Cartographic markerAt(std::size_t feature, std::size_t point) {
    return Cartographic::fromDegrees(100.0 + static_cast<double>(feature % 100) * 0.1 +
                                         static_cast<double>(point) * 0.001,
                                     30.0 + static_cast<double>(feature / 100) * 0.1, 0.0);
}

std::shared_ptr<Feature> buildFleet(std::size_t index) {
    auto multi = std::make_shared<MultiGeometry>();
    for (std::size_t point = 0; point < POINTS; ++point) {
        multi->add(std::make_shared<PointGeometry>(markerAt(index, point)));
    }
    auto feature = std::make_shared<Feature>(std::uint64_t{index + 1});
    feature->setName("fleet " + std::to_string(index));
    feature->setGeometry(std::move(multi));
    feature->setStyle(markerStyle());
    feature->_updateEntityInCull(false);
    keo::bench::takeEntities(*feature);
    return feature;
}

void BM_BuildMultiPointFeatures(benchmark::State& state) {
    const keo::bench::CountedLog log; // the style mismatch every such feature logs
    keo::bench::buildMany(state, FEATURES, buildFleet);
}
BENCHMARK(BM_BuildMultiPointFeatures)->Unit(benchmark::kMillisecond)->MinTime(2.0);

// One marker of a fleet moves, and the next frame redraws the fleet.
void BM_MoveOneMarkerOfAFleetThenFrame(benchmark::State& state) {
    const keo::bench::CountedLog log; // the style mismatch every such feature logs
    const auto fleet = buildFleet(0);
    const auto& multi = static_cast<const MultiGeometry&>(*fleet->getGeometry());
    auto& marker = static_cast<PointGeometry&>(*multi.getComponents()[POINTS / 2]);
    std::size_t step = 0;
    for (auto _ : state) {
        marker.setPosition(markerAt(++step % 1000, 3));
        fleet->_updateEntityInCull(false);
        keo::bench::takeEntities(*fleet);
    }
}
BENCHMARK(BM_MoveOneMarkerOfAFleetThenFrame);

} // namespace
