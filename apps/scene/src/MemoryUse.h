#pragma once

#include <cstddef>

namespace keo::scene {

/** @brief What the process holds at one moment: heap in use and resident memory, bytes. */
struct MemoryUse {
    /** @brief Bytes of the blocks operator new has handed out and not taken back. */
    std::size_t heap = 0;
    /** @brief Bytes of the process's pages in memory (its resident set). */
    std::size_t resident = 0;
};

/**
 * @brief The process's memory now (zeros where the platform cannot tell; no heap once
 * stopCountingHeap was called).
 */
MemoryUse currentMemoryUse() noexcept;

/**
 * @brief Stops counting the heap: from now on operator new and delete go straight to the
 * allocator. Counting costs a size look-up on every free, which is not the kit's cost: a run calls
 * this once it has taken its last heap figure, so that what follows (the teardown of a scale run)
 * runs as it would in a program that does not count.
 */
void stopCountingHeap() noexcept;

/** @brief The name of the allocator whose heap currentMemoryUse reports, as printed. */
const char* allocatorName() noexcept;

/**
 * @brief Asks the allocator to take its memory from the system in large (2 MiB) pages from now
 * on, where it can (mimalloc, unless MIMALLOC_LARGE_OS_PAGES says otherwise); nothing with the C
 * library's allocator. Fewer, larger pages cost the kernel far less to hand out when a scene
 * touches gigabytes.
 */
void preferLargePages() noexcept;

/** @brief Bytes per item between two readings (0 for no items or a shrinking reading). */
double bytesPer(std::size_t before, std::size_t after, std::size_t items) noexcept;

} // namespace keo::scene
