#include "Data/ParticleEmitter.h"

namespace keo {

ParticleEmitter::~ParticleEmitter() = default;

const char* ParticleEmitter::typeName(Type type) noexcept {
    switch (type) {
    case Type::Box:
        return "BoxEmitter";
    case Type::Circle:
        return "CircleEmitter";
    case Type::Cone:
        return "ConeEmitter";
    case Type::Sphere:
        return "SphereEmitter";
    }
    return "ParticleEmitter";
}

} // namespace keo
