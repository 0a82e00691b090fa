#include "Feature/ParticleSystemSymbol.h"
#include "Common/HeadingPitchRoll.h"
#include "Common/Matrix3.h"
#include "Common/Matrix4.h"
#include "Data/ParticleSystemGraphics.h"
#include "Feature/SymbolContext.h"

#include "AssignSupport.h"
#include "EditRule.h"
#include "Subscription.h"

namespace keo::Feature {

namespace {

/**
 * @brief A new emitter of @p source's kind with the same parameter, made through that kind's
 * constructor (so its check runs); null for null. An emitter of a kind other than the four is
 * returned itself: it cannot be rebuilt from its kind, and sharing keeps the copy drawable.
 */
std::shared_ptr<ParticleEmitter> copyEmitter(const std::shared_ptr<ParticleEmitter>& source) {
    const ParticleEmitter* const emitter = source.get();
    if (const auto* box = dynamic_cast<const BoxEmitter*>(emitter)) {
        return std::make_shared<BoxEmitter>(box->getDimensions());
    }
    if (const auto* circle = dynamic_cast<const CircleEmitter*>(emitter)) {
        return std::make_shared<CircleEmitter>(circle->getRadius());
    }
    if (const auto* cone = dynamic_cast<const ConeEmitter*>(emitter)) {
        return std::make_shared<ConeEmitter>(cone->getAngle());
    }
    if (const auto* sphere = dynamic_cast<const SphereEmitter*>(emitter)) {
        return std::make_shared<SphereEmitter>(sphere->getRadius());
    }
    return source;
}

} // namespace

ParticleSystemSymbol::ParticleSystemSymbol()
    : emitter_(std::make_shared<CircleEmitter>(0.5)) {
    emitterSubscription_.relay(*emitter_, *this);
}

ParticleSystemSymbol::ParticleSystemSymbol(const ParticleSystemSymbol& other)
    : Symbol(other)
    , emitter_(copyEmitter(other.emitter_))
    , bursts_(other.bursts_)
    , image_(other.image_)
    , minimumImageSize_(other.minimumImageSize_)
    , maximumImageSize_(other.maximumImageSize_)
    , startColor_(other.startColor_)
    , endColor_(other.endColor_)
    , startScale_(other.startScale_)
    , endScale_(other.endScale_)
    , emissionRate_(other.emissionRate_)
    , minimumSpeed_(other.minimumSpeed_)
    , maximumSpeed_(other.maximumSpeed_)
    , minimumParticleLife_(other.minimumParticleLife_)
    , maximumParticleLife_(other.maximumParticleLife_)
    , sizeInMeters_(other.sizeInMeters_)
    , loop_(other.loop_)
    , lifetime_(other.lifetime_)
    , gravity_(other.gravity_)
    , heading_(other.heading_)
    , pitch_(other.pitch_) {
    if (emitter_) {
        emitterSubscription_.relay(*emitter_, *this);
    }
}

ParticleSystemSymbol::~ParticleSystemSymbol() = default;

void ParticleSystemSymbol::assign(const Symbol& other) {
    detail::assignKind(*this, other, KEO_FEATURE_SITE("ParticleSystemSymbol::assign"),
                       [this](const ParticleSystemSymbol& source) {
                           setEmitter(source.emitter_);
                           setBursts(source.bursts_);
                           setImage(source.image_);
                           setMinimumImageSize(source.minimumImageSize_);
                           setMaximumImageSize(source.maximumImageSize_);
                           setStartColor(source.startColor_);
                           setEndColor(source.endColor_);
                           setStartScale(source.startScale_);
                           setEndScale(source.endScale_);
                           setEmissionRate(source.emissionRate_);
                           setMinimumSpeed(source.minimumSpeed_);
                           setMaximumSpeed(source.maximumSpeed_);
                           setMinimumParticleLife(source.minimumParticleLife_);
                           setMaximumParticleLife(source.maximumParticleLife_);
                           setSizeInMeters(source.sizeInMeters_);
                           setLoop(source.loop_);
                           setLifetime(source.lifetime_);
                           setGravity(source.gravity_);
                           setHeading(source.heading_);
                           setPitch(source.pitch_);
                       });
}

std::shared_ptr<Symbol> ParticleSystemSymbol::clone() const {
    return std::make_shared<ParticleSystemSymbol>(*this);
}

Symbol::Type ParticleSystemSymbol::getType() const {
    return Type::ParticleSystem;
}

void ParticleSystemSymbol::setEmitter(std::shared_ptr<ParticleEmitter> emitter) {
    detail::replaceOwned(*this, emitter_, std::move(emitter), emitterSubscription_);
}

void ParticleSystemSymbol::setBursts(const std::vector<ParticleBurst>& bursts) {
    // Vector equality: same length and every burst's three floats equal (a NaN never is).
    detail::applyEdit(*this, bursts_, bursts);
}

void ParticleSystemSymbol::setImage(std::shared_ptr<Image> image) {
    detail::applyEdit(*this, image_, std::move(image));
}

void ParticleSystemSymbol::setMinimumImageSize(const Vector2<float>& size) {
    detail::applyEdit(*this, minimumImageSize_, size);
}

void ParticleSystemSymbol::setMaximumImageSize(const Vector2<float>& size) {
    detail::applyEdit(*this, maximumImageSize_, size);
}

void ParticleSystemSymbol::setStartColor(const Color& color) {
    detail::applyEdit(*this, startColor_, color);
}

void ParticleSystemSymbol::setEndColor(const Color& color) {
    detail::applyEdit(*this, endColor_, color);
}

void ParticleSystemSymbol::setStartScale(float scale) {
    detail::applyEdit(*this, startScale_, scale);
}

void ParticleSystemSymbol::setEndScale(float scale) {
    detail::applyEdit(*this, endScale_, scale);
}

void ParticleSystemSymbol::setEmissionRate(float rate) {
    detail::applyEdit(*this, emissionRate_, rate);
}

void ParticleSystemSymbol::setMinimumSpeed(float speed) {
    detail::applyEdit(*this, minimumSpeed_, speed);
}

void ParticleSystemSymbol::setMaximumSpeed(float speed) {
    detail::applyEdit(*this, maximumSpeed_, speed);
}

void ParticleSystemSymbol::setMinimumParticleLife(float life) {
    detail::applyEdit(*this, minimumParticleLife_, life);
}

void ParticleSystemSymbol::setMaximumParticleLife(float life) {
    detail::applyEdit(*this, maximumParticleLife_, life);
}

void ParticleSystemSymbol::setSizeInMeters(bool inMeters) {
    detail::applyEdit(*this, sizeInMeters_, inMeters);
}

void ParticleSystemSymbol::setLoop(bool loop) {
    detail::applyEdit(*this, loop_, loop);
}

void ParticleSystemSymbol::setLifetime(float lifetime) {
    detail::applyEdit(*this, lifetime_, lifetime);
}

void ParticleSystemSymbol::setGravity(float gravity) {
    detail::applyEdit(*this, gravity_, gravity);
}

void ParticleSystemSymbol::setHeading(const Radian& heading) {
    detail::applyEdit(*this, heading_, heading);
}

void ParticleSystemSymbol::setPitch(const Radian& pitch) {
    detail::applyEdit(*this, pitch_, pitch);
}

void ParticleSystemSymbol::_fill(ParticleSystemGraphics& graphics,
                                 const SymbolContext& context) const {
    if (const auto& emitter = emitter_->_update()) {
        graphics.setEmitter(emitter);
    }
    graphics.setBursts(bursts_);
    graphics.setImage(image_);
    graphics.setMinimumImageSize(minimumImageSize_);
    graphics.setMaximumImageSize(maximumImageSize_);
    graphics.setStartColor(startColor_);
    graphics.setEndColor(endColor_);
    graphics.setStartScale(startScale_);
    graphics.setEndScale(endScale_);
    graphics.setEmissionRate(emissionRate_);
    graphics.setMinimumSpeed(minimumSpeed_);
    graphics.setMaximumSpeed(maximumSpeed_);
    graphics.setMinimumParticleLife(minimumParticleLife_);
    graphics.setMaximumParticleLife(maximumParticleLife_);
    graphics.setSizeInMeters(sizeInMeters_);
    graphics.setLoop(isLoop() != 0.0f);
    graphics.setLifetime(lifetime_);
    graphics.setGravity(gravity_);
    graphics.setDistanceDisplayCondition(context.distanceDisplayCondition);
    // The emitter frame is turned by the heading about the vertical and tilted by the pitch about
    // the local x axis, the roll axis of the rotation; the middle angle stays zero.
    const HeadingPitchRoll orientation(heading_, Radian(0.0), pitch_);
    graphics.setEmitterModelMatrix(Matrix4(Matrix3::fromHeadingPitchRoll(orientation)));
}

} // namespace keo::Feature
