#include "Feature/PolygonSymbol.h"

#include "Feature/ColorMaterial.h"
#include "Feature/ImageMaterial.h"
#include "Feature/LengthLabelSymbol.h"
#include "Feature/LineSymbol.h"
#include "SymbolTestSupport.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {

using keo::Color;
using keo::Feature::ColorMaterial;
using keo::Feature::ImageMaterial;
using keo::Feature::LengthLabelSymbol;
using keo::Feature::LineSymbol;
using keo::Feature::Material;
using keo::Feature::PolygonSymbol;
using keo::Feature::Symbol;
using namespace keo::Feature::test;

TEST(PolygonSymbolTest, ANewSymbolIsFilledWithoutMaterialOutlineOrLengthLabels) {
    const PolygonSymbol symbol;
    EXPECT_EQ(symbol.getType(), Symbol::Type::Polygon);
    EXPECT_EQ(static_cast<int>(symbol.getType()), 5);
    EXPECT_TRUE(symbol.isFill());
    EXPECT_EQ(symbol.getMaterial(), nullptr);
    EXPECT_EQ(symbol.getOutLineSymbol(), nullptr);
    EXPECT_EQ(symbol.getLengthLabelSymbol(), nullptr);
    EXPECT_TRUE(symbol.isEnabled());
}

TEST(PolygonSymbolTest, TheMaterialConstructorSetsAndRelaysTheMaterial) {
    const auto material = std::make_shared<ColorMaterial>();
    PolygonSymbol symbol(material);
    EXPECT_EQ(symbol.getMaterial(), material);
    const EventRecorder recorder(symbol);
    material->setColor(Color::RED);
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(PolygonSymbolTest, SetMaterialWithTheHeldMaterialRaisesNothingAndAnotherStopsTheOldOne) {
    PolygonSymbol symbol;
    const auto first = std::make_shared<ColorMaterial>();
    symbol.setMaterial(first);
    const EventRecorder recorder(symbol);
    symbol.setMaterial(first);
    EXPECT_EQ(recorder.events, "");
    const auto second = std::make_shared<ColorMaterial>();
    symbol.setMaterial(second);
    EXPECT_EQ(recorder.events, "LUD");
    first->setColor(Color::RED);
    EXPECT_EQ(recorder.events, "LUD");
    second->setColor(Color::RED);
    EXPECT_EQ(recorder.events, "LUDLUD");
}

TEST(PolygonSymbolTest, EverySetterRaisesLockUnlockAndOneChangeThenNothingForTheSameValue) {
    expectOneChangeThenNone<PolygonSymbol>([](PolygonSymbol& s, bool v) { s.setFill(v); }, false);
    expectOneChangeThenNone<PolygonSymbol>(
        [](PolygonSymbol& s, const std::shared_ptr<LineSymbol>& v) { s.setOutLineSymbol(v); },
        std::make_shared<LineSymbol>());
    auto noTotal = std::make_shared<LengthLabelSymbol>();
    noTotal->setShowTotal(false);
    expectOneChangeThenNone<PolygonSymbol>(
        [](PolygonSymbol& s, const std::shared_ptr<LengthLabelSymbol>& v) {
            s.setLengthLabelSymbol(v);
        },
        noTotal);
}

TEST(PolygonSymbolTest, ALengthLabelWithATotalHasItSwitchedOffWithItsOwnEventsOnce) {
    PolygonSymbol symbol;
    const auto label = std::make_shared<LengthLabelSymbol>();
    ASSERT_TRUE(label->isShowTotal());
    const EventRecorder labelEvents(*label);
    const EventRecorder symbolEvents(symbol);
    symbol.setLengthLabelSymbol(label);
    EXPECT_FALSE(label->isShowTotal());
    EXPECT_EQ(labelEvents.events, "LUD");
    EXPECT_EQ(symbolEvents.events, "LUD"); // the switch-off is not heard as a second change
    label->setDecimalPlaces(4);
    EXPECT_EQ(symbolEvents.events, "LUDLUD"); // later changes reach the polygon symbol
}

TEST(PolygonSymbolTest, ALengthLabelWithoutATotalIsLeftAsItIs) {
    PolygonSymbol symbol;
    const auto label = std::make_shared<LengthLabelSymbol>();
    label->setShowTotal(false);
    const EventRecorder labelEvents(*label);
    symbol.setLengthLabelSymbol(label);
    EXPECT_EQ(labelEvents.events, "");
}

TEST(PolygonSymbolTest, EditsOfEveryHeldObjectAreRelayedAndClearedSlotsAreNoLongerHeard) {
    PolygonSymbol symbol;
    const auto material = std::make_shared<ColorMaterial>();
    const auto outline = std::make_shared<LineSymbol>();
    const auto label = std::make_shared<LengthLabelSymbol>();
    symbol.setMaterial(material);
    symbol.setOutLineSymbol(outline);
    symbol.setLengthLabelSymbol(label);
    const EventRecorder recorder(symbol);
    material->setColor(Color::RED);
    outline->setWidth(3.0f);
    label->setSize(20.0f);
    EXPECT_EQ(recorder.events, "LUDLUDLUD");
    symbol.setMaterial(nullptr);
    symbol.setOutLineSymbol(nullptr);
    symbol.setLengthLabelSymbol(nullptr);
    material->setColor(Color::BLUE);
    outline->setWidth(4.0f);
    label->setSize(22.0f);
    EXPECT_EQ(recorder.events, "LUDLUDLUDLUDLUDLUD");
}

PolygonSymbol makeEdited() {
    PolygonSymbol symbol(std::make_shared<ColorMaterial>(Color::RED));
    symbol.setEnabled(false);
    symbol.setFill(false);
    auto outline = std::make_shared<LineSymbol>();
    outline->setWidth(2.5f);
    symbol.setOutLineSymbol(outline);
    auto label = std::make_shared<LengthLabelSymbol>();
    label->setDecimalPlaces(1);
    symbol.setLengthLabelSymbol(label);
    return symbol;
}

void expectSameValues(const PolygonSymbol& a, const PolygonSymbol& b) {
    EXPECT_EQ(a.isEnabled(), b.isEnabled());
    EXPECT_EQ(a.isFill(), b.isFill());
    ASSERT_NE(a.getMaterial(), nullptr);
    EXPECT_NE(a.getMaterial(), b.getMaterial());
    EXPECT_EQ(static_cast<const ColorMaterial&>(*a.getMaterial()).getColor(),
              static_cast<const ColorMaterial&>(*b.getMaterial()).getColor());
    ASSERT_NE(a.getOutLineSymbol(), nullptr);
    EXPECT_NE(a.getOutLineSymbol(), b.getOutLineSymbol());
    EXPECT_EQ(a.getOutLineSymbol()->getWidth(), b.getOutLineSymbol()->getWidth());
    ASSERT_NE(a.getLengthLabelSymbol(), nullptr);
    EXPECT_NE(a.getLengthLabelSymbol(), b.getLengthLabelSymbol());
    EXPECT_EQ(a.getLengthLabelSymbol()->getDecimalPlaces(),
              b.getLengthLabelSymbol()->getDecimalPlaces());
    EXPECT_FALSE(a.getLengthLabelSymbol()->isShowTotal());
}

TEST(PolygonSymbolTest, ACopyHoldsDistinctEqualObjectsAndChangingItsOutlineLeavesTheSource) {
    PolygonSymbol source = makeEdited();
    expectCopiesAreIndependent(source, expectSameValues,
                               [](PolygonSymbol& copy) { copy.setFill(true); });
    PolygonSymbol copy(source);
    const LineSymbol* const copied = copy.getOutLineSymbol().get();
    ASSERT_NE(copied, nullptr);
    EXPECT_EQ(typeid(*copied), typeid(LineSymbol));
    const EventRecorder recorder(copy);
    copy.getOutLineSymbol()->setWidth(7.0f);
    EXPECT_EQ(source.getOutLineSymbol()->getWidth(), 2.5f);
    EXPECT_EQ(recorder.events, "LUD");
    source.getLengthLabelSymbol()->setSize(30.0f);
    EXPECT_EQ(recorder.events, "LUD"); // the copy does not hear the source's objects
}

TEST(PolygonSymbolTest, ACopyOfALengthLabelWhoseTotalWasSwitchedBackOnShowsNoTotal) {
    PolygonSymbol source;
    source.setLengthLabelSymbol(std::make_shared<LengthLabelSymbol>());
    source.getLengthLabelSymbol()->setShowTotal(true); // edited directly, after it was set
    const PolygonSymbol copy(source);
    EXPECT_FALSE(copy.getLengthLabelSymbol()->isShowTotal());
}

TEST(PolygonSymbolTest, AssignKeepsHeldObjectsOfTheSameKindAndAssignsThemInPlace) {
    const PolygonSymbol source = makeEdited();
    PolygonSymbol target;
    const auto material = std::make_shared<ColorMaterial>();
    const auto outline = std::make_shared<LineSymbol>();
    const auto label = std::make_shared<LengthLabelSymbol>();
    target.setMaterial(material);
    target.setOutLineSymbol(outline);
    target.setLengthLabelSymbol(label);
    target.assign(source);
    EXPECT_EQ(target.getMaterial(), material);
    EXPECT_EQ(material->getColor(), Color::RED);
    EXPECT_EQ(target.getOutLineSymbol(), outline);
    EXPECT_EQ(outline->getWidth(), 2.5f);
    EXPECT_EQ(target.getLengthLabelSymbol(), label);
    EXPECT_EQ(label->getDecimalPlaces(), 1);
    EXPECT_FALSE(target.isFill());
    EXPECT_FALSE(target.isEnabled());
    const EventRecorder recorder(target);
    material->setColor(Color::BLUE); // still heard
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(PolygonSymbolTest, AssignReplacesAMaterialOfAnotherKindWithAClone) {
    const PolygonSymbol source = makeEdited();
    PolygonSymbol target;
    const auto image = std::make_shared<ImageMaterial>();
    target.setMaterial(image);
    const CapturedLog log;
    target.assign(source);
    EXPECT_TRUE(log.records().empty()); // no assign across material kinds was tried
    ASSERT_NE(target.getMaterial(), nullptr);
    EXPECT_NE(target.getMaterial(), image);
    EXPECT_NE(target.getMaterial(), source.getMaterial());
    EXPECT_EQ(target.getMaterial()->getType(), Material::Type::Color);
    const EventRecorder recorder(target);
    image->setColor(Color::GREEN);
    EXPECT_EQ(recorder.events, "");
}

TEST(PolygonSymbolTest, AssignCopiesTheHeldObjectsThenTheFillInThatOrder) {
    const PolygonSymbol source = makeEdited();
    PolygonSymbol target;
    FieldOrder order(target);
    order.add("enabled", [&] { return !target.isEnabled(); });
    order.add("material", [&] { return target.getMaterial() != nullptr; });
    order.add("outline", [&] { return target.getOutLineSymbol() != nullptr; });
    order.add("length labels", [&] { return target.getLengthLabelSymbol() != nullptr; });
    order.add("fill", [&] { return !target.isFill(); });
    target.assign(source);
    EXPECT_EQ(order.order(), (std::vector<std::string>{"enabled", "material", "outline",
                                                       "length labels", "fill"}));
}

TEST(PolygonSymbolTest, AssignFromASymbolWithoutHeldObjectsEmptiesEverySlot) {
    PolygonSymbol target = makeEdited();
    const EventRecorder recorder(target);
    target.assign(PolygonSymbol());
    EXPECT_EQ(target.getMaterial(), nullptr);
    EXPECT_EQ(target.getOutLineSymbol(), nullptr);
    EXPECT_EQ(target.getLengthLabelSymbol(), nullptr);
    EXPECT_EQ(recorder.events, "LUDLUDLUDLUDLUD"); // enabled, three slots, fill
}

TEST(PolygonSymbolTest, AssignFromAnotherKindLogsAndChangesNothing) {
    expectAssignFromAnotherKindIgnored<PolygonSymbol, LineSymbol>(
        "Core/src/Feature/PolygonSymbol", "keo::Feature::PolygonSymbol::assign");
}

} // namespace
