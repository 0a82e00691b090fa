// Cost of a frame through the FrameDriver over 100,000 named point features (a dot and a label)
// in a tree of ten groups: a clean frame, the bare loop a hand-written renderer side would run
// over the same features (update, then take both lists) for comparison, and a frame after one
// feature in a hundred was moved.

#include "Common/Cartographic.h"
#include "Common/Color.h"
#include "Feature/Feature.h"
#include "Feature/FeatureGroup.h"
#include "Feature/FrameDriver.h"
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
using keo::Feature::FeatureGroup;
using keo::Feature::FrameDriver;
using keo::Feature::PointGeometry;

constexpr std::size_t FEATURES = 100000;
constexpr std::size_t GROUPS = 10;

Cartographic placeOf(std::size_t index, double shift = 0.0) {
    const double column = static_cast<double>(index % 1000);
    const double row = static_cast<double>(index / 1000);
    return Cartographic::fromDegrees(100.0 + column * 0.001 + shift, 30.0 + row * 0.001, 10.0);
}

struct Scene {
    Scene() {
        for (std::size_t g = 0; g < GROUPS; ++g) {
            auto group = std::make_shared<FeatureGroup>(std::uint64_t{FEATURES + 1 + g});
            root->add(group);
            groups.push_back(std::move(group));
        }
        for (std::size_t i = 0; i < FEATURES; ++i) {
            auto style = std::make_shared<keo::Feature::PointStyle>();
            auto dot = std::make_shared<keo::Feature::PointSymbol>();
            dot->setPixelSize(8.0f);
            dot->setColor(keo::Color::RED);
            style->setPointSymbol(std::move(dot));
            style->setLabelSymbol(std::make_shared<keo::Feature::LabelSymbol>());
            auto geometry = std::make_shared<PointGeometry>(placeOf(i));
            auto feature = std::make_shared<Feature>(std::uint64_t{i + 1});
            feature->setName("point " + std::to_string(i));
            feature->setGeometry(geometry);
            feature->setStyle(std::move(style));
            groups[i % GROUPS]->add(feature);
            features.push_back(std::move(feature));
            geometries.push_back(std::move(geometry));
        }
    }

    std::shared_ptr<FeatureGroup> root = std::make_shared<FeatureGroup>(std::uint64_t{0});
    std::vector<std::shared_ptr<FeatureGroup>> groups;
    std::vector<std::shared_ptr<Feature>> features;
    std::vector<std::shared_ptr<PointGeometry>> geometries;
};

void perFeature(benchmark::State& state) {
    state.counters["time_per_feature"] = benchmark::Counter(
        static_cast<double>(FEATURES),
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void BM_CleanFrameThroughTheDriver(benchmark::State& state) {
    Scene scene;
    FrameDriver driver(scene.root);
    driver.frame();
    for (auto _ : state) {
        benchmark::DoNotOptimize(driver.frame());
    }
    perFeature(state);
}
BENCHMARK(BM_CleanFrameThroughTheDriver)->Unit(benchmark::kMillisecond);

// What a renderer side written by hand runs at least: each feature updated, both lists taken.
void BM_CleanFrameBareLoop(benchmark::State& state) {
    Scene scene;
    for (const auto& feature : scene.features) {
        feature->_updateEntityInCull(false);
        feature->_takeAddedEntities();
    }
    for (auto _ : state) {
        for (const auto& feature : scene.features) {
            feature->_updateEntityInCull(false);
            benchmark::DoNotOptimize(feature->_takeRemovedEntities());
            benchmark::DoNotOptimize(feature->_takeAddedEntities());
        }
    }
    perFeature(state);
}
BENCHMARK(BM_CleanFrameBareLoop)->Unit(benchmark::kMillisecond);

// One feature in a hundred moves between frames: those are rebuilt, the rest visited.
void BM_FrameAfterOneInAHundredMoved(benchmark::State& state) {
    Scene scene;
    FrameDriver driver(scene.root);
    driver.frame();
    double shift = 0.0;
    for (auto _ : state) {
        state.PauseTiming();
        shift += 1e-6;
        for (std::size_t i = 0; i < FEATURES; i += 100) {
            scene.geometries[i]->setPosition(placeOf(i, shift));
        }
        state.ResumeTiming();
        benchmark::DoNotOptimize(driver.frame());
    }
    perFeature(state);
}
BENCHMARK(BM_FrameAfterOneInAHundredMoved)->Unit(benchmark::kMillisecond);

} // namespace
