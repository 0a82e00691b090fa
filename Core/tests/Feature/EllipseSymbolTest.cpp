#include "Feature/EllipseSymbol.h"

#include "Feature/ColorMaterial.h"
#include "Feature/ImageMaterial.h"
#include "Feature/LineSymbol.h"
#include "SymbolTestSupport.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {

using keo::Color;
using keo::Feature::ColorMaterial;
using keo::Feature::EllipseSymbol;
using keo::Feature::ImageMaterial;
using keo::Feature::LineSymbol;
using keo::Feature::Material;
using keo::Feature::Symbol;
using namespace keo::Feature::test;

EllipseSymbol makeEdited() {
    EllipseSymbol symbol(std::make_shared<ColorMaterial>(Color::RED));
    symbol.setEnabled(false);
    symbol.setFill(false);
    return symbol;
}

TEST(EllipseSymbolTest, ANewSymbolIsOfKindSevenFilledAndWithoutMaterial) {
    const EllipseSymbol symbol;
    EXPECT_EQ(symbol.getType(), Symbol::Type::Ellipse);
    EXPECT_EQ(static_cast<int>(symbol.getType()), 7);
    EXPECT_TRUE(symbol.isFill());
    EXPECT_EQ(symbol.getMaterial(), nullptr);
    EXPECT_TRUE(symbol.isEnabled());
}

TEST(EllipseSymbolTest, SetFillTrueOnANewSymbolRaisesNoEvents) {
    EllipseSymbol symbol;
    const EventRecorder recorder(symbol);
    symbol.setFill(true);
    EXPECT_EQ(recorder.events, "");
}

TEST(EllipseSymbolTest, SetFillRaisesLockUnlockAndOneChangeThenNothingForTheSameValue) {
    expectOneChangeThenNone<EllipseSymbol>(
        [](EllipseSymbol& symbol, bool fill) { symbol.setFill(fill); }, false);
}

TEST(EllipseSymbolTest, TheMaterialConstructorSetsAndRelaysTheMaterial) {
    const auto material = std::make_shared<ColorMaterial>();
    EllipseSymbol symbol(material);
    EXPECT_EQ(symbol.getMaterial(), material);
    const EventRecorder recorder(symbol);
    material->setColor(Color::RED);
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(EllipseSymbolTest, SetMaterialWithTheHeldMaterialRaisesNothingAndAnotherStopsTheOldOne) {
    EllipseSymbol symbol;
    const auto first = std::make_shared<ColorMaterial>();
    symbol.setMaterial(first);
    const EventRecorder recorder(symbol);
    symbol.setMaterial(first);
    EXPECT_EQ(recorder.events, "");
    const auto second = std::make_shared<ImageMaterial>();
    symbol.setMaterial(second);
    EXPECT_EQ(recorder.events, "LUD");
    first->setColor(Color::RED);
    EXPECT_EQ(recorder.events, "LUD");
    second->setColor(Color::RED);
    EXPECT_EQ(recorder.events, "LUDLUD");
    symbol.setMaterial(nullptr);
    second->setColor(Color::BLUE);
    EXPECT_EQ(recorder.events, "LUDLUDLUD");
}

void expectSameValues(const EllipseSymbol& a, const EllipseSymbol& b) {
    EXPECT_EQ(a.isEnabled(), b.isEnabled());
    EXPECT_EQ(a.isFill(), b.isFill());
    ASSERT_NE(a.getMaterial(), nullptr);
    EXPECT_NE(a.getMaterial(), b.getMaterial());
    EXPECT_EQ(static_cast<const ColorMaterial&>(*a.getMaterial()).getColor(),
              static_cast<const ColorMaterial&>(*b.getMaterial()).getColor());
}

TEST(EllipseSymbolTest, ACopyHoldsItsOwnMaterialAndHearsOnlyIt) {
    EllipseSymbol source = makeEdited();
    expectCopiesAreIndependent(source, expectSameValues,
                               [](EllipseSymbol& copy) { copy.setFill(true); });
    EllipseSymbol copy(source);
    const EventRecorder recorder(copy);
    source.getMaterial()->setEnableBreathing(true);
    EXPECT_EQ(recorder.events, "");
    copy.getMaterial()->setEnableBreathing(true);
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(EllipseSymbolTest, AssignInstallsACopyOfTheMaterialThenTheFill) {
    const EllipseSymbol source = makeEdited();
    EllipseSymbol target;
    const auto held = std::make_shared<ColorMaterial>();
    target.setMaterial(held);
    FieldOrder order(target);
    order.add("enabled", [&] { return !target.isEnabled(); });
    order.add("material", [&] { return target.getMaterial() != held; });
    order.add("fill", [&] { return !target.isFill(); });
    target.assign(source);
    EXPECT_EQ(order.order(), (std::vector<std::string>{"enabled", "material", "fill"}));
    expectSameValues(target, source);
    const EventRecorder recorder(target);
    held->setColor(Color::GREEN); // released: no longer heard
    EXPECT_EQ(recorder.events, "");
}

TEST(EllipseSymbolTest, AssignFromASymbolWithoutMaterialEmptiesTheSlot) {
    EllipseSymbol target = makeEdited();
    target.assign(EllipseSymbol());
    EXPECT_EQ(target.getMaterial(), nullptr);
    EXPECT_TRUE(target.isFill());
    EXPECT_TRUE(target.isEnabled());
}

TEST(EllipseSymbolTest, AssignFromAnotherKindLogsAndChangesNothing) {
    expectAssignFromAnotherKindIgnored<EllipseSymbol, LineSymbol>(
        "Core/src/Feature/EllipseSymbol", "keo::Feature::EllipseSymbol::assign");
}

} // namespace
