#include "Data/PositionProperty.h"

namespace keo {

PositionProperty::~PositionProperty() = default;

} // namespace keo
