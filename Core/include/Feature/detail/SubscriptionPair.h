#pragma once

// Not part of the API: a member type of the kit's own classes, installed only because their
// headers hold it. It may change without notice.

#include "Feature/ScopedListener.h"

#include <utility>

namespace keo::Feature::detail {

/**
 * @brief An owner's two subscriptions to one object it holds: to the object's definition-changed
 * and changed-lock events. Disconnects on destruction; a copy starts empty (an owner's copy
 * subscribes to its own objects).
 */
class SubscriptionPair final {
public:
    SubscriptionPair() = default;
    SubscriptionPair(const SubscriptionPair& /*other*/) noexcept {}
    SubscriptionPair& operator=(const SubscriptionPair& /*other*/) noexcept { return *this; }
    ~SubscriptionPair() = default;

    /** @brief Subscribes @p onDefinitionChanged and @p onChangedLock to @p source's events. */
    template <typename Source, typename OnDefinitionChanged, typename OnChangedLock>
    void connect(Source& source, OnDefinitionChanged&& onDefinitionChanged,
                 OnChangedLock&& onChangedLock) {
        disconnect();
        definitionChanged_ = ScopedListener(source._addDefinitionChangedEventListener(
            std::forward<OnDefinitionChanged>(onDefinitionChanged)));
        changedLock_ = ScopedListener(
            source._addChangedLockEventListener(std::forward<OnChangedLock>(onChangedLock)));
    }

    /**
     * @brief Relays @p source's events as @p owner's own: a definition change of the source
     * raises the owner's definition-changed event, a changed-lock of the source the owner's
     * changed-lock event with the same flag.
     */
    template <typename Source, typename Owner>
    void relay(Source& source, Owner& owner) {
        connect(
            source, [&owner](auto&&...) { owner._raiseDefinitionChangedEvent(); },
            [&owner](bool locked) { owner._raiseChangedLockEvent(locked); });
    }

    /** @brief Removes both listeners (if still attached) and forgets the handles. */
    void disconnect() noexcept {
        definitionChanged_.reset();
        changedLock_.reset();
    }

private:
    ScopedListener definitionChanged_;
    ScopedListener changedLock_;
};

} // namespace keo::Feature::detail
