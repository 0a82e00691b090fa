// The renderer side of keo-scene over the sample's features: building and playing the first
// frame, clean frames (nothing to rebuild), and frames after every feature was edited.
#include "RendererSide.h"
#include "Sample.h"
#include "Scene.h"

#include "Feature/Feature.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <memory>

namespace {

using keo::scene::RendererSide;
using keo::scene::Scene;

// Features and entities handled per second, from the work of one iteration.
void setRates(benchmark::State& state, std::size_t features, std::size_t entities) {
    state.counters["features/s"] = benchmark::Counter(
        static_cast<double>(features), benchmark::Counter::kIsIterationInvariantRate);
    state.counters["entities/s"] = benchmark::Counter(
        static_cast<double>(entities), benchmark::Counter::kIsIterationInvariantRate);
}

// A scene of the sample's kinds in turn, watched by a renderer side, after its first frame.
struct PlayedScene {
    explicit PlayedScene(std::size_t count) {
        keo::scene::populateSample(scene, count);
        renderer.runFrame(frame++);
    }
    Scene scene{"bench"};
    RendererSide renderer{scene.sharedRoot()};
    std::uint32_t frame = 1;
};

void BM_BuildAndFirstFrame(benchmark::State& state) {
    const auto count = static_cast<std::size_t>(state.range(0));
    std::size_t entities = 0;
    for (auto _ : state) {
        auto played = std::make_unique<PlayedScene>(count);
        entities = played->renderer.liveCount();
        state.PauseTiming();
        played.reset();
        state.ResumeTiming();
    }
    setRates(state, count, entities);
}
BENCHMARK(BM_BuildAndFirstFrame)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

void BM_CleanFrame(benchmark::State& state) {
    const auto count = static_cast<std::size_t>(state.range(0));
    PlayedScene played(count);
    for (auto _ : state) {
        benchmark::DoNotOptimize(played.renderer.runFrame(played.frame++));
    }
    setRates(state, count, played.renderer.liveCount());
}
BENCHMARK(BM_CleanFrame)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

void BM_HighlightAllThenFrame(benchmark::State& state) {
    const auto count = static_cast<std::size_t>(state.range(0));
    PlayedScene played(count);
    const auto features = played.scene.features();
    bool highlight = false;
    for (auto _ : state) {
        highlight = !highlight;
        for (const auto& feature : features) {
            feature->setHighlight(highlight);
        }
        benchmark::DoNotOptimize(played.renderer.runFrame(played.frame++));
    }
    setRates(state, count, played.renderer.liveCount());
}
BENCHMARK(BM_HighlightAllThenFrame)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

} // namespace
