#pragma once

#include "Common/CommonExport.h"
#include "Common/LogSink.h"

#include <mutex>

namespace keo {

/**
 * @brief Writes each record as one line to standard error:
 * "[level] file:line function: message", the level by its name ("warning" for 3; "level" for an
 * integer outside 0..5). The message bytes pass through unchanged.
 */
class KEO_COMMON_API StderrLogSink final : public LogSink {
public:
    /** @brief Writes one line; lines from concurrent calls never interleave. */
    void write(const LogRecord& record) noexcept override;

private:
    std::mutex mutex_;
};

} // namespace keo
