#pragma once

#include "BlockArray.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <type_traits>
#include <utility>
#include <vector>

// For the kit's own classes: the hash index of the id-keyed containers of collections and groups,
// and of the indexes keyed by an object's address (a group's children, a layer's root entities,
// the frame driver's picking).
namespace keo::detail {

/** @brief The key under which an object is filed by its address. */
inline std::uint64_t addressKey(const void* address) noexcept {
    return static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(address));
}

/**
 * @brief A hash map from a 64-bit key (an id, or an address) to a value.
 *
 * The entries (key and value) are kept densely, in blocks that never move; an erased entry is
 * left vacant and reused by a later insertion, so no entry ever moves. The hash index beside them
 * is an array of 8-byte slots, each holding the high half of its key's hash and the position of its
 * entry: open addressing with linear probing.
 *
 * Why this form: at a million entries the index no longer fits in any cache, so each look-up of
 * a random id costs a memory access; 8-byte slots make the index (16 MB for a million entries) a
 * sixth of what slots holding their entries would be, so more of it stays cached and a fresh
 * index costs fewer page faults. The hash half in each slot rejects a slot of another key
 * without reading its entry, so adding a new key reads no entry at all, and growing rehashes
 * from the slots alone. A node-based map would instead spend an allocation per entry and a miss
 * per look-up on a node that may lie anywhere on the heap.
 *
 * A filter beside the index (one byte per slot; each key sets two bits of one 64-bit word,
 * picked from its hash) proves most absent keys absent without touching the index. Insertions
 * ask it (look-ups do not: a key looked up is mostly held). An insertion of a key proven new
 * reads nothing of the index, and its slot is written later, together with those of the next few
 * new keys, so that their cache misses overlap instead of following one another (a bulk load of
 * a million random ids would otherwise wait for memory once per id). A few percent of absent
 * keys find both bits set and are looked up as usual. Erased keys leave their bits set until the
 * filter is rebuilt, which happens once a quarter of the slot count has been erased since the
 * last rebuild. Every other operation writes the waiting slots first, const look-ups included: a
 * map is never safe for concurrent use, not even for look-ups only, and its owner's lock guards
 * every call.
 *
 * Erasing shifts the slots that follow back (no tombstones), so look-ups never slow down after
 * many erasures. Every key is allowed, 0 included. At most 2^32 - 2 entries; beyond that
 * tryEmplace throws std::length_error.
 *
 * Pointers to values stay valid until the value is erased or the map cleared. Erasing releases
 * no memory; clearing a large map releases it.
 *
 * @tparam V a default-constructible, movable value type.
 */
template <typename V>
class FlatIdMap final {
    static_assert(std::is_nothrow_move_assignable_v<V>, "erasing resets values without throwing");

public:
    /**
     * @brief The multiplier of the hash (Fibonacci hashing: the key times 2^64 divided by the
     * golden ratio, of which the high bits are used). It spreads consecutive ids and aligned
     * addresses (whose low bits are all alike) evenly, with one multiplication.
     */
    static constexpr std::uint64_t HASH_MULTIPLIER = 0x9E3779B97F4A7C15ULL;

    FlatIdMap() = default;
    FlatIdMap(const FlatIdMap&) = delete;
    FlatIdMap& operator=(const FlatIdMap&) = delete;
    ~FlatIdMap() = default;

    /** @brief The value under @p key, or null. */
    V* find(std::uint64_t key) noexcept {
        const std::size_t slot = slotOf(key);
        return slot == NOT_FOUND ? nullptr : &entries_[positionIn(slots_[slot])].value;
    }
    /** @brief The value under @p key, or null. */
    const V* find(std::uint64_t key) const noexcept {
        const std::size_t slot = slotOf(key);
        return slot == NOT_FOUND ? nullptr : &entries_[positionIn(slots_[slot])].value;
    }
    /** @brief Whether a value is held under @p key. */
    bool contains(std::uint64_t key) const noexcept { return slotOf(key) != NOT_FOUND; }

    /**
     * @brief Asks the processor to fetch what a look-up or an insertion of @p key reads first
     * (its filter word), so that one that follows after other work finds it in the cache.
     * Changes nothing.
     */
    void prefetch(std::uint64_t key) const noexcept {
        if (!filter_.empty()) {
            prefetchLine(&filter_[filterWord(tagOf(key))]);
        }
    }

    /**
     * @brief The value under @p key, made (default-constructed) when none is held; the flag tells
     * whether it was made.
     * @throws std::length_error when 2^32 - 2 entries are held already; std::bad_alloc.
     */
    std::pair<V*, bool> tryEmplace(std::uint64_t key) {
        // Grown before probing, so that the slot found stays where it is. Linear probing keeps
        // short probe runs while at most three quarters of the slots are used.
        if ((size_ + 1) * 4 > slots_.size() * 3) {
            writePendingSlots();
            grow();
        }
        const std::uint32_t tag = tagOf(key);
        if (!mayHold(tag)) {
            // Certainly new: no look-up. The slot waits to be written with the next few, by
            // which time the line asked for here has arrived.
            if (pendingCount_ == PENDING_CAPACITY) {
                writePendingSlots();
            }
            prefetchLine(&slots_[homeOfTag(tag)]);
            const std::size_t position = makeEntry(key);
            pending_[pendingCount_++] = static_cast<std::uint32_t>(position);
            noteInFilter(tag);
            ++size_;
            return {&entries_[position].value, true};
        }
        writePendingSlots();
        std::size_t slot = homeOfTag(tag);
        for (; slots_[slot] != EMPTY; slot = next(slot)) {
            if (tagIn(slots_[slot]) == tag) {
                Entry& entry = entries_[positionIn(slots_[slot])];
                if (entry.key == key) {
                    return {&entry.value, false};
                }
            }
        }
        const std::size_t position = makeEntry(key);
        slots_[slot] = slotFor(tag, position);
        ++size_;
        return {&entries_[position].value, true};
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
        out = std::move(entries_[positionIn(slots_[slot])].value);
        eraseSlot(slot);
        return true;
    }

    /** @brief Calls @p visit(key, value) for every entry, in no particular order. */
    template <typename Visit>
    void forEach(Visit&& visit) {
        // In the order of the entries, which is mostly the order they were made: what the visits
        // touch (and, at a teardown, release) is then touched in the order it was allocated.
        const std::size_t count = entries_.size();
        for (std::size_t position = 0; position < count; ++position) {
            if (!isVacant(position)) {
                Entry& entry = entries_[position];
                visit(entry.key, entry.value);
            }
        }
    }

    /**
     * @brief Erases every entry. A large index is released rather than emptied slot by slot, so
     * that a map that once held many entries does not make each later clear pay for them.
     */
    void clear() noexcept {
        pendingCount_ = 0;
        constexpr std::size_t SMALL_SLOT_COUNT = 1024;
        if (slots_.size() > SMALL_SLOT_COUNT) {
            std::vector<std::uint64_t>().swap(slots_);
            std::vector<std::uint64_t>().swap(filter_);
            tagShift_ = 32;
        } else if (size_ != 0) {
            std::fill(slots_.begin(), slots_.end(), EMPTY);
            std::fill(filter_.begin(), filter_.end(), 0);
        }
        erasedSinceFilter_ = 0;
        entries_.clear();
        firstVacant_ = NO_ENTRY;
        if (slots_.empty()) {
            std::vector<std::uint64_t>().swap(vacant_);
        } else {
            vacant_.clear();
        }
        size_ = 0;
    }

    /** @brief Whether no entry is held. */
    bool empty() const noexcept { return size_ == 0; }
    /** @brief The number of entries. */
    std::size_t size() const noexcept { return size_; }

private:
    struct Entry {
        std::uint64_t key = 0;
        V value{};
    };

    // A slot: the high half of the key's hash (the tag) in its upper 32 bits, the entry's
    // position plus one in its lower 32 bits; 0 is an unused slot.
    static constexpr std::uint64_t EMPTY = 0;
    // New keys whose slots wait to be written together (see writePendingSlots).
    static constexpr std::size_t PENDING_CAPACITY = 16;
    // The filter's size: bits per index slot.
    static constexpr std::size_t FILTER_BITS_PER_SLOT = 8;
    static constexpr std::size_t NO_ENTRY = ~std::size_t{0};
    static constexpr std::size_t NOT_FOUND = ~std::size_t{0};
    static constexpr std::size_t FIRST_SLOT_COUNT = 16;
    static constexpr std::size_t MAX_ENTRIES = std::numeric_limits<std::uint32_t>::max() - 1;
    // The index never exceeds 2^32 slots, so a slot's home is always a prefix of its tag.
    static constexpr std::uint64_t MAX_SLOTS = std::uint64_t{1} << 32U;

    static std::uint32_t tagOf(std::uint64_t key) noexcept {
        return static_cast<std::uint32_t>((key * HASH_MULTIPLIER) >> 32U);
    }
    static std::uint32_t tagIn(std::uint64_t slot) noexcept {
        return static_cast<std::uint32_t>(slot >> 32U);
    }
    static std::size_t positionIn(std::uint64_t slot) noexcept {
        return static_cast<std::size_t>(slot & 0xFFFFFFFFULL) - 1;
    }
    static std::uint64_t slotFor(std::uint32_t tag, std::size_t position) noexcept {
        return (std::uint64_t{tag} << 32U) | (static_cast<std::uint64_t>(position) + 1);
    }

    // The slot where probing for a key with @p tag starts: the tag's top bits.
    std::size_t homeOfTag(std::uint32_t tag) const noexcept {
        return static_cast<std::size_t>(tag >> tagShift_);
    }
    std::size_t next(std::size_t slot) const noexcept { return (slot + 1) & (slots_.size() - 1); }

    std::size_t slotOf(std::uint64_t key) const noexcept {
        if (size_ == 0) {
            return NOT_FOUND;
        }
        // The filter is not asked here: a key looked up is mostly held, and asking would cost
        // one more memory access for it.
        writePendingSlots();
        const std::uint32_t tag = tagOf(key);
        for (std::size_t slot = homeOfTag(tag); slots_[slot] != EMPTY; slot = next(slot)) {
            if (tagIn(slots_[slot]) == tag && entries_[positionIn(slots_[slot])].key == key) {
                return slot;
            }
        }
        return NOT_FOUND;
    }

    // Writes the slots of the new keys that wait (their cache lines were asked for when they
    // were made). The room for them was made then too (tryEmplace grows first), so nothing grows
    // here.
    void writePendingSlots() const noexcept {
        if (pendingCount_ == 0) {
            return;
        }
        for (std::size_t n = 0; n < pendingCount_; ++n) {
            const std::uint32_t tag = tagOf(entries_[pending_[n]].key);
            std::size_t slot = homeOfTag(tag);
            while (slots_[slot] != EMPTY) {
                slot = next(slot);
            }
            slots_[slot] = slotFor(tag, pending_[n]);
        }
        pendingCount_ = 0;
    }

    // Asks the processor to fetch the cache line at @p address, for writing.
    static void prefetchLine(const void* address) noexcept {
#if defined(__GNUC__) || defined(__clang__)
        __builtin_prefetch(address, 1);
#else
        static_cast<void>(address);
#endif
    }

    // The filter word of a key, from its tag: the tag mixed again (its top bits pick the home
    // slot, so they alone would send each run of slots to one word), scaled to the word count
    // (the top bits of the 32-bit mix times the count).
    std::size_t filterWord(std::uint32_t tag) const noexcept {
        constexpr std::uint32_t MIX = 0x9E3779B1U;
        const std::uint64_t mixed = static_cast<std::uint32_t>(tag * MIX);
        return static_cast<std::size_t>((mixed * filter_.size()) >> 32U);
    }
    // The filter words for @p slots slots: FILTER_BITS_PER_SLOT bits each, at least one word.
    static std::size_t filterWordsFor(std::size_t slots) noexcept {
        return std::max<std::size_t>(1, slots * FILTER_BITS_PER_SLOT / 64);
    }
    // The two bits of a key in its word, from the tag's low 12 bits.
    static std::uint64_t filterBits(std::uint32_t tag) noexcept {
        return (std::uint64_t{1} << (tag & 63U)) | (std::uint64_t{1} << ((tag >> 6U) & 63U));
    }
    // False when no key with @p tag is held; true when one may be.
    bool mayHold(std::uint32_t tag) const noexcept {
        const std::uint64_t bits = filterBits(tag);
        return (filter_[filterWord(tag)] & bits) == bits;
    }
    void noteInFilter(std::uint32_t tag) noexcept {
        filter_[filterWord(tag)] |= filterBits(tag);
    }

    // Sets the filter anew from the keys held (their slots, and the entries of those that wait).
    void rebuildFilter() noexcept {
        std::fill(filter_.begin(), filter_.end(), 0);
        for (const std::uint64_t slot : slots_) {
            if (slot != EMPTY) {
                noteInFilter(tagIn(slot));
            }
        }
        for (std::size_t n = 0; n < pendingCount_; ++n) {
            noteInFilter(tagOf(entries_[pending_[n]].key));
        }
        erasedSinceFilter_ = 0;
    }

    // An entry for @p key: a vacant one when there is one, else a new one at the end.
    std::size_t makeEntry(std::uint64_t key) {
        std::size_t position = firstVacant_;
        if (position != NO_ENTRY) {
            firstVacant_ = static_cast<std::size_t>(entries_[position].key);
            vacant_[position / 64] &= ~vacancyBit(position);
        } else {
            if (entries_.size() >= MAX_ENTRIES) {
                throw std::length_error("FlatIdMap: too many entries");
            }
            position = entries_.size();
            // The vacancy bits are made with the entries, so that erasing allocates nothing.
            if (position % 64 == 0) {
                vacant_.push_back(0);
            }
            entries_.emplaceBack();
        }
        entries_[position].key = key;
        return position;
    }

    static std::uint64_t vacancyBit(std::size_t position) noexcept {
        return std::uint64_t{1} << (position % 64);
    }
    bool isVacant(std::size_t position) const noexcept {
        return (vacant_[position / 64] & vacancyBit(position)) != 0;
    }

    // Erases the entry of the slot @p hole and the slot itself. The entry stays where it is,
    // vacant (its value released, its key field linking it to the next vacant entry), so no other
    // entry moves and no other slot needs telling: erasing touches one entry and one probe run.
    void eraseSlot(std::size_t hole) noexcept {
        const std::size_t position = positionIn(slots_[hole]);
        shiftBackInto(hole);
        --size_;
        if (size_ == 0) {
            // Nothing is left: the entries and the filter start afresh. Erasing releases no
            // memory (clear does): the entry blocks are kept, so that the last erasure does not
            // pay for releasing them (and for the allocator's merging of everything released
            // before, which a large release sets off).
            entries_.destroyEntries();
            firstVacant_ = NO_ENTRY;
            vacant_.clear();
            std::fill(filter_.begin(), filter_.end(), 0);
            erasedSinceFilter_ = 0;
            return;
        }
        Entry& entry = entries_[position];
        entry.value = V{};
        entry.key = static_cast<std::uint64_t>(firstVacant_);
        firstVacant_ = position;
        vacant_[position / 64] |= vacancyBit(position);
        // The erased key's bits stay set; once many have gone, the filter proves too little.
        if (++erasedSinceFilter_ * 4 >= slots_.size()) {
            rebuildFilter();
        }
    }

    // Backward-shift deletion: each slot of the run after the hole that may move into it (its
    // home does not lie cyclically between the hole and itself) does, leaving the hole at its
    // old place, until the run ends. Every key then stays reachable from its home slot without
    // crossing an unused slot.
    void shiftBackInto(std::size_t hole) noexcept {
        const std::size_t mask = slots_.size() - 1;
        for (std::size_t slot = next(hole); slots_[slot] != EMPTY; slot = next(slot)) {
            const std::size_t distanceFromHome = (slot - homeOfTag(tagIn(slots_[slot]))) & mask;
            const std::size_t distanceFromHole = (slot - hole) & mask;
            if (distanceFromHome >= distanceFromHole) {
                slots_[hole] = slots_[slot];
                hole = slot;
            }
        }
        slots_[hole] = EMPTY;
    }

    // Doubles the index and re-places every slot by its tag alone (no entry is read), and sets
    // the filter anew at its new size. No slot may be waiting (tryEmplace writes them first).
    void grow() {
        const std::size_t count = slots_.empty() ? FIRST_SLOT_COUNT : slots_.size() * 2;
        if (static_cast<std::uint64_t>(count) > MAX_SLOTS) {
            throw std::length_error("FlatIdMap: too many entries");
        }
        std::vector<std::uint64_t> old(count, EMPTY);
        std::vector<std::uint64_t> filter(filterWordsFor(count), 0);
        old.swap(slots_);
        filter_.swap(filter);
        tagShift_ = 32;
        for (std::size_t slots = count; slots > 1; slots /= 2) {
            --tagShift_;
        }
        for (const std::uint64_t entry : old) {
            if (entry != EMPTY) {
                std::size_t slot = homeOfTag(tagIn(entry));
                while (slots_[slot] != EMPTY) {
                    slot = next(slot);
                }
                slots_[slot] = entry;
                noteInFilter(tagIn(entry));
            }
        }
        erasedSinceFilter_ = 0;
    }

    // Mutable because look-ups first write the slots that wait (see writePendingSlots).
    mutable std::vector<std::uint64_t> slots_;
    mutable std::array<std::uint32_t, PENDING_CAPACITY> pending_{};
    mutable std::size_t pendingCount_ = 0;
    BlockArray<Entry> entries_;
    std::size_t size_ = 0; // the entries in use
    // The first vacant entry (each links to the next through its key field), or NO_ENTRY.
    std::size_t firstVacant_ = NO_ENTRY;
    // One bit per entry, set while it is vacant.
    std::vector<std::uint64_t> vacant_;
    // The shift that turns a tag into a home slot: 32 minus log2 of the slot count.
    unsigned tagShift_ = 32;
    // One byte per slot, in 64-bit words (see filterWord and filterBits).
    std::vector<std::uint64_t> filter_;
    // Keys erased since the filter was last set anew; their bits may still be set.
    std::size_t erasedSinceFilter_ = 0;
};

} // namespace keo::detail
