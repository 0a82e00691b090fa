#pragma once

#include "Feature/FunctionWrapper.h"

#include <memory>
#include <utility>

// For the kit's own classes: the listener handles that an owner keeps on an object it holds.
namespace keo::Feature::detail {

/**
 * @brief Removes the listener behind @p handle from its event, if both still exist (a handle
 * whose event is gone has simply expired).
 */
inline void disconnectListener(const std::weak_ptr<FunctionWrapper>& handle) noexcept {
    if (const auto wrapper = handle.lock()) {
        wrapper->remove();
    }
}

/**
 * @brief An owner's two subscriptions to one object it holds: to the object's definition-changed
 * and changed-lock events. Disconnects on destruction; a copy starts empty (an owner's copy
 * subscribes to its own objects).
 */
class SubscriptionPair final {
public:
    SubscriptionPair() = default;
    SubscriptionPair(const SubscriptionPair&) noexcept {}
    SubscriptionPair& operator=(const SubscriptionPair&) noexcept { return *this; }
    ~SubscriptionPair() { disconnect(); }

    /** @brief Subscribes @p onDefinitionChanged and @p onChangedLock to @p source's events. */
    template <typename Source, typename OnDefinitionChanged, typename OnChangedLock>
    void connect(Source& source, OnDefinitionChanged&& onDefinitionChanged,
                 OnChangedLock&& onChangedLock) {
        disconnect();
        definitionChanged_ = source._addDefinitionChangedEventListener(
            std::forward<OnDefinitionChanged>(onDefinitionChanged));
        changedLock_ =
            source._addChangedLockEventListener(std::forward<OnChangedLock>(onChangedLock));
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
        disconnectOne(definitionChanged_);
        disconnectOne(changedLock_);
    }

private:
    static void disconnectOne(std::weak_ptr<FunctionWrapper>& handle) noexcept {
        disconnectListener(handle);
        handle.reset();
    }

    std::weak_ptr<FunctionWrapper> definitionChanged_;
    std::weak_ptr<FunctionWrapper> changedLock_;
};

} // namespace keo::Feature::detail
