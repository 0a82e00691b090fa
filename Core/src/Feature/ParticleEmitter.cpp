#include "Feature/ParticleEmitter.h"

#include "Check.h"
#include "EditRule.h"
#include "FixedSites.h"

#include "Data/BoxEmitter.h"
#include "Data/CircleEmitter.h"
#include "Data/ConeEmitter.h"
#include "Data/SphereEmitter.h"

namespace keo::Feature {

namespace detail {

/** @brief What all emitter kinds do alike with the base's private state. */
struct EmitterAccess {
    /** @brief Stores a value that passed its check: the edit rule, setting the changed flag. */
    template <typename T>
    static void store(ParticleEmitter& emitter, T& field, const T& value) {
        applyEdit(emitter, field, value, [&emitter] { emitter.changed_ = true; });
    }

    /**
     * @brief The body of every updateImpl: makes the cached Data from @p value when there is
     * none; otherwise, while the changed flag is set, writes @p value into it with @p set. Then
     * clears the flag.
     */
    template <typename Data, typename Value, typename Setter>
    static void refresh(const ParticleEmitter& emitter, const Value& value, Setter set) {
        if (!emitter.emitter_) {
            emitter.emitter_ = std::make_shared<Data>(value);
        } else if (emitter.changed_) {
            (static_cast<Data&>(*emitter.emitter_).*set)(value);
        }
        emitter.changed_ = false;
    }
};

} // namespace detail

// ParticleEmitter

ParticleEmitter::ParticleEmitter() = default;

ParticleEmitter::ParticleEmitter(const ParticleEmitter&)
    : ParticleEmitter() {}

ParticleEmitter::~ParticleEmitter() = default;

ParticleEmitter::Type ParticleEmitter::getType() const noexcept {
    return Type::Base;
}

const std::shared_ptr<keo::ParticleEmitter>& ParticleEmitter::_update() const {
    updateImpl();
    return emitter_;
}

void ParticleEmitter::_raiseDefinitionChangedEvent() {
    raiseDefinitionChanged();
}

// BoxEmitter

BoxEmitter::BoxEmitter(const Vector3<double>& dimensions)
    : dimensions_(0.0, 0.0, 0.0) {
    setDimensions(dimensions);
}

BoxEmitter::BoxEmitter(const BoxEmitter& other)
    : ParticleEmitter(other)
    , dimensions_(other.dimensions_) {}

BoxEmitter::BoxEmitter(BoxEmitter&& other)
    : BoxEmitter(static_cast<const BoxEmitter&>(other)) {}

BoxEmitter::~BoxEmitter() = default;

ParticleEmitter::Type BoxEmitter::getType() const noexcept {
    return Type::Box;
}

void BoxEmitter::setDimensions(const Vector3<double>& value) {
    if (value == dimensions_) {
        return;
    }
    KEO_FEATURE_CHECK(value.x >= 0.0 && "dimensions.x must be greater than or equal to 0.0",
                      detail::site::BOX_EMITTER_DIMENSION_X);
    KEO_FEATURE_CHECK(value.y >= 0.0 && "dimensions.y must be greater than or equal to 0.0",
                      detail::site::BOX_EMITTER_DIMENSION_Y);
    KEO_FEATURE_CHECK(value.z >= 0.0 && "dimensions.z must be greater than or equal to 0.0",
                      detail::site::BOX_EMITTER_DIMENSION_Z);
    detail::EmitterAccess::store(*this, dimensions_, value);
}

void BoxEmitter::updateImpl() const {
    detail::EmitterAccess::refresh<keo::BoxEmitter>(*this, dimensions_,
                                                    &keo::BoxEmitter::setDimensions);
}

// CircleEmitter

CircleEmitter::CircleEmitter(double radius)
    : radius_(radius) {
    KEO_FEATURE_CHECK(radius > 0.0, detail::site::CIRCLE_EMITTER_RADIUS);
}

CircleEmitter::CircleEmitter(const CircleEmitter& other)
    : ParticleEmitter(other)
    , radius_(other.radius_) {}

CircleEmitter::CircleEmitter(CircleEmitter&& other)
    : CircleEmitter(static_cast<const CircleEmitter&>(other)) {}

CircleEmitter::~CircleEmitter() = default;

ParticleEmitter::Type CircleEmitter::getType() const noexcept {
    return Type::Circle;
}

void CircleEmitter::setRadius(double value) {
    if (value == radius_) {
        return;
    }
    KEO_FEATURE_CHECK(value > 0.0, detail::site::CIRCLE_EMITTER_SET_RADIUS);
    detail::EmitterAccess::store(*this, radius_, value);
}

void CircleEmitter::updateImpl() const {
    detail::EmitterAccess::refresh<keo::CircleEmitter>(*this, radius_,
                                                       &keo::CircleEmitter::setRadius);
}

// ConeEmitter

ConeEmitter::ConeEmitter(const Radian& angle)
    : angle_(angle) {}

ConeEmitter::ConeEmitter(const ConeEmitter& other)
    : ParticleEmitter(other)
    , angle_(other.angle_) {}

ConeEmitter::ConeEmitter(ConeEmitter&& other)
    : ConeEmitter(static_cast<const ConeEmitter&>(other)) {}

ConeEmitter::~ConeEmitter() = default;

ParticleEmitter::Type ConeEmitter::getType() const noexcept {
    return Type::Cone;
}

void ConeEmitter::setAngle(const Radian& value) {
    detail::EmitterAccess::store(*this, angle_, value);
}

void ConeEmitter::updateImpl() const {
    detail::EmitterAccess::refresh<keo::ConeEmitter>(*this, angle_, &keo::ConeEmitter::setAngle);
}

// SphereEmitter

SphereEmitter::SphereEmitter(double radius)
    : radius_(radius) {
    KEO_FEATURE_CHECK(radius > 0, detail::site::SPHERE_EMITTER_RADIUS);
}

SphereEmitter::SphereEmitter(const SphereEmitter& other)
    : ParticleEmitter(other)
    , radius_(other.radius_) {}

SphereEmitter::SphereEmitter(SphereEmitter&& other)
    : SphereEmitter(static_cast<const SphereEmitter&>(other)) {}

SphereEmitter::~SphereEmitter() = default;

ParticleEmitter::Type SphereEmitter::getType() const noexcept {
    return Type::Sphere;
}

void SphereEmitter::setRadius(double value) {
    if (value == radius_) {
        return;
    }
    KEO_FEATURE_CHECK(value > 0, detail::site::SPHERE_EMITTER_SET_RADIUS);
    detail::EmitterAccess::store(*this, radius_, value);
}

void SphereEmitter::updateImpl() const {
    detail::EmitterAccess::refresh<keo::SphereEmitter>(*this, radius_,
                                                       &keo::SphereEmitter::setRadius);
}

} // namespace keo::Feature
