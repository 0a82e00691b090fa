#include "Feature/LabelSymbol.h"

#include "Data/Image.h"
#include "Data/LabelGraphics.h"
#include "Data/MaterialProperty.h"
#include "Data/PolylineGraphics.h"
#include "Feature/ColorMaterial.h"
#include "Feature/Feature.h"
#include "Feature/LengthLabelSymbol.h"
#include "Feature/LineSymbol.h"
#include "Feature/SymbolContext.h"
#include "FeatureTestSupport.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>

namespace {

using keo::Color;
using keo::DistanceDisplayCondition;
using keo::Image;
using keo::Feature::LabelSymbol;
using keo::Feature::LineSymbol;
using keo::Feature::test::CapturedLog;
using keo::Feature::test::EventRecorder;

TEST(LabelSymbolTest, ADefaultLabelShowsAnOutlineNoBackgroundAndTakesPartInAvoidance) {
    const LabelSymbol symbol;
    EXPECT_TRUE(symbol.isShowOutline());
    EXPECT_FALSE(symbol.isShowBackground());
    EXPECT_TRUE(symbol.getAvoidance());
}

TEST(LabelSymbolTest, NewLabelHasTheDocumentedDefaults) {
    const LabelSymbol symbol;
    EXPECT_EQ(static_cast<int>(symbol.getType()), 2);
    EXPECT_TRUE(symbol.isEnabled());
    EXPECT_EQ(symbol.getFieldName(), "");
    EXPECT_EQ(symbol.getFont(), "");
    EXPECT_EQ(symbol.getSize(), 12.0f);
    EXPECT_EQ(symbol.getScale(), 1.0f);
    EXPECT_EQ(symbol.getFillColor(), Color::WHITE);
    EXPECT_EQ(symbol.getOutlineColor(), Color::BLACK);
    EXPECT_EQ(symbol.getOutlineWidth(), 1.0f);
    EXPECT_EQ(symbol.getBackgroundColor(), Color(0.165f, 0.165f, 0.165f, 0.8f));
    EXPECT_EQ(symbol.getBackgroundPadding(), keo::Vector4<float>(7.0f, 5.0f, 7.0f, 5.0f));
    EXPECT_EQ(symbol.getPixelOffset(), keo::Vector2<float>(0.0f, 0.0f));
    EXPECT_EQ(static_cast<int>(symbol.getHorizontalOrigin()), 0);
    EXPECT_EQ(static_cast<int>(symbol.getVerticalOrigin()), 0);
    EXPECT_EQ(std::get<std::string>(symbol.getBackgroundImage()), "");
    EXPECT_FALSE(symbol.isShowHintLine());
    EXPECT_EQ(symbol.getHintLineMode(), LabelSymbol::HintLineMode::Straight);
    EXPECT_EQ(symbol.getHintLineSymbol(), nullptr);
    EXPECT_FALSE(symbol.getDistanceDisplayCondition().has_value());
}

TEST(LabelSymbolTest, EverySetterRaisesNothingOnAnEqualValueAndOneChangeOtherwise) {
    LabelSymbol s;
    EventRecorder recorder(s);
    s.setFieldName("");
    s.setFont("");
    s.setSize(12.0f);
    s.setScale(1.0f);
    s.setShowOutline(true);
    s.setShowBackground(false);
    s.setFillColor(Color::WHITE);
    s.setOutlineColor(Color::BLACK);
    s.setOutlineWidth(1.0f);
    s.setBackgroundColor(Color(0.165f, 0.165f, 0.165f, 0.8f));
    s.setBackgroundPadding({7.0f, 5.0f, 7.0f, 5.0f});
    s.setPixelOffset({0.0f, 0.0f});
    s.setHorizontalOrigin(keo::HorizontalOrigin::Center);
    s.setVerticalOrigin(keo::VerticalOrigin::Center);
    s.setAvoidance(true);
    s.setBackgroundImage(std::string());
    s.setShowHintLine(false);
    s.setHintLineMode(LabelSymbol::HintLineMode::Straight);
    s.setHintLineSymbol(nullptr);
    s.setDistanceDisplayCondition(std::nullopt);
    EXPECT_EQ(recorder.events, "");

    s.setFieldName("f");
    s.setFont("serif");
    s.setSize(13.0f);
    s.setScale(2.0f);
    s.setShowOutline(false);
    s.setShowBackground(true);
    s.setFillColor(Color::RED);
    s.setOutlineColor(Color::RED);
    s.setOutlineWidth(2.0f);
    s.setBackgroundColor(Color::RED);
    s.setBackgroundPadding({1.0f, 1.0f, 1.0f, 1.0f});
    s.setPixelOffset({1.0f, 0.0f});
    s.setHorizontalOrigin(keo::HorizontalOrigin::Right);
    s.setVerticalOrigin(keo::VerticalOrigin::Bottom);
    s.setAvoidance(false);
    s.setBackgroundImage(std::string("bg.png"));
    s.setShowHintLine(true);
    s.setHintLineMode(LabelSymbol::HintLineMode::Elbow);
    s.setHintLineSymbol(std::make_shared<LineSymbol>());
    s.setDistanceDisplayCondition(DistanceDisplayCondition(1.0f, 2.0f));
    std::string expected;
    for (int i = 0; i < 20; ++i) {
        expected += "LUD";
    }
    EXPECT_EQ(recorder.events, expected);
}

TEST(LabelSymbolTest, ANaNSizeAlwaysCountsAsAChange) {
    LabelSymbol s;
    EventRecorder recorder(s);
    s.setSize(std::numeric_limits<float>::quiet_NaN());
    s.setSize(std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(recorder.events, "LUDLUD");
}

TEST(LabelSymbolTest, SettingAStringBackgroundWhileAnImageIsHeldAlwaysRaisesAChange) {
    LabelSymbol s;
    s.setBackgroundImage(std::make_shared<Image>());
    EventRecorder recorder(s);
    s.setBackgroundImage(std::string());
    EXPECT_EQ(recorder.events, "LUD");
    EXPECT_EQ(std::get<std::string>(s.getBackgroundImage()), "");
}

TEST(LabelSymbolTest, ImagesCompareByIdentityAndPathsByContent) {
    LabelSymbol s;
    const auto image = std::make_shared<Image>();
    s.setBackgroundImage(image);
    EventRecorder recorder(s);
    s.setBackgroundImage(image);
    EXPECT_EQ(recorder.events, "");
    s.setBackgroundImage(std::make_shared<Image>()); // an equal image, another object
    EXPECT_EQ(recorder.events, "LUD");
    s.setBackgroundImage(std::string("a.png"));
    s.setBackgroundImage(std::string("a.png"));
    EXPECT_EQ(recorder.events, "LUDLUD");
}

TEST(LabelSymbolTest, EditsOfTheHintLineSymbolAreRelayedAsTheLabels) {
    LabelSymbol s;
    const auto line = std::make_shared<LineSymbol>();
    s.setHintLineSymbol(line);
    EventRecorder recorder(s);
    line->setWidth(2.0f);
    EXPECT_EQ(recorder.events, "LUD");
    line->setLengthLabelSymbol(std::make_shared<keo::Feature::LengthLabelSymbol>());
    line->getLengthLabelSymbol()->setSize(20.0f); // two levels down
    EXPECT_EQ(recorder.events, "LUDLUDLUD");
}

TEST(LabelSymbolTest, AssigningALabelWithoutHintLineSymbolClearsItAndDetachesTheRelay) {
    LabelSymbol target;
    const auto line = std::make_shared<LineSymbol>();
    target.setHintLineSymbol(line);
    const LabelSymbol source;
    target.assign(source);
    EXPECT_EQ(target.getHintLineSymbol(), nullptr);
    EventRecorder recorder(target);
    line->setWidth(5.0f);
    EXPECT_EQ(recorder.events, "");
}

TEST(LabelSymbolTest, AssignEditsAHeldHintLineSymbolInPlaceOrClonesTheSources) {
    LabelSymbol source;
    source.setHintLineSymbol(std::make_shared<LineSymbol>());
    source.getHintLineSymbol()->setWidth(4.0f);

    LabelSymbol holding;
    const auto held = std::make_shared<LineSymbol>();
    holding.setHintLineSymbol(held);
    holding.assign(source);
    EXPECT_EQ(holding.getHintLineSymbol(), held);
    EXPECT_EQ(held->getWidth(), 4.0f);

    LabelSymbol empty;
    empty.assign(source);
    ASSERT_NE(empty.getHintLineSymbol(), nullptr);
    EXPECT_NE(empty.getHintLineSymbol(), source.getHintLineSymbol());
    EXPECT_EQ(empty.getHintLineSymbol()->getWidth(), 4.0f);
}

TEST(LabelSymbolTest, AssignCopiesTheFieldsInTheirOrderAndTheImageByItsAlternative) {
    LabelSymbol source;
    const auto image = std::make_shared<Image>();
    source.setEnabled(false);
    source.setFieldName("f");
    source.setSize(20.0f);
    source.setBackgroundImage(image);
    source.setDistanceDisplayCondition(DistanceDisplayCondition(1.0f, 5.0f));
    LabelSymbol target;
    std::vector<std::string> seen;
    target._addDefinitionChangedEventListener([&seen, &target] {
        seen.push_back(std::to_string(target.isEnabled()) + target.getFieldName() +
                       std::to_string(static_cast<int>(target.getSize())) +
                       (target.getDistanceDisplayCondition() ? "d" : "-") +
                       (target.getBackgroundImage().index() == 1 ? "i" : "-"));
    });
    target.assign(source);
    EXPECT_EQ(seen, (std::vector<std::string>{"012--", "0f12--", "0f20--", "0f20d-", "0f20di"}));
    EXPECT_EQ(std::get<std::shared_ptr<Image>>(target.getBackgroundImage()), image);
}

TEST(LabelSymbolTest, AssignFromAnotherKindLogsAndChangesNothing) {
    const CapturedLog log;
    LabelSymbol target;
    EventRecorder recorder(target);
    target.assign(LineSymbol());
    EXPECT_EQ(recorder.events, "");
    const auto records = log.records();
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].message, keo::Feature::test::ASSIGN_KIND_MESSAGE);
    EXPECT_EQ(records[0].level, 3);
    EXPECT_EQ(records[0].location.file, "Core/src/Feature/LabelSymbol");
    EXPECT_EQ(records[0].location.function, "keo::Feature::LabelSymbol::assign");
}

TEST(LabelSymbolTest, ACloneHasItsOwnHintLineSymbolAndNoListeners) {
    LabelSymbol source;
    source.setFont("mono");
    source.setHintLineSymbol(std::make_shared<LineSymbol>());
    EventRecorder sourceRecorder(source);
    const auto copy = std::static_pointer_cast<LabelSymbol>(source.clone());
    EXPECT_EQ(copy->getFont(), "mono");
    ASSERT_NE(copy->getHintLineSymbol(), nullptr);
    EXPECT_NE(copy->getHintLineSymbol(), source.getHintLineSymbol());
    EventRecorder copyRecorder(*copy);
    copy->getHintLineSymbol()->setWidth(9.0f);
    EXPECT_EQ(copyRecorder.events, "LUD");
    EXPECT_EQ(sourceRecorder.events, "");
}

// --- _fill and _fillHintLine: the symbol written into its graphics ----------------------------

LabelSymbol makeFillSource(const std::shared_ptr<Image>& image) {
    LabelSymbol symbol;
    symbol.setFont("serif");
    symbol.setSize(18.0f);
    symbol.setScale(1.5f);
    symbol.setShowOutline(false);
    symbol.setShowBackground(true);
    symbol.setFillColor(Color::YELLOW);
    symbol.setOutlineColor(Color::BLUE);
    symbol.setOutlineWidth(2.0f);
    symbol.setBackgroundColor(Color::GREEN);
    symbol.setBackgroundPadding({1.0f, 2.0f, 3.0f, 4.0f});
    symbol.setBackgroundImage(image);
    symbol.setPixelOffset({10.0f, 20.0f});
    symbol.setHorizontalOrigin(keo::HorizontalOrigin::Left);
    symbol.setVerticalOrigin(keo::VerticalOrigin::Top);
    symbol.setAvoidance(false);
    symbol.setDistanceDisplayCondition(DistanceDisplayCondition(50.0f, 800.0f));
    return symbol;
}

TEST(LabelSymbolTest, FillWritesTheTextEveryFieldAndTheIntersectedCondition) {
    const keo::Feature::Feature feature;
    const auto image = std::make_shared<Image>(1u, 1u, std::vector<std::uint8_t>{1, 2, 3, 4});
    const LabelSymbol symbol = makeFillSource(image);
    keo::LabelGraphics graphics;
    symbol._fill(graphics,
                 {feature, DistanceDisplayCondition(100.0f, 2000.0f),
                  keo::HeightReference::ClampToGround, false},
                 "Tower");
    EXPECT_EQ(graphics.getText(), "Tower");
    EXPECT_EQ(graphics.getFont(), "serif");
    EXPECT_EQ(graphics.getFontSize(), 18.0f);
    EXPECT_EQ(graphics.getScale(), 1.5f);
    EXPECT_EQ(graphics.getStyle(), keo::LabelStyle::Fill);
    EXPECT_EQ(graphics.getFillColor(), Color::YELLOW);
    EXPECT_EQ(graphics.getOutlineColor(), Color::BLUE);
    EXPECT_EQ(graphics.getOutlineWidth(), 2.0f);
    EXPECT_TRUE(graphics.getShowBackground());
    EXPECT_EQ(graphics.getBackgroundColor(), Color::GREEN);
    EXPECT_EQ(graphics.getBackgroundPadding(), keo::Vector4<float>(1.0f, 2.0f, 3.0f, 4.0f));
    EXPECT_EQ(graphics.getBackgroundImage(), keo::ImageSource(image));
    EXPECT_EQ(graphics.getPixelOffset(), keo::Vector2<float>(10.0f, 20.0f));
    EXPECT_EQ(graphics.getHorizontalOrigin(), keo::HorizontalOrigin::Left);
    EXPECT_EQ(graphics.getVerticalOrigin(), keo::VerticalOrigin::Top);
    EXPECT_FALSE(graphics.getAvoidance());
    EXPECT_EQ(graphics.getHeightReference(), keo::HeightReference::ClampToGround);
    // The larger near and the smaller far of the context's and the symbol's.
    EXPECT_EQ(graphics.getDistanceDisplayCondition(), DistanceDisplayCondition(100.0f, 800.0f));
}

TEST(LabelSymbolTest, FillShowsTheHighlightColourOnlyWhileHighlighted) {
    const keo::Feature::Feature feature;
    const LabelSymbol symbol = makeFillSource(nullptr);
    keo::LabelGraphics graphics;
    symbol._fill(graphics, {feature, std::nullopt, keo::HeightReference::Absolute, true}, "a");
    EXPECT_EQ(graphics.getFillColor(), Color::HIGHLIGHTCOLOR);
    EXPECT_EQ(graphics.getOutlineColor(), Color::BLUE); // the outline keeps its colour
    symbol._fill(graphics, {feature, std::nullopt, keo::HeightReference::Absolute, false}, "a");
    EXPECT_EQ(graphics.getFillColor(), Color::YELLOW);
}

TEST(LabelSymbolTest, FillWithoutAConditionOfItsOwnTakesTheContexts) {
    const keo::Feature::Feature feature;
    const LabelSymbol symbol;
    keo::LabelGraphics graphics;
    symbol._fill(
        graphics,
        {feature, DistanceDisplayCondition(1.0f, 2.0f), keo::HeightReference::Absolute, false},
        "a");
    EXPECT_EQ(graphics.getDistanceDisplayCondition(), DistanceDisplayCondition(1.0f, 2.0f));
}

TEST(LabelSymbolTest, FillHintLineWithoutALineSymbolIsOnePixelWhiteAndDrapedAsTheHeightSays) {
    const keo::Feature::Feature feature;
    LabelSymbol symbol;
    symbol.setPixelOffset({30.0f, 40.0f});
    symbol.setHintLineMode(LabelSymbol::HintLineMode::Elbow);
    keo::PolylineGraphics graphics;
    symbol._fillHintLine(graphics,
                         {feature, std::nullopt, keo::HeightReference::ClampToTerrain, false});
    EXPECT_EQ(graphics.getWidth(), 1.0f);
    ASSERT_NE(graphics.getMaterial(), nullptr);
    EXPECT_EQ(graphics.getMaterial()->getColor(), Color::WHITE);
    const std::vector<keo::Vector2<float>> elbow{{0.0f, 0.0f}, {0.0f, 40.0f}, {30.0f, 40.0f}};
    EXPECT_EQ(graphics.getPixelOffsets(), elbow);
    EXPECT_EQ(graphics.getClassificationType(), keo::ClassificationType::Terrain);
    EXPECT_EQ(graphics.getHeightReference(), keo::HeightReference::ClampToTerrain);
}

TEST(LabelSymbolTest, FillHintLineTakesTheLineSymbolsWidthAndMaterialAndTheLabelsCondition) {
    const keo::Feature::Feature feature;
    LabelSymbol symbol;
    symbol.setPixelOffset({5.0f, 6.0f});
    symbol.setDistanceDisplayCondition(DistanceDisplayCondition(0.0f, 300.0f));
    auto line = std::make_shared<LineSymbol>();
    line->setWidth(3.0f);
    line->setMaterial(std::make_shared<keo::Feature::ColorMaterial>(Color::RED));
    symbol.setHintLineSymbol(line);
    keo::PolylineGraphics graphics;
    symbol._fillHintLine(graphics, {feature, DistanceDisplayCondition(10.0f, 500.0f),
                                    keo::HeightReference::Absolute, true});
    EXPECT_EQ(graphics.getWidth(), 3.0f);
    EXPECT_EQ(graphics.getMaterial()->getColor(), Color::HIGHLIGHTCOLOR);
    const std::vector<keo::Vector2<float>> straight{{0.0f, 0.0f}, {5.0f, 6.0f}};
    EXPECT_EQ(graphics.getPixelOffsets(), straight);
    EXPECT_EQ(graphics.getClassificationType(), std::nullopt); // absolute heights: not draped
    EXPECT_EQ(graphics.getDistanceDisplayCondition(), DistanceDisplayCondition(10.0f, 300.0f));
}

TEST(LabelSymbolTest, FillHintLineWithALineSymbolWithoutMaterialIsWhite) {
    const keo::Feature::Feature feature;
    LabelSymbol symbol;
    symbol.setHintLineSymbol(std::make_shared<LineSymbol>());
    keo::PolylineGraphics graphics;
    symbol._fillHintLine(graphics, {feature, std::nullopt, keo::HeightReference::Absolute, false});
    EXPECT_EQ(graphics.getWidth(), 0.8f);
    ASSERT_NE(graphics.getMaterial(), nullptr);
    EXPECT_EQ(graphics.getMaterial()->getColor(), Color::WHITE);
}

} // namespace
