#include "Common/StderrLogSink.h"

#include <gtest/gtest.h>

namespace {

TEST(StderrLogSinkTest, WritesOneLineWithLevelLocationAndMessageBytes) {
    keo::StderrLogSink sink;
    ::testing::internal::CaptureStderr();
    sink.write(keo::LogRecord{
        {"Core/src/Feature/Feature", 12, "keo::Feature::Feature::f"}, 3, "\xbe\xd8 text"});
    const std::string written = ::testing::internal::GetCapturedStderr();
    EXPECT_EQ(written,
              "[warning] Core/src/Feature/Feature:12 keo::Feature::Feature::f: \xbe\xd8 text\n");
}

TEST(StderrLogSinkTest, NamesEveryLevelAndNumbersUnknownOnes) {
    keo::StderrLogSink sink;
    ::testing::internal::CaptureStderr();
    sink.write(keo::LogRecord{{"f", 1, "g"}, 5, "m"});
    sink.write(keo::LogRecord{{"f", 1, "g"}, 9, "m"});
    const std::string written = ::testing::internal::GetCapturedStderr();
    EXPECT_EQ(written, "[critical] f:1 g: m\n[level] f:1 g: m\n");
}

} // namespace
