#pragma once

#include "Common/Log.h"
#include "Common/MemoryLogSink.h"
#include "Feature/AttributeValue.h"
#include "Feature/Feature.h"
#include "Source/AttributeType.h"
#include "Source/Expression.h"
#include "Source/LoadOptions.h"
#include "Source/LoadReport.h"
#include "Source/StyleSheet.h"
#include "Source/Value.h"
#include "Source/VectorSource.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

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

/**
 * Routes the process log into memory while it lives, then puts the sinks back: the kit logs a
 * style on a multi geometry as not matching it (and draws it all the same), which tests check
 * rather than print.
 */
class CapturedLog {
public:
    CapturedLog()
        : saved_(Log::getInstance().getSinks()) {
        Log::getInstance().clearSinks();
        Log::getInstance().addSink(sink_);
    }
    ~CapturedLog() {
        Log::getInstance().clearSinks();
        for (const auto& sink : saved_) {
            Log::getInstance().addSink(sink);
        }
    }
    CapturedLog(const CapturedLog&) = delete;
    CapturedLog& operator=(const CapturedLog&) = delete;

    /** The records received so far. */
    std::vector<LogRecord> records() const { return sink_->getRecords(); }
    /** How many records carry @p message. */
    std::size_t count(const std::string& message) const {
        std::size_t found = 0;
        for (const LogRecord& record : records()) {
            found += record.message == message ? 1U : 0U;
        }
        return found;
    }

private:
    std::shared_ptr<MemoryLogSink> sink_ = std::make_shared<MemoryLogSink>();
    std::vector<std::shared_ptr<LogSink>> saved_;
};

/** The warning the kit logs when a feature gets a style its geometry does not match. */
inline const std::string STYLE_MISMATCH = "风格和几何体不匹配，风格不起作用。";

/** A source loaded from GeoJSON text, its report and the style mismatches the kit logged. */
struct Loaded {
    std::unique_ptr<VectorSource> source;
    LoadReport report;
    // The style-mismatch records the kit logged while the features were built.
    std::size_t mismatches = 0;
};

/**
 * The features of @p data styled by the sheet @p sheetJson (which must parse), read with
 * @p options (its style sheet replaced), the kit's log caught meanwhile.
 */
inline Loaded loadText(const char* data, const char* sheetJson, LoadOptions options = {}) {
    Loaded loaded;
    LoadReport sheetReport;
    options.styleSheet = StyleSheet::parse(sheetJson, sheetReport);
    EXPECT_NE(options.styleSheet, nullptr) << sheetReport.error();
    const CapturedLog log;
    loaded.source = VectorSource::loadText(data, options, loaded.report);
    loaded.mismatches = log.count(STYLE_MISMATCH);
    return loaded;
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
