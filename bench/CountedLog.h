#pragma once

// Routes the process log to a sink that only counts records, for as long as it lives: features
// whose style the kit logs as not matching their geometry (ellipses, multi geometries) would
// otherwise time the console.

#include "Common/Log.h"
#include "Common/LogSink.h"

#include <atomic>
#include <cstddef>
#include <memory>
#include <vector>

namespace keo::bench {

class CountedLog final {
public:
    CountedLog()
        : saved_(Log::getInstance().getSinks()) {
        Log::getInstance().clearSinks();
        Log::getInstance().addSink(sink_);
    }
    ~CountedLog() {
        Log::getInstance().clearSinks();
        for (const auto& sink : saved_) {
            Log::getInstance().addSink(sink);
        }
    }
    CountedLog(const CountedLog&) = delete;
    CountedLog& operator=(const CountedLog&) = delete;

    /** @brief The records written since the log was routed here. */
    std::size_t records() const noexcept { return sink_->count.load(); }

private:
    struct CountingSink final : LogSink {
        void write(const LogRecord& /*record*/) noexcept override { ++count; }
        std::atomic<std::size_t> count{0};
    };

    std::shared_ptr<CountingSink> sink_ = std::make_shared<CountingSink>();
    std::vector<std::shared_ptr<LogSink>> saved_;
};

} // namespace keo::bench
