#pragma once

namespace keo {

/**
 * @brief A burst of a particle system: at a time after the system starts, a number of particles,
 * chosen at random between a minimum and a maximum, is emitted at once.
 *
 * A plain value of three 32-bit floats in the order time, minimum, maximum, stored as given
 * (a particle system graphics decides what to do with unusable values). Equality is exact, so a
 * NaN member makes a burst unequal to every burst.
 */
class ParticleBurst final {
public:
    /** @brief A burst at second 0 of between 50 and 50 particles. */
    constexpr ParticleBurst() noexcept = default;
    /**
     * @brief A burst at @p time seconds after the start of between @p minimum and @p maximum
     * particles.
     */
    constexpr ParticleBurst(float time, float minimum, float maximum) noexcept
        : time_(time)
        , minimum_(minimum)
        , maximum_(maximum) {}

    /** @brief Seconds after the start of the particle system. */
    constexpr float getTime() const noexcept { return time_; }
    /** @brief The least number of particles emitted. */
    constexpr float getMinimum() const noexcept { return minimum_; }
    /** @brief The greatest number of particles emitted. */
    constexpr float getMaximum() const noexcept { return maximum_; }

    /** @brief Exact equality of the three members. */
    constexpr bool operator==(const ParticleBurst& o) const noexcept {
        return time_ == o.time_ && minimum_ == o.minimum_ && maximum_ == o.maximum_;
    }
    /** @brief Negation of operator==. */
    constexpr bool operator!=(const ParticleBurst& o) const noexcept { return !(*this == o); }

private:
    float time_ = 0.0f;
    float minimum_ = 50.0f;
    float maximum_ = 50.0f;
};

} // namespace keo
