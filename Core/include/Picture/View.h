#pragma once

#include <cstdint>

namespace keo::Picture {

/** @brief How the scene is looked at. */
enum class View : std::uint8_t {
    /**
     * @brief Straight down on the data's extent: an orthographic projection of the local tangent
     * plane at the extent's centre (east to the right, north up), with a scale bar and a north
     * arrow.
     */
    Map = 0,
    /**
     * @brief A perspective view from a camera at a heading, pitch and range around a target (see
     * ObliqueCamera), in which walls, extrusions and model boxes are depth-sorted and shaded.
     */
    Oblique = 1,
};

} // namespace keo::Picture
