#pragma once

// A counting replacement of the global operator new and delete for benchmark binaries: link
// CountingAllocator.cpp into the binary and read the counters around the code measured. The
// counters are plain (not atomic): benchmarks that read them run on one thread.

#include <cstddef>

namespace keo::bench {

/** @brief Bytes allocated through operator new since the program started. */
std::size_t allocatedBytes() noexcept;
/** @brief Bytes released through operator delete since the program started. */
std::size_t freedBytes() noexcept;

} // namespace keo::bench
