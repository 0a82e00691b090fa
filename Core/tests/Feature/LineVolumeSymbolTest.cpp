#include "Feature/LineVolumeSymbol.h"

#include "Data/MaterialProperty.h"
#include "Data/PolylineVolumeGraphics.h"
#include "Feature/ColorMaterial.h"
#include "Feature/Feature.h"
#include "Feature/LineSymbol.h"
#include "Feature/SymbolContext.h"
#include "SymbolTestSupport.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <vector>

namespace {

using keo::Color;
using keo::Vector2;
using keo::Feature::ColorMaterial;
using keo::Feature::LineSymbol;
using keo::Feature::LineVolumeSymbol;
using keo::Feature::Symbol;
using namespace keo::Feature::test;

using Shape = std::vector<Vector2<double>>;

const Shape SQUARE{{-1.0, -1.0}, {1.0, -1.0}, {1.0, 1.0}, {-1.0, 1.0}};

TEST(LineVolumeSymbolTest, ANewVolumeClosesBothEndsAndFillsWithAnEmptyShape) {
    const LineVolumeSymbol symbol;
    EXPECT_EQ(symbol.getType(), Symbol::Type::LineVolume);
    EXPECT_EQ(static_cast<int>(symbol.getType()), 9);
    EXPECT_TRUE(symbol.getShape().empty());
    EXPECT_TRUE(symbol.getCloseStart());
    EXPECT_TRUE(symbol.getCloseEnd());
    EXPECT_TRUE(symbol.isFill());
    EXPECT_EQ(symbol.getMaterial(), nullptr);
    EXPECT_TRUE(symbol.isEnabled());
}

TEST(LineVolumeSymbolTest, EverySetterRaisesLockUnlockAndOneChangeThenNothingForTheSameValue) {
    expectOneChangeThenNone<LineVolumeSymbol>(
        [](LineVolumeSymbol& s, const Shape& v) { s.setShape(v); }, SQUARE);
    expectOneChangeThenNone<LineVolumeSymbol>(
        [](LineVolumeSymbol& s, Shape v) { s.setShape(std::move(v)); }, SQUARE);
    expectOneChangeThenNone<LineVolumeSymbol>(
        [](LineVolumeSymbol& s, bool v) { s.setCloseStart(v); }, false);
    expectOneChangeThenNone<LineVolumeSymbol>([](LineVolumeSymbol& s, bool v) { s.setCloseEnd(v); },
                                              false);
    expectOneChangeThenNone<LineVolumeSymbol>([](LineVolumeSymbol& s, bool v) { s.setFill(v); },
                                              false);
    expectOneChangeThenNone<LineVolumeSymbol>(
        [](LineVolumeSymbol& s, const std::shared_ptr<ColorMaterial>& m) { s.setMaterial(m); },
        std::make_shared<ColorMaterial>());
}

TEST(LineVolumeSymbolTest, AShapeWithANaNPointAlwaysCountsAsAChange) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    expectNaNAlwaysChanges<LineVolumeSymbol>(
        [](LineVolumeSymbol& s, const Shape& v) { s.setShape(v); }, Shape{{nan, 0.0}});
}

TEST(LineVolumeSymbolTest, EditsOfTheHeldMaterialAreRelayedAndAReplacedOneIsNoLongerHeard) {
    LineVolumeSymbol symbol;
    const auto first = std::make_shared<ColorMaterial>();
    symbol.setMaterial(first);
    const EventRecorder recorder(symbol);
    first->setColor(Color::RED);
    EXPECT_EQ(recorder.events, "LUD");
    const auto second = std::make_shared<ColorMaterial>();
    symbol.setMaterial(second);
    first->setColor(Color::BLUE);
    EXPECT_EQ(recorder.events, "LUDLUD");
    second->setColor(Color::BLUE);
    EXPECT_EQ(recorder.events, "LUDLUDLUD");
    symbol.setMaterial(nullptr);
    second->setColor(Color::GREEN);
    EXPECT_EQ(recorder.events, "LUDLUDLUDLUD");
}

LineVolumeSymbol makeEdited() {
    LineVolumeSymbol symbol;
    symbol.setEnabled(false);
    symbol.setShape(SQUARE);
    symbol.setCloseStart(false);
    symbol.setCloseEnd(false);
    symbol.setFill(false);
    symbol.setMaterial(std::make_shared<ColorMaterial>(Color::RED));
    return symbol;
}

void expectSameValues(const LineVolumeSymbol& a, const LineVolumeSymbol& b) {
    EXPECT_EQ(a.isEnabled(), b.isEnabled());
    EXPECT_EQ(a.getShape(), b.getShape());
    EXPECT_EQ(a.getCloseStart(), b.getCloseStart());
    EXPECT_EQ(a.getCloseEnd(), b.getCloseEnd());
    EXPECT_EQ(a.isFill(), b.isFill());
    ASSERT_NE(a.getMaterial(), nullptr);
    ASSERT_NE(b.getMaterial(), nullptr);
    EXPECT_NE(a.getMaterial(), b.getMaterial());
    EXPECT_EQ(static_cast<const ColorMaterial&>(*a.getMaterial()).getColor(),
              static_cast<const ColorMaterial&>(*b.getMaterial()).getColor());
}

TEST(LineVolumeSymbolTest, ACopyHasItsOwnMaterialAndFreshListeners) {
    LineVolumeSymbol source = makeEdited();
    expectCopiesAreIndependent(source, expectSameValues,
                               [](LineVolumeSymbol& copy) { copy.setFill(true); });
    LineVolumeSymbol copy(source);
    const EventRecorder recorder(copy);
    source.getMaterial()->setEnableBreathing(true);
    EXPECT_EQ(recorder.events, "");
    copy.getMaterial()->setEnableBreathing(true);
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(LineVolumeSymbolTest, AssignCopiesTheValuesInFieldOrderThenInstallsACopyOfTheMaterial) {
    const LineVolumeSymbol source = makeEdited();
    LineVolumeSymbol target;
    const auto held = std::make_shared<ColorMaterial>();
    target.setMaterial(held);
    FieldOrder order(target);
    order.add("enabled", [&] { return !target.isEnabled(); });
    order.add("shape", [&] { return target.getShape() == SQUARE; });
    order.add("closeStart", [&] { return !target.getCloseStart(); });
    order.add("closeEnd", [&] { return !target.getCloseEnd(); });
    order.add("fill", [&] { return !target.isFill(); });
    order.add("material", [&] { return target.getMaterial() != held; });
    target.assign(source);
    EXPECT_EQ(order.order(), (std::vector<std::string>{"enabled", "shape", "closeStart", "closeEnd",
                                                       "fill", "material"}));
    expectSameValues(target, source);
    const EventRecorder recorder(target);
    held->setColor(Color::BLUE); // the material held before is no longer heard
    EXPECT_EQ(recorder.events, "");
}

TEST(LineVolumeSymbolTest, AssignFromAVolumeWithoutMaterialEmptiesTheMaterial) {
    LineVolumeSymbol target;
    target.setMaterial(std::make_shared<ColorMaterial>());
    const EventRecorder recorder(target);
    target.assign(LineVolumeSymbol());
    EXPECT_EQ(target.getMaterial(), nullptr);
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(LineVolumeSymbolTest, AssignFromAnotherKindLogsAndChangesNothing) {
    expectAssignFromAnotherKindIgnored<LineVolumeSymbol, LineSymbol>(
        "Core/src/Feature/LineVolumeSymbol", "keo::Feature::LineVolumeSymbol::assign");
}

TEST(LineVolumeSymbolTest, FillWritesTheShapeTheEndsTheConditionAndTheMaterial) {
    const keo::Feature::Feature feature;
    const LineVolumeSymbol symbol = makeEdited();
    keo::PolylineVolumeGraphics graphics;
    const keo::DistanceDisplayCondition condition(0.0f, 10.0f);
    symbol._fill(graphics, {feature, condition, keo::HeightReference::Absolute, false});
    EXPECT_EQ(graphics.getShape(), SQUARE);
    EXPECT_FALSE(graphics.getCloseStart());
    EXPECT_FALSE(graphics.getCloseEnd());
    EXPECT_FALSE(graphics.isFill());
    EXPECT_EQ(graphics.getDistanceDisplayCondition(), condition);
    ASSERT_NE(graphics.getMaterial(), nullptr);
    EXPECT_EQ(graphics.getMaterial()->getColor(), Color::RED);
    symbol._fill(graphics, {feature, condition, keo::HeightReference::Absolute, true});
    EXPECT_EQ(graphics.getMaterial()->getColor(), Color::HIGHLIGHTCOLOR);
    LineVolumeSymbol()._fill(graphics, {feature, condition, keo::HeightReference::Absolute, false});
    EXPECT_EQ(graphics.getMaterial(), nullptr);
}

} // namespace
