#pragma once

#include "Common/Color.h"
#include "Data/TimePoint.h"
#include "Picture/ObliqueCamera.h"
#include "Picture/View.h"

#include <cstdint>
#include <string>

namespace keo::Picture {

/**
 * @brief What picture to make: its size, background, title, view and the time at which the
 * entities' properties are evaluated.
 *
 * The size is in pixels for PNG and in points (1/72 inch) for SVG and PDF, from 1 to MAX_SIZE on
 * each side; the Renderer refuses any other size with a PictureError.
 */
struct Options final {
    /** @brief The largest width or height accepted. */
    static constexpr std::uint32_t MAX_SIZE = 16384;

    /** @brief Width of the picture, pixels (points for SVG and PDF). */
    std::uint32_t width = 1024;
    /** @brief Height of the picture, pixels (points for SVG and PDF). */
    std::uint32_t height = 768;
    /** @brief Colour the picture is cleared to (opaque dark blue-grey by default). */
    Color background = Color(0.11f, 0.13f, 0.16f, 1.0f);
    /** @brief A line of text drawn across the top of the picture; empty: no title line. */
    std::string title;
    /** @brief The view. */
    View view = View::Map;
    /** @brief The oblique view's camera (not used by the map view). */
    ObliqueCamera camera;
    /** @brief The time at which positions and animated materials are evaluated. */
    TimePoint time;
    /** @brief Whether the scale bar and the north arrow are drawn (default true). */
    bool decorations = true;
};

} // namespace keo::Picture
