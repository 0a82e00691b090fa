#pragma once

#include "Feature/FunctionWrapper.h"

#include <atomic>
#include <cstddef>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace keo::Feature {

template <typename Callback>
class Publisher;

/**
 * @brief An event: an ordered list of listeners, each a std::function<void(Args...)>, raised
 * with arguments of those types.
 *
 * - addEventListener appends a listener and returns a weak handle to its FunctionWrapper.
 * - raiseEvent calls the listeners in the order they were added. A listener added while the event
 *   fires is first called by the next raising; a listener removed while it fires is not called
 *   again and is unlinked (its callback released) once the outermost raising has finished.
 * - A recursive mutex guards the list, but it is not held while listeners run: a raising takes
 *   it to note that it fires and which listeners it will call, calls them unlocked, and takes it
 *   again when it ends. So a listener may raise the same event again or add and remove listeners,
 *   raisings from several threads may run at once (listeners must then be thread-safe), and an
 *   event never holds its mutex while a listener takes another lock. The last point matters: a
 *   feature locks its own mutex from a changed-lock listener and, still holding it, raises the
 *   changed-lock event again at the end of the edit; an event that held its mutex around its
 *   listeners would make that a lock-order cycle between two editing threads.
 * - While any raising is under way, removals only mark the listener and are applied (the entry
 *   unlinked and its callback released) when the last raising ends, so a running raising never
 *   sees its list change under it: appends land after the last listener it calls.
 * - A listener holding an empty std::function fails with std::bad_function_call when called; the
 *   event stays consistent (the mutex is released and pending removals are applied).
 * - Not copyable: owners hold their events through std::unique_ptr, so a copy of the owner
 *   starts with fresh, empty events and never copies listeners.
 */
template <typename... Args>
class Publisher<std::function<void(Args...)>> final {
public:
    /** @brief The callback type of the listeners. */
    using Callback = std::function<void(Args...)>;

    /** @brief An event without listeners. */
    Publisher()
        : state_(std::make_shared<State>()) {}
    /** @brief Destroys the listeners; their handles expire. */
    ~Publisher() = default;
    Publisher(const Publisher&) = delete;
    Publisher& operator=(const Publisher&) = delete;

    /** @brief Appends a listener and returns a weak handle to it. */
    std::weak_ptr<FunctionWrapper> addEventListener(Callback&& callback) {
        auto wrapper = std::make_shared<Listener>(std::move(callback), state_);
        const std::lock_guard<std::recursive_mutex> lock(state_->mutex);
        state_->listeners.push_back(wrapper);
        wrapper->position = std::prev(state_->listeners.end());
        return wrapper;
    }

    /** @brief Calls every listener in order with @p args (see the class description). */
    void raiseEvent(Args... args) {
        State& state = *state_;
        typename ListenerList::iterator it;
        typename ListenerList::iterator last;
        {
            const std::lock_guard<std::recursive_mutex> lock(state.mutex);
            if (state.listeners.empty()) {
                return;
            }
            ++state.firingDepth;
            it = state.listeners.begin();
            last = std::prev(state.listeners.end());
        }
        const FiringScope scope(state);
        // Only the listeners present when the raising began are called. While it fires nothing
        // is unlinked and appends only touch the node after `last`, so the nodes up to `last`
        // and their links stay as they are without the mutex.
        for (;; ++it) {
            Listener& listener = **it;
            if (!listener.removed) {
                listener.callback(args...);
            }
            if (it == last) {
                break;
            }
        }
    }

    /** @brief The number of listeners still attached. */
    std::size_t getListenerCount() const {
        const std::lock_guard<std::recursive_mutex> lock(state_->mutex);
        return state_->listeners.size() - state_->pendingRemovals.size();
    }

private:
    struct State;
    class Listener;
    using ListenerList = std::list<std::shared_ptr<Listener>>;

    class Listener final : public FunctionWrapper {
    public:
        Listener(Callback&& callback_, const std::shared_ptr<State>& state_)
            : callback(std::move(callback_))
            , state(state_) {}

        void remove() override {
            if (const auto owner = state.lock()) {
                owner->remove(*this);
            }
        }
        bool isConnected() const noexcept override { return !removed && !state.expired(); }

        Callback callback;
        std::weak_ptr<State> state;
        typename std::list<std::shared_ptr<Listener>>::iterator position{};
        // Written under the event's mutex; atomic so that isConnected may read it from any thread.
        std::atomic<bool> removed{false};
    };

    struct State {
        std::recursive_mutex mutex;
        std::list<std::shared_ptr<Listener>> listeners;
        std::vector<std::shared_ptr<Listener>> pendingRemovals;
        int firingDepth = 0;

        void remove(Listener& listener) {
            const std::lock_guard<std::recursive_mutex> lock(mutex);
            if (listener.removed) {
                return;
            }
            listener.removed = true;
            if (firingDepth > 0) {
                pendingRemovals.push_back(*listener.position);
                return;
            }
            // The caller holds a reference (it locked its handle), so erasing is safe here.
            listeners.erase(listener.position);
        }

        void applyPendingRemovals() noexcept {
            for (const auto& listener : pendingRemovals) {
                listeners.erase(listener->position);
                listener->callback = nullptr; // release what the callback captured
            }
            pendingRemovals.clear();
        }
    };

    // Ends a raising that was counted in (under the mutex) when it began; the last raising to
    // end applies the removals requested meanwhile, also when a listener throws.
    class FiringScope final {
    public:
        explicit FiringScope(State& state) noexcept
            : state_(state) {}
        ~FiringScope() {
            const std::lock_guard<std::recursive_mutex> lock(state_.mutex);
            if (--state_.firingDepth == 0) {
                state_.applyPendingRemovals();
            }
        }
        FiringScope(const FiringScope&) = delete;
        FiringScope& operator=(const FiringScope&) = delete;

    private:
        State& state_;
    };

    std::shared_ptr<State> state_;
};

} // namespace keo::Feature
