#include "Data/LabelGraphics.h"

#include "Data/FieldList.h"
#include "Data/Image.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>

namespace {

using keo::Color;
using keo::LabelGraphics;
using keo::LabelStyle;
using keo::Vector2;
using keo::Vector4;

constexpr float NOT_A_NUMBER = std::numeric_limits<float>::quiet_NaN();

TEST(LabelGraphicsTest, DefaultsAreAFilledWhiteTextWithoutBackground) {
    const LabelGraphics graphics;
    EXPECT_EQ(graphics.getText(), "");
    EXPECT_EQ(graphics.getFont(), "sans-serif");
    EXPECT_EQ(graphics.getFontSize(), 30.0f);
    EXPECT_EQ(graphics.getScale(), 1.0f);
    EXPECT_EQ(graphics.getStyle(), LabelStyle::Fill);
    EXPECT_EQ(graphics.getFillColor(), Color::WHITE);
    EXPECT_EQ(graphics.getOutlineColor(), Color::BLACK);
    EXPECT_EQ(graphics.getOutlineWidth(), 1.0f);
    EXPECT_FALSE(graphics.getShowBackground());
    EXPECT_EQ(graphics.getBackgroundColor(), Color(0.165f, 0.165f, 0.165f, 0.8f));
    EXPECT_EQ(graphics.getBackgroundPadding(), Vector4<float>(7.0f, 5.0f, 7.0f, 5.0f));
    EXPECT_EQ(std::get<std::string>(graphics.getBackgroundImage()), "");
    EXPECT_EQ(graphics.getPixelOffset(), Vector2<float>());
    EXPECT_EQ(graphics.getHorizontalOrigin(), keo::HorizontalOrigin::Center);
    EXPECT_EQ(graphics.getVerticalOrigin(), keo::VerticalOrigin::Center);
    EXPECT_TRUE(graphics.getAvoidance());
    EXPECT_FALSE(graphics.isOverlay());
}

TEST(LabelGraphicsTest, FieldsReadBackAsSet) {
    LabelGraphics graphics;
    const auto image = std::make_shared<keo::Image>();
    graphics.setText("总长：1.235 千米");
    graphics.setFont("微软雅黑");
    graphics.setFontSize(12.0f);
    graphics.setScale(1.5f);
    graphics.setStyle(LabelStyle::FillAndOutline);
    graphics.setFillColor(Color::HIGHLIGHTCOLOR);
    graphics.setOutlineColor(Color::RED);
    graphics.setOutlineWidth(2.0f);
    graphics.setShowBackground(true);
    graphics.setBackgroundColor(Color::BLUE);
    graphics.setBackgroundPadding({4.0f, 2.0f, 4.0f, 2.0f});
    graphics.setBackgroundImage(image);
    graphics.setPixelOffset({10.0f, 20.0f});
    graphics.setHorizontalOrigin(keo::HorizontalOrigin::Left);
    graphics.setVerticalOrigin(keo::VerticalOrigin::Baseline);
    graphics.setAvoidance(false);
    graphics.setOverlay(true);

    EXPECT_EQ(graphics.getText(), "总长：1.235 千米");
    EXPECT_EQ(graphics.getFont(), "微软雅黑");
    EXPECT_EQ(graphics.getFontSize(), 12.0f);
    EXPECT_EQ(graphics.getScale(), 1.5f);
    EXPECT_EQ(graphics.getStyle(), LabelStyle::FillAndOutline);
    EXPECT_EQ(graphics.getFillColor(), Color::HIGHLIGHTCOLOR);
    EXPECT_EQ(graphics.getOutlineColor(), Color::RED);
    EXPECT_EQ(graphics.getOutlineWidth(), 2.0f);
    EXPECT_TRUE(graphics.getShowBackground());
    EXPECT_EQ(graphics.getBackgroundColor(), Color::BLUE);
    EXPECT_EQ(graphics.getBackgroundPadding(), Vector4<float>(4.0f, 2.0f, 4.0f, 2.0f));
    EXPECT_EQ(std::get<std::shared_ptr<keo::Image>>(graphics.getBackgroundImage()), image);
    EXPECT_EQ(graphics.getPixelOffset(), Vector2<float>(10.0f, 20.0f));
    EXPECT_EQ(graphics.getHorizontalOrigin(), keo::HorizontalOrigin::Left);
    EXPECT_EQ(graphics.getVerticalOrigin(), keo::VerticalOrigin::Baseline);
    EXPECT_FALSE(graphics.getAvoidance());
    EXPECT_TRUE(graphics.isOverlay());
}

TEST(LabelGraphicsTest, OptionsAreTakenAsGiven) {
    LabelGraphics::ConstructorOptions options;
    options.text = "A";
    options.font = "微软雅黑";
    options.fontSize = 30.0f;
    options.style = LabelStyle::Outline;
    options.fillColor = Color::WHITE;
    options.outlineColor = Color::BLACK;
    const LabelGraphics graphics(options);
    EXPECT_EQ(graphics.getText(), "A");
    EXPECT_EQ(graphics.getFont(), "微软雅黑");
    EXPECT_EQ(graphics.getStyle(), LabelStyle::Outline);
}

TEST(LabelGraphicsTest, BadNumbersAreIgnoredOrClamped) {
    LabelGraphics graphics;
    graphics.setFontSize(NOT_A_NUMBER);
    graphics.setScale(-1.0f);
    graphics.setOutlineWidth(NOT_A_NUMBER);
    graphics.setBackgroundPadding({-1.0f, 2.0f, 3.0f, 4.0f});
    graphics.setPixelOffset({0.0f, NOT_A_NUMBER});
    graphics.setStyle(static_cast<LabelStyle>(3));
    EXPECT_EQ(graphics.getFontSize(), 30.0f);
    EXPECT_EQ(graphics.getScale(), 0.0f);
    EXPECT_EQ(graphics.getOutlineWidth(), 1.0f);
    EXPECT_EQ(graphics.getBackgroundPadding(), Vector4<float>(0.0f, 2.0f, 3.0f, 4.0f));
    EXPECT_EQ(graphics.getPixelOffset(), Vector2<float>());
    EXPECT_EQ(graphics.getStyle(), LabelStyle::Fill);

    graphics.setBackgroundPadding({NOT_A_NUMBER, 1.0f, 1.0f, 1.0f});
    EXPECT_EQ(graphics.getBackgroundPadding(), Vector4<float>(0.0f, 2.0f, 3.0f, 4.0f));
}

TEST(LabelGraphicsTest, TheBackgroundReadsItsDefaultsUntilChangedAndMayBeSetBackToThem) {
    const LabelGraphics::Fields defaults;
    LabelGraphics graphics;
    // The defaults given again change nothing.
    graphics.setBackgroundColor(defaults.backgroundColor);
    graphics.setBackgroundPadding(defaults.backgroundPadding);
    graphics.setBackgroundImage(keo::ImageSource());
    EXPECT_EQ(graphics.getBackgroundColor(), defaults.backgroundColor);
    EXPECT_EQ(graphics.getBackgroundPadding(), defaults.backgroundPadding);
    EXPECT_EQ(graphics.getBackgroundImage(), keo::ImageSource());

    graphics.setBackgroundColor(keo::Color::RED);
    graphics.setBackgroundImage(keo::ImageSource(std::string("box.png")));
    EXPECT_EQ(graphics.getBackgroundColor(), keo::Color::RED);
    EXPECT_EQ(graphics.getBackgroundPadding(), defaults.backgroundPadding);
    EXPECT_EQ(graphics.getBackgroundImage(), keo::ImageSource(std::string("box.png")));
    // Another label keeps the defaults.
    EXPECT_EQ(LabelGraphics().getBackgroundColor(), defaults.backgroundColor);

    graphics.setBackgroundColor(defaults.backgroundColor);
    graphics.setBackgroundPadding({1.0f, 2.0f, 3.0f, 4.0f});
    graphics.setBackgroundImage(keo::ImageSource());
    EXPECT_EQ(graphics.getBackgroundColor(), defaults.backgroundColor);
    EXPECT_EQ(graphics.getBackgroundPadding(), Vector4<float>(1.0f, 2.0f, 3.0f, 4.0f));
    EXPECT_EQ(graphics.getBackgroundImage(), keo::ImageSource());
}

TEST(LabelGraphicsTest, InvalidOptionValuesFallBackToTheDefaults) {
    LabelGraphics::ConstructorOptions options;
    options.fontSize = NOT_A_NUMBER;
    options.horizontalOrigin = static_cast<keo::HorizontalOrigin>(7);
    const LabelGraphics graphics(options);
    EXPECT_EQ(graphics.getFontSize(), 30.0f);
    EXPECT_EQ(graphics.getHorizontalOrigin(), keo::HorizontalOrigin::Center);
}

TEST(LabelGraphicsTest, DescribeWritesTheTextAsUtf8) {
    LabelGraphics graphics;
    graphics.setText("总长：\"1\"");
    keo::FieldList fields;
    graphics.describe(fields, keo::TimePoint());
    const auto& e = fields.entries();
    ASSERT_EQ(e.size(), 23u);
    EXPECT_EQ(e[6], (keo::FieldList::Entry{"text", "\"总长：\\\"1\\\"\""}));
    EXPECT_EQ(e[16], (keo::FieldList::Entry{"backgroundPadding", "[7, 5, 7, 5]"}));
    EXPECT_EQ(e[22], (keo::FieldList::Entry{"overlay", "false"}));
}

} // namespace
