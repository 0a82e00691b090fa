#include "Data/FieldList.h"

#include "Data/ClassificationType.h"
#include "Data/HeightReference.h"
#include "Data/HorizontalOrigin.h"
#include "Data/LabelStyle.h"
#include "Data/ReferenceFrame.h"
#include "Data/ShadowMode.h"
#include "Data/VerticalOrigin.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using keo::FieldList;

TEST(FieldListTest, KeepsEntriesInOrderWithJsonLiterals) {
    FieldList fields;
    fields.add("show", true);
    fields.add("count", 3);
    fields.add("id", std::uint64_t{18446744073709551615ULL});
    fields.add("name", "label-symbol");
    fields.addNull("distanceDisplayCondition");
    fields.addJson("raw", "[1, 2]");
    const auto& e = fields.entries();
    ASSERT_EQ(e.size(), 6u);
    EXPECT_EQ(e[0], (FieldList::Entry{"show", "true"}));
    EXPECT_EQ(e[1], (FieldList::Entry{"count", "3"}));
    EXPECT_EQ(e[2], (FieldList::Entry{"id", "18446744073709551615"}));
    EXPECT_EQ(e[3], (FieldList::Entry{"name", "\"label-symbol\""}));
    EXPECT_EQ(e[4], (FieldList::Entry{"distanceDisplayCondition", "null"}));
    EXPECT_EQ(e[5], (FieldList::Entry{"raw", "[1, 2]"}));
}

TEST(FieldListTest, AnEnumerationKeepsItsNumberAndTheNameOfItsValue) {
    FieldList fields;
    fields.addEnum("heightReference", 2, keo::toString(keo::HeightReference::RelativeToGround));
    fields.addEnum("code", 9, nullptr); // a value without a name: the number alone
    const auto& e = fields.entries();
    ASSERT_EQ(e.size(), 2u);
    EXPECT_EQ(e[0], (FieldList::Entry{"heightReference", "2", "relativeToGround"}));
    EXPECT_EQ(e[1], (FieldList::Entry{"code", "9", ""}));
}

TEST(FieldListTest, EveryEnumerationOfTheGraphicsNamesEachOfItsValues) {
    EXPECT_STREQ(keo::toString(keo::HeightReference::Absolute), "absolute");
    EXPECT_STREQ(keo::toString(keo::HeightReference::RelativeTo3DTiles), "relativeTo3DTiles");
    EXPECT_EQ(keo::toString(static_cast<keo::HeightReference>(7)), nullptr);
    EXPECT_STREQ(keo::toString(keo::ClassificationType::Tiles3D), "tiles3D");
    EXPECT_STREQ(keo::toString(keo::ClassificationType::Both), "both");
    EXPECT_STREQ(keo::toString(keo::HorizontalOrigin::Right), "right");
    EXPECT_STREQ(keo::toString(keo::VerticalOrigin::Baseline), "baseline");
    EXPECT_STREQ(keo::toString(keo::LabelStyle::FillAndOutline), "fillAndOutline");
    EXPECT_STREQ(keo::toString(keo::ShadowMode::ReceiveOnly), "receiveOnly");
    EXPECT_STREQ(keo::toString(keo::ReferenceFrame::Inertial), "inertial");
    EXPECT_EQ(keo::toString(static_cast<keo::ShadowMode>(4)), nullptr);
}

TEST(FieldListTest, NumbersUseTheirShortestExactForm) {
    EXPECT_EQ(FieldList::number(0.1), "0.1");
    EXPECT_EQ(FieldList::number(1.0), "1");
    EXPECT_EQ(FieldList::number(-2.5), "-2.5");
    EXPECT_EQ(FieldList::number(6378137.0), "6378137");
    EXPECT_EQ(FieldList::number(0.1f), "0.1"); // a float is not widened to 0.10000000149011612
    EXPECT_EQ(FieldList::number(0.99999f), "0.99999");
    EXPECT_EQ(FieldList::number(1e-10), "1e-10");
}

TEST(FieldListTest, NonFiniteNumbersBecomeStrings) {
    EXPECT_EQ(FieldList::number(std::numeric_limits<double>::quiet_NaN()), "\"NaN\"");
    EXPECT_EQ(FieldList::number(std::numeric_limits<double>::infinity()), "\"Infinity\"");
    EXPECT_EQ(FieldList::number(-std::numeric_limits<float>::infinity()), "\"-Infinity\"");
}

TEST(FieldListTest, QuoteEscapesControlCharactersAndKeepsUtf8) {
    EXPECT_EQ(FieldList::quote("a\"b\\c\n\t\r"), "\"a\\\"b\\\\c\\n\\t\\r\"");
    EXPECT_EQ(FieldList::quote(std::string_view("\x01", 1)), "\"\\u0001\"");
    EXPECT_EQ(FieldList::quote("总长：1.235 千米"), "\"总长：1.235 千米\"");
}

TEST(FieldListTest, QuoteEscapesBytesThatAreNotUtf8) {
    // GBK bytes, a lone continuation byte, an overlong '/' and a truncated sequence.
    EXPECT_EQ(FieldList::quote("\xbe\xd8"), "\"\\u00be\\u00d8\"");
    EXPECT_EQ(FieldList::quote("\x80"), "\"\\u0080\"");
    EXPECT_EQ(FieldList::quote("\xc0\xaf"), "\"\\u00c0\\u00af\"");
    EXPECT_EQ(FieldList::quote("\xe6\x80"), "\"\\u00e6\\u0080\"");
    EXPECT_EQ(FieldList::quote("\xed\xa0\x80"), "\"\\u00ed\\u00a0\\u0080\""); // a surrogate
}

TEST(FieldListTest, ColoursAndVectors) {
    FieldList fields;
    fields.add("color", keo::Color::RED);
    fields.add("offset", keo::Vector2<float>(1.5f, -2.0f));
    fields.add("shape", keo::Vector2<double>(0.25, 4.0));
    fields.add("position", keo::Vector3<double>(1.0, 2.5, -3.0));
    fields.add("padding", keo::Vector4<float>(7.0f, 5.0f, 7.0f, 5.0f));
    fields.add("ratio", 0.5f);
    fields.add("big", std::int64_t{-9007199254740993LL});
    const auto& e = fields.entries();
    EXPECT_EQ(e[0].json, "\"#ff0000\"");
    EXPECT_EQ(e[1].json, "[1.5, -2]");
    EXPECT_EQ(e[2].json, "[0.25, 4]");
    EXPECT_EQ(e[3].json, "[1, 2.5, -3]");
    EXPECT_EQ(e[4].json, "[7, 5, 7, 5]");
    EXPECT_EQ(e[5].json, "0.5");
    EXPECT_EQ(e[6].json, "-9007199254740993");
}

} // namespace
