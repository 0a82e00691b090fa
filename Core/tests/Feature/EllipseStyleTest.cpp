#include "Feature/EllipseStyle.h"

#include "Feature/ColorMaterial.h"
#include "Feature/EllipseSymbol.h"
#include "Feature/LabelSymbol.h"
#include "Feature/PolygonStyle.h"
#include "StyleSlotTestSupport.h"
#include "SymbolTestSupport.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace {

using keo::Color;
using keo::Feature::ColorMaterial;
using keo::Feature::EllipseStyle;
using keo::Feature::EllipseSymbol;
using keo::Feature::LabelSymbol;
using keo::Feature::PolygonStyle;
using keo::Feature::Style;
using namespace keo::Feature::test;

std::vector<StyleSlot<EllipseStyle>> allSlots() {
    return {makeStyleSlot<EllipseSymbol, EllipseStyle>(
        "ellipse", &EllipseStyle::setEllipseSymbol, &EllipseStyle::getEllipseSymbol,
        [](EllipseSymbol& symbol) { symbol.setFill(false); })};
}

std::shared_ptr<EllipseStyle> fullStyle() {
    auto style = std::make_shared<EllipseStyle>();
    auto symbol = std::make_shared<EllipseSymbol>(std::make_shared<ColorMaterial>(Color::RED));
    symbol->setFill(false);
    style->setEllipseSymbol(symbol);
    return style;
}

TEST(EllipseStyleTest, ANewStyleIsOfTheEllipseKindAndHoldsNoSymbol) {
    EllipseStyle style;
    const EllipseStyle& constStyle = style;
    EXPECT_EQ(style.getType(), Style::Type::Ellipse);
    EXPECT_EQ(static_cast<int>(style.getType()), 4);
    EXPECT_EQ(constStyle.asEllipseStyle(), &style);
    EXPECT_EQ(static_cast<const Style&>(style).asEllipseStyle(), &style);
    EXPECT_EQ(style.asPolygonStyle(), nullptr);
    EXPECT_EQ(style.getEllipseSymbol(), nullptr);
    EXPECT_EQ(PolygonStyle().asEllipseStyle(), nullptr);
}

TEST(EllipseStyleTest, SettingTheSameSymbolPointerTwiceRaisesEventsOnce) {
    expectTheSamePointerTwiceRaisesOnce(allSlots());
}

TEST(EllipseStyleTest, AnEditOfTheHeldSymbolReachesTheStyleOnceBracketedByLockAndUnlock) {
    expectHeldSymbolsEditsReachTheStyle(allSlots());
}

TEST(EllipseStyleTest, AfterReplacingTheSymbolOnlyTheNewOnesEditsReachTheStyle) {
    expectAReplacedSymbolIsNoLongerHeard(allSlots());
}

TEST(EllipseStyleTest, SettingNullRaisesOneChangeAndLeavesTheSlotEmpty) {
    expectSettingNullEmptiesTheSlot(allSlots());
}

TEST(EllipseStyleTest, AChangeOfTheSymbolsMaterialReachesTheStyleOnce) {
    const auto style = fullStyle();
    const EventRecorder recorder(*style);
    style->getEllipseSymbol()->getMaterial()->setEnableBreathing(true);
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(EllipseStyleTest, ACopyHoldsACopyOfTheSymbolAndHearsOnlyIt) {
    const auto source = fullStyle();
    source->setLabelSymbol(std::make_shared<LabelSymbol>());
    EllipseStyle copy(*source);
    ASSERT_NE(copy.getEllipseSymbol(), nullptr);
    EXPECT_NE(copy.getEllipseSymbol(), source->getEllipseSymbol());
    EXPECT_FALSE(copy.getEllipseSymbol()->isFill());
    ASSERT_NE(copy.getEllipseSymbol()->getMaterial(), nullptr);
    EXPECT_NE(copy.getEllipseSymbol()->getMaterial(), source->getEllipseSymbol()->getMaterial());
    EXPECT_NE(copy.getLabelSymbol(), source->getLabelSymbol());
    const EventRecorder recorder(copy);
    source->getEllipseSymbol()->setFill(true);
    EXPECT_EQ(recorder.events, "");
    copy.getEllipseSymbol()->setFill(true);
    EXPECT_EQ(recorder.events, "LUD");
    const auto cloned = source->clone();
    ASSERT_NE(cloned->asEllipseStyle(), nullptr);
    EXPECT_NE(cloned->asEllipseStyle()->getEllipseSymbol(), source->getEllipseSymbol());
}

TEST(EllipseStyleTest, AssignInstallsACopyOfTheSymbolAndReleasesTheHeldOne) {
    const auto source = fullStyle();
    EllipseStyle target;
    const auto held = std::make_shared<EllipseSymbol>();
    target.setEllipseSymbol(held);
    target.assign(*source);
    ASSERT_NE(target.getEllipseSymbol(), nullptr);
    EXPECT_NE(target.getEllipseSymbol(), held);
    EXPECT_NE(target.getEllipseSymbol(), source->getEllipseSymbol());
    EXPECT_FALSE(target.getEllipseSymbol()->isFill());
    const EventRecorder recorder(target);
    held->setFill(false);
    EXPECT_EQ(recorder.events, "");
    target.getEllipseSymbol()->setFill(true);
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(EllipseStyleTest, AssignFromAStyleWithoutSymbolEmptiesTheSlotWithOneChange) {
    const auto target = fullStyle();
    const EventRecorder recorder(*target);
    target->assign(EllipseStyle());
    EXPECT_EQ(target->getEllipseSymbol(), nullptr);
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(EllipseStyleTest, AssigningAStyleOfAnotherKindLogsAndChangesNothing) {
    const CapturedLog log;
    const auto target = fullStyle();
    const auto symbol = target->getEllipseSymbol();
    const EventRecorder recorder(*target);
    target->assign(PolygonStyle());
    EXPECT_EQ(recorder.events, "");
    EXPECT_EQ(target->getEllipseSymbol(), symbol);
    expectAssignKindLogged(log, "Core/src/Feature/EllipseStyle",
                           "keo::Feature::EllipseStyle::assign");
}

} // namespace
