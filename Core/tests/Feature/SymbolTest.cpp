#include "Feature/Symbol.h"

#include "FeatureTestSupport.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using keo::Feature::Symbol;

// Two symbol kinds of the test's own, to exercise the base.
class FirstKind final : public Symbol {
public:
    FirstKind() = default;
    FirstKind(const FirstKind&) = default;
    std::shared_ptr<Symbol> clone() const override { return std::make_shared<FirstKind>(*this); }
    Type getType() const override { return Type::Point; }
};

class SecondKind final : public Symbol {
public:
    std::shared_ptr<Symbol> clone() const override { return std::make_shared<SecondKind>(*this); }
    Type getType() const override { return Type::Label; }
};

using keo::Feature::test::CapturedLog;
using keo::Feature::test::EventRecorder;

TEST(SymbolTest, TypeCodesAreTheKitsCodes) {
    EXPECT_EQ(static_cast<int>(Symbol::Type::Point), 0);
    EXPECT_EQ(static_cast<int>(Symbol::Type::Billboard), 1);
    EXPECT_EQ(static_cast<int>(Symbol::Type::Label), 2);
    EXPECT_EQ(static_cast<int>(Symbol::Type::Model), 3);
    EXPECT_EQ(static_cast<int>(Symbol::Type::Line), 4);
    EXPECT_EQ(static_cast<int>(Symbol::Type::Polygon), 5);
    EXPECT_EQ(static_cast<int>(Symbol::Type::Extrusion), 6);
    EXPECT_EQ(static_cast<int>(Symbol::Type::Ellipse), 7);
    EXPECT_EQ(static_cast<int>(Symbol::Type::ParticleSystem), 8);
    EXPECT_EQ(static_cast<int>(Symbol::Type::LineVolume), 9);
    EXPECT_EQ(static_cast<int>(Symbol::Type::LengthLabel), 10);
}

TEST(SymbolTest, NewSymbolIsEnabled) {
    EXPECT_TRUE(FirstKind().isEnabled());
}

TEST(SymbolTest, SetEnabledWithTheCurrentValueRaisesNothing) {
    FirstKind symbol;
    EventRecorder recorder(symbol);
    symbol.setEnabled(true);
    EXPECT_EQ(recorder.events, "");
}

TEST(SymbolTest, SetEnabledWithANewValueRaisesLockUnlockAndOneDefinitionChangeInOrder) {
    FirstKind symbol;
    EventRecorder recorder(symbol);
    symbol.setEnabled(false);
    EXPECT_FALSE(symbol.isEnabled());
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(SymbolTest, ValueIsStoredWhileTheLockIsHeld) {
    FirstKind symbol;
    std::vector<bool> seenWhileLocked;
    symbol._addChangedLockEventListener([&](bool locked) {
        if (!locked) {
            seenWhileLocked.push_back(symbol.isEnabled());
        }
    });
    symbol.setEnabled(false);
    ASSERT_EQ(seenWhileLocked.size(), 1u);
    EXPECT_FALSE(seenWhileLocked[0]); // already stored when the unlock is raised
}

TEST(SymbolTest, AssignFromTheSameKindCopiesEnabledThroughTheEditRule) {
    FirstKind source;
    source.setEnabled(false);
    FirstKind target;
    EventRecorder recorder(target);
    target.assign(source);
    EXPECT_FALSE(target.isEnabled());
    EXPECT_EQ(recorder.events, "LUD");
    target.assign(source); // nothing differs any more
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(SymbolTest, AssignFromAnotherKindLogsAndChangesNothing) {
    const CapturedLog log;
    SecondKind source;
    source.setEnabled(false);
    FirstKind target;
    EventRecorder recorder(target);
    target.assign(source);
    EXPECT_TRUE(target.isEnabled());
    EXPECT_EQ(recorder.events, "");
    const auto records = log.records();
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].message, "类型不同无法赋值！");
    EXPECT_EQ(records[0].level, 3);
    EXPECT_EQ(records[0].location.file, "Core/src/Feature/Symbol");
    EXPECT_EQ(records[0].location.line, 35);
    EXPECT_EQ(records[0].location.function, "keo::Feature::Symbol::assign");
}

TEST(SymbolTest, CloneCopiesValuesButNoListeners) {
    FirstKind source;
    int heard = 0;
    source._addDefinitionChangedEventListener([&] { ++heard; });
    source.setEnabled(false);
    EXPECT_EQ(heard, 1);
    const auto copy = source.clone();
    EXPECT_EQ(copy->getType(), Symbol::Type::Point);
    EXPECT_FALSE(copy->isEnabled());
    copy->setEnabled(true);
    EXPECT_EQ(heard, 1); // the copy's events are its own
}

TEST(SymbolTest, ListenerRemovedThroughItsHandleHearsNoMoreEdits) {
    FirstKind symbol;
    int heard = 0;
    const auto handle = symbol._addDefinitionChangedEventListener([&] { ++heard; });
    symbol.setEnabled(false);
    handle.lock()->remove();
    symbol.setEnabled(true);
    EXPECT_EQ(heard, 1);
}

} // namespace
