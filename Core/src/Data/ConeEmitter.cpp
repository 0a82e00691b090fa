#include "Data/ConeEmitter.h"

#include "Data/FieldList.h"

namespace keo {

ConeEmitter::~ConeEmitter() = default;

std::unique_ptr<ParticleEmitter> ConeEmitter::clone() const {
    return std::make_unique<ConeEmitter>(*this);
}

void ConeEmitter::describe(FieldList& fields) const {
    fields.add("angle", angle_.value());
}

} // namespace keo
