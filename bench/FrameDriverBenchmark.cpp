// Cost of a frame through the FrameDriver over 100,000 named point features (a dot and a label)
// in a tree of ten groups: a clean frame, the bare loop a hand-written renderer side would run
// over the same features (update, then take both lists) for comparison, and a frame after one
// feature in a hundred was moved.

#include "BuildMany.h"
#include "Feature/Feature.h"
#include "Feature/FeatureGroup.h"
#include "Feature/FrameDriver.h"
#include "Feature/PointGeometry.h"
#include "PointFeatures.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace {

using keo::bench::gridPlace;
using keo::Feature::Feature;
using keo::Feature::FeatureGroup;
using keo::Feature::FrameDriver;
using keo::Feature::PointGeometry;

constexpr std::size_t FEATURES = 100000;
constexpr std::size_t GROUPS = 10;

struct Scene {
    Scene()
        : groups(keo::bench::addGroups(*root, GROUPS, std::uint64_t{FEATURES + 1})) {
        for (std::size_t i = 0; i < FEATURES; ++i) {
            auto feature = keo::bench::namedGridPoint(i, keo::bench::makeDotAndLabelStyle());
            geometries.push_back(std::static_pointer_cast<PointGeometry>(feature->getGeometry()));
            groups[i % GROUPS]->add(feature);
            features.push_back(std::move(feature));
        }
    }

    std::shared_ptr<FeatureGroup> root = std::make_shared<FeatureGroup>(std::uint64_t{0});
    std::vector<std::shared_ptr<FeatureGroup>> groups;
    std::vector<std::shared_ptr<Feature>> features;
    std::vector<std::shared_ptr<PointGeometry>> geometries;
};

void perFeature(benchmark::State& state) {
    keo::bench::reportTimePerFeature(state, FEATURES);
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
            scene.geometries[i]->setPosition(gridPlace(i, shift));
        }
        state.ResumeTiming();
        benchmark::DoNotOptimize(driver.frame());
    }
    perFeature(state);
}
BENCHMARK(BM_FrameAfterOneInAHundredMoved)->Unit(benchmark::kMillisecond);

} // namespace
