#pragma once

#include "Common/CommonExport.h"
#include "Common/LogRecord.h"

namespace keo {

/**
 * @brief A destination for log records. Implementations must be thread-safe: Log calls write
 * from any thread, concurrently.
 */
class KEO_COMMON_API LogSink {
public:
    virtual ~LogSink();
    /** @brief Takes one record; must not throw. */
    virtual void write(const LogRecord& record) noexcept = 0;

protected:
    LogSink() = default;
    LogSink(const LogSink&) = default;
    LogSink& operator=(const LogSink&) = default;
};

} // namespace keo
