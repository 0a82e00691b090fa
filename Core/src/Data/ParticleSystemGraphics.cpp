#include "Data/ParticleSystemGraphics.h"

#include "Data/Image.h"
#include "Data/ParticleEmitter.h"
#include "GraphicsSupport.h"

#include <algorithm>
#include <utility>

namespace keo {

ParticleSystemGraphics::ParticleSystemGraphics()
    : ParticleSystemGraphics(Options()) {}

ParticleSystemGraphics::ParticleSystemGraphics(const Options& options)
    : GeometryGraphics(Type::ParticleSystem, options) {
    setEmitter(options.emitter);
    setBursts(options.bursts);
    setImage(options.image);
    setMinimumImageSize(options.minimumImageSize);
    setMaximumImageSize(options.maximumImageSize);
    setStartColor(options.startColor);
    setEndColor(options.endColor);
    setStartScale(options.startScale);
    setEndScale(options.endScale);
    setEmissionRate(options.emissionRate);
    setMinimumSpeed(options.minimumSpeed);
    setMaximumSpeed(options.maximumSpeed);
    setMinimumParticleLife(options.minimumParticleLife);
    setMaximumParticleLife(options.maximumParticleLife);
    setSizeInMeters(options.sizeInMeters);
    setLoop(options.loop);
    setLifetime(options.lifetime);
    setGravity(options.gravity);
    setEmitterModelMatrix(options.emitterModelMatrix);
}

ParticleSystemGraphics::~ParticleSystemGraphics() = default;

void ParticleSystemGraphics::setEmitter(std::shared_ptr<ParticleEmitter> emitter) noexcept {
    fields_.emitter = std::move(emitter);
}

void ParticleSystemGraphics::setBursts(std::vector<ParticleBurst> bursts) {
    bursts.erase(std::remove_if(bursts.begin(), bursts.end(),
                                [](const ParticleBurst& burst) {
                                    return detail::isNan(burst.getTime()) ||
                                           detail::isNan(burst.getMinimum()) ||
                                           detail::isNan(burst.getMaximum());
                                }),
                 bursts.end());
    for (auto& burst : bursts) {
        burst = ParticleBurst(detail::clampNegative(burst.getTime()),
                              detail::clampNegative(burst.getMinimum()),
                              detail::clampNegative(burst.getMaximum()));
    }
    fields_.bursts = std::move(bursts);
}

void ParticleSystemGraphics::setImage(std::shared_ptr<Image> image) noexcept {
    fields_.image = std::move(image);
}

void ParticleSystemGraphics::setMinimumImageSize(const Vector2<float>& size) noexcept {
    detail::assignNonNegative(fields_.minimumImageSize, size);
}

void ParticleSystemGraphics::setMaximumImageSize(const Vector2<float>& size) noexcept {
    detail::assignNonNegative(fields_.maximumImageSize, size);
}

void ParticleSystemGraphics::setStartScale(float scale) noexcept {
    detail::assignNonNegative(fields_.startScale, scale);
}

void ParticleSystemGraphics::setEndScale(float scale) noexcept {
    detail::assignNonNegative(fields_.endScale, scale);
}

void ParticleSystemGraphics::setEmissionRate(float rate) noexcept {
    detail::assignNonNegative(fields_.emissionRate, rate);
}

void ParticleSystemGraphics::setMinimumSpeed(float speed) noexcept {
    detail::assignNonNegative(fields_.minimumSpeed, speed);
}

void ParticleSystemGraphics::setMaximumSpeed(float speed) noexcept {
    detail::assignNonNegative(fields_.maximumSpeed, speed);
}

void ParticleSystemGraphics::setMinimumParticleLife(float life) noexcept {
    detail::assignNonNegative(fields_.minimumParticleLife, life);
}

void ParticleSystemGraphics::setMaximumParticleLife(float life) noexcept {
    detail::assignNonNegative(fields_.maximumParticleLife, life);
}

void ParticleSystemGraphics::setLifetime(float lifetime) noexcept {
    detail::assignNonNegative(fields_.lifetime, lifetime);
}

void ParticleSystemGraphics::setGravity(float gravity) noexcept {
    detail::assignUnlessNan(fields_.gravity, gravity);
}

void ParticleSystemGraphics::setEmitterModelMatrix(const Matrix4& matrix) noexcept {
    const auto& values = matrix.values();
    if (std::none_of(values.begin(), values.end(), [](double v) { return detail::isNan(v); })) {
        fields_.emitterModelMatrix = matrix;
    }
}

void ParticleSystemGraphics::describe(FieldList& fields, const TimePoint& time) const {
    GeometryGraphics::describe(fields, time);
    fields.addJson("emitter", detail::describeObject(fields_.emitter.get()));
    detail::addField(fields, "bursts", fields_.bursts);
    detail::addField(fields, "image", fields_.image);
    detail::addField(fields, "minimumImageSize", fields_.minimumImageSize);
    detail::addField(fields, "maximumImageSize", fields_.maximumImageSize);
    detail::addField(fields, "startColor", fields_.startColor);
    detail::addField(fields, "endColor", fields_.endColor);
    detail::addField(fields, "startScale", fields_.startScale);
    detail::addField(fields, "endScale", fields_.endScale);
    detail::addField(fields, "emissionRate", fields_.emissionRate);
    detail::addField(fields, "minimumSpeed", fields_.minimumSpeed);
    detail::addField(fields, "maximumSpeed", fields_.maximumSpeed);
    detail::addField(fields, "minimumParticleLife", fields_.minimumParticleLife);
    detail::addField(fields, "maximumParticleLife", fields_.maximumParticleLife);
    detail::addField(fields, "sizeInMeters", fields_.sizeInMeters);
    detail::addField(fields, "loop", fields_.loop);
    detail::addField(fields, "lifetime", fields_.lifetime);
    detail::addField(fields, "gravity", fields_.gravity);
    detail::addField(fields, "emitterModelMatrix", fields_.emitterModelMatrix);
}

} // namespace keo
