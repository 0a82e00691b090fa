#pragma once

#include "Common/CommonExport.h"
#include "Common/LogSink.h"

#include <mutex>
#include <vector>

namespace keo {

/** @brief Keeps every record in memory, in arrival order, for tests and diagnostics. */
class KEO_COMMON_API MemoryLogSink final : public LogSink {
public:
    /** @brief Appends a copy of @p record. */
    void write(const LogRecord& record) noexcept override;
    /** @brief A copy of the records received so far. */
    std::vector<LogRecord> getRecords() const;
    /** @brief How many records were received. */
    std::size_t size() const;
    /** @brief Forgets every record. */
    void clear();

private:
    mutable std::mutex mutex_;
    std::vector<LogRecord> records_;
};

} // namespace keo
