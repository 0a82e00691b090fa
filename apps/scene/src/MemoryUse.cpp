#include "MemoryUse.h"

#include <atomic>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <new>

#if defined(__GLIBC__)
#include <malloc.h>
#endif
#if defined(KEO_SCENE_MIMALLOC)
#include <mimalloc.h>
#endif
#include <unistd.h>

namespace keo::scene {

namespace {

// The bytes of the blocks that operator new has handed out and operator delete not yet taken
// back, each counted at the size the allocator gave it: what the kit's objects hold, whichever
// allocator serves them. Each thread keeps its own count, which only it writes (a plain load and
// store, no read-modify-write): a locked add on one shared counter would fence every allocation
// and every free, and tearing a scene down frees tens of millions of blocks whose cache misses
// would otherwise overlap. The total is the sum over the threads; a block freed on another
// thread than the one that allocated it leaves one count high and the other low by as much.
struct ThreadCount {
    std::atomic<std::ptrdiff_t> bytes{0};
    ThreadCount* next = nullptr;
};

// Every thread's count, newest first; a count outlives its thread (it is never unlinked), so that
// what the thread still held stays in the total.
std::atomic<ThreadCount*> threadCounts{nullptr};

ThreadCount& countOfThisThread() noexcept {
    // A constant-initialised pointer: reading it needs no guard, and operator new may run before
    // the thread's other thread-local objects exist.
    static thread_local ThreadCount* mine = nullptr;
    if (mine == nullptr) {
        // From malloc, not operator new, which is what is being counted.
        void* memory = std::malloc(sizeof(ThreadCount));
        if (memory == nullptr) {
            static ThreadCount shared; // no memory for a count of its own: counted roughly
            return shared;
        }
        auto* count = new (memory) ThreadCount();
        count->next = threadCounts.load(std::memory_order_relaxed);
        while (!threadCounts.compare_exchange_weak(count->next, count, std::memory_order_release,
                                                   std::memory_order_relaxed)) {
        }
        mine = count;
    }
    return *mine;
}

void addToCount(std::ptrdiff_t bytes) noexcept {
    std::atomic<std::ptrdiff_t>& count = countOfThisThread().bytes;
    count.store(count.load(std::memory_order_relaxed) + bytes, std::memory_order_relaxed);
}

// The number of HeapCountPause objects alive; read relaxed, as nothing else is ordered by it.
std::atomic<int> pauses{0};

bool isCounting() noexcept {
    return pauses.load(std::memory_order_relaxed) == 0;
}

std::size_t heapInUse() noexcept {
    std::ptrdiff_t total = 0;
    for (const ThreadCount* count = threadCounts.load(std::memory_order_acquire); count != nullptr;
         count = count->next) {
        total += count->bytes.load(std::memory_order_relaxed);
    }
    return total > 0 ? static_cast<std::size_t>(total) : 0;
}

std::size_t blockSize(void* block) noexcept {
#if defined(__GLIBC__)
    return malloc_usable_size(block);
#else
    static_cast<void>(block);
    return 0;
#endif
}

void* allocate(std::size_t size) {
    void* block = std::malloc(size == 0 ? 1 : size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    if (isCounting()) {
        addToCount(static_cast<std::ptrdiff_t>(blockSize(block)));
    }
    return block;
}

void release(void* block) noexcept {
    if (block != nullptr && isCounting()) {
        addToCount(-static_cast<std::ptrdiff_t>(blockSize(block)));
    }
    std::free(block);
}

} // namespace

MemoryUse currentMemoryUse() noexcept {
    MemoryUse use;
    use.heap = heapInUse();
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

HeapCountPause::HeapCountPause() noexcept {
    pauses.fetch_add(1, std::memory_order_relaxed);
}

HeapCountPause::~HeapCountPause() {
    pauses.fetch_sub(1, std::memory_order_relaxed);
}

void preferLargePages() noexcept {
#if defined(KEO_SCENE_MIMALLOC)
    if (std::getenv("MIMALLOC_LARGE_OS_PAGES") == nullptr) {
        mi_option_enable(mi_option_large_os_pages);
    }
#endif
}

const char* allocatorName() noexcept {
#if defined(KEO_SCENE_MIMALLOC)
    return mi_option_is_enabled(mi_option_large_os_pages) ? "mimalloc, large pages" : "mimalloc";
#elif defined(__GLIBC__)
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

// The program's operator new and delete count what they hand out (see heapInUse); the blocks
// come from malloc, which is mimalloc's when the program links it.
void* operator new(std::size_t size) {
    return keo::scene::allocate(size);
}

void* operator new[](std::size_t size) {
    return keo::scene::allocate(size);
}

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    try {
        return keo::scene::allocate(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return operator new(size, std::nothrow);
}

void operator delete(void* block) noexcept {
    keo::scene::release(block);
}

void operator delete[](void* block) noexcept {
    keo::scene::release(block);
}

void operator delete(void* block, std::size_t /*size*/) noexcept {
    keo::scene::release(block);
}

void operator delete[](void* block, std::size_t /*size*/) noexcept {
    keo::scene::release(block);
}

void operator delete(void* block, const std::nothrow_t& /*tag*/) noexcept {
    keo::scene::release(block);
}

void operator delete[](void* block, const std::nothrow_t& /*tag*/) noexcept {
    keo::scene::release(block);
}
