#pragma once

#include "CairoHandles.h"

#include <string>

namespace keo {
class Image;
} // namespace keo

namespace keo::Picture::detail {

/** @brief A Cairo surface of a decoded image (RGBA rows from the top); null for an empty one. */
SurfaceHandle surfaceOfImage(const Image& image);

/**
 * @brief A Cairo surface read from the local PNG file named by @p uri (a path, or a "file://"
 * URL); null when the URI names no readable PNG file (another scheme, another extension, a
 * missing or broken file).
 */
SurfaceHandle surfaceOfPngFile(const std::string& uri);

} // namespace keo::Picture::detail
