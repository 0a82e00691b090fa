#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

// For the kit's own classes: the hash index of the id-keyed containers of collections and groups.
namespace keo::Feature::detail {

/**
 * @brief A hash map from a 64-bit key (an id, or an address) to a value, kept in one array of
 * slots: open addressing with linear probing.
 *
 * Node-based maps spend an allocation per entry and a cache miss per look-up on a node that may
 * lie anywhere on the heap; here an entry is found in the slot its key hashes to or in the next
 * few, which share a cache line or lie in the next one, and adding or erasing allocates nothing
 * except when the array grows (it doubles, so the cost per entry stays constant on average).
 * Erasing shifts the entries that follow back (no tombstones), so look-ups never slow down after
 * many erasures. Every key is allowed, 0 included.
 *
 * Pointers to values stay valid until the next insertion or erasure.
 *
 * @tparam V a default-constructible, movable value type.
 */
template <typename V>
class FlatIdMap final {
public:
    /** @brief The value under @p key, or null. */
    V* find(std::uint64_t key) noexcept {
        const std::size_t slot = slotOf(key);
        return slot == NOT_FOUND ? nullptr : &slots_[slot].value;
    }
    /** @brief The value under @p key, or null. */
    const V* find(std::uint64_t key) const noexcept {
        const std::size_t slot = slotOf(key);
        return slot == NOT_FOUND ? nullptr : &slots_[slot].value;
    }
    /** @brief Whether a value is held under @p key. */
    bool contains(std::uint64_t key) const noexcept { return slotOf(key) != NOT_FOUND; }

    /**
     * @brief The value under @p key, made (default-constructed) when none is held; the flag tells
     * whether it was made.
     */
    std::pair<V*, bool> tryEmplace(std::uint64_t key) {
        // Grown before probing, so that the slot found stays where it is. Linear probing keeps
        // short probe runs while at most three quarters of the slots are used.
        if ((size_ + 1) * 4 > slots_.size() * 3) {
            grow();
        }
        std::size_t slot = home(key);
        while (slots_[slot].used) {
            if (slots_[slot].key == key) {
                return {&slots_[slot].value, false};
            }
            slot = next(slot);
        }
        slots_[slot].key = key;
        slots_[slot].used = true;
        ++size_;
        return {&slots_[slot].value, true};
    }

    /** @brief Erases the value under @p key; returns whether one was held. */
    bool erase(std::uint64_t key) noexcept {
        const std::size_t slot = slotOf(key);
        if (slot == NOT_FOUND) {
            return false;
        }
        eraseSlot(slot);
        return true;
    }

    /** @brief Moves the value under @p key into @p out and erases it; false when none is held. */
    bool take(std::uint64_t key, V& out) noexcept {
        const std::size_t slot = slotOf(key);
        if (slot == NOT_FOUND) {
            return false;
        }
        out = std::move(slots_[slot].value);
        eraseSlot(slot);
        return true;
    }

    /** @brief Calls @p visit(key, value) for every entry, in no particular order. */
    template <typename Visit>
    void forEach(Visit&& visit) {
        for (Slot& slot : slots_) {
            if (slot.used) {
                visit(slot.key, slot.value);
            }
        }
    }

    /**
     * @brief Erases every entry. A large array is released rather than emptied slot by slot, so
     * that a map that once held many entries does not make each later clear pay for them.
     */
    void clear() noexcept {
        constexpr std::size_t SMALL_SLOT_COUNT = 1024;
        if (slots_.size() > SMALL_SLOT_COUNT) {
            std::vector<Slot>().swap(slots_);
            shift_ = 64;
        } else if (size_ != 0) {
            for (Slot& slot : slots_) {
                slot = Slot{};
            }
        }
        size_ = 0;
    }

    /** @brief Whether no entry is held. */
    bool empty() const noexcept { return size_ == 0; }
    /** @brief The number of entries. */
    std::size_t size() const noexcept { return size_; }

private:
    struct Slot {
        std::uint64_t key = 0;
        V value{};
        bool used = false;
    };

    static constexpr std::size_t NOT_FOUND = ~std::size_t{0};
    static constexpr std::size_t FIRST_SLOT_COUNT = 16;

    // Fibonacci hashing: the key times 2^64 divided by the golden ratio, of which the top bits
    // index the slot. It spreads consecutive ids and aligned addresses (whose low bits are all
    // alike) evenly over the slots, with one multiplication.
    std::size_t home(std::uint64_t key) const noexcept {
        constexpr std::uint64_t GOLDEN = 0x9E3779B97F4A7C15ULL;
        return static_cast<std::size_t>((key * GOLDEN) >> shift_);
    }
    std::size_t next(std::size_t slot) const noexcept { return (slot + 1) & (slots_.size() - 1); }

    std::size_t slotOf(std::uint64_t key) const noexcept {
        if (size_ == 0) {
            return NOT_FOUND;
        }
        for (std::size_t slot = home(key); slots_[slot].used; slot = next(slot)) {
            if (slots_[slot].key == key) {
                return slot;
            }
        }
        return NOT_FOUND;
    }

    // Backward-shift deletion: each entry of the run after the hole that may move into it (its
    // home slot does not lie cyclically between the hole and itself) does, leaving the hole at
    // its old place, until the run ends. Every entry then stays reachable from its home slot
    // without crossing an unused slot.
    void eraseSlot(std::size_t hole) noexcept {
        const std::size_t mask = slots_.size() - 1;
        for (std::size_t slot = next(hole); slots_[slot].used; slot = next(slot)) {
            const std::size_t distanceFromHome = (slot - home(slots_[slot].key)) & mask;
            const std::size_t distanceFromHole = (slot - hole) & mask;
            if (distanceFromHome >= distanceFromHole) {
                slots_[hole] = std::move(slots_[slot]);
                hole = slot;
            }
        }
        slots_[hole] = Slot{};
        --size_;
    }

    void grow() {
        std::vector<Slot> old(slots_.empty() ? FIRST_SLOT_COUNT : slots_.size() * 2);
        old.swap(slots_);
        shift_ = 64;
        for (std::size_t count = slots_.size(); count > 1; count /= 2) {
            --shift_;
        }
        for (Slot& entry : old) {
            if (entry.used) {
                std::size_t slot = home(entry.key);
                while (slots_[slot].used) {
                    slot = next(slot);
                }
                slots_[slot] = std::move(entry);
            }
        }
    }

    std::vector<Slot> slots_;
    std::size_t size_ = 0;
    unsigned shift_ = 64;
};

} // namespace keo::Feature::detail
