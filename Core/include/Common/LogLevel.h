#pragma once

namespace keo {

/**
 * @brief Severity of a log record. The kit passes levels as integers; these are their names:
 * 0 trace, 1 debug, 2 info, 3 warning, 4 error, 5 critical.
 */
enum class LogLevel : int {
    Trace = 0,    ///< Step-by-step detail.
    Debug = 1,    ///< Diagnostic detail.
    Info = 2,     ///< Normal events.
    Warning = 3,  ///< Something was refused or skipped; the program goes on.
    Error = 4,    ///< An operation failed.
    Critical = 5, ///< The program may not be able to go on.
};

} // namespace keo
