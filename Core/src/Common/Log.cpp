#include "Common/Log.h"

#include "Common/StderrLogSink.h"

#include <algorithm>

namespace keo {

Log::Log()
    : sinks_(std::make_shared<const SinkList>(SinkList{std::make_shared<StderrLogSink>()})) {}

Log& Log::getInstance() {
    static Log instance;
    return instance;
}

void Log::log(const SourceLocation& location, int level, const std::string& message) noexcept {
    if (level < getMinimumLevel()) {
        return;
    }
    std::shared_ptr<const SinkList> sinks;
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        sinks = sinks_;
    }
    if (sinks->empty()) {
        return;
    }
    try {
        const LogRecord record{location, level, message};
        for (const auto& sink : *sinks) {
            sink->write(record);
        }
    } catch (...) {
        // Copying the record ran out of memory: logging never throws.
    }
}

void Log::addSink(const std::shared_ptr<LogSink>& sink) {
    if (!sink) {
        return;
    }
    const std::lock_guard<std::mutex> lock(mutex_);
    if (std::find(sinks_->begin(), sinks_->end(), sink) != sinks_->end()) {
        return;
    }
    auto next = std::make_shared<SinkList>(*sinks_);
    next->push_back(sink);
    sinks_ = std::move(next);
}

bool Log::removeSink(const std::shared_ptr<LogSink>& sink) {
    const std::lock_guard<std::mutex> lock(mutex_);
    auto next = std::make_shared<SinkList>(*sinks_);
    const auto it = std::find(next->begin(), next->end(), sink);
    if (it == next->end()) {
        return false;
    }
    next->erase(it);
    sinks_ = std::move(next);
    return true;
}

void Log::clearSinks() {
    const std::lock_guard<std::mutex> lock(mutex_);
    sinks_ = std::make_shared<const SinkList>();
}

std::vector<std::shared_ptr<LogSink>> Log::getSinks() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return *sinks_;
}

} // namespace keo
