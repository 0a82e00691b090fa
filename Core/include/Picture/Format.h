#pragma once

#include "Picture/PictureExport.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace keo::Picture {

/** @brief The file formats a picture is written in. */
enum class Format : std::uint8_t {
    Png = 0, ///< A raster image: one pixel per unit of the picture's size.
    Svg = 1, ///< A vector drawing: one point (1/72 inch) per unit of the picture's size.
    Pdf = 2, ///< A one-page document: one point (1/72 inch) per unit of the picture's size.
};

/**
 * @brief The format named by the extension of @p path: ".png", ".svg" or ".pdf", in any case.
 * Empty for any other extension and for a path without one.
 */
KEO_PICTURE_API std::optional<Format> formatFromPath(std::string_view path) noexcept;

/** @brief The lower-case name of @p format: "png", "svg" or "pdf"; "unknown" outside the enum. */
KEO_PICTURE_API const char* formatName(Format format) noexcept;

} // namespace keo::Picture
