#pragma once

#include "Common/Color.h"
#include "Common/Radian.h"
#include "Common/Vector2.h"
#include "Data/ParticleBurst.h"
#include "Feature/FeatureExport.h"
#include "Feature/ParticleEmitter.h"
#include "Feature/Symbol.h"
#include "Feature/detail/SubscriptionPair.h"

#include <limits>
#include <memory>
#include <vector>

namespace keo {
class ParticleSystemGraphics;
class Image;
} // namespace keo

namespace keo::Feature {

struct SymbolContext;

/**
 * @brief A particle effect (smoke, fire, a fountain) drawn at a point: the particles' image,
 * sizes, colours, scales, speeds, lives, emission rate, bursts, gravity, loop, lifetime and
 * orientation, and the emitter whose shape they leave from.
 *
 * Every setter follows the edit rule (no event for an equal value; floats compare exactly, so NaN
 * is always a change; the image and the emitter by identity). The symbol relays its emitter's
 * events as its own, so editing the emitter shows as an edit of the symbol. Copying makes a new
 * emitter of the same kind and parameters; assign shares the other symbol's emitter.
 */
class KEO_FEATURE_API ParticleSystemSymbol final : public Symbol {
public:
    /**
     * @brief A symbol with a CircleEmitter of radius 0.5 m, no image and no bursts, image sizes
     * (1, 1), white start and end colours, scales 1, 5 particles per second, speeds 1 m/s, lives
     * 5 s, sizes in pixels, looping, an unlimited lifetime (the largest float), no gravity,
     * heading and pitch 0.
     */
    ParticleSystemSymbol();
    /**
     * @brief Copies every field, but gives the copy a new emitter of the source emitter's kind
     * with the same parameters (a source without an emitter gives a copy without one; an emitter
     * of a kind other than the four is shared). Fresh, empty events.
     */
    ParticleSystemSymbol(const ParticleSystemSymbol& other);
    ~ParticleSystemSymbol() override;

    /**
     * @brief Copies @p other's fields through the setters in declaration order, the emitter
     * first; the emitter is shared, not copied: afterwards both symbols hold the same emitter (and
     * its data-library object), and editing it changes both. This is intended: a copy has an
     * emitter of its own, an assignment takes the other's. A symbol of another kind is not copied:
     * a warning is logged and nothing changes.
     */
    void assign(const Symbol& other) override;
    /** @brief A copy made by the copy constructor (with its own emitter). */
    std::shared_ptr<Symbol> clone() const override;
    /** @brief Type::ParticleSystem. */
    Type getType() const override;

    /** @brief The emitter (null only after setEmitter(nullptr)). */
    const std::shared_ptr<ParticleEmitter>& getEmitter() const noexcept { return emitter_; }
    /**
     * @brief Replaces the emitter (nothing for the held pointer): stops relaying the old
     * emitter's events, raises this symbol's edit events, then relays the new one's. A point
     * geometry needs an emitter: do not leave a drawn symbol without one.
     */
    void setEmitter(std::shared_ptr<ParticleEmitter> emitter);

    /** @brief The bursts (extra emissions at given times). */
    const std::vector<ParticleBurst>& getBursts() const noexcept { return bursts_; }
    /** @brief Sets the bursts; equal when every burst's three floats are equal, in order. */
    void setBursts(const std::vector<ParticleBurst>& bursts);

    /** @brief The particle image; null: the point geometry draws no particles. */
    const std::shared_ptr<Image>& getImage() const noexcept { return image_; }
    /** @brief Sets the particle image (compared by identity). */
    void setImage(std::shared_ptr<Image> image);

    /** @brief The least particle image size, pixels (metres when sizes are in metres). */
    const Vector2<float>& getMinimumImageSize() const noexcept { return minimumImageSize_; }
    /** @brief Sets the least particle image size (see getMinimumImageSize). */
    void setMinimumImageSize(const Vector2<float>& size);
    /** @brief The greatest particle image size, pixels (metres when sizes are in metres). */
    const Vector2<float>& getMaximumImageSize() const noexcept { return maximumImageSize_; }
    /** @brief Sets the greatest particle image size (see getMaximumImageSize). */
    void setMaximumImageSize(const Vector2<float>& size);

    /** @brief The colour of a particle at birth. */
    const Color& getStartColor() const noexcept { return startColor_; }
    /** @brief Sets the colour of a particle at birth. */
    void setStartColor(const Color& color);
    /** @brief The colour of a particle at death. */
    const Color& getEndColor() const noexcept { return endColor_; }
    /** @brief Sets the colour of a particle at death. */
    void setEndColor(const Color& color);

    /** @brief The scale of a particle's image at birth. */
    float getStartScale() const noexcept { return startScale_; }
    /** @brief Sets the scale of a particle's image at birth. */
    void setStartScale(float scale);
    /** @brief The scale of a particle's image at death. */
    float getEndScale() const noexcept { return endScale_; }
    /** @brief Sets the scale of a particle's image at death. */
    void setEndScale(float scale);
    /** @brief Particles emitted per second. */
    float getEmissionRate() const noexcept { return emissionRate_; }
    /** @brief Sets the particles emitted per second. */
    void setEmissionRate(float rate);
    /** @brief The least initial speed, metres per second. */
    float getMinimumSpeed() const noexcept { return minimumSpeed_; }
    /** @brief Sets the least initial speed, metres per second. */
    void setMinimumSpeed(float speed);
    /** @brief The greatest initial speed, metres per second. */
    float getMaximumSpeed() const noexcept { return maximumSpeed_; }
    /** @brief Sets the greatest initial speed, metres per second. */
    void setMaximumSpeed(float speed);
    /** @brief The least particle life, seconds. */
    float getMinimumParticleLife() const noexcept { return minimumParticleLife_; }
    /** @brief Sets the least particle life, seconds. */
    void setMinimumParticleLife(float life);
    /** @brief The greatest particle life, seconds. */
    float getMaximumParticleLife() const noexcept { return maximumParticleLife_; }
    /** @brief Sets the greatest particle life, seconds. */
    void setMaximumParticleLife(float life);

    /** @brief Whether image sizes are in metres rather than pixels. */
    bool isSizeInMeters() const noexcept { return sizeInMeters_; }
    /** @brief Sets whether image sizes are in metres rather than pixels. */
    void setSizeInMeters(bool inMeters);
    /**
     * @brief 1.0 when the system starts again at the end of its lifetime, else 0.0. The answer is
     * a float, not a bool: this is intended (compare it with 0).
     */
    float isLoop() const noexcept { return loop_ ? 1.0f : 0.0f; }
    /** @brief Sets whether the system starts again at the end of its lifetime. */
    void setLoop(bool loop);
    /** @brief How long the system emits, seconds (the largest float: without end). */
    float getLifetime() const noexcept { return lifetime_; }
    /** @brief Sets how long the system emits, seconds. */
    void setLifetime(float lifetime);
    /** @brief Acceleration along the local up axis, metres per second squared (negative: down). */
    float getGravity() const noexcept { return gravity_; }
    /** @brief Sets the acceleration along the local up axis, metres per second squared. */
    void setGravity(float gravity);

    /** @brief The heading of the emitter in the point's local frame, radians. */
    const Radian& getHeading() const noexcept { return heading_; }
    /** @brief Sets the heading of the emitter, radians. */
    void setHeading(const Radian& heading);
    /**
     * @brief The pitch of the emitter in the point's local frame, radians. It tilts the emitter
     * about the local x axis: it is drawn as the roll of the emitter's rotation, the rotation's
     * pitch staying 0 (see _fill). This is intended.
     */
    const Radian& getPitch() const noexcept { return pitch_; }
    /** @brief Sets the pitch of the emitter, radians (see getPitch). */
    void setPitch(const Radian& pitch);

    /**
     * @brief Writes the particle system into @p graphics: the emitter (brought up to date first),
     * bursts, image and every particle value, the context's distance display condition, and the
     * emitter model matrix Matrix3::fromHeadingPitchRoll(heading, 0, pitch): the heading as
     * heading, the pitch in the place of the roll (a turn about the local x axis). The particles
     * keep their own colours while the feature is highlighted and take no height reference. The
     * symbol must hold an emitter (drawing one without an emitter dereferences null).
     */
    void _fill(ParticleSystemGraphics& graphics, const SymbolContext& context) const;

private:
    std::shared_ptr<ParticleEmitter> emitter_;
    std::vector<ParticleBurst> bursts_;
    std::shared_ptr<Image> image_;
    Vector2<float> minimumImageSize_{1.0f, 1.0f};
    Vector2<float> maximumImageSize_{1.0f, 1.0f};
    Color startColor_ = Color::WHITE;
    Color endColor_ = Color::WHITE;
    float startScale_ = 1.0f;
    float endScale_ = 1.0f;
    float emissionRate_ = 5.0f;
    float minimumSpeed_ = 1.0f;
    float maximumSpeed_ = 1.0f;
    float minimumParticleLife_ = 5.0f;
    float maximumParticleLife_ = 5.0f;
    bool sizeInMeters_ = false;
    bool loop_ = true;
    float lifetime_ = std::numeric_limits<float>::max();
    float gravity_ = 0.0f;
    Radian heading_;
    Radian pitch_;
    // The relay of the emitter's two events (held by pointer: its type is the library's own).
    detail::SubscriptionPair emitterSubscription_;
};

} // namespace keo::Feature
