#pragma once

#include "Feature/FunctionWrapper.h"
#include "Feature/detail/ListenerCheck.h"
#include "Feature/detail/RecursiveSpinLock.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <new>
#include <type_traits>
#include <utility>

namespace keo::Feature {

template <typename Callback>
class Publisher;

/**
 * @brief An event: an ordered list of listeners, each a callable of the signature void(Args...),
 * raised with arguments of those types.
 *
 * - addEventListener appends a listener and returns a weak handle to its FunctionWrapper. It
 *   takes a std::function or, to save the std::function's own storage, any other callable. A
 *   callable that cannot be called with Args... is refused at compile time with one
 *   static_assert that names the event (see detail::ListenerRule).
 * - raiseEvent calls the listeners in the order they were added. A listener added while the event
 *   fires is first called by the next raising; a listener removed while it fires is not called
 *   again and is unlinked (its callback released) once the outermost raising has finished.
 * - A recursive lock guards the list, but it is not held while listeners run: a raising takes
 *   it to note that it fires and which listeners it will call, calls them unlocked, and takes it
 *   again when it ends. So a listener may raise the same event again or add and remove listeners,
 *   raisings from several threads may run at once (listeners must then be thread-safe), and an
 *   event never holds its lock while a listener takes another lock. The last point matters: a
 *   feature locks its own mutex from a changed-lock listener and, still holding it, raises the
 *   changed-lock event again at the end of the edit; an event that held its lock around its
 *   listeners would make that a lock-order cycle between two editing threads.
 * - While any raising is under way, removals only mark the listener and are applied (the entry
 *   unlinked and its callback released) when the last raising ends, so a running raising never
 *   sees its list change under it: appends land after the last listener it calls.
 * - A listener holding an empty std::function fails with std::bad_function_call when called; the
 *   event stays consistent (the lock is released and pending removals are applied).
 * - Memory: an event without listeners is one pointer. Its state (the lock, the list ends and
 *   the counts, 48 bytes) is made by the first addEventListener; each listener is one allocation
 *   that also carries its link to the next one. Objects with several events and 100,000s of
 *   features in a scene make this matter.
 * - Not copyable: an owner's copy starts with fresh, empty events and never copies listeners.
 *   An event must outlive its raisings; a handle may outlive the event (it then has expired, or,
 *   when locked at that moment, is disconnected and its remove() does nothing).
 */
template <typename... Args>
class Publisher<std::function<void(Args...)>> final {
public:
    /** @brief The callback type of the listeners. */
    using Callback = std::function<void(Args...)>;

    /** @brief An event without listeners; allocates nothing. */
    Publisher() noexcept = default;
    /** @brief Disconnects and releases the listeners; their handles expire. */
    ~Publisher() {
        State* const state = state_.load(std::memory_order_acquire);
        if (state != nullptr) {
            state->close();
        }
    }
    Publisher(const Publisher&) = delete;
    Publisher& operator=(const Publisher&) = delete;

    /** @brief Appends @p callback as a listener and returns a weak handle to it. */
    std::weak_ptr<FunctionWrapper> addEventListener(Callback&& callback) {
        return append<Callback>(std::move(callback));
    }

    /**
     * @brief Appends the callable @p callback as a listener, stored as it is (a lambda, a
     * function pointer, a std::function lvalue, a mutable or generic lambda: no std::function
     * around it), and returns a weak handle to it. What is not callable with Args... but makes a
     * Callback (a null pointer: an empty listener) is stored as that Callback. Anything else does
     * not compile: one static_assert names the event and the signature its listeners need.
     */
    template <typename Function>
    std::weak_ptr<FunctionWrapper> addEventListener(Function&& callback) {
        if constexpr (!detail::IS_LISTENER<void(Args...), Function>) {
            detail::refuseListener<void(Args...), Function>();
            return {};
        } else if constexpr (std::is_invocable_v<std::decay_t<Function>&, Args...>) {
            return append<std::decay_t<Function>>(std::forward<Function>(callback));
        } else {
            return addEventListener(Callback(std::forward<Function>(callback)));
        }
    }

    /** @brief Calls every listener in order with @p args (see the class description). */
    void raiseEvent(Args... args) {
        State* const state = state_.load(std::memory_order_acquire);
        if (state == nullptr) {
            return;
        }
        ListenerBase* it = nullptr;
        ListenerBase* last = nullptr;
        {
            const std::lock_guard<detail::RecursiveSpinLock> lock(state->lock);
            if (!state->head) {
                return;
            }
            ++state->firingDepth;
            it = state->head.get();
            last = state->tail;
        }
        const FiringScope scope(*state);
        // Only the listeners present when the raising began are called. While it fires nothing
        // is unlinked and appends only touch the link after `last`, so the entries up to `last`
        // and their links stay as they are without the lock.
        for (;;) {
            if (!it->removed.load(std::memory_order_relaxed)) {
                it->call(args...);
            }
            if (it == last) {
                break;
            }
            it = it->next.get();
        }
    }

    /** @brief The number of listeners still attached. */
    std::size_t getListenerCount() const {
        State* const state = state_.load(std::memory_order_acquire);
        if (state == nullptr) {
            return 0;
        }
        const std::lock_guard<detail::RecursiveSpinLock> lock(state->lock);
        return state->linked - state->pendingRemovals;
    }

private:
    struct State;

    // A listener and its entry in the list: the entry before it (or the list head) owns it
    // through `next`, and handles see it through weak pointers. It keeps its event's state alive
    // (one reference), so that a handle locked while the event goes away still finds a lock.
    class ListenerBase : public FunctionWrapper {
    public:
        explicit ListenerBase(State& owner) noexcept
            : state(&owner) {
            owner.refs.fetch_add(1, std::memory_order_relaxed);
        }
        ~ListenerBase() override { state->release(); }
        ListenerBase(const ListenerBase&) = delete;
        ListenerBase& operator=(const ListenerBase&) = delete;

        void remove() override { state->remove(*this); }
        bool isConnected() const noexcept override {
            return !removed.load(std::memory_order_acquire);
        }

        virtual void call(Args... args) = 0;
        // Destroys the stored callable (what it captured); called once the entry is unlinked.
        virtual void releaseCallback() noexcept = 0;

        State* const state;
        std::shared_ptr<ListenerBase> next;
        ListenerBase* previous = nullptr;
        // Written under the event's lock; atomic because raisings and isConnected read it
        // without the lock.
        std::atomic<bool> removed{false};

    protected:
        bool holdsCallback = true;
    };

    template <typename Function>
    class Listener final : public ListenerBase {
    public:
        template <typename Source>
        Listener(Source&& callback, State& owner)
            : ListenerBase(owner) {
            ::new (static_cast<void*>(storage_)) Function(std::forward<Source>(callback));
        }
        ~Listener() override { releaseCallback(); }

        void call(Args... args) override { function()(args...); }
        void releaseCallback() noexcept override {
            if (this->holdsCallback) {
                this->holdsCallback = false;
                function().~Function();
            }
        }

    private:
        Function& function() noexcept {
            return *std::launder(reinterpret_cast<Function*>(storage_));
        }

        // The callable in place (no std::optional: its flag would cost a word in most entries).
        alignas(Function) unsigned char storage_[sizeof(Function)];
    };

    struct State {
        detail::RecursiveSpinLock lock;
        std::shared_ptr<ListenerBase> head;
        ListenerBase* tail = nullptr;
        // The event's reference plus one per listener object still alive.
        std::atomic<std::uint32_t> refs{1};
        std::uint32_t firingDepth = 0;
        std::uint32_t linked = 0;
        std::uint32_t pendingRemovals = 0;

        void release() noexcept {
            if (refs.fetch_sub(1, std::memory_order_acq_rel) == 1) {
                delete this;
            }
        }

        void append(std::shared_ptr<ListenerBase>&& listener) noexcept {
            const std::lock_guard<detail::RecursiveSpinLock> guard(lock);
            listener->previous = tail;
            ListenerBase* const added = listener.get();
            (tail != nullptr ? tail->next : head) = std::move(listener);
            tail = added;
            ++linked;
        }

        // Takes the entry out of the list and returns the owning pointer, so that the caller
        // destroys it (and what its callback captured) after letting go of the lock.
        std::shared_ptr<ListenerBase> unlink(ListenerBase& listener) noexcept {
            std::shared_ptr<ListenerBase>& owning =
                listener.previous != nullptr ? listener.previous->next : head;
            std::shared_ptr<ListenerBase> taken = std::move(owning);
            owning = std::move(listener.next);
            if (owning) {
                owning->previous = listener.previous;
            } else {
                tail = listener.previous;
            }
            listener.previous = nullptr;
            --linked;
            return taken;
        }

        void remove(ListenerBase& listener) {
            std::shared_ptr<ListenerBase> taken;
            {
                const std::lock_guard<detail::RecursiveSpinLock> guard(lock);
                if (listener.removed.load(std::memory_order_relaxed)) {
                    return;
                }
                listener.removed.store(true, std::memory_order_release);
                if (firingDepth > 0) {
                    ++pendingRemovals;
                    return;
                }
                taken = unlink(listener);
            }
            taken->releaseCallback();
        }

        // Unlinks the entries removed while the event fired; they are chained through their
        // `next` links and destroyed by the caller after the lock is released.
        std::shared_ptr<ListenerBase> unlinkPendingRemovals() noexcept {
            std::shared_ptr<ListenerBase> garbage;
            for (ListenerBase* it = head.get(); pendingRemovals > 0 && it != nullptr;) {
                ListenerBase* const following = it->next.get();
                if (it->removed.load(std::memory_order_relaxed)) {
                    std::shared_ptr<ListenerBase> taken = unlink(*it);
                    taken->next = std::move(garbage);
                    garbage = std::move(taken);
                    --pendingRemovals;
                }
                it = following;
            }
            return garbage;
        }

        // The event is going away: disconnect every listener, release the callbacks and drop
        // the event's reference (the state lives on while a locked handle holds a listener).
        void close() noexcept {
            std::shared_ptr<ListenerBase> chain;
            {
                const std::lock_guard<detail::RecursiveSpinLock> guard(lock);
                for (ListenerBase* it = head.get(); it != nullptr; it = it->next.get()) {
                    it->removed.store(true, std::memory_order_release);
                }
                chain = std::move(head);
                tail = nullptr;
                linked = 0;
                pendingRemovals = 0;
            }
            destroyChain(std::move(chain));
            release();
        }
    };

    // Releases a chain of entries linked through `next` one by one: letting the first owning
    // pointer go would destroy the rest recursively, one stack frame per listener.
    static void destroyChain(std::shared_ptr<ListenerBase>&& chain) noexcept {
        while (chain) {
            std::shared_ptr<ListenerBase> following = std::move(chain->next);
            chain->previous = nullptr;
            chain->releaseCallback();
            chain = std::move(following);
        }
    }

    // Ends a raising that was counted in (under the lock) when it began; the last raising to
    // end applies the removals requested meanwhile, also when a listener throws.
    class FiringScope final {
    public:
        explicit FiringScope(State& state) noexcept
            : state_(state) {}
        ~FiringScope() {
            std::shared_ptr<ListenerBase> garbage;
            {
                const std::lock_guard<detail::RecursiveSpinLock> lock(state_.lock);
                if (--state_.firingDepth == 0 && state_.pendingRemovals > 0) {
                    garbage = state_.unlinkPendingRemovals();
                }
            }
            destroyChain(std::move(garbage));
        }
        FiringScope(const FiringScope&) = delete;
        FiringScope& operator=(const FiringScope&) = delete;

    private:
        State& state_;
    };

    // The state, made by the first listener. Two threads adding the first listeners at once
    // both make one; the one that loses the exchange deletes its own.
    State& acquireState() {
        State* state = state_.load(std::memory_order_acquire);
        if (state != nullptr) {
            return *state;
        }
        auto fresh = std::make_unique<State>();
        if (state_.compare_exchange_strong(state, fresh.get(), std::memory_order_acq_rel,
                                           std::memory_order_acquire)) {
            return *fresh.release();
        }
        return *state;
    }

    template <typename Function, typename Source>
    std::weak_ptr<FunctionWrapper> append(Source&& callback) {
        State& state = acquireState();
        auto listener = std::make_shared<Listener<Function>>(std::forward<Source>(callback), state);
        std::weak_ptr<FunctionWrapper> handle = listener;
        state.append(std::move(listener));
        return handle;
    }

    std::atomic<State*> state_{nullptr};
};

} // namespace keo::Feature
