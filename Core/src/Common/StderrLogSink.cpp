#include "Common/StderrLogSink.h"

#include <cstdio>
#include <string>

namespace keo {

namespace {

const char* levelName(int level) noexcept {
    static constexpr const char* NAMES[] = {"trace",   "debug", "info",
                                            "warning", "error", "critical"};
    return level >= 0 && level <= 5 ? NAMES[level] : "level";
}

} // namespace

void StderrLogSink::write(const LogRecord& record) noexcept {
    const std::lock_guard<std::mutex> lock(mutex_);
    // fwrite keeps the message bytes as they are (they need not be text of this locale).
    std::fprintf(stderr, "[%s] %s:%d %s: ", levelName(record.level), record.location.file.c_str(),
                 record.location.line, record.location.function.c_str());
    std::fwrite(record.message.data(), 1, record.message.size(), stderr);
    std::fputc('\n', stderr);
}

} // namespace keo
