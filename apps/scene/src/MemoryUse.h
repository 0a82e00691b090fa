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

/** @brief The process's memory now (zeros where the platform cannot tell). */
MemoryUse currentMemoryUse() noexcept;

/**
 * @brief While one exists, the program's operator new and delete do not count the heap: they go
 * straight to the allocator. Counting costs a size look-up on every free, which is not the kit's
 * cost; the teardown of a scale run, whose heap figures are all taken, runs under a pause as it
 * would in a program that does not count.
 *
 * The heap reading stays too high afterwards by what was freed during the pause (and too low by
 * what was made then and not freed yet): the difference between two readings taken after it is
 * still what the code between them made and kept.
 */
class HeapCountPause final {
public:
    HeapCountPause() noexcept;
    ~HeapCountPause();
    HeapCountPause(const HeapCountPause&) = delete;
    HeapCountPause& operator=(const HeapCountPause&) = delete;
};

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
