#pragma once

#include "Feature/FunctionWrapper.h"
#include "Feature/Publisher.h"

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
 * The events are held through std::unique_ptr: a copy of the owner gets fresh, empty events and
 * never copies listeners.
 */
template <typename... Args>
class ChangeEvents<std::function<void(Args...)>> {
public:
    ChangeEvents& operator=(const ChangeEvents&) = delete;

    /** @brief Adds a listener to the definition-changed event; returns its handle. */
    std::weak_ptr<FunctionWrapper>
    _addDefinitionChangedEventListener(std::function<void(Args...)>&& callback) {
        return definitionChanged_->addEventListener(std::move(callback));
    }
    /** @brief Adds a listener to the changed-lock event (true before an edit, false after). */
    std::weak_ptr<FunctionWrapper>
    _addChangedLockEventListener(std::function<void(bool)>&& callback) {
        return changedLock_->addEventListener(std::move(callback));
    }
    /** @brief Raises the changed-lock event with @p locked. */
    void _raiseChangedLockEvent(bool locked) { changedLock_->raiseEvent(locked); }

protected:
    /** @brief Two events without listeners. */
    ChangeEvents()
        : definitionChanged_(std::make_unique<Publisher<std::function<void(Args...)>>>())
        , changedLock_(std::make_unique<Publisher<std::function<void(bool)>>>()) {}
    /** @brief Fresh, empty events: listeners are never copied. */
    ChangeEvents(const ChangeEvents& /*other*/)
        : ChangeEvents() {}
    ~ChangeEvents() = default;

    /** @brief Raises the definition-changed event with @p args. */
    void raiseDefinitionChanged(Args... args) { definitionChanged_->raiseEvent(args...); }

private:
    std::unique_ptr<Publisher<std::function<void(Args...)>>> definitionChanged_;
    std::unique_ptr<Publisher<std::function<void(bool)>>> changedLock_;
};

} // namespace keo::Feature
