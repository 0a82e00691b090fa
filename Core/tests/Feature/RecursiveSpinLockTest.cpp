#include "Feature/detail/RecursiveSpinLock.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <mutex>
#include <set>
#include <thread>
#include <vector>

namespace {

using keo::Feature::detail::RecursiveSpinLock;

TEST(RecursiveSpinLockTest, TheHolderMayTakeItAgain) {
    RecursiveSpinLock lock;
    lock.lock();
    EXPECT_TRUE(lock.try_lock());
    lock.lock();
    lock.unlock();
    lock.unlock();
    lock.unlock();
    // Free again: another thread gets it at once.
    bool taken = false;
    std::thread other([&] {
        taken = lock.try_lock();
        if (taken) {
            lock.unlock();
        }
    });
    other.join();
    EXPECT_TRUE(taken);
}

TEST(RecursiveSpinLockTest, AnotherThreadCannotTakeItWhileItIsHeld) {
    RecursiveSpinLock lock;
    lock.lock();
    lock.lock();
    lock.unlock(); // still held once
    bool taken = true;
    std::thread other([&] { taken = lock.try_lock(); });
    other.join();
    EXPECT_FALSE(taken);
    lock.unlock();
}

TEST(RecursiveSpinLockTest, ALockTakenBeforeAnyOtherThreadStartedKeepsTheNewThreadOut) {
    // Run on its own (as CTest runs each test), the process has one thread here, and the lock is
    // taken without a locked instruction; a thread started afterwards must still find it held.
    RecursiveSpinLock lock;
    lock.lock();
    bool takenWhileHeld = true;
    bool takenOnceFree = false;
    std::atomic<bool> tried{false};
    std::thread other([&] {
        takenWhileHeld = lock.try_lock();
        tried.store(true);
        lock.lock();
        takenOnceFree = true;
        lock.unlock();
    });
    while (!tried.load()) {
        std::this_thread::yield();
    }
    lock.unlock();
    other.join();
    EXPECT_FALSE(takenWhileHeld);
    EXPECT_TRUE(takenOnceFree);
}

TEST(RecursiveSpinLockTest, AWaiterThroughALongHoldTakesItOnlyOnceItIsFree) {
    RecursiveSpinLock lock;
    std::atomic<bool> released{false};
    std::atomic<bool> tookItWhileHeld{false};
    std::atomic<bool> waiting{false};
    lock.lock();
    std::thread waiter([&] {
        waiting = true;
        lock.lock(); // spins, yields, then naps through the hold below
        tookItWhileHeld = !released.load();
        lock.unlock();
    });
    while (!waiting) {
        std::this_thread::yield();
    }
    // Long enough for the waiter to pass from spinning and yielding to napping.
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
    released = true;
    lock.unlock();
    waiter.join();
    EXPECT_FALSE(tookItWhileHeld);
    EXPECT_TRUE(lock.try_lock());
    lock.unlock();
}

TEST(RecursiveSpinLockTest, GuardsACounterAcrossThreads) {
    RecursiveSpinLock lock;
    std::uint64_t counter = 0; // plain: the lock alone orders the increments
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&] {
            for (int i = 0; i < 20'000; ++i) {
                const std::lock_guard<RecursiveSpinLock> outer(lock);
                const std::lock_guard<RecursiveSpinLock> inner(lock);
                ++counter;
            }
        });
    }
    for (auto& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(counter, 80'000u);
}

TEST(RecursiveSpinLockTest, ThreadTokensAreNonZeroAndDistinctAmongRunningThreads) {
    constexpr int THREADS = 8;
    std::vector<std::uint32_t> tokens(THREADS);
    std::atomic<int> arrived{0};
    std::vector<std::thread> threads;
    for (int t = 0; t < THREADS; ++t) {
        threads.emplace_back([&, t] {
            tokens[static_cast<std::size_t>(t)] = RecursiveSpinLock::currentThreadToken();
            EXPECT_EQ(RecursiveSpinLock::currentThreadToken(), tokens[static_cast<std::size_t>(t)]);
            // All alive at once, so no token is reused.
            arrived.fetch_add(1);
            while (arrived.load() < THREADS) {
                std::this_thread::yield();
            }
        });
    }
    for (auto& thread : threads) {
        thread.join();
    }
    const std::set<std::uint32_t> distinct(tokens.begin(), tokens.end());
    EXPECT_EQ(distinct.size(), static_cast<std::size_t>(THREADS));
    EXPECT_EQ(distinct.count(0u), 0u);
}

} // namespace
