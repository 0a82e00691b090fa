#include "Feature/LineSymbol.h"

#include "Data/MaterialProperty.h"
#include "Data/PolylineGraphics.h"
#include "Feature/ColorMaterial.h"
#include "Feature/Feature.h"
#include "Feature/LabelSymbol.h"
#include "Feature/LengthLabelSymbol.h"
#include "Feature/SymbolContext.h"
#include "FeatureTestSupport.h"
#include "SymbolTestSupport.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {

using keo::Color;
using keo::Feature::ColorMaterial;
using keo::Feature::LengthLabelSymbol;
using keo::Feature::LineSymbol;
using keo::Feature::Path;
using keo::Feature::test::CapturedLog;
using keo::Feature::test::EventRecorder;

TEST(LineSymbolTest, ANewLineHasTheDefaults) {
    const LineSymbol line;
    EXPECT_EQ(static_cast<int>(line.getType()), 4);
    EXPECT_EQ(line.getWidth(), 0.8f);
    EXPECT_EQ(static_cast<double>(line.getWidth()), 0.800000011920929);
    EXPECT_FALSE(line.getPath().enabled);
    EXPECT_FALSE(line.getPath().closed);
    EXPECT_FALSE(line.getPath().reversed);
    EXPECT_TRUE(line.getPath().loop);
    EXPECT_EQ(line.getPath().speed, 300.0f);
    EXPECT_FALSE(line.getPath().restartRequest);
    EXPECT_EQ(line.getMaterial(), nullptr);
    EXPECT_EQ(line.getLengthLabelSymbol(), nullptr);
}

TEST(LineSymbolTest, APathThatDiffersOnlyInItsRestartRequestIsIgnored) {
    LineSymbol line;
    EventRecorder recorder(line);
    Path path;
    path.restartRequest = true;
    line.setPath(path);
    EXPECT_EQ(recorder.events, "");
    EXPECT_FALSE(line.getPath().restartRequest);
    path.speed = 10.0f;
    line.setPath(path);
    EXPECT_EQ(recorder.events, "LUD");
    EXPECT_TRUE(line.getPath().restartRequest); // stored with the rest
}

TEST(LineSymbolTest, RestartPathRaisesOnlyWhileNoRequestIsPending) {
    LineSymbol line;
    EventRecorder recorder(line);
    line.restartPath();
    line.restartPath();
    EXPECT_EQ(recorder.events, "LUD");
    line._clearRestartRequest();
    EXPECT_EQ(recorder.events, "LUD");
    line.restartPath();
    EXPECT_EQ(recorder.events, "LUDLUD");
}

TEST(LineSymbolTest, SettingTheSameMaterialTwiceRaisesOnce) {
    LineSymbol line;
    EventRecorder recorder(line);
    const auto material = std::make_shared<ColorMaterial>(Color::RED);
    line.setMaterial(material);
    line.setMaterial(material);
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(LineSymbolTest, OnlyTheHeldMaterialAndLengthLabelsAreRelayed) {
    LineSymbol line;
    const auto first = std::make_shared<ColorMaterial>();
    const auto second = std::make_shared<ColorMaterial>();
    line.setMaterial(first);
    line.setMaterial(second);
    const auto labels = std::make_shared<LengthLabelSymbol>();
    line.setLengthLabelSymbol(labels);
    EventRecorder recorder(line);
    first->setColor(Color::RED);
    EXPECT_EQ(recorder.events, "");
    second->setColor(Color::RED);
    labels->setDecimalPlaces(0);
    EXPECT_EQ(recorder.events, "LUDLUD");
}

TEST(LineSymbolTest, ACopyHasItsOwnMaterialAndLengthLabels) {
    LineSymbol source;
    source.setWidth(2.0f);
    source.setMaterial(std::make_shared<ColorMaterial>(Color::BLUE));
    source.setLengthLabelSymbol(std::make_shared<LengthLabelSymbol>());
    const auto copy = std::static_pointer_cast<LineSymbol>(source.clone());
    EXPECT_EQ(copy->getWidth(), 2.0f);
    ASSERT_NE(copy->getMaterial(), nullptr);
    EXPECT_NE(copy->getMaterial(), source.getMaterial());
    ASSERT_NE(copy->getLengthLabelSymbol(), nullptr);
    EXPECT_NE(copy->getLengthLabelSymbol(), source.getLengthLabelSymbol());
    EventRecorder recorder(*copy);
    source.getLengthLabelSymbol()->setSize(1.0f);
    EXPECT_EQ(recorder.events, "");
    copy->getLengthLabelSymbol()->setSize(1.0f);
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(LineSymbolTest, AssignInstallsCopiesOfTheHeldObjectsAndClearsMissingOnes) {
    LineSymbol source;
    source.setMaterial(std::make_shared<ColorMaterial>(Color::GREEN));
    source.setWidth(3.0f);
    LineSymbol target;
    const auto held = std::make_shared<ColorMaterial>();
    target.setMaterial(held);
    target.setLengthLabelSymbol(std::make_shared<LengthLabelSymbol>());
    const EventRecorder recorder(target);
    target.assign(source);
    // A copy of the source's material replaces the held one, which is no longer heard.
    ASSERT_NE(target.getMaterial(), nullptr);
    EXPECT_NE(target.getMaterial(), held);
    EXPECT_NE(target.getMaterial(), source.getMaterial());
    EXPECT_EQ(std::static_pointer_cast<ColorMaterial>(target.getMaterial())->getColor(),
              Color::GREEN);
    EXPECT_EQ(target.getWidth(), 3.0f);
    EXPECT_EQ(target.getLengthLabelSymbol(), nullptr);
    EXPECT_EQ(recorder.events, "LUDLUDLUD"); // material, width, length labels
    held->setColor(Color::RED);
    EXPECT_EQ(recorder.events, "LUDLUDLUD");
    target.getMaterial()->setEnableBreathing(true);
    EXPECT_EQ(recorder.events, "LUDLUDLUDLUD");
}

TEST(LineSymbolTest, AssignCopiesTheFieldsInTheirOrder) {
    LineSymbol source;
    source.setMaterial(std::make_shared<ColorMaterial>());
    source.setWidth(2.0f);
    Path path;
    path.enabled = true;
    source.setPath(path);
    source.setLengthLabelSymbol(std::make_shared<LengthLabelSymbol>());
    LineSymbol target;
    keo::Feature::test::FieldOrder order(target);
    order.add("material", [&] { return target.getMaterial() != nullptr; });
    order.add("width", [&] { return target.getWidth() == 2.0f; });
    order.add("path", [&] { return target.getPath().enabled; });
    order.add("length labels", [&] { return target.getLengthLabelSymbol() != nullptr; });
    target.assign(source);
    EXPECT_EQ(order.order(),
              (std::vector<std::string>{"material", "width", "path", "length labels"}));
}

TEST(LineSymbolTest, AssignFromAnotherKindLogsAndChangesNothing) {
    const CapturedLog log;
    LineSymbol target;
    target.assign(keo::Feature::LabelSymbol());
    const auto records = log.records();
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].message, keo::Feature::test::ASSIGN_KIND_MESSAGE);
    EXPECT_EQ(records[0].location.file, "Core/src/Feature/LineSymbol");
    EXPECT_EQ(records[0].location.function, "keo::Feature::LineSymbol::assign");
}

// --- _fill: the symbol written into its graphics --------------------------------------------

TEST(LineSymbolTest, FillWritesTheWidthTheSharedMaterialAndTheCondition) {
    const keo::Feature::Feature feature;
    LineSymbol symbol;
    symbol.setWidth(4.0f);
    const auto material = std::make_shared<ColorMaterial>(Color::RED);
    symbol.setMaterial(material);
    const keo::DistanceDisplayCondition condition(0.0f, 1000.0f);
    keo::PolylineGraphics graphics;
    symbol._fill(graphics, {feature, condition, keo::HeightReference::Absolute, false});
    EXPECT_EQ(graphics.getWidth(), 4.0f);
    ASSERT_NE(graphics.getMaterial(), nullptr);
    EXPECT_EQ(graphics.getMaterial(), material->_getMaterial(false)); // the one cached property
    EXPECT_EQ(graphics.getMaterial()->getColor(), Color::RED);
    EXPECT_EQ(graphics.getDistanceDisplayCondition(), condition);
}

TEST(LineSymbolTest, FillShowsTheHighlightColourOnlyWhileHighlighted) {
    const keo::Feature::Feature feature;
    LineSymbol symbol;
    symbol.setMaterial(std::make_shared<ColorMaterial>(Color::RED));
    keo::PolylineGraphics graphics;
    symbol._fill(graphics, {feature, std::nullopt, keo::HeightReference::Absolute, true});
    EXPECT_EQ(graphics.getMaterial()->getColor(), Color::HIGHLIGHTCOLOR);
    symbol._fill(graphics, {feature, std::nullopt, keo::HeightReference::Absolute, false});
    EXPECT_EQ(graphics.getMaterial()->getColor(), Color::RED);
}

TEST(LineSymbolTest, FillWithoutAMaterialClearsTheGraphicsMaterial) {
    const keo::Feature::Feature feature;
    keo::PolylineGraphics graphics;
    graphics.setMaterial(keo::PolylineGraphics::getDefaultMaterial());
    LineSymbol()._fill(graphics, {feature, std::nullopt, keo::HeightReference::Absolute, false});
    EXPECT_EQ(graphics.getMaterial(), nullptr);
    EXPECT_EQ(graphics.getWidth(), 0.8f);
}

} // namespace
