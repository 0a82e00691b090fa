#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>

namespace keo::scene {

/**
 * @brief A one-line progress bar redrawn in place (carriage return) on a terminal stream, e.g.
 * `[##########----------]  50% clean frames`. Disabled, it writes nothing. The line is erased
 * when the bar is destroyed, so that output that follows starts on a clean line.
 */
class ProgressBar final {
public:
    /** @brief A bar of @p total units of work on @p stream; writes nothing unless @p enabled. */
    ProgressBar(std::ostream& stream, bool enabled, std::size_t total);
    /** @brief Erases the bar's line (see finish). */
    ~ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    /**
     * @brief Counts @p units more done, within the phase @p phase; redraws when the whole percent
     * changes.
     */
    void advance(std::size_t units, const std::string& phase);
    /** @brief Erases the bar's line, once; later calls and advances write nothing. */
    void finish();

private:
    std::ostream& stream_;
    bool enabled_;
    std::size_t total_;
    std::size_t done_ = 0;
    int shownPercent_ = -1;
};

} // namespace keo::scene
