#pragma once

#include "Common/Color.h"
#include "Feature/FeatureExport.h"
#include "Feature/Material.h"

#include <memory>

namespace keo::Feature {

/**
 * @brief Rings spreading over a circular surface, through a keo::CircleWaveMaterialProperty:
 * count rings of one colour moving outwards at the wave speed, or once per duration.
 *
 * A duration above 0 is handed to the property; 0 or less means no duration. An existing
 * property keeps the last duration it was given when the duration is lowered to 0 or less (it
 * does not fall back to the speed). This is intended.
 */
class KEO_FEATURE_API CircleWaveMaterial final : public Material {
public:
    /** @brief One white ring at speed 10, no duration (0). */
    CircleWaveMaterial();
    /**
     * @brief @p count rings of @p color at @p speed with the wave period @p duration in seconds
     * (0 or less: none); all stored as given.
     */
    CircleWaveMaterial(const keo::Color& color, unsigned char count, float speed, float duration);
    /** @brief Copies the values; fresh events, no cached property, changed flag set. */
    CircleWaveMaterial(const CircleWaveMaterial& other);
    ~CircleWaveMaterial() override;

    /** @brief Copies colour, count, speed and duration, then the base values. */
    void assign(const Material& other) override;
    /** @brief A copy made with the copy constructor. */
    std::shared_ptr<Material> clone() const override;
    /** @brief Type::CircleWave (10). */
    Type getType() const override;

    /** @brief The ring colour (default white). */
    const keo::Color& getColor() const noexcept { return color_; }
    /** @brief Sets the ring colour, stored as given (edit rule). */
    void setColor(const keo::Color& color);
    /** @brief The number of rings (default 1). */
    unsigned char getCount() const noexcept { return count_; }
    /** @brief Sets the number of rings; 0 shows none (edit rule). */
    void setCount(unsigned char count);
    /** @brief The wave speed (default 10; the property's period is 100 / speed seconds). */
    float getSpeed() const noexcept { return speed_; }
    /** @brief Sets the wave speed, stored as given (edit rule). */
    void setSpeed(float speed);
    /** @brief The wave period in seconds; 0 or less means none (default 0). */
    float getDuration() const noexcept { return duration_; }
    /**
     * @brief Sets the wave period in seconds, stored as given (edit rule). A value of 0 or less
     * means none; it does not clear the duration of an already created property.
     */
    void setDuration(float duration);

private:
    void updateImplMaterial(bool highlight) const override;

    keo::Color color_ = keo::Color::WHITE;
    unsigned char count_ = 1;
    float speed_ = 10.0f;
    float duration_ = 0.0f;
};

} // namespace keo::Feature
