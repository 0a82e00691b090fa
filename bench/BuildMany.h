#pragma once

// Time and heap bytes per feature of a benchmark that builds many features through their first
// frame update.

#include "Feature/Feature.h"
#include "HeapCounter.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <memory>
#include <vector>

namespace keo::bench {

/** @brief The entities a feature reports, taken as a renderer takes them after a frame. */
inline void takeEntities(keo::Feature::Feature& feature) {
    benchmark::DoNotOptimize(feature._takeAddedEntities());
    benchmark::DoNotOptimize(feature._takeRemovedEntities());
}

/** @brief Reports the time of one iteration over @p count features as "time_per_feature". */
inline void reportTimePerFeature(benchmark::State& state, std::size_t count) {
    state.counters["time_per_feature"] = benchmark::Counter(
        static_cast<double>(count),
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

/** @brief Appends to @p features the @p count features that @p build(0), @p build(1), ... make. */
template <typename Build>
void appendBuilt(std::vector<std::shared_ptr<keo::Feature::Feature>>& features, std::size_t count,
                 Build& build) {
    for (std::size_t i = 0; i < count; ++i) {
        features.push_back(build(i));
    }
}

/**
 * @brief Builds @p count features with @p build(index) (each through its first frame update),
 * then times frames over them that nothing changed: each feature is visited and found clean.
 */
template <typename Build>
void cleanFramesOver(benchmark::State& state, std::size_t count, Build&& build) {
    std::vector<std::shared_ptr<keo::Feature::Feature>> features;
    features.reserve(count);
    appendBuilt(features, count, build);
    for (auto _ : state) {
        for (const auto& feature : features) {
            feature->_updateEntityInCull(false);
        }
    }
    reportTimePerFeature(state, count);
}

/**
 * @brief The builds one iteration of buildMany makes: the C library's allocator alternates
 * between two modes when a build follows the teardown of the one before (blocks taken from a heap
 * whose freed blocks were merged, then from one left in pieces by that build's own teardown, and
 * so on), and the second can cost three times the first. An iteration of two builds weighs both
 * alike, so that the figure no longer depends on whether a run happened to make an odd or an even
 * number of them.
 */
constexpr int BUILDS_PER_ITERATION = 2;

/**
 * @brief Builds @p count features BUILDS_PER_ITERATION times per iteration with @p build(index)
 * (each through its first frame update), destroying them (untimed) after each build, and reports
 * the time, the bytes allocated and the bytes still held afterwards, per feature built. One
 * untimed build comes first, and the benchmarks should run for at least two seconds: the first
 * builds in a process also pay for the pages the heap takes from the system, which vary from run
 * to run; the figure is that of a process in its stride.
 */
template <typename Build>
void buildMany(benchmark::State& state, std::size_t count, Build&& build) {
    std::vector<std::shared_ptr<keo::Feature::Feature>> features;
    features.reserve(count);
    appendBuilt(features, count, build);
    features.clear();
    std::size_t allocated = 0;
    std::size_t live = 0;
    for (auto _ : state) {
        for (int round = 0; round < BUILDS_PER_ITERATION; ++round) {
            const std::size_t allocatedBefore = allocatedBytes();
            const std::size_t freedBefore = freedBytes();
            appendBuilt(features, count, build);
            const std::size_t allocatedNow = allocatedBytes() - allocatedBefore;
            allocated += allocatedNow;
            live += allocatedNow - (freedBytes() - freedBefore);
            benchmark::DoNotOptimize(features.data());
            state.PauseTiming();
            features.clear();
            state.ResumeTiming();
        }
    }
    const auto total =
        static_cast<double>(state.iterations()) * BUILDS_PER_ITERATION * static_cast<double>(count);
    reportTimePerFeature(state, count * BUILDS_PER_ITERATION);
    reportBytes(state, "allocated_bytes_per_feature", static_cast<double>(allocated) / total);
    reportBytes(state, "live_bytes_per_feature", static_cast<double>(live) / total);
}

} // namespace keo::bench
