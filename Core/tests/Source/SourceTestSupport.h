#pragma once

#include "Feature/AttributeValue.h"
#include "Feature/Feature.h"
#include "Source/AttributeType.h"
#include "Source/Expression.h"
#include "Source/LoadReport.h"
#include "Source/Value.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>

namespace keo::Source::test {

using Attributes = keo::Feature::Feature::AttributeMap;

/** An integer attribute as the reader makes it. */
inline keo::Feature::AttributeValue integer(std::int64_t value) {
    return {static_cast<std::int32_t>(AttributeType::Integer), value};
}

/** A real attribute as the reader makes it. */
inline keo::Feature::AttributeValue real(double value) {
    return {static_cast<std::int32_t>(AttributeType::Real), value};
}

/** A text attribute as the reader makes it. */
inline keo::Feature::AttributeValue text(std::string value) {
    return {static_cast<std::int32_t>(AttributeType::String), std::move(value)};
}

/** A boolean attribute as the reader makes it. */
inline keo::Feature::AttributeValue boolean(bool value) {
    return {static_cast<std::int32_t>(AttributeType::Boolean), value};
}

/** A null attribute of a text field. */
inline keo::Feature::AttributeValue null() {
    return {static_cast<std::int32_t>(AttributeType::String), {}};
}

/** The value of the expression @p json for @p attributes; fails the test when it does not compile
 * or when its evaluation meets a value of the wrong type. */
inline Value evaluate(const std::string& json, const Attributes& attributes = {}) {
    LoadReport report;
    const auto expression = Expression::parse(json, report);
    EXPECT_NE(expression, nullptr) << json << ": " << report.error();
    if (expression == nullptr) {
        return Value();
    }
    const Value value = expression->evaluate(attributes, 7, &report);
    EXPECT_EQ(report.count(LoadReport::Issue::EvaluationType), 0U)
        << json << ": " << report.toText();
    return value;
}

/** The message of the evaluation failure of @p json for @p attributes (empty when none). */
inline std::string evaluationFailure(const std::string& json, const Attributes& attributes = {}) {
    LoadReport report;
    const auto expression = Expression::parse(json, report);
    EXPECT_NE(expression, nullptr) << json << ": " << report.error();
    if (expression == nullptr) {
        return {};
    }
    const Value value = expression->evaluate(attributes, 7, &report);
    EXPECT_TRUE(value.isNull()) << json;
    return report.entries().empty() ? std::string() : report.entries().front().message;
}

/** The compile error of @p json (empty when it compiles), with its issue kind in @p issue. */
inline std::string compileError(const std::string& json, LoadReport::Issue* issue = nullptr) {
    LoadReport report;
    const auto expression = Expression::parse(json, report);
    EXPECT_EQ(expression == nullptr, report.failed());
    if (issue != nullptr && !report.entries().empty()) {
        *issue = report.entries().front().issue;
    }
    return report.error();
}

} // namespace keo::Source::test
