#pragma once

#include "CairoHandles.h"
#include "DrawList.h"
#include "FontRuns.h"

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

    /**
     * @brief The advance of the valid UTF-8 @p text in the chosen font, its characters that the
     * font lacks measured in the font that has them.
     */
    double textAdvance(const std::string& text);

    /** @brief Shows the valid UTF-8 @p text at the current point as textAdvance() measures it. */
    void showText(const std::string& text);

    /** @brief Adds the outlines of the valid UTF-8 @p text at the current point to the path. */
    void textPath(const std::string& text);

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
    // Calls @p draw with each run of @p text, the run's font chosen, then chooses the font back.
    template <typename Draw>
    void forEachRun(const std::string& text, Draw draw);

    cairo_t* cr_;
    std::unordered_map<const void*, SurfaceHandle> decoded_;
    std::unordered_map<std::string, SurfaceHandle> files_;
    std::string fontFamily_;
    double fontSize_ = -1.0;
    cairo_font_extents_t fontExtents_{};
    FontRuns fontRuns_;
};

} // namespace keo::Picture::detail
