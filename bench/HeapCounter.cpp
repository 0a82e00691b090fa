#include "HeapCounter.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t allocated = 0;
std::size_t freed = 0;

// Each block starts with a header holding its size, so that the unsized delete can count it.
constexpr std::size_t HEADER = alignof(std::max_align_t);

void* countedAllocate(std::size_t size) {
    void* block = std::malloc(size + HEADER);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    *static_cast<std::size_t*>(block) = size;
    allocated += size;
    return static_cast<char*>(block) + HEADER;
}

void countedFree(void* pointer) noexcept {
    if (pointer == nullptr) {
        return;
    }
    void* block = static_cast<char*>(pointer) - HEADER;
    freed += *static_cast<std::size_t*>(block);
    std::free(block);
}

} // namespace

namespace keo::bench {

bool heapCounted() noexcept {
    return true;
}

std::size_t allocatedBytes() noexcept {
    return allocated;
}

std::size_t freedBytes() noexcept {
    return freed;
}

} // namespace keo::bench

void* operator new(std::size_t size) {
    return countedAllocate(size);
}
void* operator new[](std::size_t size) {
    return countedAllocate(size);
}
void operator delete(void* pointer) noexcept {
    countedFree(pointer);
}
void operator delete[](void* pointer) noexcept {
    countedFree(pointer);
}
void operator delete(void* pointer, std::size_t) noexcept {
    countedFree(pointer);
}
void operator delete[](void* pointer, std::size_t) noexcept {
    countedFree(pointer);
}
