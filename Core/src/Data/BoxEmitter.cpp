#include "Data/BoxEmitter.h"

#include "Data/FieldList.h"

namespace keo {

BoxEmitter::~BoxEmitter() = default;

std::unique_ptr<ParticleEmitter> BoxEmitter::clone() const {
    return std::make_unique<BoxEmitter>(*this);
}

void BoxEmitter::describe(FieldList& fields) const {
    fields.add("dimensions", dimensions_);
}

} // namespace keo
