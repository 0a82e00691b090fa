#pragma once

#include "Common/CommonExport.h"
#include "Common/LogLevel.h"
#include "Common/LogSink.h"
#include "Common/SourceLocation.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace keo {

/**
 * @brief The process-wide log: records at or above a minimum level go to every installed sink.
 *
 * Thread-safe. At start it has one StderrLogSink and the minimum level 2 (info). Sinks are called
 * outside the log's own lock, so a sink may itself log or change the sinks. A record goes to the
 * sinks installed when log() began: a sink removed meanwhile may still receive it, one added
 * meanwhile does not.
 */
class KEO_COMMON_API Log final {
public:
    /** @brief The one instance. */
    static Log& getInstance();

    Log(const Log&) = delete;
    Log& operator=(const Log&) = delete;

    /**
     * @brief Sends a record to every sink if @p level is at least the minimum level. The message
     * is passed on byte for byte. Never throws.
     */
    void log(const SourceLocation& location, int level, const std::string& message) noexcept;
    /** @brief log with a named level. */
    void log(const SourceLocation& location, LogLevel level, const std::string& message) noexcept {
        log(location, static_cast<int>(level), message);
    }

    /** @brief The minimum level a record needs to be passed on (default 2, info). */
    int getMinimumLevel() const noexcept { return minimumLevel_.load(std::memory_order_relaxed); }
    /** @brief Sets the minimum level; records below it are dropped. */
    void setMinimumLevel(int level) noexcept {
        minimumLevel_.store(level, std::memory_order_relaxed);
    }

    /** @brief Adds a sink (ignored if null or already installed). */
    void addSink(const std::shared_ptr<LogSink>& sink);
    /** @brief Removes a sink; true if it was installed. */
    bool removeSink(const std::shared_ptr<LogSink>& sink);
    /** @brief Removes every sink: records are then dropped. */
    void clearSinks();
    /** @brief The installed sinks, in the order they are called. */
    std::vector<std::shared_ptr<LogSink>> getSinks() const;

private:
    Log();

    using SinkList = std::vector<std::shared_ptr<LogSink>>;

    mutable std::mutex mutex_;
    // Replaced, never modified in place, so that log() can call the sinks of a snapshot without
    // holding the lock.
    std::shared_ptr<const SinkList> sinks_;
    std::atomic<int> minimumLevel_{static_cast<int>(LogLevel::Info)};
};

} // namespace keo
