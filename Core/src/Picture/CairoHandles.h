#pragma once

#include "Common/Color.h"

#include <cairo.h>

#include <memory>

namespace keo::Picture::detail {

/** @brief Releases a Cairo surface. */
struct SurfaceRelease {
    void operator()(cairo_surface_t* surface) const noexcept { cairo_surface_destroy(surface); }
};
/** @brief Releases a Cairo context. */
struct ContextRelease {
    void operator()(cairo_t* context) const noexcept { cairo_destroy(context); }
};

/** @brief An owned Cairo surface. */
using SurfaceHandle = std::unique_ptr<cairo_surface_t, SurfaceRelease>;
/** @brief An owned Cairo context. */
using ContextHandle = std::unique_ptr<cairo_t, ContextRelease>;

/**
 * @brief Makes @p color, its alpha multiplied by @p alpha, the source of @p cr. Components are
 * clamped to 0..1 and a NaN component is read as 0.
 */
void setColor(cairo_t* cr, const Color& color, double alpha = 1.0) noexcept;

} // namespace keo::Picture::detail
