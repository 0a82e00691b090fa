#include "Decorations.h"

#include "Utf8.h"

#include <cmath>
#include <cstdio>

namespace keo::Picture::detail {

namespace {

constexpr double MARGIN = 16.0;
constexpr const char* FONT = "sans-serif";

// The largest of 1, 2 and 5 times a power of ten that is at most @p limit.
double roundLength(double limit) noexcept {
    const double power = std::pow(10.0, std::floor(std::log10(limit)));
    for (const double step : {5.0, 2.0}) {
        if (step * power <= limit) {
            return step * power;
        }
    }
    return power;
}

std::string lengthText(double metres) {
    char text[32];
    if (metres >= 1000.0) {
        std::snprintf(text, sizeof text, "%g km", metres / 1000.0);
    } else {
        std::snprintf(text, sizeof text, "%g m", metres);
    }
    return text;
}

} // namespace

Color inkFor(const Color& background) noexcept {
    const float luminance =
        0.2126f * background.r + 0.7152f * background.g + 0.0722f * background.b;
    return luminance > 0.5f ? Color::BLACK : Color::WHITE;
}

void drawScaleBar(Painter& painter, cairo_t* cr, double metresPerPixel, double height,
                  const Color& ink) {
    const double metres = roundLength(metresPerPixel * 160.0);
    const double pixels = metres / metresPerPixel;
    const double left = MARGIN;
    const double bottom = height - MARGIN;
    // Two halves in alternating colours, outlined.
    setColor(cr, ink);
    cairo_rectangle(cr, left, bottom - 6.0, pixels / 2.0, 6.0);
    cairo_fill(cr);
    setColor(cr, inkFor(ink));
    cairo_rectangle(cr, left + pixels / 2.0, bottom - 6.0, pixels / 2.0, 6.0);
    cairo_fill(cr);
    setColor(cr, ink);
    cairo_set_line_width(cr, 1.0);
    cairo_rectangle(cr, left, bottom - 6.0, pixels, 6.0);
    cairo_stroke(cr);
    painter.selectFont(FONT, 12.0);
    cairo_move_to(cr, left, bottom - 10.0);
    cairo_show_text(cr, lengthText(metres).c_str());
}

void drawNorthArrow(Painter& painter, cairo_t* cr, double width, double top, double angle,
                    const Color& ink) {
    const double x = width - MARGIN - 12.0;
    const double y = top + MARGIN + 20.0;
    cairo_save(cr);
    cairo_translate(cr, x, y);
    cairo_rotate(cr, angle);
    setColor(cr, ink);
    cairo_move_to(cr, 0.0, -18.0);
    cairo_line_to(cr, 8.0, 8.0);
    cairo_line_to(cr, 0.0, 3.0);
    cairo_line_to(cr, -8.0, 8.0);
    cairo_close_path(cr);
    cairo_fill(cr);
    cairo_restore(cr);
    painter.selectFont(FONT, 12.0);
    cairo_text_extents_t extents;
    cairo_text_extents(cr, "N", &extents);
    cairo_move_to(cr, x - extents.x_advance / 2.0, y + 24.0);
    cairo_show_text(cr, "N");
}

void drawTitle(Painter& painter, cairo_t* cr, const std::string& title, double width,
               const Color& ink) {
    setColor(cr, inkFor(ink), 0.6);
    cairo_rectangle(cr, 0.0, 0.0, width, TITLE_BAND);
    cairo_fill(cr);
    setColor(cr, ink);
    painter.selectFont(FONT, 15.0);
    cairo_move_to(cr, 10.0, TITLE_BAND - 9.0);
    painter.showText(toValidUtf8(title));
}

void drawNote(Painter& painter, cairo_t* cr, const std::string& note, double width, double height,
              const Color& ink) {
    painter.selectFont(FONT, 16.0);
    const std::string text = toValidUtf8(note);
    const double advance = painter.textAdvance(text);
    setColor(cr, ink);
    cairo_move_to(cr, (width - advance) / 2.0, height / 2.0);
    painter.showText(text);
}

} // namespace keo::Picture::detail
