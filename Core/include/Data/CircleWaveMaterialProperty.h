#pragma once

#include "Common/Color.h"
#include "Data/DataExport.h"
#include "Data/MaterialProperty.h"

#include <cstdint>
#include <optional>

namespace keo {

/**
 * @brief Rings in the main colour that spread over a circular surface: count rings, evenly
 * spaced, travel from the centre to the edge (or from the edge to the centre, see the direction)
 * once per wave period, fading as they go.
 *
 * The wave period is the duration in seconds when one is set and it is a positive finite
 * number; otherwise it is 100 / speed seconds (the default speed 10 gives 10 s). Without a
 * usable period (speed not a positive finite number and no usable duration) the rings stand
 * still. Values are stored as given; a count of 0 shows no ring.
 */
class KEO_DATA_API CircleWaveMaterialProperty final : public MaterialProperty {
public:
    /** @brief The kind of this class, as getType() reports it. */
    static constexpr Type TYPE = Type::CircleWave;

    /** @brief The values a circle-wave material starts with. */
    struct ConstructorOptions {
        /** @brief The ring colour (default Color::WHITE). */
        Color color{1.0f, 1.0f, 1.0f, 1.0f};
        /** @brief The number of rings (default 1). */
        unsigned char count = 1;
        /** @brief The wave speed; the period is 100 / speed seconds (default 10). */
        float speed = 10.0f;
        /** @brief The wave period, seconds, in place of the speed (default none). */
        std::optional<float> duration;
        /** @brief 1 or more: rings spread outwards; 0 or less: inwards (default 1). */
        std::int32_t direction = 1;
    };

    /** @brief One white ring spreading outwards at speed 10, no duration. */
    CircleWaveMaterialProperty() noexcept;
    /** @brief A circle wave of the values of @p options. */
    explicit CircleWaveMaterialProperty(const ConstructorOptions& options) noexcept;
    CircleWaveMaterialProperty(const CircleWaveMaterialProperty&) = default;
    CircleWaveMaterialProperty& operator=(const CircleWaveMaterialProperty&) = default;
    ~CircleWaveMaterialProperty() override;

    /** @brief The number of rings. */
    unsigned char getCount() const noexcept { return count_; }
    /** @brief Sets the number of rings (0: none shown). */
    void setCount(unsigned char count) noexcept { count_ = count; }
    /** @brief The wave speed. */
    float getSpeed() const noexcept { return speed_; }
    /** @brief Sets the wave speed (stored as given; see the class). */
    void setSpeed(float speed) noexcept { speed_ = speed; }
    /** @brief The wave period, seconds, if one is set. */
    const std::optional<float>& getDuration() const noexcept { return duration_; }
    /** @brief Sets or clears the wave period, seconds (stored as given; see the class). */
    void setDuration(const std::optional<float>& duration) noexcept { duration_ = duration; }
    /** @brief The direction: 1 or more outwards, 0 or less inwards. */
    std::int32_t getDirection() const noexcept { return direction_; }
    /** @brief Sets the direction: 1 or more outwards, 0 or less inwards. */
    void setDirection(std::int32_t direction) noexcept { direction_ = direction; }

    /** @brief The wave period in seconds (see the class), or empty when the rings stand still. */
    std::optional<double> getPeriod() const noexcept;
    /**
     * @brief How far the first ring has travelled at @p time, as a fraction in [0, 1) of the way
     * from where it starts (the centre when spreading outwards, the edge when inwards) to where
     * it ends; 0 when the rings stand still or the time is not finite.
     */
    double getWaveProgress(const TimePoint& time) const noexcept;

    /** @brief Writes the base fields, then "count", "speed", "duration" (null when none) and
     * "direction". */
    void describe(FieldList& fields) const override;

private:
    unsigned char count_;
    float speed_;
    std::optional<float> duration_;
    std::int32_t direction_;
};

} // namespace keo
