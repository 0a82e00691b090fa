#pragma once

#include "Common/Color.h"

#include <string>

namespace keo::Source {

/** @brief The resolved style of a point: a dot with an outline, and an optional image. */
struct ResolvedPointStyle final {
    /** @brief The colour of the dot (default opaque white). */
    keo::Color color = keo::Color::WHITE;
    /** @brief The diameter of the dot, pixels (default 8; 0 draws no dot). */
    float size = 8.0f;
    /** @brief The colour of the outline (default opaque black). */
    keo::Color outlineColor = keo::Color::BLACK;
    /** @brief The width of the outline, pixels (default 1). */
    float outlineWidth = 1.0f;
    /** @brief The path or URI of an image drawn at the point; empty: no image (default). */
    std::string image;
    /** @brief The factor applied to the image's size (default 1). */
    float imageScale = 1.0f;

    /** @brief Exact equality of every field. */
    bool operator==(const ResolvedPointStyle& o) const {
        return color == o.color && size == o.size && outlineColor == o.outlineColor &&
               outlineWidth == o.outlineWidth && image == o.image && imageScale == o.imageScale;
    }
    /** @brief Negation of operator==. */
    bool operator!=(const ResolvedPointStyle& o) const { return !(*this == o); }
};

} // namespace keo::Source
