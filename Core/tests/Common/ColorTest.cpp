#include "Common/Color.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <tuple>

namespace {

using keo::Color;

TEST(ColorTest, DefaultIsOpaqueWhite) {
    EXPECT_EQ(Color(), Color::WHITE);
}

TEST(ColorTest, NamedConstantsHaveTheirComponents) {
    EXPECT_EQ(Color::WHITE, Color(1, 1, 1, 1));
    EXPECT_EQ(Color::BLACK, Color(0, 0, 0, 1));
    EXPECT_EQ(Color::TRANSPARENT, Color(0, 0, 0, 0));
    EXPECT_EQ(Color::RED, Color(1, 0, 0, 1));
    EXPECT_EQ(Color::GREEN, Color(0, 1, 0, 1));
    EXPECT_EQ(Color::BLUE, Color(0, 0, 1, 1));
    EXPECT_EQ(Color::YELLOW, Color(1, 1, 0, 1));
    EXPECT_EQ(Color::HIGHLIGHTCOLOR, Color(0, 1, 1, 1));
}

TEST(ColorTest, HighlightColorDiffersFromEveryOtherNamedColor) {
    for (const Color& c : {Color::WHITE, Color::BLACK, Color::TRANSPARENT, Color::RED, Color::GREEN,
                           Color::BLUE, Color::YELLOW}) {
        EXPECT_NE(Color::HIGHLIGHTCOLOR, c);
    }
}

TEST(ColorTest, EqualityIsExactAndNanEqualsNothing) {
    EXPECT_EQ(Color(0.25f, 0.5f, 0.75f, 1.0f), Color(0.25f, 0.5f, 0.75f, 1.0f));
    EXPECT_NE(Color(0.25f, 0.5f, 0.75f, 1.0f), Color(0.25f, 0.5f, 0.75f, 0.999f));
    const Color nan(std::nanf(""), 0, 0, 1);
    EXPECT_FALSE(nan == nan);
}

TEST(ColorTest, ParsesLongAndShortCssHex) {
    EXPECT_EQ(Color::fromCssHex("#ff0000"), Color::RED);
    EXPECT_EQ(Color::fromCssHex("#00FF00"), Color::GREEN);
    EXPECT_EQ(Color::fromCssHex("#0000ff80"), Color::fromBytes(0, 0, 255, 128));
    EXPECT_EQ(Color::fromCssHex("#fff"), Color::WHITE);
    EXPECT_EQ(Color::fromCssHex("#0f08"), Color::fromBytes(0, 255, 0, 136));
    EXPECT_EQ(Color::fromCssHex("#336699")->g, 102.0f / 255.0f);
}

TEST(ColorTest, RejectsMalformedCssHex) {
    for (const char* text : {"", "#", "ff0000", "#ff000", "#ff00000", "#gg0000", "#ff0000ff0",
                             " #ff0000", "#ff 000"}) {
        EXPECT_FALSE(Color::fromCssHex(text).has_value()) << text;
    }
}

TEST(ColorTest, WritesCssHexOmittingOpaqueAlpha) {
    EXPECT_EQ(Color::RED.toCssHex(), "#ff0000");
    EXPECT_EQ(Color::TRANSPARENT.toCssHex(), "#00000000");
    EXPECT_EQ(Color::HIGHLIGHTCOLOR.toCssHex(), "#00ffff");
    EXPECT_EQ(Color(2.0f, -1.0f, std::nanf(""), 0.5f).toCssHex(), "#ff000080");
}

TEST(ColorTest, CssHexRoundTripsEveryByteValue) {
    for (int v = 0; v < 256; ++v) {
        const auto byte = static_cast<std::uint8_t>(v);
        const Color c = Color::fromBytes(byte, byte, byte, byte);
        EXPECT_EQ(Color::fromCssHex(c.toCssHex()), c) << v;
    }
}

TEST(ColorTest, WithAlphaKeepsTheRgb) {
    EXPECT_EQ(Color::RED.withAlpha(0.5f), Color(1, 0, 0, 0.5f));
}

} // namespace
