#pragma once

// Counts the heap bytes of a benchmark binary: the binary's global operator new and delete are
// replaced (in HeapCounter.cpp) by versions that add up the sizes they hand out and take back.
// The benchmarks run on one thread, so plain counters suffice.

#include <cstddef>

namespace keo::bench {

/** @brief The bytes handed out by operator new since the program started. */
std::size_t allocatedBytes() noexcept;
/** @brief The bytes taken back by operator delete since the program started. */
std::size_t freedBytes() noexcept;

} // namespace keo::bench
