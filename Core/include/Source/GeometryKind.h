#pragma once

#include <cstdint>

namespace keo::Source {

/** @brief The geometry kinds of a record: every part of one record is of one kind. */
enum class GeometryKind : std::uint8_t {
    Point = 0,   ///< positions
    Line = 1,    ///< open lines of at least two positions
    Polygon = 2, ///< rings of at least three positions with their holes
};

} // namespace keo::Source
