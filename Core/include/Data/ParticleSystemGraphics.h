#pragma once

#include "Common/Color.h"
#include "Common/Matrix4.h"
#include "Common/Vector2.h"
#include "Data/DataExport.h"
#include "Data/GeometryGraphics.h"
#include "Data/ParticleBurst.h"

#include <limits>
#include <memory>
#include <vector>

namespace keo {

class Image;
class ParticleEmitter;

/**
 * @brief A particle system at its entity's position: particles of an image leave the emitter's
 * shape at a rate (plus bursts), fly at a speed under gravity, and change colour and scale from
 * their start to their end values during their life.
 *
 * Each particle's speed, life and image size are chosen at random between their minimum and
 * maximum (a minimum above the maximum is read as the maximum). Image sizes are in pixels, or in
 * metres when sizeInMeters is on. The emitter model matrix places the emitter in the entity's
 * frame (x east, y north, z up). Sizes, speeds, lives, rates, scales and durations given as NaN
 * are ignored and negative ones become 0.
 */
class KEO_DATA_API ParticleSystemGraphics final : public GeometryGraphics {
public:
    /** @brief The particle system's own fields, with their defaults. */
    struct Fields {
        /** @brief The shape particles leave from; null: they leave from a single point. */
        std::shared_ptr<ParticleEmitter> emitter;
        /** @brief Extra emissions at given times. */
        std::vector<ParticleBurst> bursts;
        /** @brief The particle image; null: nothing is drawn. */
        std::shared_ptr<Image> image;
        /** @brief Least particle image size, pixels (or metres). */
        Vector2<float> minimumImageSize = Vector2<float>(1.0f, 1.0f);
        /** @brief Greatest particle image size, pixels (or metres). */
        Vector2<float> maximumImageSize = Vector2<float>(1.0f, 1.0f);
        /** @brief Colour of a particle at birth. */
        Color startColor = Color(1.0f, 1.0f, 1.0f, 1.0f);
        /** @brief Colour of a particle at death. */
        Color endColor = Color(1.0f, 1.0f, 1.0f, 1.0f);
        /** @brief Scale of a particle's image at birth. */
        float startScale = 1.0f;
        /** @brief Scale of a particle's image at death. */
        float endScale = 1.0f;
        /** @brief Particles emitted per second. */
        float emissionRate = 5.0f;
        /** @brief Least initial speed, metres per second. */
        float minimumSpeed = 1.0f;
        /** @brief Greatest initial speed, metres per second. */
        float maximumSpeed = 1.0f;
        /** @brief Least particle life, seconds. */
        float minimumParticleLife = 5.0f;
        /** @brief Greatest particle life, seconds. */
        float maximumParticleLife = 5.0f;
        /** @brief Whether image sizes are in metres rather than pixels. */
        bool sizeInMeters = false;
        /** @brief Whether the system starts again when its lifetime ends. */
        bool loop = true;
        /** @brief How long the system emits, seconds (the largest float: without end). */
        float lifetime = std::numeric_limits<float>::max();
        /** @brief Acceleration along the local up axis, metres per second squared (negative: down).
         */
        float gravity = 0.0f;
        /** @brief Placement of the emitter in the entity's frame. */
        Matrix4 emitterModelMatrix = Matrix4::identity();
    };
    /** @brief Everything a particle system is made from: common and particle fields. */
    struct Options : CommonOptions, Fields {};
    /** @brief The same record under the name the other graphics kinds use. */
    using ConstructorOptions = Options;

    /** @brief A particle system of the default options (no image, no emitter). */
    ParticleSystemGraphics();
    /** @brief A particle system of @p options; values follow the setters' rules. */
    explicit ParticleSystemGraphics(const Options& options);
    ~ParticleSystemGraphics() override;

    /** @brief Whether @p type is Type::ParticleSystem. */
    static constexpr bool isKindOf(Type type) noexcept { return type == Type::ParticleSystem; }

    /** @brief The emitter; null (the default): a single point. */
    const std::shared_ptr<ParticleEmitter>& getEmitter() const noexcept { return fields_.emitter; }
    /** @brief Sets the emitter (shared with the caller); null emits from a point. */
    void setEmitter(std::shared_ptr<ParticleEmitter> emitter) noexcept;
    /** @brief The bursts (default none). */
    const std::vector<ParticleBurst>& getBursts() const noexcept { return fields_.bursts; }
    /**
     * @brief Sets the bursts: bursts with a NaN member are dropped, negative members become 0,
     * the others are kept in order.
     */
    void setBursts(std::vector<ParticleBurst> bursts);
    /** @brief The particle image; null (the default): nothing is drawn. */
    const std::shared_ptr<Image>& getImage() const noexcept { return fields_.image; }
    /** @brief Sets the particle image (shared with the caller). */
    void setImage(std::shared_ptr<Image> image) noexcept;
    /** @brief The least image size (default (1, 1)). */
    const Vector2<float>& getMinimumImageSize() const noexcept { return fields_.minimumImageSize; }
    /** @brief Sets the least image size. */
    void setMinimumImageSize(const Vector2<float>& size) noexcept;
    /** @brief The greatest image size (default (1, 1)). */
    const Vector2<float>& getMaximumImageSize() const noexcept { return fields_.maximumImageSize; }
    /** @brief Sets the greatest image size. */
    void setMaximumImageSize(const Vector2<float>& size) noexcept;
    /** @brief The colour at birth (default opaque white). */
    const Color& getStartColor() const noexcept { return fields_.startColor; }
    /** @brief Sets the colour at birth (stored as given). */
    void setStartColor(const Color& color) noexcept { fields_.startColor = color; }
    /** @brief The colour at death (default opaque white). */
    const Color& getEndColor() const noexcept { return fields_.endColor; }
    /** @brief Sets the colour at death (stored as given). */
    void setEndColor(const Color& color) noexcept { fields_.endColor = color; }
    /** @brief The scale at birth (default 1). */
    float getStartScale() const noexcept { return fields_.startScale; }
    /** @brief Sets the scale at birth. */
    void setStartScale(float scale) noexcept;
    /** @brief The scale at death (default 1). */
    float getEndScale() const noexcept { return fields_.endScale; }
    /** @brief Sets the scale at death. */
    void setEndScale(float scale) noexcept;
    /** @brief Particles per second (default 5). */
    float getEmissionRate() const noexcept { return fields_.emissionRate; }
    /** @brief Sets the particles per second. */
    void setEmissionRate(float rate) noexcept;
    /** @brief The least speed, metres per second (default 1). */
    float getMinimumSpeed() const noexcept { return fields_.minimumSpeed; }
    /** @brief Sets the least speed, metres per second. */
    void setMinimumSpeed(float speed) noexcept;
    /** @brief The greatest speed, metres per second (default 1). */
    float getMaximumSpeed() const noexcept { return fields_.maximumSpeed; }
    /** @brief Sets the greatest speed, metres per second. */
    void setMaximumSpeed(float speed) noexcept;
    /** @brief The least life, seconds (default 5). */
    float getMinimumParticleLife() const noexcept { return fields_.minimumParticleLife; }
    /** @brief Sets the least life, seconds. */
    void setMinimumParticleLife(float life) noexcept;
    /** @brief The greatest life, seconds (default 5). */
    float getMaximumParticleLife() const noexcept { return fields_.maximumParticleLife; }
    /** @brief Sets the greatest life, seconds. */
    void setMaximumParticleLife(float life) noexcept;
    /** @brief Whether image sizes are in metres (default false: pixels). */
    bool isSizeInMeters() const noexcept { return fields_.sizeInMeters; }
    /** @brief Measures image sizes in metres (true) or pixels (false). */
    void setSizeInMeters(bool inMeters) noexcept { fields_.sizeInMeters = inMeters; }
    /** @brief Whether the system starts again after its lifetime (default true). */
    bool isLoop() const noexcept { return fields_.loop; }
    /** @brief Makes the system start again after its lifetime, or stop. */
    void setLoop(bool loop) noexcept { fields_.loop = loop; }
    /** @brief How long the system emits, seconds (default the largest float: without end). */
    float getLifetime() const noexcept { return fields_.lifetime; }
    /** @brief Sets how long the system emits, seconds. */
    void setLifetime(float lifetime) noexcept;
    /** @brief The gravity, metres per second squared (default 0). */
    float getGravity() const noexcept { return fields_.gravity; }
    /** @brief Sets the gravity (negative pulls down); NaN is ignored. */
    void setGravity(float gravity) noexcept;
    /** @brief The emitter's placement in the entity's frame (default identity). */
    const Matrix4& getEmitterModelMatrix() const noexcept { return fields_.emitterModelMatrix; }
    /** @brief Sets the emitter's placement; a matrix with a NaN is ignored. */
    void setEmitterModelMatrix(const Matrix4& matrix) noexcept;

    /** @brief Writes the common fields, then the particle system's (the emitter as an object). */
    void describe(FieldList& fields, const TimePoint& time) const override;

private:
    Fields fields_;
};

} // namespace keo
