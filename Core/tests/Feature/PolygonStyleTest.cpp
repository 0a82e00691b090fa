#include "Feature/PolygonStyle.h"

#include "Feature/ColorMaterial.h"
#include "Feature/ExtrusionSymbol.h"
#include "Feature/LabelSymbol.h"
#include "Feature/PointStyle.h"
#include "Feature/PolygonSymbol.h"
#include "Feature/PolylineStyle.h"
#include "SymbolTestSupport.h"

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>
#include <utility>

namespace {

using keo::Color;
using keo::Feature::ColorMaterial;
using keo::Feature::ExtrusionSymbol;
using keo::Feature::LabelSymbol;
using keo::Feature::PointStyle;
using keo::Feature::PolygonStyle;
using keo::Feature::PolygonSymbol;
using keo::Feature::PolylineStyle;
using keo::Feature::Style;
using namespace keo::Feature::test;

std::shared_ptr<PolygonStyle> fullStyle() {
    auto style = std::make_shared<PolygonStyle>();
    auto polygon = std::make_shared<PolygonSymbol>(std::make_shared<ColorMaterial>(Color::RED));
    polygon->setFill(false);
    style->setPolygonSymbol(polygon);
    auto extrusion = std::make_shared<ExtrusionSymbol>();
    extrusion->setHeight(45.0);
    extrusion->setBodySymbol(std::make_shared<PolygonSymbol>());
    style->setExtrusionSymbol(extrusion);
    return style;
}

TEST(PolygonStyleTest, ANewStyleIsOfThePolygonKindAndHoldsNoSymbol) {
    PolygonStyle style;
    const PolygonStyle& constStyle = style;
    EXPECT_EQ(style.getType(), Style::Type::Polygon);
    EXPECT_EQ(static_cast<int>(style.getType()), 3);
    EXPECT_EQ(style.asPolygonStyle(), &style);
    EXPECT_EQ(constStyle.asPolygonStyle(), &style);
    EXPECT_EQ(static_cast<Style&>(style).asPolygonStyle(), &style);
    EXPECT_EQ(style.asPolylineStyle(), nullptr);
    EXPECT_EQ(style.getPolygonSymbol(), nullptr);
    EXPECT_EQ(style.getExtrusionSymbol(), nullptr);
}

TEST(PolygonStyleTest, AConstStyleGivesTheExtrusionAsAConstPointer) {
    static_assert(std::is_same_v<decltype(std::declval<const PolygonStyle&>().getExtrusionSymbol()),
                                 const ExtrusionSymbol*>);
    const auto style = fullStyle();
    const PolygonStyle& constStyle = *style;
    EXPECT_EQ(constStyle.getExtrusionSymbol(), style->getExtrusionSymbol().get());
    EXPECT_EQ(constStyle.getPolygonSymbol(), style->getPolygonSymbol());
}

TEST(PolygonStyleTest, SettingTheSameSymbolTwiceRaisesEventsOnce) {
    PolygonStyle style;
    const EventRecorder recorder(style);
    const auto polygon = std::make_shared<PolygonSymbol>();
    style.setPolygonSymbol(polygon);
    style.setPolygonSymbol(polygon);
    const auto extrusion = std::make_shared<ExtrusionSymbol>();
    style.setExtrusionSymbol(extrusion);
    style.setExtrusionSymbol(extrusion);
    EXPECT_EQ(recorder.events, "LUDLUD");
}

TEST(PolygonStyleTest, AChangeOfTheBodySymbolOfTheExtrusionReachesTheStyleOnce) {
    const auto style = fullStyle();
    const EventRecorder recorder(*style);
    int definitionChanges = 0;
    style->_addDefinitionChangedEventListener([&](const Style* s) {
        EXPECT_EQ(s, style.get());
        ++definitionChanges;
    });
    style->getExtrusionSymbol()->getBodySymbol()->setEnabled(false);
    EXPECT_EQ(recorder.events, "LUD");
    EXPECT_EQ(definitionChanges, 1);
}

TEST(PolygonStyleTest, AChangeOfTheFillMaterialReachesTheStyleOnce) {
    const auto style = fullStyle();
    const EventRecorder recorder(*style);
    style->getPolygonSymbol()->getMaterial()->setEnableBreathing(true);
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(PolygonStyleTest, ReplacingOrClearingASymbolStopsItsEditsReachingTheStyle) {
    const auto style = fullStyle();
    const auto polygon = style->getPolygonSymbol();
    const auto extrusion = style->getExtrusionSymbol();
    style->setPolygonSymbol(std::make_shared<PolygonSymbol>());
    style->setExtrusionSymbol(nullptr);
    const EventRecorder recorder(*style);
    polygon->setFill(true);
    extrusion->setHeight(1.0);
    EXPECT_EQ(recorder.events, "");
    style->getPolygonSymbol()->setFill(false);
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(PolygonStyleTest, ACopyHoldsCopiesOfTheSymbolsAndHearsOnlyThem) {
    const auto source = fullStyle();
    source->setLabelSymbol(std::make_shared<LabelSymbol>());
    PolygonStyle copy(*source);
    ASSERT_NE(copy.getPolygonSymbol(), nullptr);
    EXPECT_NE(copy.getPolygonSymbol(), source->getPolygonSymbol());
    EXPECT_FALSE(copy.getPolygonSymbol()->isFill());
    ASSERT_NE(copy.getExtrusionSymbol(), nullptr);
    EXPECT_NE(copy.getExtrusionSymbol(), source->getExtrusionSymbol());
    EXPECT_EQ(copy.getExtrusionSymbol()->getHeight(), 45.0);
    EXPECT_NE(copy.getLabelSymbol(), source->getLabelSymbol());
    const EventRecorder recorder(copy);
    source->getPolygonSymbol()->setFill(true);
    source->getExtrusionSymbol()->setHeight(2.0);
    EXPECT_EQ(recorder.events, "");
    copy.getExtrusionSymbol()->setHeight(2.0);
    EXPECT_EQ(recorder.events, "LUD");
    const auto cloned = source->clone();
    ASSERT_NE(cloned->asPolygonStyle(), nullptr);
    EXPECT_NE(cloned->asPolygonStyle()->getPolygonSymbol(), source->getPolygonSymbol());
}

TEST(PolygonStyleTest, AssignEditsHeldSymbolsInPlaceAndKeepsTheirListeners) {
    const auto source = fullStyle();
    PolygonStyle target;
    const auto polygon = std::make_shared<PolygonSymbol>();
    const auto extrusion = std::make_shared<ExtrusionSymbol>();
    target.setPolygonSymbol(polygon);
    target.setExtrusionSymbol(extrusion);
    target.assign(*source);
    EXPECT_EQ(target.getPolygonSymbol(), polygon);
    EXPECT_FALSE(polygon->isFill());
    EXPECT_EQ(target.getExtrusionSymbol(), extrusion);
    EXPECT_EQ(extrusion->getHeight(), 45.0);
    const EventRecorder recorder(target);
    extrusion->setHeight(3.0);
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(PolygonStyleTest, AssignFromAStyleWithoutAnExtrusionEmptiesItAndRaisesTheStylesEvents) {
    const auto target = fullStyle();
    const auto extrusion = target->getExtrusionSymbol();
    PolygonStyle source; // the same polygon symbol, no extrusion
    source.setPolygonSymbol(
        std::make_shared<PolygonSymbol>(std::make_shared<ColorMaterial>(Color::RED)));
    source.getPolygonSymbol()->setFill(false);
    const EventRecorder recorder(*target);
    target->assign(source);
    EXPECT_EQ(target->getExtrusionSymbol(), nullptr);
    EXPECT_EQ(recorder.events, "LUD");
    extrusion->setHeight(7.0);
    EXPECT_EQ(recorder.events, "LUD");
}

TEST(PolygonStyleTest, AssignIntoEmptySlotsInstallsClones) {
    const auto source = fullStyle();
    PolygonStyle target;
    target.assign(*source);
    ASSERT_NE(target.getPolygonSymbol(), nullptr);
    EXPECT_NE(target.getPolygonSymbol(), source->getPolygonSymbol());
    ASSERT_NE(target.getExtrusionSymbol(), nullptr);
    EXPECT_NE(target.getExtrusionSymbol(), source->getExtrusionSymbol());
}

TEST(PolygonStyleTest, AssigningAPointStyleToAPolygonStyleLogsAndChangesNothing) {
    const CapturedLog log;
    const auto target = fullStyle();
    const EventRecorder recorder(*target);
    target->assign(PointStyle());
    EXPECT_EQ(recorder.events, "");
    EXPECT_NE(target->getExtrusionSymbol(), nullptr);
    expectAssignKindLogged(log, "Core/src/Feature/PolygonStyle",
                           "keo::Feature::PolygonStyle::assign");
}

TEST(PolygonStyleTest, AssigningAPolylineStyleLogsAtThePolygonStylesSite) {
    const CapturedLog log;
    PolygonStyle target;
    target.assign(PolylineStyle());
    expectAssignKindLogged(log, "Core/src/Feature/PolygonStyle",
                           "keo::Feature::PolygonStyle::assign");
}

} // namespace
