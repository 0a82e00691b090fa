#include "LogCapture.h"

#include "Common/Log.h"

#include <utility>

namespace keo::scene {

namespace {

const char* levelName(int level) {
    static const char* const NAMES[] = {"trace", "debug", "info", "warning", "error", "critical"};
    return level >= 0 && level < 6 ? NAMES[level] : "level?";
}

} // namespace

LogCapture::LogCapture()
    : saved_(Log::getInstance().getSinks()) {
    Log::getInstance().clearSinks();
    Log::getInstance().addSink(sink_);
}

LogCapture::~LogCapture() {
    Log::getInstance().clearSinks();
    for (const auto& sink : saved_) {
        Log::getInstance().addSink(sink);
    }
}

std::vector<std::string> LogCapture::takeLines() {
    const std::vector<LogRecord> records = sink_->getRecords();
    sink_->clear();
    total_ += records.size();
    std::vector<std::pair<std::string, std::size_t>> distinct;
    for (const LogRecord& record : records) {
        std::string line = std::string("log     ") + levelName(record.level) + " from " +
                           record.location.function + ": " + record.message;
        bool seen = false;
        for (auto& [text, count] : distinct) {
            if (text == line) {
                ++count;
                seen = true;
                break;
            }
        }
        if (!seen) {
            distinct.emplace_back(std::move(line), 1);
        }
    }
    std::vector<std::string> lines;
    for (auto& [text, count] : distinct) {
        lines.push_back(count > 1 ? text + " (" + std::to_string(count) + " times)"
                                  : std::move(text));
    }
    return lines;
}

} // namespace keo::scene
