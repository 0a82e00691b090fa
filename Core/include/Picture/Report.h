#pragma once

#include <cstddef>
#include <string>

namespace keo::Picture {

/**
 * @brief What one picture drew and what it left out, entity by entity.
 *
 * Every entity given to the Renderer is counted once, in the first of these that applies:
 * withoutGraphics, hidden, noPosition, outOfRange, then drawn or, when its graphics had nothing to
 * draw, emptyGraphics. invalidPositions counts positions, not entities.
 */
struct Report final {
    /** @brief Entities given to the renderer (null pointers included). */
    std::size_t entities = 0;
    /** @brief Entities that drew at least one shape. */
    std::size_t drawn = 0;
    /** @brief Entities (or null pointers) without a graphics component: nothing to draw. */
    std::size_t withoutGraphics = 0;
    /** @brief Entities hidden by their own show flag, an ancestor's, or their graphics'. */
    std::size_t hidden = 0;
    /** @brief Entities whose distance display condition excludes the camera's distance. */
    std::size_t outOfRange = 0;
    /** @brief Entities that need a position and have none at the time (or only a NaN one). */
    std::size_t noPosition = 0;
    /** @brief Entities whose graphics have nothing to draw (too few points, zero size, ...). */
    std::size_t emptyGraphics = 0;
    /** @brief Positions skipped because a coordinate was NaN or infinite (vertices included). */
    std::size_t invalidPositions = 0;
    /** @brief Distance from the camera to the centre of the view (the target), metres. */
    double cameraDistance = 0.0;
    /** @brief The note written on a picture that shows nothing; empty when something is drawn. */
    std::string note;
};

} // namespace keo::Picture
