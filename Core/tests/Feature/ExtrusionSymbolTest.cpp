#include "Feature/ExtrusionSymbol.h"

#include "Feature/ColorMaterial.h"
#include "Feature/LineSymbol.h"
#include "Feature/PolygonSymbol.h"
#include "SymbolTestSupport.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace {

using keo::Color;
using keo::Feature::ColorMaterial;
using keo::Feature::ExtrusionSymbol;
using keo::Feature::LineSymbol;
using keo::Feature::PolygonSymbol;
using keo::Feature::Symbol;
using namespace keo::Feature::test;

using HeightReference = ExtrusionSymbol::HeightReference;

TEST(ExtrusionSymbolTest, ANewSymbolIsRelativeWithHeightZeroAndNothingHeld) {
    const ExtrusionSymbol symbol;
    EXPECT_EQ(symbol.getType(), Symbol::Type::Extrusion);
    EXPECT_EQ(static_cast<int>(symbol.getType()), 6);
    EXPECT_EQ(symbol.getFieldName(), "");
    EXPECT_EQ(symbol.getHeight(), 0.0);
    EXPECT_EQ(symbol.getHeightReference(), HeightReference::Relative);
    EXPECT_EQ(static_cast<int>(HeightReference::Relative), 0);
    EXPECT_EQ(static_cast<int>(HeightReference::Absolute), 1);
    EXPECT_EQ(symbol.getBodySymbol(), nullptr);
    EXPECT_EQ(symbol.getTailSymbol(), nullptr);
}

TEST(ExtrusionSymbolTest, SettingHeightZeroOnANewSymbolRaisesNothing) {
    ExtrusionSymbol symbol;
    const EventRecorder recorder(symbol);
    symbol.setHeight(0.0);
    EXPECT_EQ(recorder.events, "");
}

TEST(ExtrusionSymbolTest, EverySetterRaisesLockUnlockAndOneChangeThenNothingForTheSameValue) {
    expectOneChangeThenNone<ExtrusionSymbol>(
        [](ExtrusionSymbol& s, const std::string& v) { s.setFieldName(v); }, std::string("floors"));
    expectOneChangeThenNone<ExtrusionSymbol>([](ExtrusionSymbol& s, double v) { s.setHeight(v); },
                                             45.0);
    expectOneChangeThenNone<ExtrusionSymbol>(
        [](ExtrusionSymbol& s, HeightReference v) { s.setHeightReference(v); },
        HeightReference::Absolute);
    expectOneChangeThenNone<ExtrusionSymbol>(
        [](ExtrusionSymbol& s, const std::shared_ptr<Symbol>& v) { s.setBodySymbol(v); },
        std::shared_ptr<Symbol>(std::make_shared<PolygonSymbol>()));
    expectOneChangeThenNone<ExtrusionSymbol>(
        [](ExtrusionSymbol& s, const std::shared_ptr<Symbol>& v) { s.setTailSymbol(v); },
        std::shared_ptr<Symbol>(std::make_shared<PolygonSymbol>()));
}

TEST(ExtrusionSymbolTest, ANaNHeightAlwaysCountsAsAChange) {
    expectNaNAlwaysChanges<ExtrusionSymbol>([](ExtrusionSymbol& s, double v) { s.setHeight(v); },
                                            std::numeric_limits<double>::quiet_NaN());
}

TEST(ExtrusionSymbolTest, AChangeInsideTheBodysMaterialReachesTheExtrusionOnce) {
    ExtrusionSymbol symbol;
    const auto material = std::make_shared<ColorMaterial>();
    symbol.setBodySymbol(std::make_shared<PolygonSymbol>(material));
    const EventRecorder recorder(symbol);
    material->setColor(Color::RED);
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(ExtrusionSymbolTest, AReplacedBodyOrTailIsNoLongerHeard) {
    ExtrusionSymbol symbol;
    const auto body = std::make_shared<PolygonSymbol>();
    const auto tail = std::make_shared<PolygonSymbol>();
    symbol.setBodySymbol(body);
    symbol.setTailSymbol(tail);
    symbol.setBodySymbol(nullptr);
    symbol.setTailSymbol(std::make_shared<PolygonSymbol>());
    const EventRecorder recorder(symbol);
    body->setFill(false);
    tail->setFill(false);
    EXPECT_EQ(recorder.events, "");
}

ExtrusionSymbol makeEdited() {
    ExtrusionSymbol symbol;
    symbol.setEnabled(false);
    symbol.setFieldName("height");
    symbol.setHeight(45.0);
    symbol.setHeightReference(HeightReference::Absolute);
    auto body = std::make_shared<PolygonSymbol>();
    body->setFill(false);
    symbol.setBodySymbol(body);
    auto tail = std::make_shared<LineSymbol>();
    tail->setWidth(3.0f);
    symbol.setTailSymbol(tail);
    return symbol;
}

void expectSameValues(const ExtrusionSymbol& a, const ExtrusionSymbol& b) {
    EXPECT_EQ(a.isEnabled(), b.isEnabled());
    EXPECT_EQ(a.getFieldName(), b.getFieldName());
    EXPECT_EQ(a.getHeight(), b.getHeight());
    EXPECT_EQ(a.getHeightReference(), b.getHeightReference());
    ASSERT_NE(a.getBodySymbol(), nullptr);
    EXPECT_NE(a.getBodySymbol(), b.getBodySymbol());
    EXPECT_EQ(a.getBodySymbol()->getType(), b.getBodySymbol()->getType());
    ASSERT_NE(a.getTailSymbol(), nullptr);
    EXPECT_NE(a.getTailSymbol(), b.getTailSymbol());
    EXPECT_EQ(static_cast<const LineSymbol&>(*a.getTailSymbol()).getWidth(), 3.0f);
}

TEST(ExtrusionSymbolTest, ACopyHoldsClonesOfTheBodyAndTailAndHearsOnlyThem) {
    ExtrusionSymbol source = makeEdited();
    expectCopiesAreIndependent(source, expectSameValues,
                               [](ExtrusionSymbol& copy) { copy.setHeight(1.0); });
    ExtrusionSymbol copy(source);
    const EventRecorder recorder(copy);
    source.getBodySymbol()->setEnabled(false);
    EXPECT_EQ(recorder.events, "");
    copy.getBodySymbol()->setEnabled(false);
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(ExtrusionSymbolTest, AssignCopiesTheValuesInOrderThenTheBodyAndTail) {
    const ExtrusionSymbol source = makeEdited();
    ExtrusionSymbol target;
    FieldOrder order(target);
    order.add("enabled", [&] { return !target.isEnabled(); });
    order.add("field name", [&] { return target.getFieldName() == "height"; });
    order.add("height", [&] { return target.getHeight() == 45.0; });
    order.add("height reference",
              [&] { return target.getHeightReference() == HeightReference::Absolute; });
    order.add("body", [&] { return target.getBodySymbol() != nullptr; });
    order.add("tail", [&] { return target.getTailSymbol() != nullptr; });
    target.assign(source);
    EXPECT_EQ(order.order(), (std::vector<std::string>{"enabled", "field name", "height",
                                                       "height reference", "body", "tail"}));
    expectSameValues(target, source);
}

TEST(ExtrusionSymbolTest, AssignEditsABodyOfTheSameKindInPlaceAndReplacesOneOfAnotherKind) {
    const ExtrusionSymbol source = makeEdited(); // body: polygon symbol, tail: line symbol
    ExtrusionSymbol target;
    const auto body = std::make_shared<PolygonSymbol>();
    const auto tail = std::make_shared<PolygonSymbol>();
    target.setBodySymbol(body);
    target.setTailSymbol(tail);
    const CapturedLog log;
    target.assign(source);
    EXPECT_EQ(target.getBodySymbol(), body);
    EXPECT_FALSE(body->isFill());
    EXPECT_NE(target.getTailSymbol(), tail);
    EXPECT_EQ(target.getTailSymbol()->getType(), Symbol::Type::Line);
    EXPECT_TRUE(log.records().empty());
    const EventRecorder recorder(target);
    tail->setFill(false);
    EXPECT_EQ(recorder.events, "");
    body->setFill(true);
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(ExtrusionSymbolTest, AssignFromASymbolWithoutBodyOrTailEmptiesThem) {
    ExtrusionSymbol target = makeEdited();
    target.assign(ExtrusionSymbol());
    EXPECT_EQ(target.getBodySymbol(), nullptr);
    EXPECT_EQ(target.getTailSymbol(), nullptr);
}

TEST(ExtrusionSymbolTest, AssignFromAnotherKindLogsAndChangesNothing) {
    expectAssignFromAnotherKindIgnored<ExtrusionSymbol, PolygonSymbol>(
        "Core/src/Feature/ExtrusionSymbol", "keo::Feature::ExtrusionSymbol::assign");
}

} // namespace
