#include "Feature/PolylineStyle.h"

#include "Feature/ExtrusionSymbol.h"
#include "Feature/LabelSymbol.h"
#include "Feature/LineDashMaterial.h"
#include "Feature/LineSymbol.h"
#include "Feature/LineVolumeSymbol.h"
#include "Feature/PointStyle.h"
#include "Feature/PolygonSymbol.h"
#include "StyleSlotTestSupport.h"
#include "SymbolTestSupport.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using keo::Color;
using keo::Feature::ExtrusionSymbol;
using keo::Feature::LabelSymbol;
using keo::Feature::LineDashMaterial;
using keo::Feature::LineSymbol;
using keo::Feature::LineVolumeSymbol;
using keo::Feature::PointStyle;
using keo::Feature::PolygonSymbol;
using keo::Feature::PolylineStyle;
using keo::Feature::Style;
using keo::Feature::Symbol;
using namespace keo::Feature::test;

using Slot = StyleSlot<PolylineStyle>;

template <typename Kind, typename Setter, typename Getter, typename Edit>
Slot makeSlot(std::string name, Setter setter, Getter getter, Edit edit) {
    return makeStyleSlot<Kind, PolylineStyle>(std::move(name), setter, getter, edit);
}

std::vector<Slot> allSlots() {
    return {
        makeSlot<LineSymbol>("line", &PolylineStyle::setLineSymbol, &PolylineStyle::getLineSymbol,
                             [](LineSymbol& s) { s.setWidth(s.getWidth() + 1.0f); }),
        makeSlot<ExtrusionSymbol>("extrusion", &PolylineStyle::setExtrusionSymbol,
                                  &PolylineStyle::getExtrusionSymbol,
                                  [](ExtrusionSymbol& s) { s.setHeight(s.getHeight() + 1.0); }),
        makeSlot<LineSymbol>("overlay line", &PolylineStyle::setOverlayLineSymbol,
                             &PolylineStyle::getOverlayLineSymbol,
                             [](LineSymbol& s) { s.setWidth(s.getWidth() + 1.0f); }),
        makeSlot<LineVolumeSymbol>("line volume", &PolylineStyle::setLineVolumeSymbol,
                                   &PolylineStyle::getLineVolumeSymbol,
                                   [](LineVolumeSymbol& s) { s.setFill(!s.isFill()); }),
    };
}

// A style with a symbol in every slot, each with a value that differs from the default.
std::shared_ptr<PolylineStyle> fullStyle() {
    auto style = std::make_shared<PolylineStyle>();
    for (const auto& slot : allSlots()) {
        const auto symbol = slot.make();
        slot.edit(*symbol);
        slot.set(*style, symbol);
    }
    return style;
}

TEST(PolylineStyleTest, ANewStyleIsOfThePolylineKindAndHoldsNoSymbol) {
    PolylineStyle style;
    const PolylineStyle& constStyle = style;
    EXPECT_EQ(style.getType(), Style::Type::Polyline);
    EXPECT_EQ(static_cast<int>(style.getType()), 2);
    EXPECT_EQ(style.asPolylineStyle(), &style);
    EXPECT_EQ(constStyle.asPolylineStyle(), &style);
    EXPECT_EQ(static_cast<Style&>(style).asPolylineStyle(), &style);
    EXPECT_EQ(style.asPointStyle(), nullptr);
    EXPECT_EQ(style.asPolygonStyle(), nullptr);
    for (const auto& slot : allSlots()) {
        EXPECT_EQ(slot.get(style), nullptr) << slot.name;
    }
    EXPECT_EQ(style.getLabelSymbol(), nullptr);
}

TEST(PolylineStyleTest, SettingTheSameSymbolPointerTwiceRaisesEventsOnce) {
    expectTheSamePointerTwiceRaisesOnce(allSlots());
}

TEST(PolylineStyleTest, EveryHeldSymbolsEditReachesTheStyleOnceBracketedByLockAndUnlock) {
    expectHeldSymbolsEditsReachTheStyle(allSlots());
}

TEST(PolylineStyleTest, AfterReplacingTheLineSymbolOnlyTheNewOnesEditsReachTheStyle) {
    PolylineStyle style;
    const auto a = std::make_shared<LineSymbol>();
    const auto b = std::make_shared<LineSymbol>();
    style.setLineSymbol(a);
    style.setLineSymbol(b);
    const EventRecorder recorder(style);
    a->setWidth(5.0f);
    EXPECT_EQ(recorder.events, "");
    b->setWidth(5.0f);
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(PolylineStyleTest, ReplacingASymbolStopsTheOldOnesEditsInEverySlot) {
    expectAReplacedSymbolIsNoLongerHeard(allSlots());
}

TEST(PolylineStyleTest, SettingNullRaisesOneChangeAndLeavesTheSlotEmpty) {
    expectSettingNullEmptiesTheSlot(allSlots());
}

TEST(PolylineStyleTest, AChangeOfTheDashMaterialOfTheLineSymbolReachesTheStyleOnce) {
    PolylineStyle style;
    const auto line = std::make_shared<LineSymbol>();
    const auto dash = std::make_shared<LineDashMaterial>();
    line->setMaterial(dash);
    style.setLineSymbol(line);
    const EventRecorder recorder(style);
    int definitionChanges = 0;
    style._addDefinitionChangedEventListener([&](const Style*) { ++definitionChanges; });
    dash->setColor(Color::RED);
    EXPECT_EQ(recorder.events, "LUD");
    EXPECT_EQ(definitionChanges, 1);
}

TEST(PolylineStyleTest, AChangeDeepInsideTheExtrusionReachesTheStyleOnce) {
    PolylineStyle style;
    const auto extrusion = std::make_shared<ExtrusionSymbol>();
    const auto body = std::make_shared<PolygonSymbol>();
    extrusion->setBodySymbol(body);
    style.setExtrusionSymbol(extrusion);
    const EventRecorder recorder(style);
    body->setFill(false);
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(PolylineStyleTest, ACopyHoldsCopiesOfEverySymbolAndHearsOnlyThem) {
    const auto source = fullStyle();
    source->setLabelSymbol(std::make_shared<LabelSymbol>());
    PolylineStyle copy(*source);
    EXPECT_EQ(copy.getLineSymbol()->getWidth(), source->getLineSymbol()->getWidth());
    EXPECT_EQ(copy.getExtrusionSymbol()->getHeight(), source->getExtrusionSymbol()->getHeight());
    ASSERT_NE(copy.getLabelSymbol(), nullptr);
    EXPECT_NE(copy.getLabelSymbol(), source->getLabelSymbol());
    const EventRecorder recorder(copy);
    for (const auto& slot : allSlots()) {
        SCOPED_TRACE(slot.name);
        ASSERT_NE(slot.get(copy), nullptr);
        EXPECT_NE(slot.get(copy), slot.get(*source));
        slot.edit(*slot.get(*source));
        EXPECT_EQ(recorder.events, "");
    }
    for (const auto& slot : allSlots()) {
        slot.edit(*slot.get(copy));
    }
    EXPECT_EQ(recorder.events, "LUDLUDLUDLUD");
    const auto cloned = source->clone();
    ASSERT_NE(cloned->asPolylineStyle(), nullptr);
    EXPECT_NE(cloned->asPolylineStyle()->getLineSymbol(), source->getLineSymbol());
}

TEST(PolylineStyleTest, AssignInstallsTheSymbolsInSlotOrderOneChangeEach) {
    const auto source = fullStyle();
    PolylineStyle target;
    FieldOrder order(target);
    order.add("line", [&] { return target.getLineSymbol() != nullptr; });
    order.add("extrusion", [&] { return target.getExtrusionSymbol() != nullptr; });
    order.add("overlay line", [&] { return target.getOverlayLineSymbol() != nullptr; });
    order.add("line volume", [&] { return target.getLineVolumeSymbol() != nullptr; });
    target.assign(*source);
    EXPECT_EQ(order.order(),
              (std::vector<std::string>{"line", "extrusion", "overlay line", "line volume"}));
}

TEST(PolylineStyleTest, AssignInstallsCopiesOfTheOthersSymbolsAndReleasesTheHeldOnes) {
    const auto source = fullStyle();
    PolylineStyle target;
    const auto held = std::make_shared<LineSymbol>();
    target.setLineSymbol(held);
    target.assign(*source);
    for (const auto& slot : allSlots()) {
        SCOPED_TRACE(slot.name);
        ASSERT_NE(slot.get(target), nullptr);
        EXPECT_NE(slot.get(target), slot.get(*source));
    }
    EXPECT_NE(target.getLineSymbol(), held);
    EXPECT_EQ(target.getLineSymbol()->getWidth(), source->getLineSymbol()->getWidth());
    const EventRecorder recorder(target);
    held->setWidth(9.0f);
    EXPECT_EQ(recorder.events, "");
    target.getLineSymbol()->setWidth(9.0f);
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(PolylineStyleTest, AssignFromAStyleWithEmptySlotsEmptiesThemWithOneChangeEach) {
    const auto target = fullStyle();
    const EventRecorder recorder(*target);
    target->assign(PolylineStyle());
    for (const auto& slot : allSlots()) {
        EXPECT_EQ(slot.get(*target), nullptr) << slot.name;
    }
    EXPECT_EQ(recorder.events, "LUDLUDLUDLUD");
    const EventRecorder again(*target);
    target->assign(PolylineStyle());
    EXPECT_EQ(again.events, ""); // nothing left to change
}

TEST(PolylineStyleTest, AssigningAStyleOfAnotherKindLogsAndChangesNothing) {
    const CapturedLog log;
    const auto target = fullStyle();
    const auto line = target->getLineSymbol();
    const EventRecorder recorder(*target);
    target->assign(PointStyle());
    EXPECT_EQ(recorder.events, "");
    EXPECT_EQ(target->getLineSymbol(), line);
    expectAssignKindLogged(log, "Core/src/Feature/PolylineStyle",
                           "keo::Feature::PolylineStyle::assign");
}

} // namespace
