#pragma once

#include "Feature/FlatIdMap.h"

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

    /** @brief Whether a value with @p id is held. */
    bool contains(std::uint64_t id) const noexcept { return index_.contains(id); }

    /** @brief The value with @p id, or null. */
    T find(std::uint64_t id) const {
        const Entry* entry = index_.find(id);
        return entry == nullptr ? T{} : *entry->position;
    }

    /** @brief The extra data of the value with @p id, or null when none is held. */
    Extra* findExtra(std::uint64_t id) noexcept {
        Entry* entry = index_.find(id);
        return entry == nullptr ? nullptr : &entry->extra;
    }

    /**
     * @brief Appends @p value (non-null) under its id and returns its extra data (default-made);
     * returns null, and changes nothing, when a value with that id is held already.
     */
    Extra* insert(T value) {
        const auto made = index_.tryEmplace(value->getId());
        if (!made.second) {
            return nullptr;
        }
        if (spare_.empty()) {
            values_.push_back(std::move(value));
        } else {
            values_.splice(values_.end(), spare_, spare_.begin());
            values_.back() = std::move(value);
        }
        made.first->position = std::prev(values_.end());
        return &made.first->extra;
    }

    /**
     * @brief Takes the value with @p id out and returns it, its extra data moved into @p extra
     * when given; null when none is held.
     */
    T extract(std::uint64_t id, Extra* extra = nullptr) {
        Entry entry;
        if (!index_.take(id, entry)) {
            return T{};
        }
        T value = std::move(*entry.position);
        values_.erase(entry.position);
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
    }

    /** @brief Calls @p visit(value, extra) for every value, in no particular order. */
    template <typename Visit>
    void forEachExtra(Visit&& visit) {
        index_.forEach(
            [&visit](std::uint64_t, Entry& entry) { visit(*entry.position, entry.extra); });
    }

    /** @brief The values in insertion order. */
    const ValueList& values() const noexcept { return values_; }
    /** @brief Whether no value is held. */
    bool empty() const noexcept { return values_.empty(); }
    /** @brief The number of values held. */
    std::size_t size() const noexcept { return values_.size(); }

private:
    struct Entry {
        typename ValueList::iterator position{};
        Extra extra{};
    };

    ValueList values_;
    FlatIdMap<Entry> index_;
    ValueList spare_; // nodes kept for reuse; their values are null
};

} // namespace keo::Feature::detail
