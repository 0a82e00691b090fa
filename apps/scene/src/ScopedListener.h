#pragma once

#include "Feature/FunctionWrapper.h"

#include <memory>
#include <utility>

namespace keo::scene {

/**
 * @brief Owns one listener handle of a kit event and removes the listener when it goes (a handle
 * whose event is gone has simply expired). Movable, not copyable.
 */
class ScopedListener final {
public:
    /** @brief No listener. */
    ScopedListener() = default;
    /** @brief Takes over @p handle, as returned by an `_add...EventListener` call. */
    explicit ScopedListener(std::weak_ptr<FunctionWrapper> handle) noexcept
        : handle_(std::move(handle)) {}
    ScopedListener(ScopedListener&& other) noexcept = default;
    ScopedListener& operator=(ScopedListener&& other) noexcept {
        if (this != &other) {
            reset();
            handle_ = std::move(other.handle_);
        }
        return *this;
    }
    ScopedListener(const ScopedListener&) = delete;
    ScopedListener& operator=(const ScopedListener&) = delete;
    ~ScopedListener() { reset(); }

    /** @brief Removes the listener, if it is still attached, and forgets the handle. */
    void reset() noexcept {
        if (const auto wrapper = handle_.lock()) {
            wrapper->remove();
        }
        handle_.reset();
    }

private:
    std::weak_ptr<FunctionWrapper> handle_;
};

} // namespace keo::scene
