#pragma once

#include <string>

namespace keo::Feature::detail {

/** @brief Where a record of the feature module comes from: its path without extension, line,
 * function. */
struct LogSite {
    const char* file;
    int line;
    const char* function;
};

/** @brief Logs @p message at level 3 (warning) through the process log, with @p site. */
void logWarning(const LogSite& site, const std::string& message) noexcept;

/**
 * @brief The kind check of every assign: true when @p sameKind; otherwise logs
 * "类型不同无法赋值！" at level 3 with @p site and returns false (the caller then changes nothing).
 */
bool checkAssignKind(bool sameKind, const LogSite& site) noexcept;

} // namespace keo::Feature::detail
