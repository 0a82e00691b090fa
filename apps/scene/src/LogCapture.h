#pragma once

#include "Common/LogSink.h"
#include "Common/MemoryLogSink.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace keo::scene {

/**
 * @brief Takes the kit's log records while it lives, in place of the process log's own sinks
 * (which are put back afterwards), so that the program shows them in its output, frame by frame,
 * rather than on standard error.
 */
class LogCapture final {
public:
    LogCapture();
    ~LogCapture();
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    /**
     * @brief The records since the last take, one line per distinct record in the order first
     * seen: "log     <level> from <function>: <message>", followed by " (<n> times)" when it came
     * more than once. The source line is left out, so that the output does not change when the
     * code moves.
     */
    std::vector<std::string> takeLines();
    /** @brief How many records came in all since the program started. */
    std::size_t total() const noexcept { return total_; }

private:
    std::shared_ptr<MemoryLogSink> sink_ = std::make_shared<MemoryLogSink>();
    std::vector<std::shared_ptr<LogSink>> saved_;
    std::size_t total_ = 0;
};

} // namespace keo::scene
