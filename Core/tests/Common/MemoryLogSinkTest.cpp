#include "Common/MemoryLogSink.h"

#include <gtest/gtest.h>

namespace {

using keo::LogRecord;
using keo::MemoryLogSink;

TEST(MemoryLogSinkTest, KeepsRecordsInArrivalOrder) {
    MemoryLogSink sink;
    sink.write(LogRecord{{"a", 1, "f"}, 3, "first"});
    sink.write(LogRecord{{"b", 2, "g"}, 4, "second"});
    const auto records = sink.getRecords();
    ASSERT_EQ(records.size(), 2u);
    EXPECT_EQ(records[0], (LogRecord{{"a", 1, "f"}, 3, "first"}));
    EXPECT_EQ(records[1], (LogRecord{{"b", 2, "g"}, 4, "second"}));
}

TEST(MemoryLogSinkTest, ClearForgetsEverything) {
    MemoryLogSink sink;
    sink.write(LogRecord{{"a", 1, "f"}, 3, "x"});
    EXPECT_EQ(sink.size(), 1u);
    sink.clear();
    EXPECT_EQ(sink.size(), 0u);
    EXPECT_TRUE(sink.getRecords().empty());
}

TEST(MemoryLogSinkTest, RecordsCompareEveryField) {
    const LogRecord base{{"a", 1, "f"}, 3, "m"};
    EXPECT_NE(base, (LogRecord{{"b", 1, "f"}, 3, "m"}));
    EXPECT_NE(base, (LogRecord{{"a", 2, "f"}, 3, "m"}));
    EXPECT_NE(base, (LogRecord{{"a", 1, "g"}, 3, "m"}));
    EXPECT_NE(base, (LogRecord{{"a", 1, "f"}, 4, "m"}));
    EXPECT_NE(base, (LogRecord{{"a", 1, "f"}, 3, "n"}));
}

} // namespace
