#include "Common/Log.h"
#include "Common/MemoryLogSink.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace {

using keo::Log;
using keo::LogRecord;
using keo::MemoryLogSink;
using keo::SourceLocation;

// Replaces the process log's sinks by one memory sink for the length of a test.
class LogTest : public ::testing::Test {
protected:
    void SetUp() override {
        saved_ = Log::getInstance().getSinks();
        savedLevel_ = Log::getInstance().getMinimumLevel();
        Log::getInstance().clearSinks();
        Log::getInstance().addSink(sink_);
    }
    void TearDown() override {
        Log::getInstance().clearSinks();
        for (const auto& s : saved_) {
            Log::getInstance().addSink(s);
        }
        Log::getInstance().setMinimumLevel(savedLevel_);
    }

    std::shared_ptr<MemoryLogSink> sink_ = std::make_shared<MemoryLogSink>();

private:
    std::vector<std::shared_ptr<keo::LogSink>> saved_;
    int savedLevel_ = 0;
};

TEST_F(LogTest, RecordsFileLineFunctionLevelAndMessageExactly) {
    Log::getInstance().log(
        {"Core/src/Feature/PolylineGeometry", 123, "keo::Feature::PolylineGeometry::getSpacePoint"},
        3, "折线的顶点数量不能少于2个。");
    const auto records = sink_->getRecords();
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].location.file, "Core/src/Feature/PolylineGeometry");
    EXPECT_EQ(records[0].location.line, 123);
    EXPECT_EQ(records[0].location.function, "keo::Feature::PolylineGeometry::getSpacePoint");
    EXPECT_EQ(records[0].level, 3);
    EXPECT_EQ(records[0].message, "折线的顶点数量不能少于2个。");
}

TEST_F(LogTest, PassesNonUtf8BytesThrough) {
    std::string bytes = "\xbe\xd8\xd0\xce\xb5\xc4\xff\x80";
    bytes.push_back('\0');
    bytes += "tail";
    Log::getInstance().log({"f", 1, "g"}, 4, bytes);
    ASSERT_EQ(sink_->size(), 1u);
    EXPECT_EQ(sink_->getRecords()[0].message, bytes);
    EXPECT_EQ(sink_->getRecords()[0].message.size(), bytes.size());
}

TEST_F(LogTest, NamedLevelsMapToTheirIntegers) {
    Log::getInstance().setMinimumLevel(0);
    Log::getInstance().log({"f", 1, "g"}, keo::LogLevel::Warning, "w");
    Log::getInstance().log({"f", 1, "g"}, keo::LogLevel::Trace, "t");
    const auto records = sink_->getRecords();
    ASSERT_EQ(records.size(), 2u);
    EXPECT_EQ(records[0].level, 3);
    EXPECT_EQ(records[1].level, 0);
}

TEST_F(LogTest, DropsRecordsBelowTheMinimumLevel) {
    Log::getInstance().setMinimumLevel(3);
    Log::getInstance().log({"f", 1, "g"}, 2, "info");
    Log::getInstance().log({"f", 2, "g"}, 3, "warning");
    ASSERT_EQ(sink_->size(), 1u);
    EXPECT_EQ(sink_->getRecords()[0].message, "warning");
}

TEST_F(LogTest, DefaultMinimumLevelIsInfo) {
    EXPECT_EQ(Log::getInstance().getMinimumLevel(), 2);
}

TEST_F(LogTest, EverySinkReceivesEachRecordAndRemovedSinksNone) {
    auto second = std::make_shared<MemoryLogSink>();
    Log::getInstance().addSink(second);
    Log::getInstance().addSink(second); // a second add is ignored
    Log::getInstance().addSink(nullptr);
    EXPECT_EQ(Log::getInstance().getSinks().size(), 2u);
    Log::getInstance().log({"f", 1, "g"}, 3, "one");
    EXPECT_TRUE(Log::getInstance().removeSink(second));
    EXPECT_FALSE(Log::getInstance().removeSink(second));
    Log::getInstance().log({"f", 1, "g"}, 3, "two");
    EXPECT_EQ(sink_->size(), 2u);
    EXPECT_EQ(second->size(), 1u);
}

TEST_F(LogTest, WithoutSinksRecordsAreDropped) {
    Log::getInstance().clearSinks();
    Log::getInstance().log({"f", 1, "g"}, 5, "lost");
    EXPECT_EQ(sink_->size(), 0u);
}

// A sink that logs again from inside write: the log must not hold its lock while calling sinks.
class EchoSink final : public keo::LogSink {
public:
    explicit EchoSink(std::shared_ptr<MemoryLogSink> target)
        : target_(std::move(target)) {}
    void write(const LogRecord& record) noexcept override {
        if (record.message == "outer") {
            Log::getInstance().log({"echo", 1, "EchoSink::write"}, 3, "inner");
            Log::getInstance().removeSink(target_);
        }
    }

private:
    std::shared_ptr<MemoryLogSink> target_;
};

TEST_F(LogTest, SinkMayLogAndChangeSinksWhileWriting) {
    auto echo = std::make_shared<EchoSink>(sink_);
    Log::getInstance().clearSinks();
    Log::getInstance().addSink(echo);
    Log::getInstance().addSink(sink_);
    Log::getInstance().log({"f", 1, "g"}, 3, "outer");
    // The inner record reached the memory sink; the outer call still delivers to its snapshot.
    const auto records = sink_->getRecords();
    ASSERT_EQ(records.size(), 2u);
    EXPECT_EQ(records[0].message, "inner");
    EXPECT_EQ(records[1].message, "outer");
    Log::getInstance().log({"f", 1, "g"}, 3, "after");
    EXPECT_EQ(sink_->size(), 2u);
}

TEST_F(LogTest, ConcurrentLoggingLosesNoRecord) {
    constexpr int THREADS = 4;
    constexpr int PER_THREAD = 2000;
    std::vector<std::thread> threads;
    for (int t = 0; t < THREADS; ++t) {
        threads.emplace_back([t] {
            for (int i = 0; i < PER_THREAD; ++i) {
                Log::getInstance().log({"thread", t, "worker"}, 3, std::to_string(i));
            }
        });
    }
    for (auto& thread : threads) {
        thread.join();
    }
    const auto records = sink_->getRecords();
    ASSERT_EQ(records.size(), static_cast<std::size_t>(THREADS * PER_THREAD));
    std::vector<int> next(THREADS, 0);
    for (const auto& r : records) { // per thread, records keep their order
        EXPECT_EQ(r.message, std::to_string(next[static_cast<std::size_t>(r.location.line)]++));
    }
}

} // namespace
