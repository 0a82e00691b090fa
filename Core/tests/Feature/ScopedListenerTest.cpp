#include "Feature/ScopedListener.h"

#include "Feature/ColorMaterial.h"
#include "Feature/Publisher.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>

namespace {

using keo::Feature::Publisher;
using keo::Feature::ScopedListener;
using VoidEvent = Publisher<std::function<void()>>;

static_assert(!std::is_copy_constructible_v<ScopedListener>, "a listener has one owner");
static_assert(!std::is_copy_assignable_v<ScopedListener>, "a listener has one owner");
static_assert(std::is_nothrow_move_constructible_v<ScopedListener>);
static_assert(std::is_nothrow_move_assignable_v<ScopedListener>);

TEST(ScopedListenerTest, RemovesItsListenerWhenDestroyed) {
    VoidEvent event;
    int calls = 0;
    {
        const ScopedListener listener(event.addEventListener([&] { ++calls; }));
        event.raiseEvent();
        EXPECT_TRUE(listener.isConnected());
    }
    event.raiseEvent();
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(event.getListenerCount(), 0u);
}

TEST(ScopedListenerTest, MoveHandsTheListenerOverAndLeavesTheSourceEmpty) {
    VoidEvent event;
    int calls = 0;
    ScopedListener first(event.addEventListener([&] { ++calls; }));
    ScopedListener second(std::move(first));
    EXPECT_FALSE(first.isConnected()); // NOLINT(bugprone-use-after-move): checked on purpose
    EXPECT_TRUE(second.isConnected());
    first.reset(); // nothing held: the listener stays
    event.raiseEvent();
    EXPECT_EQ(calls, 1);
    { const ScopedListener third(std::move(second)); }
    event.raiseEvent();
    EXPECT_EQ(calls, 1);
}

TEST(ScopedListenerTest, AssigningOverAListenerRemovesTheOneItHeld) {
    VoidEvent event;
    int oldCalls = 0;
    int newCalls = 0;
    ScopedListener listener(event.addEventListener([&] { ++oldCalls; }));
    listener = ScopedListener(event.addEventListener([&] { ++newCalls; }));
    event.raiseEvent();
    EXPECT_EQ(oldCalls, 0);
    EXPECT_EQ(newCalls, 1);
    EXPECT_EQ(event.getListenerCount(), 1u);
}

TEST(ScopedListenerTest, OutlivingItsEventIsSafe) {
    auto event = std::make_unique<VoidEvent>();
    ScopedListener listener(event->addEventListener([] {}));
    EXPECT_TRUE(listener.isConnected());
    event.reset();
    EXPECT_FALSE(listener.isConnected());
    EXPECT_NO_THROW(listener.reset());
    EXPECT_TRUE(listener.getHandle().expired());
}

TEST(ScopedListenerTest, OutlivingTheObjectWhoseEventItHeardIsSafe) {
    auto material = std::make_shared<keo::Feature::ColorMaterial>();
    int calls = 0;
    ScopedListener listener(material->_addDefinitionChangedEventListener([&] { ++calls; }));
    material->setColor(keo::Color::RED);
    material.reset();
    EXPECT_FALSE(listener.isConnected());
    EXPECT_EQ(calls, 1);
}

TEST(ScopedListenerTest, ReleaseKeepsTheListenerAndHandsBackItsHandle) {
    VoidEvent event;
    int calls = 0;
    std::weak_ptr<keo::FunctionWrapper> handle;
    {
        ScopedListener listener(event.addEventListener([&] { ++calls; }));
        handle = listener.release();
        EXPECT_FALSE(listener.isConnected());
    }
    event.raiseEvent();
    EXPECT_EQ(calls, 1);
    keo::Feature::removeListener(handle);
    event.raiseEvent();
    EXPECT_EQ(calls, 1);
}

TEST(ScopedListenerTest, DestroyedWhileItsEventFiresTheListenerIsNotCalledAgain) {
    VoidEvent event;
    std::string calls;
    auto second = std::make_unique<ScopedListener>();
    event.addEventListener([&] {
        calls += "a";
        second.reset(); // removes the next listener during this raising
    });
    *second = ScopedListener(event.addEventListener([&] { calls += "b"; }));
    event.raiseEvent();
    event.raiseEvent();
    EXPECT_EQ(calls, "aa");
    EXPECT_EQ(event.getListenerCount(), 1u);
}

} // namespace
