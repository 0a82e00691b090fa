#include "Feature/Style.h"

#include "Feature/LabelSymbol.h"
#include "FeatureTestSupport.h"
#include "TestKinds.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using keo::HeightReference;
using keo::Feature::LabelSymbol;
using keo::Feature::Style;
using keo::Feature::test::CapturedLog;
using keo::Feature::test::EventRecorder;
using keo::Feature::test::TestStyle;

TEST(StyleTest, TypeCodesAreTheKitsCodes) {
    EXPECT_EQ(static_cast<int>(Style::Type::Point), 1);
    EXPECT_EQ(static_cast<int>(Style::Type::Polyline), 2);
    EXPECT_EQ(static_cast<int>(Style::Type::Polygon), 3);
    EXPECT_EQ(static_cast<int>(Style::Type::Ellipse), 4);
}

TEST(StyleTest, NewStyleHasTheDefaults) {
    const TestStyle style(Style::Type::Polygon);
    EXPECT_EQ(style.getType(), Style::Type::Polygon);
    EXPECT_EQ(style.getHeightReference(), HeightReference::Absolute);
    EXPECT_EQ(style.getShadows(), 0);
    EXPECT_EQ(style.getLabelSymbol(), nullptr);
    EXPECT_EQ(style.getName(), "");
}

TEST(StyleTest, TheBaseCastsAnswerNull) {
    TestStyle style;
    const TestStyle& constStyle = style;
    EXPECT_EQ(style.asPointStyle(), nullptr);
    EXPECT_EQ(style.asPolylineStyle(), nullptr);
    EXPECT_EQ(style.asPolygonStyle(), nullptr);
    EXPECT_EQ(style.asEllipseStyle(), nullptr);
    EXPECT_EQ(constStyle.asPointStyle(), nullptr);
    EXPECT_EQ(constStyle.asEllipseStyle(), nullptr);
}

TEST(StyleTest, SettersFollowTheEditRuleAndRaiseWithTheStyle) {
    TestStyle style;
    EventRecorder recorder(style);
    const Style* raisedWith = nullptr;
    style._addDefinitionChangedEventListener([&raisedWith](const Style* s) { raisedWith = s; });
    style.setHeightReference(HeightReference::Absolute);
    style.setShadows(0);
    style.setName("");
    EXPECT_EQ(recorder.events, "");
    style.setHeightReference(HeightReference::ClampToTerrain);
    EXPECT_EQ(recorder.events, "LUD");
    EXPECT_EQ(raisedWith, &style);
    style.setShadows(2);
    style.setName("catalogue entry");
    EXPECT_EQ(recorder.events, "LUDLUDLUD");
    EXPECT_EQ(style.getShadows(), 2);
    EXPECT_EQ(style.getName(), "catalogue entry");
}

TEST(StyleTest, SettingALabelSymbolRaisesOnceAndTheSamePointerNothing) {
    TestStyle style;
    EventRecorder recorder(style);
    const auto label = std::make_shared<LabelSymbol>();
    style.setLabelSymbol(label);
    style.setLabelSymbol(label);
    EXPECT_EQ(recorder.events, "LUD");
    EXPECT_EQ(style.getLabelSymbol(), label);
}

TEST(StyleTest, EditsOfTheLabelSymbolReachTheStyleAsLockUnlockChange) {
    TestStyle style;
    const auto label = std::make_shared<LabelSymbol>();
    style.setLabelSymbol(label);
    EventRecorder recorder(style);
    label->setSize(30.0f);
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(StyleTest, ReplacingTheLabelSymbolStopsEditsOfTheOldOneFromReachingTheStyle) {
    TestStyle style;
    const auto first = std::make_shared<LabelSymbol>();
    const auto second = std::make_shared<LabelSymbol>();
    style.setLabelSymbol(first);
    style.setLabelSymbol(second);
    EventRecorder recorder(style);
    first->setSize(30.0f);
    EXPECT_EQ(recorder.events, "");
    second->setSize(30.0f);
    EXPECT_EQ(recorder.events, "LUD");
    style.setLabelSymbol(nullptr);
    second->setSize(31.0f);
    EXPECT_EQ(recorder.events, "LUDLUD");
}

TEST(StyleTest, AssigningAStyleOfAnotherKindLogsAndChangesNothing) {
    const CapturedLog log;
    TestStyle point(Style::Type::Point);
    point.setShadows(1);
    point.setLabelSymbol(std::make_shared<LabelSymbol>());
    TestStyle polygon(Style::Type::Polygon);
    EventRecorder recorder(polygon);
    polygon.assign(point);
    EXPECT_EQ(polygon.getShadows(), 0);
    EXPECT_EQ(polygon.getLabelSymbol(), nullptr);
    EXPECT_EQ(recorder.events, "");
    const auto records = log.records();
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].message, keo::Feature::test::ASSIGN_KIND_MESSAGE);
    EXPECT_EQ(records[0].level, 3);
    EXPECT_EQ(records[0].location.file, "Core/src/Feature/Style");
    EXPECT_EQ(records[0].location.line, 57);
    EXPECT_EQ(records[0].location.function, "keo::Feature::Style::assign");
}

TEST(StyleTest, AssignEditsAHeldLabelSymbolInPlace) {
    TestStyle source;
    source.setLabelSymbol(std::make_shared<LabelSymbol>());
    source.getLabelSymbol()->setSize(40.0f);
    TestStyle target;
    const auto held = std::make_shared<LabelSymbol>();
    target.setLabelSymbol(held);
    EventRecorder recorder(target);
    target.assign(source);
    EXPECT_EQ(target.getLabelSymbol(), held);
    EXPECT_EQ(held->getSize(), 40.0f);
    EXPECT_EQ(recorder.events, "LUD"); // relayed from the held symbol's one change
}

TEST(StyleTest, AssignClonesALabelSymbolWhenOnlyTheSourceHasOne) {
    TestStyle source;
    source.setLabelSymbol(std::make_shared<LabelSymbol>());
    TestStyle target;
    target.assign(source);
    ASSERT_NE(target.getLabelSymbol(), nullptr);
    EXPECT_NE(target.getLabelSymbol(), source.getLabelSymbol());
    // The clone is relayed by the target.
    EventRecorder recorder(target);
    target.getLabelSymbol()->setScale(2.0f);
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(StyleTest, AssignClearsTheLabelSymbolWhenTheSourceHasNone) {
    TestStyle source;
    TestStyle target;
    target.setLabelSymbol(std::make_shared<LabelSymbol>());
    target.assign(source);
    EXPECT_EQ(target.getLabelSymbol(), nullptr);
}

TEST(StyleTest, AssignCopiesHeightReferenceAndShadowsEachByTheEditRule) {
    TestStyle source;
    source.setHeightReference(HeightReference::RelativeToGround);
    source.setShadows(3);
    TestStyle target;
    EventRecorder recorder(target);
    target.assign(source);
    EXPECT_EQ(target.getHeightReference(), HeightReference::RelativeToGround);
    EXPECT_EQ(target.getShadows(), 3);
    EXPECT_EQ(recorder.events, "LUDLUD");
    target.assign(source);
    EXPECT_EQ(recorder.events, "LUDLUD");
}

TEST(StyleTest, ACopyClonesTheLabelSymbolAndHasNoListeners) {
    TestStyle source;
    source.setHeightReference(HeightReference::ClampTo3DTiles);
    source.setShadows(1);
    source.setName("n");
    source.setLabelSymbol(std::make_shared<LabelSymbol>());
    EventRecorder sourceRecorder(source);
    const auto copy = source.clone();
    EXPECT_EQ(copy->getType(), source.getType());
    EXPECT_EQ(copy->getHeightReference(), HeightReference::ClampTo3DTiles);
    EXPECT_EQ(copy->getShadows(), 1);
    EXPECT_EQ(copy->getName(), "n");
    ASSERT_NE(copy->getLabelSymbol(), nullptr);
    EXPECT_NE(copy->getLabelSymbol(), source.getLabelSymbol());
    EventRecorder copyRecorder(*copy);
    copy->getLabelSymbol()->setSize(1.0f);
    EXPECT_EQ(copyRecorder.events, "LUD");
    EXPECT_EQ(sourceRecorder.events, "");
    source.getLabelSymbol()->setSize(1.0f);
    EXPECT_EQ(copyRecorder.events, "LUD");
}

} // namespace
