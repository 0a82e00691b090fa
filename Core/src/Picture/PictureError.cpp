#include "Picture/PictureError.h"

namespace keo::Picture {

PictureError::PictureError(const std::string& message)
    : std::runtime_error(message) {}

PictureError::~PictureError() = default;

} // namespace keo::Picture
