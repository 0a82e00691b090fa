#pragma once

#include "Common/SourceLocation.h"

#include <string>

namespace keo {

/** @brief One log record as sinks receive it. */
struct LogRecord final {
    /** @brief Source file, line and function of the call. */
    SourceLocation location;
    /** @brief Severity as an integer (see LogLevel: 3 is a warning). */
    int level = 0;
    /** @brief The message bytes, exactly as given (UTF-8 or any other encoding). */
    std::string message;

    /** @brief Equality of every field. */
    bool operator==(const LogRecord& o) const noexcept {
        return level == o.level && location == o.location && message == o.message;
    }
    /** @brief Negation of operator==. */
    bool operator!=(const LogRecord& o) const noexcept { return !(*this == o); }
};

} // namespace keo
