#include "Data/SphereEmitter.h"

namespace keo {

SphereEmitter::~SphereEmitter() = default;

std::unique_ptr<ParticleEmitter> SphereEmitter::clone() const {
    return std::make_unique<SphereEmitter>(*this);
}

} // namespace keo
