#include "Feature/detail/SubscriptionPair.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstddef>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

using keo::Feature::detail::RelayChain;
using keo::Feature::detail::SubscriptionPair;

// An object whose events are relayed to its holders.
struct Source {
    RelayChain& _getRelayChain() noexcept { return chain; }
    RelayChain chain;
};

// A holder that writes what reaches it into a shared journal, under its name.
struct Holder {
    Holder(std::string holderName, std::string& journal)
        : name(std::move(holderName))
        , log(journal) {}
    void _raiseDefinitionChangedEvent() {
        log += name + "D ";
        if (onChange) {
            onChange();
        }
    }
    void _raiseChangedLockEvent(bool locked) { log += name + (locked ? "L " : "U "); }

    std::string name;
    std::string& log;
    std::function<void()> onChange;
    SubscriptionPair pair;
};

TEST(SubscriptionPairTest, AHolderHearsBothEventsWithTheFlag) {
    Source source;
    std::string log;
    Holder a("a", log);
    a.pair.relay(source, a);
    EXPECT_TRUE(a.pair.isConnected());
    source.chain.raiseChangedLock(true);
    source.chain.raiseChangedLock(false);
    source.chain.raiseDefinitionChanged();
    EXPECT_EQ(log, "aL aU aD ");
}

TEST(SubscriptionPairTest, HoldersAreCalledInTheOrderTheyWereLinked) {
    Source source;
    std::string log;
    Holder a("a", log);
    Holder b("b", log);
    Holder c("c", log);
    b.pair.relay(source, b);
    a.pair.relay(source, a);
    c.pair.relay(source, c);
    source.chain.raiseDefinitionChanged();
    EXPECT_EQ(log, "bD aD cD ");
}

TEST(SubscriptionPairTest, DisconnectingOrDestroyingThePairStopsTheRelay) {
    Source source;
    std::string log;
    Holder a("a", log);
    a.pair.relay(source, a);
    {
        Holder b("b", log);
        b.pair.relay(source, b);
    }
    a.pair.disconnect();
    EXPECT_FALSE(a.pair.isConnected());
    a.pair.disconnect(); // twice is harmless
    source.chain.raiseDefinitionChanged();
    EXPECT_EQ(log, "");
}

TEST(SubscriptionPairTest, ConnectingAgainMovesTheLinkToTheNewSource) {
    Source first;
    Source second;
    std::string log;
    Holder a("a", log);
    a.pair.relay(first, a);
    a.pair.relay(second, a);
    first.chain.raiseDefinitionChanged();
    EXPECT_EQ(log, "");
    second.chain.raiseDefinitionChanged();
    EXPECT_EQ(log, "aD ");
}

TEST(SubscriptionPairTest, ACopyStartsUnlinked) {
    Source source;
    std::string log;
    Holder a("a", log);
    a.pair.relay(source, a);
    const SubscriptionPair copy(a.pair);
    EXPECT_FALSE(copy.isConnected());
    SubscriptionPair assigned;
    assigned = a.pair;
    EXPECT_FALSE(assigned.isConnected());
    source.chain.raiseDefinitionChanged();
    EXPECT_EQ(log, "aD ");
}

TEST(SubscriptionPairTest, AHolderLinkedWhileTheChainRaisesIsFirstCalledByTheNextRaising) {
    for (const int holdersBefore : {1, 2}) {
        SCOPED_TRACE(holdersBefore);
        Source source;
        std::string log;
        Holder a("a", log);
        Holder b("b", log);
        Holder late("late", log);
        a.onChange = [&] { late.pair.relay(source, late); };
        a.pair.relay(source, a);
        if (holdersBefore == 2) {
            b.pair.relay(source, b);
        }
        source.chain.raiseDefinitionChanged();
        EXPECT_EQ(log, holdersBefore == 2 ? "aD bD " : "aD ");
        log.clear();
        a.onChange = nullptr;
        source.chain.raiseDefinitionChanged();
        EXPECT_EQ(log, holdersBefore == 2 ? "aD bD lateD " : "aD lateD ");
    }
}

TEST(SubscriptionPairTest, AHolderUnlinkedByAnEarlierOneWhileTheChainRaisesIsNotCalled) {
    Source source;
    std::string log;
    Holder a("a", log);
    Holder b("b", log);
    Holder c("c", log);
    Holder d("d", log);
    a.onChange = [&] {
        b.pair.disconnect(); // the next one
        d.pair.disconnect(); // the last one
    };
    for (Holder* h : {&a, &b, &c, &d}) {
        h->pair.relay(source, *h);
    }
    source.chain.raiseDefinitionChanged();
    EXPECT_EQ(log, "aD cD ");
}

TEST(SubscriptionPairTest, AHolderThatUnlinksItselfWhileCalledLetsTheOthersBeCalled) {
    Source source;
    std::string log;
    Holder a("a", log);
    Holder b("b", log);
    a.onChange = [&] { a.pair.disconnect(); };
    a.pair.relay(source, a);
    b.pair.relay(source, b);
    source.chain.raiseDefinitionChanged();
    source.chain.raiseDefinitionChanged();
    EXPECT_EQ(log, "aD bD bD ");
}

TEST(SubscriptionPairTest, AHolderDestroyedWhileCalledLeavesTheRaisingSound) {
    Source source;
    std::string log;
    auto doomed = std::make_unique<Holder>("x", log);
    Holder b("b", log);
    doomed->onChange = [&] { doomed.reset(); };
    doomed->pair.relay(source, *doomed);
    b.pair.relay(source, b);
    source.chain.raiseDefinitionChanged();
    EXPECT_EQ(doomed, nullptr);
    EXPECT_EQ(log, "xD bD ");
}

TEST(SubscriptionPairTest, ARelayMayRaiseTheSameChainAgain) {
    Source source;
    std::string log;
    Holder a("a", log);
    Holder b("b", log);
    int depth = 0;
    a.onChange = [&] {
        if (++depth == 1) {
            source.chain.raiseDefinitionChanged();
        }
    };
    a.pair.relay(source, a);
    b.pair.relay(source, b);
    source.chain.raiseDefinitionChanged();
    EXPECT_EQ(log, "aD aD bD bD ");
}

TEST(SubscriptionPairTest, AThrowingRelayLeavesTheChainUsable) {
    Source source;
    std::string log;
    Holder a("a", log);
    Holder b("b", log);
    a.onChange = [] { throw std::runtime_error("listener failed"); };
    a.pair.relay(source, a);
    b.pair.relay(source, b);
    EXPECT_THROW(source.chain.raiseDefinitionChanged(), std::runtime_error);
    a.onChange = nullptr;
    b.pair.disconnect();
    source.chain.raiseDefinitionChanged();
    EXPECT_EQ(log, "aD aD ");
}

TEST(SubscriptionPairTest, HoldersStillLinkedWhenTheChainGoesAreLeftUnlinked) {
    std::string log;
    Holder a("a", log);
    Holder b("b", log);
    {
        Source source;
        a.pair.relay(source, a);
        b.pair.relay(source, b);
    }
    EXPECT_FALSE(a.pair.isConnected());
    EXPECT_FALSE(b.pair.isConnected());
    a.pair.disconnect();
}

TEST(SubscriptionPairTest, AChainDestroyedWhileRaisedAfterItsHoldersUnlinkedEndsTheRaising) {
    auto source = std::make_unique<Source>();
    std::string log;
    Holder a("a", log);
    Holder b("b", log);
    Holder c("c", log);
    // The first holder unlinks every holder, then destroys the object it was told about.
    a.onChange = [&] {
        a.pair.disconnect();
        b.pair.disconnect();
        c.pair.disconnect();
        source.reset();
    };
    a.pair.relay(*source, a);
    b.pair.relay(*source, b);
    c.pair.relay(*source, c);
    source->chain.raiseDefinitionChanged();
    EXPECT_EQ(source, nullptr);
    EXPECT_EQ(log, "aD ");
    // The pairs are free to link into another chain.
    Source other;
    b.pair.relay(other, b);
    other.chain.raiseDefinitionChanged();
    EXPECT_EQ(log, "aD bD ");
}

TEST(SubscriptionPairTest, RaisingLinkingAndUnlinkingOnSeveralThreadsStress) {
    Source source;
    std::atomic<int> calls{0};
    struct Counter {
        explicit Counter(std::atomic<int>& count)
            : calls(count) {}
        void _raiseDefinitionChangedEvent() { calls.fetch_add(1, std::memory_order_relaxed); }
        void _raiseChangedLockEvent(bool /*locked*/) {}
        std::atomic<int>& calls;
        SubscriptionPair pair;
    };
    Counter steady(calls);
    steady.pair.relay(source, steady);
    std::atomic<bool> stop{false};
    std::vector<std::thread> raisers;
    for (int t = 0; t < 2; ++t) {
        raisers.emplace_back([&] {
            while (!stop.load(std::memory_order_relaxed)) {
                source.chain.raiseDefinitionChanged();
            }
        });
    }
    // The holders live on while others raise: only their links come and go.
    std::vector<std::unique_ptr<Counter>> transient;
    for (int i = 0; i < 8; ++i) {
        transient.push_back(std::make_unique<Counter>(calls));
    }
    std::thread churn([&] {
        for (int i = 0; i < 20000; ++i) {
            Counter& holder = *transient[static_cast<std::size_t>(i) % transient.size()];
            if (holder.pair.isConnected()) {
                holder.pair.disconnect();
            } else {
                holder.pair.relay(source, holder);
            }
        }
        for (auto& holder : transient) {
            holder->pair.disconnect();
        }
        stop.store(true, std::memory_order_relaxed);
    });
    churn.join();
    for (auto& raiser : raisers) {
        raiser.join();
    }
    const int before = calls.load();
    source.chain.raiseDefinitionChanged();
    EXPECT_EQ(calls.load(), before + 1); // only the steady holder is left
}

} // namespace
