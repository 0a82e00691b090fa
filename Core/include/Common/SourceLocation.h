#pragma once

#include <string>

namespace keo {

/**
 * @brief Where a log record or exception comes from: a source file path (as the caller writes
 * it), a line number and a function name.
 */
struct SourceLocation final {
    /** @brief The source file path. */
    std::string file;
    /** @brief The line in that file. */
    int line = 0;
    /** @brief The (qualified) function name. */
    std::string function;

    /** @brief Equality of the three fields. */
    bool operator==(const SourceLocation& o) const noexcept {
        return line == o.line && file == o.file && function == o.function;
    }
    /** @brief Negation of operator==. */
    bool operator!=(const SourceLocation& o) const noexcept { return !(*this == o); }
};

} // namespace keo
