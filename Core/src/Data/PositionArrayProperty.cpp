#include "Data/PositionArrayProperty.h"

namespace keo {

PositionArrayProperty::~PositionArrayProperty() = default;

} // namespace keo
