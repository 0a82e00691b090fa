#pragma once

#include "Feature/Style.h"
#include "Feature/Symbol.h"
#include "FeatureTestSupport.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace keo::Feature::test {

/**
 * One symbol slot of a style of kind @p StyleKind, seen through its public setter and getter, so
 * that a check can run over all the slots of a style alike.
 */
template <typename StyleKind>
struct StyleSlot {
    std::string name;
    std::function<std::shared_ptr<Symbol>()> make;
    std::function<void(StyleKind&, const std::shared_ptr<Symbol>&)> set;
    std::function<std::shared_ptr<Symbol>(StyleKind&)> get;
    /** An edit of the symbol that changes a value: one lock, unlock and definition change. */
    std::function<void(Symbol&)> edit;
};

/** The slot of symbols of kind @p Kind behind @p setter and @p getter of @p StyleKind. */
template <typename Kind, typename StyleKind, typename Setter, typename Getter, typename Edit>
StyleSlot<StyleKind> makeStyleSlot(std::string name, Setter setter, Getter getter, Edit edit) {
    return StyleSlot<StyleKind>{
        std::move(name), [] { return std::make_shared<Kind>(); },
        [setter](StyleKind& style, const std::shared_ptr<Symbol>& symbol) {
            (style.*setter)(std::static_pointer_cast<Kind>(symbol));
        },
        [getter](StyleKind& style) -> std::shared_ptr<Symbol> { return (style.*getter)(); },
        [edit](Symbol& symbol) { edit(static_cast<Kind&>(symbol)); }};
}

/** Setting the same symbol pointer twice raises the style's events once. */
template <typename StyleKind>
void expectTheSamePointerTwiceRaisesOnce(const std::vector<StyleSlot<StyleKind>>& slots) {
    for (const auto& slot : slots) {
        SCOPED_TRACE(slot.name);
        StyleKind style;
        const EventRecorder recorder(style);
        const auto symbol = slot.make();
        slot.set(style, symbol);
        slot.set(style, symbol);
        EXPECT_EQ(recorder.events, "LUD");
        EXPECT_EQ(slot.get(style), symbol);
    }
}

/** An edit of a held symbol reaches the style once, bracketed by lock and unlock, with the style.
 */
template <typename StyleKind>
void expectHeldSymbolsEditsReachTheStyle(const std::vector<StyleSlot<StyleKind>>& slots) {
    for (const auto& slot : slots) {
        SCOPED_TRACE(slot.name);
        StyleKind style;
        const auto symbol = slot.make();
        slot.set(style, symbol);
        const EventRecorder recorder(style);
        const Style* raisedWith = nullptr;
        const ScopedListener listener(style._addDefinitionChangedEventListener(
            [&raisedWith](const Style* s) { raisedWith = s; }));
        slot.edit(*symbol);
        EXPECT_EQ(recorder.events, "LUD");
        EXPECT_EQ(raisedWith, &style);
    }
}

/** After a symbol is replaced, only the new one's edits reach the style. */
template <typename StyleKind>
void expectAReplacedSymbolIsNoLongerHeard(const std::vector<StyleSlot<StyleKind>>& slots) {
    for (const auto& slot : slots) {
        SCOPED_TRACE(slot.name);
        StyleKind style;
        const auto first = slot.make();
        const auto second = slot.make();
        slot.set(style, first);
        slot.set(style, second);
        const EventRecorder recorder(style);
        slot.edit(*first);
        EXPECT_EQ(recorder.events, "");
        slot.edit(*second);
        EXPECT_EQ(recorder.events, "LUD");
    }
}

/** Setting null raises one change, empties the slot, and the dropped symbol is no longer heard. */
template <typename StyleKind>
void expectSettingNullEmptiesTheSlot(const std::vector<StyleSlot<StyleKind>>& slots) {
    for (const auto& slot : slots) {
        SCOPED_TRACE(slot.name);
        StyleKind style;
        const auto symbol = slot.make();
        slot.set(style, symbol);
        const EventRecorder recorder(style);
        slot.set(style, nullptr);
        EXPECT_EQ(recorder.events, "LUD");
        EXPECT_EQ(slot.get(style), nullptr);
        slot.set(style, nullptr);
        EXPECT_EQ(recorder.events, "LUD") << "an empty slot set to null changes nothing";
        slot.edit(*symbol);
        EXPECT_EQ(recorder.events, "LUD") << "the dropped symbol is no longer relayed";
    }
}

} // namespace keo::Feature::test
