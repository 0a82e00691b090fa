#include "Source/Value.h"

#include "SourceTestSupport.h"

#include "Common/Color.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

namespace {

using keo::Color;
using keo::Feature::AttributeValue;
using keo::Source::Value;

TEST(ValueTest, DefaultIsNull) {
    const Value value;
    EXPECT_TRUE(value.isNull());
    EXPECT_EQ(value.type(), Value::Type::Null);
}

TEST(ValueTest, EachConstructorGivesItsType) {
    EXPECT_EQ(Value(true).type(), Value::Type::Boolean);
    EXPECT_EQ(Value(2.5).type(), Value::Type::Number);
    EXPECT_EQ(Value(3).type(), Value::Type::Number);
    EXPECT_EQ(Value("text").type(), Value::Type::String);
    EXPECT_EQ(Value(std::string("text")).type(), Value::Type::String);
    EXPECT_EQ(Value(Color::RED).type(), Value::Type::Color);
}

TEST(ValueTest, AccessorsOfAnotherTypeGiveNeutralValues) {
    const Value text("a");
    EXPECT_FALSE(text.asBoolean());
    EXPECT_TRUE(std::isnan(text.asNumber()));
    EXPECT_EQ(text.asColor(), Color::WHITE);
    EXPECT_EQ(Value(1.0).asString(), "");
}

TEST(ValueTest, ToStringWritesEachTypeAsTheLanguageDoes) {
    EXPECT_EQ(Value().toString(), "");
    EXPECT_EQ(Value(true).toString(), "true");
    EXPECT_EQ(Value(false).toString(), "false");
    EXPECT_EQ(Value(3.0).toString(), "3");
    EXPECT_EQ(Value(-2.5).toString(), "-2.5");
    EXPECT_EQ(Value(0.1).toString(), "0.1");
    EXPECT_EQ(Value(1234567.0).toString(), "1234567");
    EXPECT_EQ(Value(1e21).toString(), "1e+21");
    EXPECT_EQ(Value(1e-7).toString(), "1e-07");
    EXPECT_EQ(Value(std::nan("")).toString(), "NaN");
    EXPECT_EQ(Value(-HUGE_VAL).toString(), "-Infinity");
    EXPECT_EQ(Value("abc").toString(), "abc");
    EXPECT_EQ(Value(Color(1.0f, 0.0f, 0.5f, 0.8f)).toString(), "rgba(255,0,128,0.8)");
}

TEST(ValueTest, DescribeQuotesTextsAndNamesNull) {
    EXPECT_EQ(Value("abc").describe(), "\"abc\"");
    EXPECT_EQ(Value().describe(), "null");
    EXPECT_EQ(Value(2.0).describe(), "2");
}

TEST(ValueTest, EqualityNeedsTheSameTypeAndContents) {
    EXPECT_EQ(Value(1.0), Value(1));
    EXPECT_NE(Value(1.0), Value("1"));
    EXPECT_NE(Value(true), Value(1.0));
    EXPECT_EQ(Value(), Value());
    EXPECT_NE(Value(std::nan("")), Value(std::nan("")));
    EXPECT_EQ(Value(Color::RED), Value(Color(1.0f, 0.0f, 0.0f, 1.0f)));
}

TEST(ValueTest, FromAttributeMapsTheReadersTypes) {
    using namespace keo::Source::test;
    EXPECT_EQ(Value::fromAttribute(integer(42)), Value(42.0));
    EXPECT_EQ(Value::fromAttribute(real(2.5)), Value(2.5));
    EXPECT_EQ(Value::fromAttribute(text("x")), Value("x"));
    EXPECT_EQ(Value::fromAttribute(boolean(true)), Value(true));
    EXPECT_TRUE(Value::fromAttribute(null()).isNull());
}

TEST(ValueTest, FromAttributeMapsOtherStandardTypes) {
    EXPECT_EQ(Value::fromAttribute({0, 7}), Value(7.0));
    EXPECT_EQ(Value::fromAttribute({0, 7U}), Value(7.0));
    EXPECT_EQ(Value::fromAttribute({0, std::uint16_t{9}}), Value(9.0));
    EXPECT_EQ(Value::fromAttribute({0, 1.5f}), Value(1.5));
    EXPECT_EQ(Value::fromAttribute({0, std::string_view("v")}), Value("v"));
    EXPECT_EQ(Value::fromAttribute({0, "c"}), Value("c"));
    EXPECT_EQ(Value::fromAttribute({0, Color::BLUE}), Value(Color::BLUE));
}

TEST(ValueTest, FromAttributeGivesNullForUnknownTypes) {
    struct Opaque {};
    EXPECT_TRUE(Value::fromAttribute({0, Opaque{}}).isNull());
}

TEST(ValueTest, TypeNamesAreLowerCase) {
    EXPECT_STREQ(Value::typeName(Value::Type::Color), "color");
    EXPECT_STREQ(Value::typeName(Value::Type::Number), "number");
}

} // namespace
