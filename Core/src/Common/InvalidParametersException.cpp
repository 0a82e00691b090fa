#include "Common/InvalidParametersException.h"

#include <utility>

namespace keo {

InvalidParametersException::InvalidParametersException(int errorCode, std::string message,
                                                       std::string function, std::string file,
                                                       int line)
    : errorCode_(errorCode)
    , message_(std::move(message))
    , function_(std::move(function))
    , file_(std::move(file))
    , line_(line) {}

InvalidParametersException::~InvalidParametersException() = default;

const char* InvalidParametersException::what() const noexcept {
    return message_.c_str();
}

} // namespace keo
