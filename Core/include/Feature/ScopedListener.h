#pragma once

#include "Feature/FunctionWrapper.h"

#include <memory>
#include <utility>

namespace keo::Feature {

/**
 * @brief Removes the listener behind @p handle from its event, if both still exist. A handle
 * whose listener was removed already, or whose event is gone, has simply expired: nothing
 * happens. While the event is firing, the listener is not called again and is unlinked once that
 * firing has finished (see keo::FunctionWrapper::remove).
 */
inline void removeListener(const std::weak_ptr<FunctionWrapper>& handle) noexcept {
    if (const auto wrapper = handle.lock()) {
        wrapper->remove();
    }
}

/**
 * @brief Owns one listener of an event of the kit and removes it when it goes out of scope, so
 * that a listener never outlives the object that registered it.
 *
 * It takes the handle that an `_add...EventListener` call returns:
 * @code
 * ScopedListener listener(style->_addDefinitionChangedEventListener([](const Style*) { ... }));
 * @endcode
 * Move-only: a moved-from listener holds nothing, and assigning over a listener removes the one
 * it held. Safe whatever the order of destruction: once the event is gone, the handle has expired
 * and destroying or resetting the ScopedListener does nothing.
 */
class ScopedListener final {
public:
    /** @brief Holds no listener. */
    ScopedListener() noexcept = default;
    /** @brief Takes over @p handle, as returned by an `_add...EventListener` call. */
    explicit ScopedListener(std::weak_ptr<FunctionWrapper> handle) noexcept
        : handle_(std::move(handle)) {}
    /** @brief Takes over @p other's listener; @p other holds none afterwards. */
    ScopedListener(ScopedListener&& other) noexcept
        : handle_(std::exchange(other.handle_, {})) {}
    /** @brief Removes the held listener, then takes over @p other's. */
    ScopedListener& operator=(ScopedListener&& other) noexcept {
        if (this != &other) {
            reset();
            handle_ = std::exchange(other.handle_, {});
        }
        return *this;
    }
    ScopedListener(const ScopedListener&) = delete;
    ScopedListener& operator=(const ScopedListener&) = delete;
    /** @brief Removes the held listener (see reset). */
    ~ScopedListener() { reset(); }

    /** @brief Removes the held listener from its event, if both still exist, and forgets it. */
    void reset() noexcept {
        removeListener(handle_);
        handle_.reset();
    }
    /** @brief Forgets the listener without removing it, and hands its handle back. */
    std::weak_ptr<FunctionWrapper> release() noexcept { return std::exchange(handle_, {}); }
    /** @brief Whether the held listener is still attached to a living event. */
    bool isConnected() const noexcept {
        const auto wrapper = handle_.lock();
        return wrapper && wrapper->isConnected();
    }
    /** @brief The held handle (empty when none). */
    const std::weak_ptr<FunctionWrapper>& getHandle() const noexcept { return handle_; }

private:
    std::weak_ptr<FunctionWrapper> handle_;
};

} // namespace keo::Feature
