#pragma once

// Not part of the API: the lock of the kit's events and features, installed only because the
// event template and the feature hold it. It may change without notice.

#include "Feature/FeatureExport.h"
#include "Feature/detail/SingleThread.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <thread>

namespace keo::Feature::detail {

/**
 * @brief A recursive lock of 8 bytes: the thread that holds it may take it again; other threads
 * spin briefly, then yield, and after a while sleep in short naps until it is free.
 *
 * Events use it instead of std::recursive_mutex (40 bytes, and one more allocation where it must
 * be held by pointer): they hold it only to link, unlink or count, never while a listener runs,
 * and a kit with a million features holds several events per feature. Features hold it around an
 * edit or an update, which rarely meet on two threads; the naps keep a waiter from burning a core
 * through a long update. Meets the Lockable requirements, so std::lock_guard works with it.
 */
class KEO_FEATURE_API RecursiveSpinLock final {
public:
    /** @brief An unlocked lock. */
    RecursiveSpinLock() noexcept = default;
    RecursiveSpinLock(const RecursiveSpinLock&) = delete;
    RecursiveSpinLock& operator=(const RecursiveSpinLock&) = delete;

    /** @brief Takes the lock; the holder may take it again (each lock needs its unlock). */
    void lock() noexcept {
        const std::uint32_t self = currentThreadToken();
        // Only this thread ever stores its own token, so a relaxed load that sees it is exact.
        if (owner_.load(std::memory_order_relaxed) == self) {
            ++depth_;
            return;
        }
        for (unsigned attempts = 0; !tryTake(self); ++attempts) {
            // A holder that does not let go within a few hundred cycles has most likely been
            // preempted or is in a long update: give it the core instead of burning ours, and
            // once yielding has not helped for a while, nap.
            if (attempts >= ATTEMPTS_BEFORE_NAP) {
                std::this_thread::sleep_for(NAP);
            } else if (attempts >= SPINS_BEFORE_YIELD) {
                std::this_thread::yield();
            }
        }
        depth_ = 1;
    }

    /** @brief Takes the lock if it is free or already held by this thread. */
    bool try_lock() noexcept {
        const std::uint32_t self = currentThreadToken();
        if (owner_.load(std::memory_order_relaxed) == self) {
            ++depth_;
            return true;
        }
        if (!tryTake(self)) {
            return false;
        }
        depth_ = 1;
        return true;
    }

    /** @brief Releases one level; the last one frees the lock. Only the holder may call it. */
    void unlock() noexcept {
        if (--depth_ == 0) {
            owner_.store(NO_THREAD, std::memory_order_release);
        }
    }

    /**
     * @brief A number that tells the calling thread from every other running thread (never 0).
     * One definition in the library, so that inline code of every binary sees the same number.
     */
    static std::uint32_t currentThreadToken() noexcept;

private:
    static constexpr unsigned SPINS_BEFORE_YIELD = 64;
    static constexpr unsigned ATTEMPTS_BEFORE_NAP = 1024;
    static constexpr std::chrono::microseconds NAP{20};
    static constexpr std::uint32_t NO_THREAD = 0;

    // Test before the exchange, so that waiting threads read a shared cache line instead of
    // fighting over it with writes.
    bool tryTake(std::uint32_t self) noexcept {
        if (noOtherThread()) {
            // Free, since the only thread does not hold it (lock and try_lock checked).
            owner_.store(self, std::memory_order_relaxed);
            return true;
        }
        std::uint32_t expected = NO_THREAD;
        return owner_.load(std::memory_order_relaxed) == expected &&
               owner_.compare_exchange_weak(expected, self, std::memory_order_acquire,
                                            std::memory_order_relaxed);
    }

    std::atomic<std::uint32_t> owner_{NO_THREAD};
    // Written only by the holder.
    std::uint32_t depth_ = 0;
};

} // namespace keo::Feature::detail
