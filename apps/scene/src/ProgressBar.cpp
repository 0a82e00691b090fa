#include "ProgressBar.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <ostream>
#include <utility>

namespace keo::scene {

namespace {
constexpr int WIDTH = 30;

// Whole seconds, rounded.
std::string seconds(double value) {
    return std::to_string(static_cast<long long>(std::lround(value))) + " s";
}
} // namespace

ProgressBar::Clock ProgressBar::steadyClock() {
    return [] {
        return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch())
            .count();
    };
}

ProgressBar::ProgressBar(std::ostream& stream, bool enabled, std::size_t total, Clock clock)
    : stream_(stream)
    , enabled_(enabled)
    , total_(std::max<std::size_t>(total, 1))
    , clock_(std::move(clock))
    , start_(clock_()) {}

ProgressBar::~ProgressBar() {
    finish();
}

void ProgressBar::finish() {
    if (enabled_ && shownPercent_ >= 0) {
        stream_ << "\r" << std::string(WIDTH + 70, ' ') << "\r" << std::flush;
    }
    enabled_ = false;
}

void ProgressBar::advance(std::size_t units, const std::string& phase) {
    done_ = std::min(done_ + units, total_);
    if (!enabled_) {
        return;
    }
    // Whole percent; units are counted in std::size_t, far from overflow at 100 times the total.
    const int percent = static_cast<int>(done_ * 100 / total_);
    if (percent == shownPercent_) {
        return;
    }
    shownPercent_ = percent;
    const int filled = percent * WIDTH / 100;
    std::string bar = "[" + std::string(static_cast<std::size_t>(filled), '#') +
                      std::string(static_cast<std::size_t>(WIDTH - filled), '-') + "] ";
    const std::string number = std::to_string(percent);
    bar += std::string(3 - std::min<std::size_t>(number.size(), 3), ' ') + number + "% " + phase;
    const double elapsed = clock_() - start_;
    bar += "  " + seconds(elapsed);
    if (elapsed >= 1.0 && done_ < total_) {
        const double left =
            elapsed * static_cast<double>(total_ - done_) / static_cast<double>(done_);
        bar += ", about " + seconds(left) + " left";
    }
    stream_ << "\r" << bar << std::string(12, ' ') << std::flush;
}

} // namespace keo::scene
