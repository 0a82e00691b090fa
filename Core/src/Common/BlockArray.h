#pragma once

#include <cstddef>
#include <cstdint>
#include <new>
#include <vector>

// For the kit's own classes: the dense storage of FlatIdMap's entries and of other records that
// must not move while they are alive.
namespace keo::detail {

/**
 * @brief Entries kept densely in blocks that are never moved: block k holds 16 << k entries, so
 * growing allocates a new block and copies nothing, and memory that is not used yet is not
 * touched. Entry n lives in block log2(n / 16 + 1).
 */
template <typename T>
class BlockArray final {
public:
    /** @brief An empty array; allocates nothing. */
    BlockArray() = default;
    BlockArray(const BlockArray&) = delete;
    BlockArray& operator=(const BlockArray&) = delete;
    /** @brief Destroys the entries and releases the blocks. */
    ~BlockArray() {
        clear();
        releaseBlocksFrom(0);
    }

    /** @brief Entry @p n (below size(); not checked). */
    T& operator[](std::size_t n) noexcept {
        const unsigned block = blockOf(n);
        return blocks_[block][n - blockStart(block)];
    }
    /** @brief Entry @p n (below size(); not checked). */
    const T& operator[](std::size_t n) const noexcept {
        const unsigned block = blockOf(n);
        return blocks_[block][n - blockStart(block)];
    }

    /** @brief Appends a default-made entry and returns it. @throws std::bad_alloc. */
    T& emplaceBack() {
        const unsigned block = blockOf(size_);
        if (block == blocks_.size()) {
            blocks_.reserve(blocks_.size() + 1);
            blocks_.push_back(static_cast<T*>(::operator new(blockCapacity(block) * sizeof(T))));
        }
        T* const slot = blocks_[block] + (size_ - blockStart(block));
        ::new (static_cast<void*>(slot)) T();
        ++size_;
        return *slot;
    }

    /** @brief The last entry (there is one; not checked). */
    T& back() noexcept { return (*this)[size_ - 1]; }

    /**
     * @brief Destroys the last entry (there is one; not checked). Its block is kept for the next
     * entries.
     */
    void popBack() noexcept {
        --size_;
        (*this)[size_].~T();
    }

    /**
     * @brief Destroys every entry and releases every block but the first (16 entries), which is
     * kept for the next entries: a small array filled and emptied again and again allocates once.
     */
    void clear() noexcept {
        destroyEntries();
        releaseBlocksFrom(1);
    }

    /** @brief Destroys every entry and keeps every block for the next entries. */
    void destroyEntries() noexcept {
        while (size_ > 0) {
            popBack();
        }
    }

    /** @brief The number of entries. */
    std::size_t size() const noexcept { return size_; }

private:
    void releaseBlocksFrom(std::size_t first) noexcept {
        while (blocks_.size() > first) {
            ::operator delete(blocks_.back());
            blocks_.pop_back();
        }
    }

    static constexpr std::size_t FIRST_BLOCK_LOG2 = 4;

    static constexpr std::size_t blockCapacity(unsigned block) noexcept {
        return std::size_t{1} << (FIRST_BLOCK_LOG2 + block);
    }
    // The index of the first entry of @p block: 16 (2^block - 1).
    static constexpr std::size_t blockStart(unsigned block) noexcept {
        return blockCapacity(block) - blockCapacity(0);
    }
    static unsigned blockOf(std::size_t n) noexcept {
        return highestBit((n >> FIRST_BLOCK_LOG2) + 1);
    }
    // The position of the highest set bit of @p value (not 0).
    static unsigned highestBit(std::uint64_t value) noexcept {
#if defined(__GNUC__) || defined(__clang__)
        return 63U - static_cast<unsigned>(__builtin_clzll(value));
#else
        unsigned bit = 0;
        while (value >>= 1U) {
            ++bit;
        }
        return bit;
#endif
    }

    std::vector<T*> blocks_;
    std::size_t size_ = 0;
};

} // namespace keo::detail
