#pragma once

#include "CairoHandles.h"
#include "DrawList.h"

#include <cairo.h>

#include <string>
#include <unordered_map>

namespace keo::Picture::detail {

/**
 * @brief Paints the shapes of a draw list on a Cairo context, keeping the images it decoded and
 * the font it chose for the whole picture. Shapes with a coordinate that is not finite are
 * skipped, and label text that is not valid UTF-8 is painted with '?' for the bad bytes, so that
 * no shape can put the context in an error state.
 */
class Painter final {
public:
    /** @brief A painter on @p cr (not owned; it must outlive the painter). */
    explicit Painter(cairo_t* cr) noexcept
        : cr_(cr) {}
    Painter(const Painter&) = delete;
    Painter& operator=(const Painter&) = delete;

    /** @brief Paints every shape of @p list in its order. */
    void paint(const DrawList& list);

    /**
     * @brief Chooses the font @p family at @p size pixels (nothing happens when it is the font
     * already chosen).
     */
    void selectFont(const std::string& family, double size);

private:
    void paintShape(const FillShape& shape);
    void paintShape(const StrokeShape& shape);
    void paintShape(const DotShape& shape);
    void paintShape(const ImageShape& shape);
    void paintShape(const TextShape& shape);
    void paintShape(const MarkShape& shape);
    void paintGlyphs(const LabelGraphics& label, const std::string& text);
    void tracePath(const std::vector<Point2>& points, bool closed);
    void paintArrow(const StrokeShape& shape);
    cairo_surface_t* imageOf(const ImageShape& shape);
    void paintPlaceholder(double left, double top, double width, double height, const Color& tint);

    cairo_t* cr_;
    std::unordered_map<const void*, SurfaceHandle> decoded_;
    std::unordered_map<std::string, SurfaceHandle> files_;
    std::string fontFamily_;
    double fontSize_ = -1.0;
    cairo_font_extents_t fontExtents_{};
};

} // namespace keo::Picture::detail
