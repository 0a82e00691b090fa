#pragma once

// Time and heap bytes per object of a benchmark that makes many objects of one kind.

#include "HeapCounter.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <vector>

namespace keo::bench {

/** @brief The objects a makeMany benchmark makes per iteration. */
inline constexpr std::size_t OBJECTS_PER_ITERATION = 100000;

/**
 * @brief Makes OBJECTS_PER_ITERATION objects with @p make per iteration (released untimed
 * afterwards) and reports the time per object and the heap bytes each holds once made (counted
 * by HeapCounter.cpp's operator new, by the sizes asked for).
 */
template <typename Make>
void makeMany(benchmark::State& state, Make&& make) {
    std::vector<decltype(make())> made;
    made.reserve(OBJECTS_PER_ITERATION);
    std::size_t liveBytes = 0;
    for (auto _ : state) {
        const std::size_t allocatedBefore = allocatedBytes();
        const std::size_t freedBefore = freedBytes();
        for (std::size_t i = 0; i < OBJECTS_PER_ITERATION; ++i) {
            made.push_back(make());
        }
        liveBytes += (allocatedBytes() - allocatedBefore) - (freedBytes() - freedBefore);
        benchmark::DoNotOptimize(made.data());
        state.PauseTiming();
        made.clear();
        state.ResumeTiming();
    }
    const auto count =
        static_cast<double>(state.iterations()) * static_cast<double>(OBJECTS_PER_ITERATION);
    state.counters["time_per_object"] = benchmark::Counter(
        static_cast<double>(OBJECTS_PER_ITERATION),
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    reportBytes(state, "live_bytes_per_object", static_cast<double>(liveBytes) / count);
}

} // namespace keo::bench
