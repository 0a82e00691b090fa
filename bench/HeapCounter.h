#pragma once

// Counts the heap bytes of a benchmark binary: the binary's global operator new and delete are
// replaced (in HeapCounter.cpp) by versions that add up the sizes they hand out and take back.
// The benchmarks run on one thread, so plain counters suffice.
//
// The counting operator new keeps each block's size in a header in front of it, which moves every
// block into a larger size class of the allocator and slows building many objects. So the same
// benchmarks are also linked without it (NoHeapCounter.cpp): that binary gives the times, this one
// the bytes.

#include <benchmark/benchmark.h>

#include <cstddef>

namespace keo::bench {

/** @brief Whether this binary counts heap bytes (false: the allocator is left as it is). */
bool heapCounted() noexcept;
/** @brief The bytes handed out by operator new since the program started (0 if not counted). */
std::size_t allocatedBytes() noexcept;
/** @brief The bytes taken back by operator delete since the program started (0 if not counted). */
std::size_t freedBytes() noexcept;

/** @brief Sets the byte counter @p name of @p state to @p value, where this binary counts bytes. */
inline void reportBytes(benchmark::State& state, const char* name, double value) {
    if (heapCounted()) {
        state.counters[name] = value;
    }
}

} // namespace keo::bench
