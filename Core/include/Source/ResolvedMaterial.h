#pragma once

#include "Common/Color.h"

#include <cstdint>

namespace keo::Source {

/**
 * @brief The resolved material of a line, a polygon fill or an extrusion: a solid colour, or a
 * dash pattern of the colour over the gap colour.
 */
struct ResolvedMaterial final {
    /** @brief The material kinds the style sheet knows. */
    enum class Kind : std::uint8_t {
        Solid = 0, ///< one colour
        Dash = 1,  ///< dashes of the colour, gaps of the gap colour
    };

    /** @brief The kind (fixed by the sheet, not by an expression). */
    Kind kind = Kind::Solid;
    /** @brief The colour, or the colour of the dashes (default opaque white). */
    keo::Color color = keo::Color::WHITE;
    /** @brief The colour between the dashes (default transparent). */
    keo::Color gapColor = keo::Color::TRANSPARENT;
    /** @brief The 16-bit pattern of painted sixteenths of a repeat (default 255). */
    std::uint16_t dashPattern = 255;
    /** @brief The length of one repeat of the pattern, pixels (default 16). */
    float dashLength = 16.0f;

    /** @brief Exact equality of every field. */
    bool operator==(const ResolvedMaterial& o) const noexcept {
        return kind == o.kind && color == o.color && gapColor == o.gapColor &&
               dashPattern == o.dashPattern && dashLength == o.dashLength;
    }
    /** @brief Negation of operator==. */
    bool operator!=(const ResolvedMaterial& o) const noexcept { return !(*this == o); }
};

} // namespace keo::Source
