#pragma once

#include <cstdint>

namespace keo::Feature {

/**
 * @brief What the tile size of an image-painting material means.
 *
 * With Count the tile size is the number of image repeats along u and v itself. With Meter it is
 * the size of one tile in metres, and the repeat count follows from the extent of the graphics
 * the material paints (a polygon's extent on the globe, a wall's length and height).
 */
enum class ImageTileSizeUnit : std::uint8_t {
    Count = 0, ///< The tile size is the repeat count (repeat = tile size).
    Meter = 1, ///< The tile size is in metres; the repeat follows from the painted extent.
};

} // namespace keo::Feature
