#pragma once

#include "Common/Log.h"
#include "Common/MemoryLogSink.h"

#include <memory>
#include <string>
#include <vector>

namespace keo::Feature::test {

/**
 * Records the change events of one object (symbol, style, geometry, material, emitter) as
 * letters: L changed-lock true, U changed-lock false, D definition changed.
 */
struct EventRecorder {
    template <typename Owner>
    explicit EventRecorder(Owner& owner) {
        owner._addChangedLockEventListener([this](bool locked) { events += locked ? 'L' : 'U'; });
        owner._addDefinitionChangedEventListener([this](auto&&...) { events += 'D'; });
    }
    EventRecorder(const EventRecorder&) = delete;
    EventRecorder& operator=(const EventRecorder&) = delete;
    std::string events;
};

/** Routes the process log into memory for the lifetime of the object, then restores the sinks. */
class CapturedLog {
public:
    CapturedLog() {
        saved_ = Log::getInstance().getSinks();
        Log::getInstance().clearSinks();
        Log::getInstance().addSink(sink_);
    }
    ~CapturedLog() {
        Log::getInstance().clearSinks();
        for (const auto& s : saved_) {
            Log::getInstance().addSink(s);
        }
    }
    CapturedLog(const CapturedLog&) = delete;
    CapturedLog& operator=(const CapturedLog&) = delete;
    std::vector<LogRecord> records() const { return sink_->getRecords(); }

private:
    std::shared_ptr<MemoryLogSink> sink_ = std::make_shared<MemoryLogSink>();
    std::vector<std::shared_ptr<LogSink>> saved_;
};

/** The message that every assign between different kinds logs. */
inline const std::string kAssignKindMessage = "类型不同无法赋值！";

} // namespace keo::Feature::test
