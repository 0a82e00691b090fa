#include "Feature/FunctionWrapper.h"

namespace keo {

FunctionWrapper::~FunctionWrapper() = default;

} // namespace keo
