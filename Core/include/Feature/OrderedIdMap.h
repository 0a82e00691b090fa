#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <unordered_map>
#include <utility>

// For the kit's own classes: the id-keyed containers of a feature collection.
namespace keo::Feature::detail {

/**
 * @brief Values kept in insertion order and found by the id they carry: a list of values plus a
 * hash index from id to list position, so that look-up, appending and erasing by id take
 * constant time on average and iteration follows the order of insertion.
 *
 * @tparam T a pointer-like type to an object with getId() (std::shared_ptr<Feature>, Feature*).
 *         A null value is never stored: operations that find nothing answer with a null T.
 */
template <typename T>
class OrderedIdMap final {
public:
    /** @brief The list of values in insertion order. */
    using ValueList = std::list<T>;

    /** @brief Whether a value with @p id is held. */
    bool contains(std::uint64_t id) const { return index_.find(id) != index_.end(); }

    /** @brief The value with @p id, or null. */
    T find(std::uint64_t id) const {
        const auto found = index_.find(id);
        return found == index_.end() ? T{} : *found->second;
    }

    /**
     * @brief Appends @p value (non-null) under its id; returns false, and changes nothing, when
     * a value with that id is held already.
     */
    bool insert(T value) {
        const std::uint64_t id = value->getId();
        const auto slot = index_.try_emplace(id);
        if (!slot.second) {
            return false;
        }
        values_.push_back(std::move(value));
        slot.first->second = std::prev(values_.end());
        return true;
    }

    /** @brief Takes the value with @p id out and returns it; null when none is held. */
    T extract(std::uint64_t id) {
        const auto found = index_.find(id);
        if (found == index_.end()) {
            return T{};
        }
        T value = std::move(*found->second);
        values_.erase(found->second);
        index_.erase(found);
        return value;
    }

    /** @brief Erases the value with @p id; returns whether one was held. */
    bool erase(std::uint64_t id) {
        const auto found = index_.find(id);
        if (found == index_.end()) {
            return false;
        }
        values_.erase(found->second);
        index_.erase(found);
        return true;
    }

    /** @brief Moves the values out in insertion order and leaves the map empty. */
    ValueList takeValues() noexcept {
        ValueList taken = std::move(values_);
        values_.clear(); // a moved-from list is valid but unspecified: make it empty for sure
        clearIndex();
        return taken;
    }

    /** @brief Erases every value. */
    void clear() noexcept {
        values_.clear();
        clearIndex();
    }

    /** @brief The values in insertion order. */
    const ValueList& values() const noexcept { return values_; }
    /** @brief Whether no value is held. */
    bool empty() const noexcept { return values_.empty(); }
    /** @brief The number of values held. */
    std::size_t size() const noexcept { return values_.size(); }

private:
    using Index = std::unordered_map<std::uint64_t, typename ValueList::iterator>;

    // Clearing a hash map takes time in its bucket count, which stays at its peak however few
    // entries are left. A large map that once held many values and now holds few (the added
    // batch of a collection after a bulk addition, cleared again at every later notification) is
    // replaced by a fresh one, so that each later clear takes time in the entries it held; a
    // small one keeps its buckets, which saves allocating them again.
    void clearIndex() noexcept {
        constexpr std::size_t SMALL_BUCKET_COUNT = 64;
        if (index_.bucket_count() <= SMALL_BUCKET_COUNT ||
            index_.size() * 4 >= index_.bucket_count()) {
            index_.clear();
        } else {
            Index().swap(index_);
        }
    }

    ValueList values_;
    Index index_;
};

} // namespace keo::Feature::detail
