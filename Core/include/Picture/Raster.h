#pragma once

#include "Data/Image.h"
#include "Picture/Report.h"

namespace keo::Picture {

/** @brief A picture made in memory: its pixels and its report. */
struct Raster final {
    /** @brief The pixels, RGBA bytes row by row from the top, not premultiplied. */
    Image image;
    /** @brief What was drawn and what was left out. */
    Report report;
};

} // namespace keo::Picture
