#pragma once

#include <string>

namespace keo::Picture::detail {

/**
 * @brief @p text with every byte that does not belong to a well-formed UTF-8 sequence replaced by
 * '?' (the text is returned unchanged when it is valid).
 */
std::string toValidUtf8(const std::string& text);

} // namespace keo::Picture::detail
