#pragma once

#include "Painter.h"

#include "Common/Color.h"

#include <cairo.h>

#include <string>

namespace keo::Picture::detail {

/** @brief Height of the title band across the top of the picture, pixels. */
constexpr double TITLE_BAND = 28.0;

/** @brief Black or white, whichever stands out on @p background. */
Color inkFor(const Color& background) noexcept;

/**
 * @brief A scale bar in the bottom-left corner: a round length (1, 2 or 5 times a power of ten
 * metres) near a fifth of the picture's width at @p metresPerPixel, with its length written above.
 */
void drawScaleBar(Painter& painter, cairo_t* cr, double metresPerPixel, double height,
                  const Color& ink);

/**
 * @brief A north arrow in the top-right corner of a picture @p width wide, turned by @p angle
 * radians clockwise from straight up.
 */
void drawNorthArrow(Painter& painter, cairo_t* cr, double width, double top, double angle,
                    const Color& ink);

/** @brief The title line in a band across the top of a picture @p width wide. */
void drawTitle(Painter& painter, cairo_t* cr, const std::string& title, double width,
               const Color& ink);

/** @brief @p note centred in a picture of @p width by @p height. */
void drawNote(Painter& painter, cairo_t* cr, const std::string& note, double width, double height,
              const Color& ink);

} // namespace keo::Picture::detail
