#pragma once

#include "Picture/PictureExport.h"

#include <stdexcept>
#include <string>

namespace keo::Picture {

/**
 * @brief Thrown when a picture cannot be made as asked: a size outside 1..Options::MAX_SIZE, a
 * file name whose extension names no format, or a file that cannot be opened or written. The
 * message says which, with the file name and the system's reason where there is one.
 */
class KEO_PICTURE_API PictureError : public std::runtime_error {
public:
    /** @brief An error with the message @p message. */
    explicit PictureError(const std::string& message);
    ~PictureError() override;
    PictureError(const PictureError&) = default;
    PictureError& operator=(const PictureError&) = default;
};

} // namespace keo::Picture
