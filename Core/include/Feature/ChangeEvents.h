#pragma once

#include "Feature/FunctionWrapper.h"
#include "Feature/Publisher.h"
#include "Feature/detail/SubscriptionPair.h"

#include <functional>
#include <memory>
#include <utility>

namespace keo::Feature {

template <typename DefinitionCallback>
class ChangeEvents;

/**
 * @brief The two change events of every editable object of the kit (geometries, styles,
 * symbols, materials, emitters): definition-changed, raised after each edit with the listener
 * arguments @p Args, and changed-lock, raised with true before and false after the value is
 * stored, so that the feature owning the object holds its lock for the length of the edit.
 *
 * The objects that hold this one (a style its symbols, a symbol its material, a feature its
 * geometry and style) do not listen through the events: they are linked into its relay chain,
 * which is called first on every raising and costs no memory of its own (see
 * detail::RelayChain). Listeners added through the `_add...EventListener` operations come after.
 *
 * A copy of the owner gets fresh, empty events and relays and never copies listeners. The events
 * allocate nothing until their first listener: most objects are only ever heard by the one that
 * holds them, through its relay.
 */
template <typename... Args>
class ChangeEvents<std::function<void(Args...)>> {
public:
    ChangeEvents& operator=(const ChangeEvents&) = delete;

    /** @brief Adds a listener to the definition-changed event; returns its handle. */
    std::weak_ptr<FunctionWrapper>
    _addDefinitionChangedEventListener(std::function<void(Args...)>&& callback) {
        return definitionChanged_.addEventListener(std::move(callback));
    }
    /**
     * @brief Adds the callable @p callback, stored as it is, to the definition-changed event. A
     * callable of the wrong signature does not compile: one static_assert names the owner and the
     * signature (void(const Style*) for a Style, void() for the other owners).
     */
    template <typename Function>
    std::weak_ptr<FunctionWrapper> _addDefinitionChangedEventListener(Function&& callback) {
        return definitionChanged_.addEventListener(std::forward<Function>(callback));
    }
    /** @brief Adds a listener to the changed-lock event (true before an edit, false after). */
    std::weak_ptr<FunctionWrapper>
    _addChangedLockEventListener(std::function<void(bool)>&& callback) {
        return changedLock_.addEventListener(std::move(callback));
    }
    /**
     * @brief Adds the callable @p callback, stored as it is, to the changed-lock event. A
     * callable that cannot be called as void(bool) does not compile: one static_assert says so.
     */
    template <typename Function>
    std::weak_ptr<FunctionWrapper> _addChangedLockEventListener(Function&& callback) {
        return changedLock_.addEventListener(std::forward<Function>(callback));
    }
    /** @brief Raises the changed-lock event with @p locked: the relays first, then the listeners.
     */
    void _raiseChangedLockEvent(bool locked) {
        relays_.raiseChangedLock(locked);
        changedLock_.raiseEvent(locked);
    }
    /** @brief The relays of the objects that hold this one (see detail::SubscriptionPair). */
    detail::RelayChain& _getRelayChain() noexcept { return relays_; }

protected:
    /** @brief Two events without listeners. */
    ChangeEvents() noexcept = default;
    /** @brief Fresh, empty events: listeners are never copied. */
    ChangeEvents(const ChangeEvents& /*other*/)
        : ChangeEvents() {}
    ~ChangeEvents() = default;

    /** @brief Raises the definition-changed event with @p args: the relays first, then the
     * listeners. */
    void raiseDefinitionChanged(Args... args) {
        relays_.raiseDefinitionChanged();
        definitionChanged_.raiseEvent(args...);
    }

private:
    detail::RelayChain relays_;
    Publisher<std::function<void(Args...)>> definitionChanged_;
    Publisher<std::function<void(bool)>> changedLock_;
};

} // namespace keo::Feature
