#pragma once

#include "Picture/Options.h"
#include "Picture/Report.h"

#include <cairo.h>

#include <vector>

namespace keo {
class Entity;
} // namespace keo

namespace keo::Picture::detail {

/**
 * @brief Draws @p entities on @p cr, whose surface has the options' size, as the Renderer
 * describes: evaluates them, sets up the view, leaves out what is hidden or out of range, paints
 * the shapes in order, then the decorations, the title and (when nothing was drawn) the note.
 */
Report compose(cairo_t* cr, const std::vector<const Entity*>& entities, const Options& options);

} // namespace keo::Picture::detail
