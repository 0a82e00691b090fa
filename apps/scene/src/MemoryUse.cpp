#include "MemoryUse.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <new>

#if defined(__GLIBC__)
#include <malloc.h>
#endif
#include <unistd.h>

namespace keo::scene {

namespace {

// The bytes of the blocks that operator new has handed out and operator delete not yet taken
// back, each counted at the size the allocator gave it: what the kit's objects hold, whichever
// allocator serves them.
std::atomic<std::size_t> heapInUse{0};

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
    heapInUse.fetch_add(blockSize(block), std::memory_order_relaxed);
    return block;
}

void release(void* block) noexcept {
    if (block != nullptr) {
        heapInUse.fetch_sub(blockSize(block), std::memory_order_relaxed);
        std::free(block);
    }
}

} // namespace

MemoryUse currentMemoryUse() noexcept {
    MemoryUse use;
    use.heap = heapInUse.load(std::memory_order_relaxed);
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
#if defined(KEO_SCENE_MIMALLOC)
    return "mimalloc";
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
