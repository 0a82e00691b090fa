#include "MemoryUse.h"

#include <cstdio>

#if defined(__GLIBC__)
#include <malloc.h>
#endif
#include <unistd.h>

namespace keo::scene {

MemoryUse currentMemoryUse() noexcept {
    MemoryUse use;
#if defined(__GLIBC__) && (__GLIBC__ > 2 || (__GLIBC__ == 2 && __GLIBC_MINOR__ >= 33))
    // The arena's chunks in use plus the blocks mapped on their own (large allocations).
    const struct mallinfo2 info = mallinfo2();
    use.heap = info.uordblks + info.hblkhd;
#endif
    // The second field of statm is the resident set, in pages.
    if (std::FILE* statm = std::fopen("/proc/self/statm", "r")) {
        unsigned long size = 0;
        unsigned long resident = 0;
        if (std::fscanf(statm, "%lu %lu", &size, &resident) == 2) {
            const long page = sysconf(_SC_PAGESIZE);
            use.resident = static_cast<std::size_t>(resident) *
                           static_cast<std::size_t>(page > 0 ? page : 4096);
        }
        std::fclose(statm);
    }
    return use;
}

const char* allocatorName() noexcept {
#if defined(__GLIBC__)
    return "glibc malloc";
#else
    return "the C library's malloc";
#endif
}

double bytesPer(std::size_t before, std::size_t after, std::size_t items) noexcept {
    if (items == 0 || after < before) {
        return 0.0;
    }
    return static_cast<double>(after - before) / static_cast<double>(items);
}

} // namespace keo::scene
