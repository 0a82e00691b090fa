#pragma once

#include "Common/CommonExport.h"

#include <exception>
#include <string>

namespace keo {

/**
 * @brief Thrown when an operation is called with parameters it cannot accept. Carries an error
 * code, the message, the text of the function that threw, and its source file and line.
 */
class KEO_COMMON_API InvalidParametersException : public std::exception {
public:
    /** @brief The exception with all its fields; the message bytes are kept unchanged. */
    InvalidParametersException(int errorCode, std::string message, std::string function,
                               std::string file, int line);
    ~InvalidParametersException() override;
    InvalidParametersException(const InvalidParametersException&) = default;
    InvalidParametersException& operator=(const InvalidParametersException&) = default;

    /** @brief The message. */
    const char* what() const noexcept override;

    /** @brief The error code. */
    int getErrorCode() const noexcept { return errorCode_; }
    /** @brief The message. */
    const std::string& getMessage() const noexcept { return message_; }
    /** @brief The text naming the function that threw. */
    const std::string& getFunction() const noexcept { return function_; }
    /** @brief The source file that threw. */
    const std::string& getFile() const noexcept { return file_; }
    /** @brief The line that threw. */
    int getLine() const noexcept { return line_; }

private:
    int errorCode_;
    std::string message_;
    std::string function_;
    std::string file_;
    int line_;
};

} // namespace keo
