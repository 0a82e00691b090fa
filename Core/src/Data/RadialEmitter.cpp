#include "Data/RadialEmitter.h"

#include "Data/FieldList.h"

namespace keo {

RadialEmitter::~RadialEmitter() = default;

void RadialEmitter::describe(FieldList& fields) const {
    fields.add("radius", radius_);
}

} // namespace keo
