#include "Feature/Publisher.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

using keo::FunctionWrapper;
using keo::Feature::Publisher;
using VoidEvent = Publisher<std::function<void()>>;
using BoolEvent = Publisher<std::function<void(bool)>>;

void removeThrough(const std::weak_ptr<FunctionWrapper>& handle) {
    if (const auto wrapper = handle.lock()) {
        wrapper->remove();
    }
}

TEST(PublisherTest, CallsListenersInTheOrderTheyWereAdded) {
    BoolEvent event;
    std::string calls;
    event.addEventListener([&](bool v) { calls += v ? "a1" : "a0"; });
    event.addEventListener([&](bool v) { calls += v ? "b1" : "b0"; });
    event.raiseEvent(true);
    event.raiseEvent(false);
    EXPECT_EQ(calls, "a1b1a0b0");
    EXPECT_EQ(event.getListenerCount(), 2u);
}

TEST(PublisherTest, RaisingWithoutListenersDoesNothing) {
    VoidEvent event;
    EXPECT_NO_THROW(event.raiseEvent());
    EXPECT_EQ(event.getListenerCount(), 0u);
}

TEST(PublisherTest, RemovedListenerIsNotCalledAgain) {
    VoidEvent event;
    int calls = 0;
    const auto handle = event.addEventListener([&] { ++calls; });
    event.raiseEvent();
    removeThrough(handle);
    event.raiseEvent();
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(event.getListenerCount(), 0u);
    EXPECT_TRUE(handle.expired()); // unlinked and freed at once outside a firing
}

TEST(PublisherTest, ListenerRemovedWhileFiringStaysLinkedUntilTheRaisingHasFinished) {
    VoidEvent event;
    std::string calls;
    std::weak_ptr<FunctionWrapper> second;
    event.addEventListener([&] {
        calls += "a";
        const auto wrapper = second.lock();
        if (wrapper) {
            wrapper->remove();
            // Still linked until this raising ends: the wrapper is alive but disconnected.
            EXPECT_FALSE(second.expired());
            EXPECT_FALSE(wrapper->isConnected());
        }
    });
    second = event.addEventListener([&] { calls += "b"; });
    event.addEventListener([&] { calls += "c"; });
    event.raiseEvent();
    EXPECT_EQ(calls, "ac");
    EXPECT_TRUE(second.expired()); // gone once the raising finished
    calls.clear();
    event.raiseEvent();
    EXPECT_EQ(calls, "ac");
}

TEST(PublisherTest, ListenerMayRemoveItselfWhileFiring) {
    VoidEvent event;
    int calls = 0;
    std::weak_ptr<FunctionWrapper> self;
    self = event.addEventListener([&] {
        ++calls;
        removeThrough(self);
    });
    event.raiseEvent();
    event.raiseEvent();
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(event.getListenerCount(), 0u);
}

TEST(PublisherTest, ListenerAddedWhileFiringIsCalledFromTheNextRaising) {
    VoidEvent event;
    int added = 0;
    bool once = false;
    event.addEventListener([&] {
        if (!once) {
            once = true;
            event.addEventListener([&] { ++added; });
        }
    });
    event.raiseEvent();
    EXPECT_EQ(added, 0);
    event.raiseEvent();
    EXPECT_EQ(added, 1);
}

TEST(PublisherTest, ListenerMayRaiseTheSameEventAgain) {
    BoolEvent event;
    std::string calls;
    event.addEventListener([&](bool first) {
        calls += first ? "T" : "F";
        if (first) {
            event.raiseEvent(false);
        }
    });
    event.raiseEvent(true);
    EXPECT_EQ(calls, "TF");
}

TEST(PublisherTest, RemovalDuringANestedRaisingWaitsForTheOutermostOne) {
    BoolEvent event;
    std::string calls;
    std::weak_ptr<FunctionWrapper> victim;
    event.addEventListener([&](bool outer) {
        if (outer) {
            event.raiseEvent(false); // the victim is removed inside this nested raising
            calls += "|";
        }
    });
    event.addEventListener([&](bool outer) {
        if (!outer) {
            removeThrough(victim);
        }
    });
    victim = event.addEventListener([&](bool) { calls += "v"; });
    event.raiseEvent(true);
    EXPECT_EQ(calls, "|");
    EXPECT_TRUE(victim.expired());
}

TEST(PublisherTest, EmptyFunctionFailsWithBadFunctionCallAndLeavesTheEventUsable) {
    VoidEvent event;
    int calls = 0;
    std::weak_ptr<FunctionWrapper> removedMeanwhile;
    event.addEventListener([&] { removeThrough(removedMeanwhile); });
    removedMeanwhile = event.addEventListener([&] { ++calls; });
    const auto empty = event.addEventListener(std::function<void()>());
    EXPECT_THROW(event.raiseEvent(), std::bad_function_call);
    EXPECT_TRUE(removedMeanwhile.expired()); // pending removals were applied despite the throw
    removeThrough(empty);
    EXPECT_NO_THROW(event.raiseEvent());
    EXPECT_EQ(calls, 0);
}

TEST(PublisherTest, HandlesExpireWithTheEvent) {
    std::weak_ptr<FunctionWrapper> handle;
    {
        VoidEvent event;
        handle = event.addEventListener([] {});
        EXPECT_FALSE(handle.expired());
    }
    EXPECT_TRUE(handle.expired());
    EXPECT_NO_THROW(removeThrough(handle));
}

TEST(PublisherTest, LockedHandleOutlivingItsEventDisconnectsSafely) {
    std::shared_ptr<FunctionWrapper> held;
    {
        VoidEvent event;
        held = event.addEventListener([] {}).lock();
        ASSERT_NE(held, nullptr);
        EXPECT_TRUE(held->isConnected());
    }
    EXPECT_FALSE(held->isConnected());
    EXPECT_NO_THROW(held->remove());
}

TEST(PublisherTest, RemovingTwiceIsHarmless) {
    VoidEvent event;
    const auto handle = event.addEventListener([] {});
    const auto wrapper = handle.lock();
    wrapper->remove();
    wrapper->remove();
    EXPECT_FALSE(wrapper->isConnected());
    EXPECT_EQ(event.getListenerCount(), 0u);
}

TEST(PublisherTest, RemovedListenerReleasesWhatItCaptured) {
    VoidEvent event;
    const auto token = std::make_shared<int>(1);
    std::weak_ptr<int> watch = token;
    std::weak_ptr<FunctionWrapper> handle;
    handle = event.addEventListener([token, &handle] { removeThrough(handle); });
    event.raiseEvent();
    EXPECT_EQ(watch.use_count(), 1); // only the test holds it now
}

TEST(PublisherTest, ConcurrentRaisingAndSubscribingIsSafe) {
    VoidEvent event;
    std::atomic<int> calls{0};
    event.addEventListener([&] { calls.fetch_add(1, std::memory_order_relaxed); });
    std::thread raiser([&] {
        for (int i = 0; i < 2000; ++i) {
            event.raiseEvent();
        }
    });
    std::thread subscriber([&] {
        for (int i = 0; i < 2000; ++i) {
            removeThrough(event.addEventListener([] {}));
        }
    });
    raiser.join();
    subscriber.join();
    EXPECT_EQ(calls.load(), 2000);
    EXPECT_EQ(event.getListenerCount(), 1u);
}

TEST(PublisherTest, AcceptsAPlainCallableAsWellAsAStdFunction) {
    BoolEvent event;
    std::string calls;
    std::function<void(bool)> wrapped = [&](bool v) { calls += v ? "f1" : "f0"; };
    event.addEventListener(std::move(wrapped));
    const auto lambda = [&](bool v) { calls += v ? "l1" : "l0"; };
    event.addEventListener(lambda); // copied in, stored as it is
    event.raiseEvent(true);
    EXPECT_EQ(calls, "f1l1");
    EXPECT_EQ(event.getListenerCount(), 2u);
}

TEST(PublisherTest, ListenerCountLeavesOutListenersRemovedWhileFiring) {
    VoidEvent event;
    std::size_t countSeenInside = 0;
    std::weak_ptr<FunctionWrapper> second;
    event.addEventListener([&] {
        removeThrough(second);
        countSeenInside = event.getListenerCount();
    });
    second = event.addEventListener([] {});
    event.raiseEvent();
    EXPECT_EQ(countSeenInside, 1u);
    EXPECT_EQ(event.getListenerCount(), 1u);
}

TEST(PublisherTest, RemovingTheFirstMiddleAndLastListenersKeepsTheOthersInOrder) {
    VoidEvent event;
    std::string calls;
    std::vector<std::weak_ptr<FunctionWrapper>> handles;
    for (const char name : std::string("abcde")) {
        handles.push_back(event.addEventListener([&calls, name] { calls += name; }));
    }
    removeThrough(handles[0]);
    removeThrough(handles[2]);
    removeThrough(handles[4]);
    event.raiseEvent();
    EXPECT_EQ(calls, "bd");
    event.addEventListener([&] { calls += "f"; });
    calls.clear();
    event.raiseEvent();
    EXPECT_EQ(calls, "bdf");
}

TEST(PublisherTest, AnEventWithManyListenersIsDestroyedWithoutDeepRecursion) {
    std::vector<std::weak_ptr<FunctionWrapper>> handles;
    {
        VoidEvent event;
        // Each entry owns the next one: a recursive release would take a stack frame per
        // listener and overflow long before a million.
        for (int i = 0; i < 1'000'000; ++i) {
            auto handle = event.addEventListener([] {});
            if (i % 100'000 == 0) {
                handles.push_back(std::move(handle));
            }
        }
        EXPECT_EQ(event.getListenerCount(), 1'000'000u);
    }
    for (const auto& handle : handles) {
        EXPECT_TRUE(handle.expired());
    }
}

TEST(PublisherTest, HandlesLockedOnAnotherThreadWhileTheEventGoesAwayDisconnectSafely) {
    for (int round = 0; round < 200; ++round) {
        auto event = std::make_unique<VoidEvent>();
        std::vector<std::weak_ptr<FunctionWrapper>> handles;
        for (int i = 0; i < 16; ++i) {
            handles.push_back(event->addEventListener([] {}));
        }
        std::atomic<bool> go{false};
        std::thread remover([&] {
            while (!go.load()) {
            }
            for (const auto& handle : handles) {
                removeThrough(handle);
            }
        });
        go.store(true);
        event.reset();
        remover.join();
        for (const auto& handle : handles) {
            EXPECT_TRUE(handle.expired());
        }
    }
}

TEST(PublisherTest, ListenerRemovedOutsideAFiringReleasesWhatItCapturedAtOnce) {
    VoidEvent event;
    const auto token = std::make_shared<int>(1);
    const std::weak_ptr<int> watch = token;
    const auto handle = event.addEventListener([token] {});
    const auto held = handle.lock(); // a handle locked elsewhere keeps the wrapper alive
    ASSERT_NE(held, nullptr);
    held->remove();
    EXPECT_FALSE(held->isConnected());
    EXPECT_EQ(watch.use_count(), 1); // the wrapper lives on, its callback does not
    EXPECT_EQ(event.getListenerCount(), 0u);
}

} // namespace
