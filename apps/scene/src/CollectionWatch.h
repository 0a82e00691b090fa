#pragma once

#include "Feature/ScopedListener.h"

#include <cstddef>

namespace keo::Feature {
class FeatureCollection;
} // namespace keo::Feature

namespace keo::scene {

/** @brief What a collection notified since the counts were last taken. */
struct CollectionCounts {
    /** @brief Notifications received. */
    std::size_t notifications = 0;
    /** @brief Features reported added, over all those notifications. */
    std::size_t added = 0;
    /** @brief Features reported removed. */
    std::size_t removed = 0;
    /** @brief Features reported changed. */
    std::size_t changed = 0;
};

/**
 * @brief Listens to a FeatureCollection's change notifications and counts them, as a renderer
 * or a user interface that mirrors the collection would receive them.
 */
class CollectionWatch final {
public:
    /** @brief Subscribes to @p collection's notifications (the collection must outlive this). */
    explicit CollectionWatch(Feature::FeatureCollection& collection);
    /** @brief Unsubscribes. */
    ~CollectionWatch();
    CollectionWatch(const CollectionWatch&) = delete;
    CollectionWatch& operator=(const CollectionWatch&) = delete;

    /** @brief The counts since the previous call (or since construction); restarts them. */
    CollectionCounts take() noexcept;

private:
    CollectionCounts counts_;
    Feature::ScopedListener listener_;
};

} // namespace keo::scene
