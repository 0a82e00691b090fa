#include "Data/OrientationProperty.h"

namespace keo {

OrientationProperty::~OrientationProperty() = default;

} // namespace keo
