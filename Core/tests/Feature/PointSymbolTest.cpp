#include "Feature/PointSymbol.h"

#include "Data/PointGraphics.h"
#include "Feature/BillboardSymbol.h"
#include "Feature/Feature.h"
#include "Feature/SymbolContext.h"
#include "SymbolTestSupport.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace {

using keo::Color;
using keo::Feature::PointSymbol;
using keo::Feature::Symbol;
using namespace keo::Feature::test;

constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();

PointSymbol makeEdited() {
    PointSymbol symbol;
    symbol.setEnabled(false);
    symbol.setPixelSize(12.0f);
    symbol.setColor(Color::RED);
    symbol.setOutlineColor(Color::BLUE);
    symbol.setOutlineWidth(3.0f);
    return symbol;
}

void expectSameFields(const PointSymbol& a, const PointSymbol& b) {
    EXPECT_EQ(a.isEnabled(), b.isEnabled());
    EXPECT_EQ(a.getPixelSize(), b.getPixelSize());
    EXPECT_EQ(a.getColor(), b.getColor());
    EXPECT_EQ(a.getOutlineColor(), b.getOutlineColor());
    EXPECT_EQ(a.getOutlineWidth(), b.getOutlineWidth());
}

TEST(PointSymbolTest, DefaultIsAWhiteDotOfSizeZeroWithABlackOutlineOnePixelWide) {
    const PointSymbol symbol;
    EXPECT_EQ(symbol.getType(), Symbol::Type::Point);
    EXPECT_TRUE(symbol.isEnabled());
    EXPECT_EQ(symbol.getPixelSize(), 0.0f);
    EXPECT_EQ(symbol.getColor(), Color::WHITE);
    EXPECT_EQ(symbol.getOutlineColor(), Color::BLACK);
    EXPECT_EQ(symbol.getOutlineWidth(), 1.0f);
}

TEST(PointSymbolTest, SetPixelSizeRaisesOneChangeAndNothingForTheSameValue) {
    expectOneChangeThenNone<PointSymbol>([](PointSymbol& s, float v) { s.setPixelSize(v); }, 8.0f);
}

TEST(PointSymbolTest, SetColorRaisesOneChangeAndNothingForTheSameValue) {
    expectOneChangeThenNone<PointSymbol>([](PointSymbol& s, const Color& v) { s.setColor(v); },
                                         Color::RED);
}

TEST(PointSymbolTest, SetOutlineColorRaisesOneChangeAndNothingForTheSameValue) {
    expectOneChangeThenNone<PointSymbol>(
        [](PointSymbol& s, const Color& v) { s.setOutlineColor(v); }, Color::YELLOW);
}

TEST(PointSymbolTest, SetOutlineWidthRaisesOneChangeAndNothingForTheSameValue) {
    expectOneChangeThenNone<PointSymbol>([](PointSymbol& s, float v) { s.setOutlineWidth(v); },
                                         2.5f);
}

TEST(PointSymbolTest, SettingTheDefaultValuesRaisesNothing) {
    PointSymbol symbol;
    const EventRecorder recorder(symbol);
    symbol.setPixelSize(0.0f);
    symbol.setColor(Color::WHITE);
    symbol.setOutlineColor(Color::BLACK);
    symbol.setOutlineWidth(1.0f);
    EXPECT_EQ(recorder.events, "");
}

TEST(PointSymbolTest, NaNIsAlwaysAChange) {
    expectNaNAlwaysChanges<PointSymbol>([](PointSymbol& s, float v) { s.setPixelSize(v); },
                                        NOT_A_NUMBER);
    expectNaNAlwaysChanges<PointSymbol>([](PointSymbol& s, float v) { s.setOutlineWidth(v); },
                                        NOT_A_NUMBER);
    expectNaNAlwaysChanges<PointSymbol>([](PointSymbol& s, const Color& v) { s.setColor(v); },
                                        Color(NOT_A_NUMBER, 0.0f, 0.0f));
    expectNaNAlwaysChanges<PointSymbol>(
        [](PointSymbol& s, const Color& v) { s.setOutlineColor(v); },
        Color(0.0f, 0.0f, 0.0f, NOT_A_NUMBER));
}

TEST(PointSymbolTest, ValuesAreStoredWithoutRangeChecks) {
    PointSymbol symbol;
    symbol.setPixelSize(-4.0f);
    symbol.setOutlineWidth(-1.0f);
    EXPECT_EQ(symbol.getPixelSize(), -4.0f);
    EXPECT_EQ(symbol.getOutlineWidth(), -1.0f);
}

TEST(PointSymbolTest, AssignCopiesEnabledThenPixelSizeColorOutlineColorOutlineWidth) {
    const PointSymbol source = makeEdited();
    PointSymbol target;
    const EventRecorder recorder(target);
    FieldOrder order(target);
    order.add("enabled", [&] { return target.isEnabled() == source.isEnabled(); });
    order.add("pixelSize", [&] { return target.getPixelSize() == source.getPixelSize(); });
    order.add("color", [&] { return target.getColor() == source.getColor(); });
    order.add("outlineColor", [&] { return target.getOutlineColor() == source.getOutlineColor(); });
    order.add("outlineWidth", [&] { return target.getOutlineWidth() == source.getOutlineWidth(); });
    target.assign(source);
    EXPECT_EQ(order.order(), (std::vector<std::string>{"enabled", "pixelSize", "color",
                                                       "outlineColor", "outlineWidth"}));
    EXPECT_EQ(recorder.events, "LUDLUDLUDLUDLUD");
    expectSameFields(target, source);
}

TEST(PointSymbolTest, AssignRaisesEventsOnlyForFieldsThatDiffer) {
    PointSymbol source;
    source.setColor(Color::GREEN);
    PointSymbol target;
    const EventRecorder recorder(target);
    target.assign(source);
    EXPECT_EQ(recorder.events, "LUD");
    target.assign(source);
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(PointSymbolTest, AssignFromAnotherKindLogsAndChangesNothing) {
    expectAssignFromAnotherKindIgnored<PointSymbol, keo::Feature::BillboardSymbol>(
        "Core/src/Feature/PointSymbol", "keo::Feature::PointSymbol::assign");
}

TEST(PointSymbolTest, CloneAndCopyHaveEveryFieldAndEventsOfTheirOwn) {
    PointSymbol source = makeEdited();
    expectCopiesAreIndependent(source, expectSameFields,
                               [](PointSymbol& copy) { copy.setPixelSize(99.0f); });
}

// --- _fill: the symbol written into its graphics --------------------------------------------

TEST(PointSymbolTest, FillWritesTheDotAndTheContextIntoTheGraphics) {
    const keo::Feature::Feature feature;
    const PointSymbol symbol = makeEdited();
    const keo::DistanceDisplayCondition condition(10.0f, 500.0f);
    keo::PointGraphics graphics;
    symbol._fill(graphics, {feature, condition, keo::HeightReference::ClampToGround, false});
    EXPECT_EQ(graphics.getPixelSize(), 12.0f);
    EXPECT_EQ(graphics.getColor(), Color::RED);
    EXPECT_EQ(graphics.getHeightReference(), keo::HeightReference::ClampToGround);
    EXPECT_EQ(graphics.getDistanceDisplayCondition(), condition);
}

TEST(PointSymbolTest, FillShowsTheHighlightColourOnlyWhileHighlighted) {
    const keo::Feature::Feature feature;
    const PointSymbol symbol = makeEdited();
    keo::PointGraphics graphics;
    symbol._fill(graphics, {feature, std::nullopt, keo::HeightReference::Absolute, true});
    EXPECT_EQ(graphics.getColor(), Color::HIGHLIGHTCOLOR);
    symbol._fill(graphics, {feature, std::nullopt, keo::HeightReference::Absolute, false});
    EXPECT_EQ(graphics.getColor(), Color::RED);
    EXPECT_EQ(symbol.getColor(), Color::RED);
}

} // namespace
