#include "Data/CircleEmitter.h"

namespace keo {

CircleEmitter::~CircleEmitter() = default;

std::unique_ptr<ParticleEmitter> CircleEmitter::clone() const {
    return std::make_unique<CircleEmitter>(*this);
}

} // namespace keo
