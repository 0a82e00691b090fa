#pragma once

#include "Source/LoadReport.h"

#include <string>
#include <utility>

namespace keo::Source::detail {

/**
 * @brief Where reading and building put what they find: problems are counted in the report, or,
 * under the strict option, fail it; notes are always only counted.
 */
class ProblemSink final {
public:
    /** @brief A sink into @p report (kept by the caller), strict or not. */
    ProblemSink(LoadReport& report, bool strict) noexcept
        : report_(report)
        , strict_(strict) {}

    /** @brief Counts a problem, or fails the report under the strict option. */
    void problem(LoadReport::Issue issue, std::string message) {
        if (strict_) {
            report_.fail(issue, std::move(message));
        } else {
            report_.add(issue, std::move(message));
        }
    }
    /** @brief Counts a note. */
    void note(LoadReport::Issue issue, std::string message) {
        report_.add(issue, std::move(message));
    }
    /** @brief Whether the work must stop: the report failed. */
    bool stopped() const noexcept { return report_.failed(); }
    /** @brief The report. */
    LoadReport& report() noexcept { return report_; }

private:
    LoadReport& report_;
    bool strict_;
};

} // namespace keo::Source::detail
