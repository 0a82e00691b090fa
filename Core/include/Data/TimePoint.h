#pragma once

namespace keo {

/**
 * @brief An instant of the scene clock: seconds since the epoch the application chose for its
 * clock (the renderer passes the frame's time point to every time-varying property).
 */
class TimePoint final {
public:
    /** @brief The epoch itself. */
    constexpr TimePoint() noexcept = default;
    /** @brief The instant @p seconds after the epoch (negative: before it). */
    static constexpr TimePoint fromSeconds(double seconds) noexcept { return TimePoint(seconds); }

    /** @brief Seconds since the epoch. */
    constexpr double seconds() const noexcept { return seconds_; }

    /** @brief The instant @p seconds later. */
    constexpr TimePoint operator+(double seconds) const noexcept {
        return TimePoint(seconds_ + seconds);
    }
    /** @brief The instant @p seconds earlier. */
    constexpr TimePoint operator-(double seconds) const noexcept {
        return TimePoint(seconds_ - seconds);
    }
    /** @brief Seconds from @p earlier to this instant. */
    constexpr double operator-(TimePoint earlier) const noexcept {
        return seconds_ - earlier.seconds_;
    }

    /** @brief Exact comparison. */
    constexpr bool operator==(TimePoint o) const noexcept { return seconds_ == o.seconds_; }
    /** @brief Negation of operator==. */
    constexpr bool operator!=(TimePoint o) const noexcept { return seconds_ != o.seconds_; }
    /** @brief Ordering. */
    constexpr bool operator<(TimePoint o) const noexcept { return seconds_ < o.seconds_; }
    /** @brief Ordering. */
    constexpr bool operator<=(TimePoint o) const noexcept { return seconds_ <= o.seconds_; }
    /** @brief Ordering. */
    constexpr bool operator>(TimePoint o) const noexcept { return seconds_ > o.seconds_; }
    /** @brief Ordering. */
    constexpr bool operator>=(TimePoint o) const noexcept { return seconds_ >= o.seconds_; }

private:
    constexpr explicit TimePoint(double seconds) noexcept
        : seconds_(seconds) {}
    double seconds_ = 0.0;
};

} // namespace keo
