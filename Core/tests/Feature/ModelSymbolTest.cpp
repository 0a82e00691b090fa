#include "Feature/ModelSymbol.h"

#include "Data/ModelGraphics.h"
#include "Data/Resource.h"
#include "Feature/Feature.h"
#include "Feature/PointSymbol.h"
#include "Feature/SymbolContext.h"
#include "SymbolTestSupport.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace {

using keo::Color;
using keo::Radian;
using keo::Resource;
using keo::Vector3;
using keo::Feature::ModelSymbol;
using keo::Feature::Symbol;
using namespace keo::Feature::test;

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

using Rotation = Vector3<Radian>;

ModelSymbol makeEdited(const std::shared_ptr<Resource>& uri) {
    ModelSymbol symbol;
    symbol.setEnabled(false);
    symbol.setModelUri(uri);
    symbol.setScale({2.0, 3.0, 4.0});
    symbol.setColor(Color::BLUE);
    symbol.setRotation(Rotation(Radian(0.1), Radian(0.2), Radian(0.3)));
    symbol.setAllowPicking(false);
    return symbol;
}

void expectSameFields(const ModelSymbol& a, const ModelSymbol& b) {
    EXPECT_EQ(a.isEnabled(), b.isEnabled());
    EXPECT_EQ(a.getModelUri(), b.getModelUri());
    EXPECT_EQ(a.getScale(), b.getScale());
    EXPECT_EQ(a.getColor(), b.getColor());
    EXPECT_EQ(a.getRotation(), b.getRotation());
    EXPECT_EQ(a.isAllowPicking(), b.isAllowPicking());
}

TEST(ModelSymbolTest, DefaultHasNoModelUnitScaleWhiteNoRotationAndIsPickable) {
    const ModelSymbol symbol;
    EXPECT_EQ(symbol.getType(), Symbol::Type::Model);
    EXPECT_TRUE(symbol.isEnabled());
    EXPECT_EQ(symbol.getModelUri(), nullptr);
    EXPECT_EQ(symbol.getScale(), Vector3<double>(1.0, 1.0, 1.0));
    EXPECT_EQ(symbol.getColor(), Color::WHITE);
    EXPECT_EQ(symbol.getRotation(), Rotation());
    EXPECT_TRUE(symbol.isAllowPicking());
}

TEST(ModelSymbolTest, SetModelUriComparesByIdentity) {
    ModelSymbol symbol;
    const auto uri = std::make_shared<Resource>("tower.glb");
    const EventRecorder recorder(symbol);
    symbol.setModelUri(uri);
    symbol.setModelUri(uri);
    EXPECT_EQ(recorder.events, "LUD");
    symbol.setModelUri(std::make_shared<Resource>("tower.glb")); // same URI, another object
    EXPECT_EQ(recorder.events, "LUDLUD");
    symbol.setModelUri(nullptr);
    symbol.setModelUri(nullptr);
    EXPECT_EQ(recorder.events, "LUDLUDLUD");
    EXPECT_EQ(symbol.getModelUri(), nullptr);
}

TEST(ModelSymbolTest, SetScaleRaisesOneChangeAndNothingForTheSameValue) {
    expectOneChangeThenNone<ModelSymbol>(
        [](ModelSymbol& s, const Vector3<double>& v) { s.setScale(v); },
        Vector3<double>(1.0, 1.0, 2.0));
}

TEST(ModelSymbolTest, SetColorRaisesOneChangeAndNothingForTheSameValue) {
    expectOneChangeThenNone<ModelSymbol>([](ModelSymbol& s, const Color& v) { s.setColor(v); },
                                         Color::TRANSPARENT);
}

TEST(ModelSymbolTest, SetRotationRaisesOneChangeAndNothingForTheSameValue) {
    expectOneChangeThenNone<ModelSymbol>(
        [](ModelSymbol& s, const Rotation& v) { s.setRotation(v); },
        Rotation(Radian(0.0), Radian(0.0), Radian(1.5)));
}

TEST(ModelSymbolTest, SetAllowPickingRaisesOneChangeAndNothingForTheSameValue) {
    expectOneChangeThenNone<ModelSymbol>([](ModelSymbol& s, bool v) { s.setAllowPicking(v); },
                                         false);
}

TEST(ModelSymbolTest, NaNIsAlwaysAChange) {
    expectNaNAlwaysChanges<ModelSymbol>(
        [](ModelSymbol& s, const Vector3<double>& v) { s.setScale(v); },
        Vector3<double>(1.0, NOT_A_NUMBER, 1.0));
    expectNaNAlwaysChanges<ModelSymbol>([](ModelSymbol& s, const Rotation& v) { s.setRotation(v); },
                                        Rotation(Radian(), Radian(), Radian(NOT_A_NUMBER)));
    expectNaNAlwaysChanges<ModelSymbol>([](ModelSymbol& s, const Color& v) { s.setColor(v); },
                                        Color(std::numeric_limits<float>::quiet_NaN(), 1.0f, 1.0f));
}

TEST(ModelSymbolTest, AssignCopiesEnabledThenModelUriScaleColorRotationAllowPicking) {
    const ModelSymbol source = makeEdited(std::make_shared<Resource>("tower.glb"));
    ModelSymbol target;
    const EventRecorder recorder(target);
    FieldOrder order(target);
    order.add("enabled", [&] { return target.isEnabled() == source.isEnabled(); });
    order.add("modelUri", [&] { return target.getModelUri() == source.getModelUri(); });
    order.add("scale", [&] { return target.getScale() == source.getScale(); });
    order.add("color", [&] { return target.getColor() == source.getColor(); });
    order.add("rotation", [&] { return target.getRotation() == source.getRotation(); });
    order.add("allowPicking", [&] { return target.isAllowPicking() == source.isAllowPicking(); });
    target.assign(source);
    EXPECT_EQ(order.order(), (std::vector<std::string>{"enabled", "modelUri", "scale", "color",
                                                       "rotation", "allowPicking"}));
    EXPECT_EQ(recorder.events, "LUDLUDLUDLUDLUDLUD");
    expectSameFields(target, source);
}

TEST(ModelSymbolTest, AssignSharesTheModelResource) {
    const auto uri = std::make_shared<Resource>("tower.glb");
    const ModelSymbol source = makeEdited(uri);
    ModelSymbol target;
    target.setModelUri(std::make_shared<Resource>("tower.glb"));
    target.assign(source);
    EXPECT_EQ(target.getModelUri(), uri);
}

TEST(ModelSymbolTest, AssignFromAnotherKindLogsAndChangesNothing) {
    expectAssignFromAnotherKindIgnored<ModelSymbol, keo::Feature::PointSymbol>(
        "Core/src/Feature/ModelSymbol", "keo::Feature::ModelSymbol::assign");
}

TEST(ModelSymbolTest, CloneAndCopyHaveEveryFieldAndEventsOfTheirOwn) {
    ModelSymbol source = makeEdited(std::make_shared<Resource>("tower.glb"));
    expectCopiesAreIndependent(source, expectSameFields,
                               [](ModelSymbol& copy) { copy.setAllowPicking(true); });
}

// --- _fill: the symbol written into its graphics --------------------------------------------

TEST(ModelSymbolTest, FillWritesTheModelAndTheContextIntoTheGraphics) {
    const keo::Feature::Feature feature;
    const auto uri = std::make_shared<Resource>("tower.glb");
    const ModelSymbol symbol = makeEdited(uri);
    const keo::DistanceDisplayCondition condition(0.0f, 2000.0f);
    keo::ModelGraphics graphics;
    symbol._fill(graphics, {feature, condition, keo::HeightReference::ClampToTerrain, false});
    EXPECT_EQ(graphics.getUri(), uri);
    EXPECT_EQ(graphics.getScale(), Vector3<double>(2.0, 3.0, 4.0));
    EXPECT_EQ(graphics.getRotation(), Rotation(Radian(0.1), Radian(0.2), Radian(0.3)));
    EXPECT_EQ(graphics.getColor(), Color::BLUE);
    EXPECT_FALSE(graphics.isAllowPicking());
    EXPECT_EQ(graphics.getHeightReference(), keo::HeightReference::ClampToTerrain);
    EXPECT_EQ(graphics.getDistanceDisplayCondition(), condition);
}

TEST(ModelSymbolTest, FillShowsTheHighlightColourOnlyWhileHighlighted) {
    const keo::Feature::Feature feature;
    const ModelSymbol symbol = makeEdited(std::make_shared<Resource>("tower.glb"));
    keo::ModelGraphics graphics;
    symbol._fill(graphics, {feature, std::nullopt, keo::HeightReference::Absolute, true});
    EXPECT_EQ(graphics.getColor(), Color::HIGHLIGHTCOLOR);
    symbol._fill(graphics, {feature, std::nullopt, keo::HeightReference::Absolute, false});
    EXPECT_EQ(graphics.getColor(), Color::BLUE);
}

} // namespace
