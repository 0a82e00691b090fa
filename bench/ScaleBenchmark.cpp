// Growth with the size of the scene: named point features (a dot and a label, one shared style)
// in ten groups under a root drawn by a FrameDriver, at 10,000, 100,000 and 1,000,000 features.
// Each size is built through its first frame (time, bytes allocated and bytes held per feature,
// counted by HeapCounter.cpp), framed clean, edited (every feature moved, then a frame) and
// destroyed. Flat cost means the per-feature figures of the three sizes stay close.

#include "BuildMany.h"
#include "Feature/Feature.h"
#include "Feature/FeatureGroup.h"
#include "Feature/FrameDriver.h"
#include "Feature/PointGeometry.h"
#include "HeapCounter.h"
#include "PointFeatures.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace {

using keo::bench::gridPlace;
using keo::bench::makeDotAndLabelStyle;
using keo::Feature::FeatureGroup;
using keo::Feature::FrameDriver;
using keo::Feature::PointGeometry;

constexpr std::size_t GROUPS = 10;

// The scene of one size: its features built and drawn by the first frame.
struct Scene {
    explicit Scene(std::size_t count, const std::shared_ptr<keo::Feature::PointStyle>& style) {
        const auto groups = keo::bench::addGroups(*root, GROUPS, std::uint64_t{count + 1});
        driver.emplace(root);
        geometries.reserve(count);
        for (std::size_t i = 0; i < count; ++i) {
            auto feature = keo::bench::namedGridPoint(i, style);
            geometries.push_back(std::static_pointer_cast<PointGeometry>(feature->getGeometry()));
            groups[i % GROUPS]->add(std::move(feature));
        }
        benchmark::DoNotOptimize(driver->frame());
    }

    std::shared_ptr<FeatureGroup> root = std::make_shared<FeatureGroup>(std::uint64_t{0});
    std::optional<FrameDriver> driver;
    // The geometries, to move them; the features are held by the groups alone.
    std::vector<std::shared_ptr<PointGeometry>> geometries;
};

std::size_t sizeOf(const benchmark::State& state) {
    return static_cast<std::size_t>(state.range(0));
}

void perFeature(benchmark::State& state) {
    keo::bench::reportTimePerFeature(state, sizeOf(state));
}

void BM_ScaleBuild(benchmark::State& state) {
    const auto style = makeDotAndLabelStyle();
    std::size_t allocated = 0;
    std::size_t held = 0;
    for (auto _ : state) {
        const std::size_t allocatedBefore = keo::bench::allocatedBytes();
        const std::size_t freedBefore = keo::bench::freedBytes();
        auto scene = std::make_unique<Scene>(sizeOf(state), style);
        const std::size_t allocatedNow = keo::bench::allocatedBytes() - allocatedBefore;
        allocated += allocatedNow;
        held += allocatedNow - (keo::bench::freedBytes() - freedBefore);
        state.PauseTiming();
        scene.reset();
        state.ResumeTiming();
    }
    const double total =
        static_cast<double>(state.iterations()) * static_cast<double>(sizeOf(state));
    perFeature(state);
    keo::bench::reportBytes(state, "allocated_bytes_per_feature",
                            static_cast<double>(allocated) / total);
    keo::bench::reportBytes(state, "live_bytes_per_feature", static_cast<double>(held) / total);
}

void BM_ScaleCleanFrame(benchmark::State& state) {
    Scene scene(sizeOf(state), makeDotAndLabelStyle());
    for (auto _ : state) {
        benchmark::DoNotOptimize(scene.driver->frame());
    }
    perFeature(state);
}

// Every feature moves a little, then the frame that redraws them all.
void BM_ScaleEditEveryFeature(benchmark::State& state) {
    Scene scene(sizeOf(state), makeDotAndLabelStyle());
    double shift = 0.0;
    for (auto _ : state) {
        shift += 1e-6;
        for (std::size_t i = 0; i < scene.geometries.size(); ++i) {
            scene.geometries[i]->setPosition(gridPlace(i, shift));
        }
        benchmark::DoNotOptimize(scene.driver->frame());
    }
    perFeature(state);
}

// The whole scene goes: driver, groups, features, entities, graphics.
void BM_ScaleDestroy(benchmark::State& state) {
    const auto style = makeDotAndLabelStyle();
    for (auto _ : state) {
        state.PauseTiming();
        auto scene = std::make_unique<Scene>(sizeOf(state), style);
        state.ResumeTiming();
        scene.reset();
    }
    perFeature(state);
}

void sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(10000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(BM_ScaleBuild)->Apply(sizes);
BENCHMARK(BM_ScaleCleanFrame)->Apply(sizes);
BENCHMARK(BM_ScaleEditEveryFeature)->Apply(sizes);
BENCHMARK(BM_ScaleDestroy)->Apply(sizes);

} // namespace
