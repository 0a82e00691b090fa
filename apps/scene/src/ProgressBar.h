#pragma once

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <string>

namespace keo::scene {

/**
 * @brief A one-line progress bar redrawn in place (carriage return) on a terminal stream, with
 * the time since it started and, once a second has gone, an estimate of the time left (the time
 * so far scaled by the work left), e.g.
 * `[##########----------]  50% clean frames  12 s, about 12 s left`. Disabled, it writes
 * nothing. The line is erased when the bar is destroyed, so that output that follows starts on a
 * clean line.
 */
class ProgressBar final {
public:
    /** @brief Seconds on a clock (steady by default; the tests give their own). */
    using Clock = std::function<double()>;

    /**
     * @brief A bar of @p total units of work on @p stream, timed by @p clock from now; writes
     * nothing unless @p enabled.
     */
    ProgressBar(std::ostream& stream, bool enabled, std::size_t total, Clock clock = steadyClock());
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

    /** @brief Seconds on std::chrono::steady_clock. */
    static Clock steadyClock();

private:
    std::ostream& stream_;
    bool enabled_;
    std::size_t total_;
    std::size_t done_ = 0;
    int shownPercent_ = -1;
    Clock clock_;
    double start_;
};

} // namespace keo::scene
