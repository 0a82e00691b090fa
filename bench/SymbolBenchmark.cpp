// Cost of the point symbols a point style holds: making them (time and heap bytes per symbol,
// counted by HeapCounter.cpp), an edit that changes a value and reaches a holder's
// listeners, an edit with an equal value, copying a particle system symbol, and an emitter edit
// followed by the update of its cached data-library emitter.

#include "Common/Color.h"
#include "Feature/ParticleEmitter.h"
#include "Feature/ParticleSystemSymbol.h"
#include "Feature/PointSymbol.h"

#include "MakeMany.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace {

void BM_MakePointSymbol(benchmark::State& state) {
    keo::bench::makeMany(state, [] { return std::make_shared<keo::Feature::PointSymbol>(); });
}
BENCHMARK(BM_MakePointSymbol)->Unit(benchmark::kMillisecond);

void BM_CloneParticleSystemSymbol(benchmark::State& state) {
    const keo::Feature::ParticleSystemSymbol source;
    keo::bench::makeMany(state, [&source] { return source.clone(); });
}
BENCHMARK(BM_CloneParticleSystemSymbol)->Unit(benchmark::kMillisecond);

// A recolour as a point style sees it: two listeners relay the lock and the change.
void BM_RecolourPointSymbol(benchmark::State& state) {
    keo::Feature::PointSymbol symbol;
    int locks = 0;
    int changes = 0;
    symbol._addChangedLockEventListener([&locks](bool locked) { locks += locked ? 1 : -1; });
    symbol._addDefinitionChangedEventListener([&changes] { ++changes; });
    const keo::Color colors[2] = {keo::Color::RED, keo::Color::GREEN};
    std::size_t i = 0;
    for (auto _ : state) {
        symbol.setColor(colors[++i & 1u]);
    }
    benchmark::DoNotOptimize(changes);
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_RecolourPointSymbol);

void BM_SetEqualColor(benchmark::State& state) {
    keo::Feature::PointSymbol symbol;
    symbol._addDefinitionChangedEventListener([] {});
    const keo::Color color = keo::Color::WHITE;
    for (auto _ : state) {
        symbol.setColor(color);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_SetEqualColor);

void BM_EditEmitterAndUpdate(benchmark::State& state) {
    keo::Feature::ParticleSystemSymbol symbol;
    auto& emitter = static_cast<keo::Feature::CircleEmitter&>(*symbol.getEmitter());
    emitter._update();
    double radius = 1.0;
    for (auto _ : state) {
        radius = radius == 1.0 ? 2.0 : 1.0;
        emitter.setRadius(radius);
        benchmark::DoNotOptimize(emitter._update().get());
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_EditEmitterAndUpdate);

} // namespace
