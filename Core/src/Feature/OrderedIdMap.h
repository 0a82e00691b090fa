#pragma once

#include "FlatIdMap.h"

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <list>
#include <type_traits>
#include <utility>

// For the kit's own classes: the id-keyed containers of a feature collection.
namespace keo::Feature::detail {

/** @brief No extra data per entry of an OrderedIdMap. */
struct NoExtra {};

/**
 * @brief Values kept in insertion order and found by the id they carry: a list of values plus a
 * flat hash index from id to list position (and to @p Extra, data the owner keeps per entry), so
 * that look-up, appending and erasing by id take constant time on average and iteration follows
 * the order of insertion.
 *
 * Values whose id the caller knows to be new can be appended without indexing them
 * (appendUnindexed): the index catches up with them when a look-up or an erasure next needs it.
 * A batch that is only appended to and then taken whole (a bulk load) so never pays for an
 * index, and one that is looked up pays for each value once, as it would have on insertion.
 *
 * The list's nodes can be handed back after their values were moved out with takeValues
 * (recycle): later insertions reuse them instead of allocating, which spares a batch that is
 * filled and emptied again and again an allocation and a release per value.
 *
 * @tparam T a pointer-like type to an object with getId() (std::shared_ptr<Feature>, Feature*).
 *         A null value is never stored: operations that find nothing answer with a null T.
 */
template <typename T, typename Extra = NoExtra>
class OrderedIdMap final {
public:
    /** @brief The list of values in insertion order. */
    using ValueList = std::list<T>;

    /** @brief Whether a value with @p id is held. @throws std::bad_alloc (catching up). */
    bool contains(std::uint64_t id) const { return indexed().contains(id); }

    /** @brief Starts fetching what a look-up of @p id reads first (see FlatIdMap::prefetch). */
    void prefetch(std::uint64_t id) const noexcept { index_.prefetch(id); }

    /** @brief The value with @p id, or null. @throws std::bad_alloc (catching up). */
    T find(std::uint64_t id) const {
        const Entry* entry = indexed().find(id);
        return entry == nullptr ? T{} : *entry->position;
    }

    /** @brief The extra data of the value with @p id, or null when none is held. */
    Extra* findExtra(std::uint64_t id) {
        Entry* entry = indexed().find(id);
        return entry == nullptr ? nullptr : &entry->extra;
    }

    /**
     * @brief Appends @p value (non-null) under its id and returns its extra data (default-made);
     * returns null, and changes nothing, when a value with that id is held already.
     */
    Extra* insert(T value) {
        const std::uint64_t id = value->getId();
        keo::detail::FlatIdMap<Entry>& index = indexed();
        const auto position = pushBack(std::move(value));
        std::pair<Entry*, bool> made;
        try {
            made = index.tryEmplace(id);
        } catch (...) {
            dropLast();
            throw;
        }
        if (!made.second) {
            dropLast();
            return nullptr;
        }
        made.first->position = position;
        return &made.first->extra;
    }

    /**
     * @brief Appends @p value (non-null), whose id the caller knows is not held, leaving it to
     * the index to catch up later (see the class description). Its extra data is default-made.
     */
    void appendUnindexed(T value) {
        pushBack(std::move(value));
        ++unindexed_;
    }

    /** @brief Takes back the last value appended by appendUnindexed (there must be one). */
    void dropLastUnindexed() noexcept {
        --unindexed_;
        dropLast();
    }

    /**
     * @brief Takes the value with @p id out and returns it, its extra data moved into @p extra
     * when given; null when none is held.
     */
    T extract(std::uint64_t id, Extra* extra = nullptr) {
        Entry entry;
        if (!indexed().take(id, entry)) {
            return T{};
        }
        // A const position made mutable at no cost: erasing the empty range returns it so.
        const auto position = values_.erase(entry.position, entry.position);
        T value = std::move(*position);
        values_.erase(position);
        if (extra != nullptr) {
            *extra = std::move(entry.extra);
        }
        return value;
    }

    /** @brief Erases the value with @p id; returns whether one was held. */
    bool erase(std::uint64_t id) { return static_cast<bool>(extract(id)); }

    /** @brief Moves the values out in insertion order and leaves the map empty. */
    ValueList takeValues() noexcept {
        ValueList taken;
        taken.swap(values_);
        index_.clear();
        unindexed_ = 0;
        return taken;
    }

    /**
     * @brief Takes back the nodes of @p list (values from takeValues, delivered): their values
     * are released, and up to @p keepAtMost nodes in all are kept for later insertions; the rest
     * is freed.
     */
    void recycle(ValueList& list, std::size_t keepAtMost) noexcept {
        const std::size_t room = keepAtMost > spare_.size() ? keepAtMost - spare_.size() : 0;
        if (std::is_trivially_destructible_v<T> && list.size() <= room) {
            // Nothing to release: the nodes are taken over without visiting them.
            spare_.splice(spare_.end(), list);
            return;
        }
        // One pass: the nodes that fit are emptied, the others freed with their values.
        auto node = list.begin();
        for (std::size_t kept = 0; kept < room && node != list.end(); ++kept, ++node) {
            if constexpr (!std::is_trivially_destructible_v<T>) {
                *node = T{};
            }
        }
        list.erase(node, list.end());
        spare_.splice(spare_.end(), list);
    }

    /** @brief Erases every value. */
    void clear() noexcept {
        values_.clear();
        index_.clear();
        unindexed_ = 0;
    }

    /** @brief Calls @p visit(value, extra) for every value, in no particular order. */
    template <typename Visit>
    void forEachExtra(Visit&& visit) {
        indexed().forEach([this, &visit](std::uint64_t, Entry& entry) {
            visit(*values_.erase(entry.position, entry.position), entry.extra);
        });
    }

    /** @brief The values in insertion order. */
    const ValueList& values() const noexcept { return values_; }
    /** @brief Whether no value is held. */
    bool empty() const noexcept { return values_.empty(); }
    /** @brief The number of values held. */
    std::size_t size() const noexcept { return values_.size(); }

private:
    struct Entry {
        typename ValueList::const_iterator position{};
        Extra extra{};
    };

    typename ValueList::iterator pushBack(T&& value) {
        if (spare_.empty()) {
            values_.push_back(std::move(value));
        } else {
            values_.splice(values_.end(), spare_, spare_.begin());
            values_.back() = std::move(value);
        }
        return std::prev(values_.end());
    }

    // Takes the last node back (its value released) for later insertions.
    void dropLast() noexcept {
        values_.back() = T{};
        spare_.splice(spare_.end(), values_, std::prev(values_.end()));
    }

    // The index, brought up to date with the values appended unindexed (the last unindexed_ of
    // the list). Each value indexed counts at once, so a failed allocation leaves a consistent
    // map whose next look-up goes on from there.
    keo::detail::FlatIdMap<Entry>& indexed() const {
        if (unindexed_ != 0) {
            for (auto position = std::prev(values_.cend(), static_cast<std::ptrdiff_t>(unindexed_));
                 position != values_.cend(); ++position) {
                index_.tryEmplace((*position)->getId()).first->position = position;
                --unindexed_;
            }
        }
        return index_;
    }

    ValueList values_;
    // The index is brought up to date by look-ups, const ones included: it only caches where
    // each value is and is never observed otherwise.
    mutable keo::detail::FlatIdMap<Entry> index_;
    mutable std::size_t unindexed_ = 0;
    ValueList spare_; // nodes kept for reuse; their values are null
};

} // namespace keo::Feature::detail
