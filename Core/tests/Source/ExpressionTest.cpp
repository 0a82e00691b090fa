#include "Source/Expression.h"

#include "SourceTestSupport.h"

#include "Common/Color.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace {

using keo::Color;
using keo::Source::Expression;
using keo::Source::LoadReport;
using keo::Source::Value;
using keo::Source::test::Attributes;
using keo::Source::test::boolean;
using keo::Source::test::compileError;
using keo::Source::test::evaluate;
using keo::Source::test::evaluationFailure;
using keo::Source::test::integer;
using keo::Source::test::null;
using keo::Source::test::real;
using keo::Source::test::text;

struct Case {
    const char* json;
    Value expected;
};

void expectTable(const std::vector<Case>& cases, const Attributes& attributes = {}) {
    for (const Case& c : cases) {
        EXPECT_EQ(evaluate(c.json, attributes), c.expected) << c.json;
    }
}

const Attributes CITY{{"name", text("Lyon")}, {"population", integer(522000)},
                      {"area", real(47.87)},  {"capital", boolean(false)},
                      {"nothing", null()},    {"kind", text("city")}};

TEST(ExpressionTest, ConstantsAreTheirOwnValues) {
    expectTable({{"3", Value(3.0)},
                 {"\"abc\"", Value("abc")},
                 {"true", Value(true)},
                 {"null", Value()},
                 {"[\"literal\", \"x\"]", Value("x")},
                 {"[\"literal\", 2.5]", Value(2.5)}});
}

TEST(ExpressionTest, GetReadsAttributesAndGivesNullForAbsentOnes) {
    expectTable({{"[\"get\", \"name\"]", Value("Lyon")},
                 {"[\"get\", \"population\"]", Value(522000.0)},
                 {"[\"get\", \"area\"]", Value(47.87)},
                 {"[\"get\", \"capital\"]", Value(false)},
                 {"[\"get\", \"nothing\"]", Value()},
                 {"[\"get\", \"missing\"]", Value()}},
                CITY);
}

TEST(ExpressionTest, HasTellsPresenceEvenOfNullAttributes) {
    expectTable({{"[\"has\", \"name\"]", Value(true)},
                 {"[\"has\", \"nothing\"]", Value(true)},
                 {"[\"has\", \"missing\"]", Value(false)}},
                CITY);
}

TEST(ExpressionTest, IdGivesTheFeatureId) {
    EXPECT_EQ(evaluate("[\"id\"]"), Value(7.0));
    LoadReport report;
    const auto expression = Expression::parse("[\"id\"]", report);
    ASSERT_NE(expression, nullptr);
    EXPECT_TRUE(expression->evaluate({}).isNull());
}

TEST(ExpressionTest, EqualityComparesTypeAndValue) {
    expectTable({{"[\"==\", 1, 1]", Value(true)},
                 {"[\"==\", 1, \"1\"]", Value(false)},
                 {"[\"!=\", 1, \"1\"]", Value(true)},
                 {"[\"==\", [\"get\", \"kind\"], \"city\"]", Value(true)},
                 {"[\"==\", [\"get\", \"missing\"], null]", Value(true)},
                 {"[\"!=\", [\"get\", \"name\"], \"Lyon\"]", Value(false)}},
                CITY);
}

TEST(ExpressionTest, OrderComparesNumbersAndTexts) {
    expectTable({{"[\"<\", 1, 2]", Value(true)},
                 {"[\"<=\", 2, 2]", Value(true)},
                 {"[\">\", 1, 2]", Value(false)},
                 {"[\">=\", 3, 2]", Value(true)},
                 {"[\"<\", \"abc\", \"abd\"]", Value(true)},
                 {"[\">\", [\"get\", \"population\"], 500000]", Value(true)}},
                CITY);
}

TEST(ExpressionTest, OrderOfMixedTypesFailsAtEvaluationWithThePath) {
    EXPECT_EQ(evaluationFailure("[\"<\", [\"get\", \"name\"], 3]", CITY),
              "feature 7: expression[2]: expected two numbers or two strings, got 3; the result "
              "is null");
}

TEST(ExpressionTest, OrderOfKnownMixedTypesIsACompileError) {
    EXPECT_EQ(compileError("[\"<\", \"a\", 3]"), "expression: compares a number with a string");
    EXPECT_EQ(compileError("[\"<\", true, 3]"),
              "expression[1]: expected a number or a string, got a boolean");
}

TEST(ExpressionTest, LogicOperatorsCombineBooleans) {
    expectTable({{"[\"all\"]", Value(true)},
                 {"[\"any\"]", Value(false)},
                 {"[\"all\", true, false]", Value(false)},
                 {"[\"all\", true, true]", Value(true)},
                 {"[\"any\", false, true]", Value(true)},
                 {"[\"!\", true]", Value(false)},
                 {"[\"!\", [\"get\", \"capital\"]]", Value(true)}},
                CITY);
}

TEST(ExpressionTest, LogicShortCircuits) {
    // The second argument would fail on a text; it is never evaluated.
    EXPECT_EQ(evaluate("[\"all\", false, [\"get\", \"name\"]]", CITY), Value(false));
    EXPECT_EQ(evaluate("[\"any\", true, [\"get\", \"name\"]]", CITY), Value(true));
}

TEST(ExpressionTest, LogicOnANonBooleanFails) {
    EXPECT_EQ(evaluationFailure("[\"!\", [\"get\", \"population\"]]", CITY),
              "feature 7: expression[1]: expected a boolean, got 522000; the result is null");
    EXPECT_EQ(compileError("[\"all\", true, 3]"),
              "expression[2]: expected a boolean, got a number");
}

TEST(ExpressionTest, CaseTakesTheFirstTrueBranchElseTheFallback) {
    const char* json = "[\"case\", [\">\", [\"get\", \"p\"], 100], \"big\", [\">\", [\"get\", "
                       "\"p\"], 10], \"medium\", \"small\"]";
    EXPECT_EQ(evaluate(json, {{"p", integer(500)}}), Value("big"));
    EXPECT_EQ(evaluate(json, {{"p", integer(50)}}), Value("medium"));
    EXPECT_EQ(evaluate(json, {{"p", integer(5)}}), Value("small"));
}

TEST(ExpressionTest, CaseNeedsAnOddArgumentCount) {
    EXPECT_EQ(compileError("[\"case\", true, 1, false, 2]"),
              "expression: \"case\" takes condition-output pairs and a fallback, an odd number "
              "of arguments");
    EXPECT_EQ(compileError("[\"case\", true]"), "expression: \"case\" takes at least 3 arguments, "
                                                "got 1");
}

TEST(ExpressionTest, MatchFindsTextAndNumberLabels) {
    const char* byKind = "[\"match\", [\"get\", \"kind\"], \"city\", 1, [\"town\", \"village\"], "
                         "2, 0]";
    EXPECT_EQ(evaluate(byKind, {{"kind", text("city")}}), Value(1.0));
    EXPECT_EQ(evaluate(byKind, {{"kind", text("village")}}), Value(2.0));
    EXPECT_EQ(evaluate(byKind, {{"kind", text("farm")}}), Value(0.0));
    EXPECT_EQ(evaluate(byKind, {{"kind", integer(3)}}), Value(0.0));
    EXPECT_EQ(evaluate(byKind), Value(0.0));
    const char* byCode = "[\"match\", [\"get\", \"code\"], [3, 1], \"low\", 10, \"ten\", \"x\"]";
    EXPECT_EQ(evaluate(byCode, {{"code", integer(1)}}), Value("low"));
    EXPECT_EQ(evaluate(byCode, {{"code", integer(10)}}), Value("ten"));
    EXPECT_EQ(evaluate(byCode, {{"code", real(10.5)}}), Value("x"));
}

TEST(ExpressionTest, MatchRejectsBadLabels) {
    EXPECT_EQ(compileError("[\"match\", 1, \"a\", 1, 2, 2, 0]"),
              "expression[4]: labels must all be strings or all be numbers");
    EXPECT_EQ(compileError("[\"match\", 1, \"a\", 1, \"a\", 2, 0]"),
              "expression[4]: duplicate label \"a\"");
    EXPECT_EQ(compileError("[\"match\", 1, [], 1, 0]"),
              "expression[2]: an array of labels must not be empty");
    EXPECT_EQ(compileError("[\"match\", 1, true, 1, 0]"),
              "expression[2]: a label must be a string, a number or an array of them");
    EXPECT_EQ(compileError("[\"match\", 1, 1, 2]"),
              "expression: \"match\" takes at least 4 arguments, got 3");
    EXPECT_EQ(compileError("[\"match\", 1, 1, 2, 3, 4]"),
              "expression: \"match\" takes an input, label-output pairs and a fallback, an even "
              "number of arguments");
}

TEST(ExpressionTest, CoalesceGivesTheFirstNonNull) {
    expectTable({{"[\"coalesce\", [\"get\", \"missing\"], [\"get\", \"nothing\"], 5]", Value(5.0)},
                 {"[\"coalesce\", [\"get\", \"name\"], \"none\"]", Value("Lyon")},
                 {"[\"coalesce\", null]", Value()}},
                CITY);
}

TEST(ExpressionTest, StepPicksTheOutputOfTheLastStopAtOrBelow) {
    const char* json = "[\"step\", [\"get\", \"x\"], \"a\", 10, \"b\", 20, \"c\"]";
    const std::vector<std::pair<double, const char*>> table{{-5.0, "a"}, {9.99, "a"}, {10.0, "b"},
                                                            {19.0, "b"}, {20.0, "c"}, {1e9, "c"}};
    for (const auto& [x, expected] : table) {
        EXPECT_EQ(evaluate(json, {{"x", real(x)}}), Value(expected)) << x;
    }
    EXPECT_EQ(evaluate("[\"step\", 3, \"only\"]"), Value("only"));
}

TEST(ExpressionTest, StepRejectsStopsOutOfOrderAndNonNumericInput) {
    EXPECT_EQ(compileError("[\"step\", 1, \"a\", 10, \"b\", 10, \"c\"]"),
              "expression[5]: stops must be numbers in strictly ascending order");
    EXPECT_EQ(compileError("[\"step\", 1, \"a\", \"10\", \"b\"]"),
              "expression[3]: stops must be numbers in strictly ascending order");
    EXPECT_EQ(compileError("[\"step\", \"x\", \"a\"]"),
              "expression[1]: expected a number, got a string");
    EXPECT_EQ(evaluationFailure("[\"step\", [\"get\", \"name\"], 1, 5, 2]", CITY),
              "feature 7: expression[1]: expected a number, got \"Lyon\"; the result is null");
}

TEST(ExpressionTest, LinearInterpolationOfNumbersMatchesHandComputedValues) {
    const char* json = "[\"interpolate\", [\"linear\"], [\"get\", \"x\"], 0, 10, 10, 20, 30, 60]";
    // Between 0 and 10: 10 + x; between 10 and 30: 20 + (x - 10) * 2; clamped outside.
    const std::vector<std::pair<double, double>> table{{-4.0, 10.0}, {0.0, 10.0},  {2.5, 12.5},
                                                       {10.0, 20.0}, {15.0, 30.0}, {29.0, 58.0},
                                                       {30.0, 60.0}, {100.0, 60.0}};
    for (const auto& [x, expected] : table) {
        EXPECT_DOUBLE_EQ(evaluate(json, {{"x", real(x)}}).asNumber(), expected) << x;
    }
}

TEST(ExpressionTest, ExponentialInterpolationFollowsItsBase) {
    const char* json = "[\"interpolate\", [\"exponential\", 2], [\"get\", \"x\"], 0, 0, 2, 300]";
    // t = (2^x - 1) / (2^2 - 1): x = 1 gives 1/3 of the way.
    EXPECT_DOUBLE_EQ(evaluate(json, {{"x", real(1.0)}}).asNumber(), 100.0);
    EXPECT_DOUBLE_EQ(evaluate(json, {{"x", real(0.5)}}).asNumber(),
                     300.0 * (std::sqrt(2.0) - 1.0) / 3.0);
    // Base 1 is linear.
    EXPECT_DOUBLE_EQ(
        evaluate("[\"interpolate\", [\"exponential\", 1], 1, 0, 0, 2, 300]").asNumber(), 150.0);
}

TEST(ExpressionTest, ColourInterpolationMixesEachComponent) {
    const char* json = "[\"interpolate\", [\"linear\"], [\"get\", \"x\"], 0, \"#000000\", 100, "
                       "\"rgba(255, 0, 102, 0.5)\"]";
    const Color quarter = evaluate(json, {{"x", real(25.0)}}).asColor();
    EXPECT_FLOAT_EQ(quarter.r, 0.25f);
    EXPECT_FLOAT_EQ(quarter.g, 0.0f);
    EXPECT_FLOAT_EQ(quarter.b, 0.1f);
    EXPECT_FLOAT_EQ(quarter.a, 0.875f);
    EXPECT_EQ(evaluate(json, {{"x", real(-1.0)}}), Value(Color::BLACK));
    const Color top = evaluate(json, {{"x", real(500.0)}}).asColor();
    EXPECT_FLOAT_EQ(top.r, 1.0f);
    EXPECT_FLOAT_EQ(top.a, 0.5f);
}

TEST(ExpressionTest, InterpolateRejectsBadTypesAndStops) {
    EXPECT_EQ(compileError("[\"interpolate\", [\"cubic\"], 1, 0, 0, 1, 1]"),
              "expression[1]: expected [\"linear\"] or [\"exponential\", base] with a base above "
              "0");
    EXPECT_EQ(compileError("[\"interpolate\", [\"exponential\", 0], 1, 0, 0, 1, 1]"),
              "expression[1]: expected [\"linear\"] or [\"exponential\", base] with a base above "
              "0");
    EXPECT_EQ(compileError("[\"interpolate\", [\"linear\"], 1, 0, 0, 1, \"red\"]"),
              "expression[6]: outputs must all be numbers or all be colors");
    EXPECT_EQ(compileError("[\"interpolate\", [\"linear\"], 1, 0, 0, 1, \"not a colour\"]"),
              "expression[6]: \"not a colour\" is not a color");
    EXPECT_EQ(compileError("[\"interpolate\", [\"linear\"], 1, 5, 0, 1, 1]"),
              "expression[5]: stops must be numbers in strictly ascending order");
    EXPECT_EQ(compileError("[\"interpolate\", [\"linear\"], 1, 0]"),
              "expression: \"interpolate\" takes at least 4 arguments, got 3");
}

TEST(ExpressionTest, InterpolationBetweenANumberAndAColourFailsAtEvaluation) {
    const char* json = "[\"interpolate\", [\"linear\"], 5, 0, [\"get\", \"a\"], 10, \"red\"]";
    EXPECT_EQ(evaluationFailure(json, {{"a", integer(1)}}),
              "feature 7: expression[6]: expected a number or a color, as the other stop's "
              "output, got rgba(255,0,0,1); the result is null");
}

TEST(ExpressionTest, ArithmeticMatchesHandComputedValues) {
    expectTable(
        {{"[\"+\", 1, 2, 3.5]", Value(6.5)},
         {"[\"-\", 10, 4]", Value(6.0)},
         {"[\"-\", 4]", Value(-4.0)},
         {"[\"*\", 2, 3, 4]", Value(24.0)},
         {"[\"/\", 7, 2]", Value(3.5)},
         {"[\"%\", 7, 3]", Value(1.0)},
         {"[\"%\", -7, 3]", Value(-1.0)},
         {"[\"^\", 2, 10]", Value(1024.0)},
         {"[\"min\", 3, 1, 2]", Value(1.0)},
         {"[\"max\", 3, 1, 2]", Value(3.0)},
         {"[\"round\", 2.5]", Value(3.0)},
         {"[\"round\", -2.5]", Value(-3.0)},
         {"[\"floor\", -1.5]", Value(-2.0)},
         {"[\"ceil\", 1.2]", Value(2.0)},
         {"[\"abs\", -3]", Value(3.0)},
         {"[\"sqrt\", 16]", Value(4.0)},
         {"[\"ln\", 1]", Value(0.0)},
         {"[\"log10\", 1000]", Value(3.0)},
         {"[\"/\", [\"get\", \"population\"], [\"get\", \"area\"]]", Value(522000.0 / 47.87)}},
        CITY);
    EXPECT_EQ(evaluate("[\"/\", 1, 0]").asNumber(), HUGE_VAL);
}

TEST(ExpressionTest, ArithmeticOnATextFailsWithTheArgumentsPath) {
    EXPECT_EQ(evaluationFailure("[\"*\", 2, [\"get\", \"name\"]]", CITY),
              "feature 7: expression[2]: expected a number, got \"Lyon\"; the result is null");
    EXPECT_EQ(evaluationFailure("[\"+\", 1, [\"get\", \"missing\"]]", CITY),
              "feature 7: expression[2]: expected a number, got null; the result is null");
    EXPECT_EQ(compileError("[\"+\", 1, \"a\"]"), "expression[2]: expected a number, got a string");
}

TEST(ExpressionTest, ArgumentCountsAreChecked) {
    const std::vector<std::pair<const char*, const char*>> table{
        {"[\"get\"]", "expression: \"get\" takes 1 argument, got 0"},
        {"[\"get\", \"a\", \"b\"]", "expression: \"get\" takes 1 argument, got 2"},
        {"[\"+\", 1]", "expression: \"+\" takes at least 2 arguments, got 1"},
        {"[\"-\", 1, 2, 3]", "expression: \"-\" takes from 1 to 2 arguments, got 3"},
        {"[\"/\", 1]", "expression: \"/\" takes 2 arguments, got 1"},
        {"[\"id\", 1]", "expression: \"id\" takes 0 arguments, got 1"},
        {"[\"==\", 1]", "expression: \"==\" takes 2 arguments, got 1"},
        {"[\"!\"]", "expression: \"!\" takes 1 argument, got 0"},
        {"[\"rgb\", 1, 2]", "expression: \"rgb\" takes 3 arguments, got 2"},
        {"[\"concat\"]", "expression: \"concat\" takes at least 1 argument, got 0"},
        {"[\"number-format\", 1]", "expression: \"number-format\" takes 2 arguments, got 1"},
        {"[\"coalesce\"]", "expression: \"coalesce\" takes at least 1 argument, got 0"},
    };
    for (const auto& [json, message] : table) {
        EXPECT_EQ(compileError(json), message) << json;
    }
}

TEST(ExpressionTest, UnknownOperatorsAndMalformedValuesAreCompileErrors) {
    LoadReport::Issue issue = LoadReport::Issue::StyleSyntax;
    EXPECT_EQ(compileError("[\"gett\", \"a\"]", &issue), "expression: unknown operator \"gett\"");
    EXPECT_EQ(issue, LoadReport::Issue::StyleInvalid);
    EXPECT_EQ(compileError("[\"+\", 1, [\"nope\"]]"), "expression[2]: unknown operator \"nope\"");
    EXPECT_EQ(compileError("{\"a\": 1}"), "expression: an object is not a value");
    EXPECT_EQ(compileError("[1, 2]"), "expression: an array must name its operator first, e.g. "
                                      "[\"get\", \"name\"]; other arrays are not values");
    EXPECT_EQ(compileError("[\"get\", 3]"), "expression[1]: expected an attribute name, a string");
    EXPECT_EQ(compileError("[\"literal\", [1, 2]]"),
              "expression[1]: \"literal\" takes a string, a number, a boolean or null");
}

TEST(ExpressionTest, JsonThatDoesNotParseGivesLineAndColumn) {
    LoadReport::Issue issue = LoadReport::Issue::StyleInvalid;
    const std::string error = compileError("[\"+\", 1,\n  tru]", &issue);
    EXPECT_EQ(issue, LoadReport::Issue::StyleSyntax);
    EXPECT_EQ(error.rfind("expression: JSON does not parse at line 2, column ", 0), 0U) << error;
}

TEST(ExpressionTest, DeepNestingIsACompileErrorNotACrash) {
    std::string json;
    for (int i = 0; i < 100; ++i) {
        json += "[\"-\", ";
    }
    json += "1";
    for (int i = 0; i < 100; ++i) {
        json += "]";
    }
    EXPECT_NE(compileError(json).find("expressions nest deeper than 64 levels"), std::string::npos);
}

TEST(ExpressionTest, ConcatWritesEveryValueAsText) {
    expectTable({{"[\"concat\", [\"get\", \"name\"], \" (\", [\"get\", \"population\"], \")\"]",
                  Value("Lyon (522000)")},
                 {"[\"concat\", \"a\", null, true, 2.5]", Value("atrue2.5")}},
                CITY);
}

TEST(ExpressionTest, CaseConversionChangesAsciiLetters) {
    expectTable({{"[\"upcase\", \"Lyon-é\"]", Value("LYON-é")},
                 {"[\"downcase\", \"LYON\"]", Value("lyon")}});
    EXPECT_EQ(compileError("[\"upcase\", 3]"), "expression[1]: expected a string, got a number");
}

TEST(ExpressionTest, ConversionsFollowTheLanguagesRules) {
    expectTable({{"[\"to-string\", 2.5]", Value("2.5")},
                 {"[\"to-string\", null]", Value("")},
                 {"[\"to-string\", [\"rgb\", 255, 0, 0]]", Value("rgba(255,0,0,1)")},
                 {"[\"to-number\", \"12.5\"]", Value(12.5)},
                 {"[\"to-number\", \" 3e2 \"]", Value(300.0)},
                 {"[\"to-number\", true]", Value(1.0)},
                 {"[\"to-number\", null]", Value(0.0)},
                 {"[\"to-number\", \"abc\", \"4\"]", Value(4.0)},
                 {"[\"to-boolean\", \"\"]", Value(false)},
                 {"[\"to-boolean\", \"x\"]", Value(true)},
                 {"[\"to-boolean\", 0]", Value(false)},
                 {"[\"to-boolean\", null]", Value(false)},
                 {"[\"to-color\", \"#ff0000\"]", Value(Color::RED)},
                 {"[\"to-color\", \"nope\", \"blue\"]", Value(Color::BLUE)}});
}

TEST(ExpressionTest, FailedConversionsNameTheLastValue) {
    EXPECT_EQ(evaluationFailure("[\"to-number\", \"abc\"]"),
              "feature 7: expression[1]: expected a value that converts to a number, got "
              "\"abc\"; the result is null");
    EXPECT_EQ(evaluationFailure("[\"to-color\", 3]"),
              "feature 7: expression[1]: expected a color or a color text, got 3; the result is "
              "null");
}

TEST(ExpressionTest, RgbAndRgbaBuildColoursFromChannels) {
    expectTable({{"[\"rgb\", 255, 0, 0]", Value(Color::RED)},
                 {"[\"rgba\", 0, 0, 255, 0.5]", Value(Color(0.0f, 0.0f, 1.0f, 0.5f))}});
    EXPECT_EQ(evaluationFailure("[\"rgb\", 256, 0, 0]"),
              "feature 7: expression[1]: expected a number from 0 to 255, got 256; the result is "
              "null");
    EXPECT_EQ(evaluationFailure("[\"rgba\", 0, 0, 0, 2]"),
              "feature 7: expression[4]: expected a number from 0 to 1, got 2; the result is "
              "null");
}

TEST(ExpressionTest, NumberFormatRoundsHalfAwayFromZeroOnTheDecimalText) {
    const std::vector<std::pair<const char*, const char*>> table{
        {"[\"number-format\", 0.125, {\"max-fraction-digits\": 2}]", "0.13"},
        {"[\"number-format\", -0.125, {\"max-fraction-digits\": 2}]", "-0.13"},
        {"[\"number-format\", 1234.5, {\"max-fraction-digits\": 0}]", "1235"},
        {"[\"number-format\", 2, {\"min-fraction-digits\": 2}]", "2.00"},
        {"[\"number-format\", 2.5, {\"min-fraction-digits\": 1, \"max-fraction-digits\": 3}]",
         "2.5"},
        {"[\"number-format\", 9.996, {\"max-fraction-digits\": 2}]", "10"},
        {"[\"number-format\", 0.1234567, {}]", "0.123"},
        {"[\"number-format\", -0.001, {\"max-fraction-digits\": 2}]", "0"},
        {"[\"number-format\", 1e21, {\"max-fraction-digits\": 1}]", "1000000000000000000000"},
    };
    for (const auto& [json, expected] : table) {
        EXPECT_EQ(evaluate(json), Value(expected)) << json;
    }
}

TEST(ExpressionTest, NumberFormatChecksItsOptions) {
    EXPECT_EQ(compileError("[\"number-format\", 1, {\"locale\": \"fr\"}]"),
              "expression[2].locale: unknown option");
    EXPECT_EQ(compileError("[\"number-format\", 1, {\"max-fraction-digits\": 21}]"),
              "expression[2].max-fraction-digits: expected a whole number from 0 to 20");
    EXPECT_EQ(compileError("[\"number-format\", 1, {\"min-fraction-digits\": 3, "
                           "\"max-fraction-digits\": 1}]"),
              "expression[2]: min-fraction-digits is above max-fraction-digits");
    EXPECT_EQ(compileError("[\"number-format\", 1, 2]"),
              "expression[2]: expected an options object");
}

TEST(ExpressionTest, AttributeNamesListsWhatTheExpressionReads) {
    LoadReport report;
    const auto expression = Expression::parse(
        "[\"concat\", [\"get\", \"b\"], [\"get\", \"a\"], [\"has\", \"b\"]]", report);
    ASSERT_NE(expression, nullptr);
    EXPECT_EQ(expression->attributeNames(), (std::vector<std::string>{"b", "a"}));
}

TEST(ExpressionTest, EvaluationWithoutAReportStillGivesNullOnFailure) {
    LoadReport report;
    const auto expression = Expression::parse("[\"+\", 1, [\"get\", \"a\"]]", report);
    ASSERT_NE(expression, nullptr);
    EXPECT_TRUE(expression->evaluate({{"a", text("x")}}).isNull());
}

} // namespace
