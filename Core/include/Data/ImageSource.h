#pragma once

#include <memory>
#include <string>
#include <variant>

namespace keo {

class Image;

/**
 * @brief An image, given by its path or URI (a file path or URL; empty: no image) or as a decoded
 * image shared with others (null: no image). Two sources are equal when they hold the same
 * alternative with an equal value: a path by its text, a decoded image by identity.
 */
using ImageSource = std::variant<std::string, std::shared_ptr<Image>>;

} // namespace keo
