#pragma once

#include "Common/Cartographic.h"

#include <vector>

namespace keo::Source {

/**
 * @brief One polygon of a record: an outer ring (WGS84 longitude and latitude in radians, height
 * in metres) and its holes, each hole itself a PolygonRings whose own holes are the islands that
 * lie inside it, and so on.
 *
 * Rings are open (the closing position that files repeat is dropped) and hold at least three
 * positions. An outer ring runs counter-clockwise and a hole clockwise in the longitude-latitude
 * plane, whatever order the file used, so that every format gives the same rings.
 */
struct PolygonRings final {
    /** @brief The ring's positions in order. */
    std::vector<Cartographic> positions;
    /** @brief The holes, in source order; an island inside a hole is a hole of that hole. */
    std::vector<PolygonRings> holes;

    /** @brief Exact equality of every position and every hole, in order. */
    bool operator==(const PolygonRings& o) const {
        return positions == o.positions && holes == o.holes;
    }
    /** @brief Negation of operator==. */
    bool operator!=(const PolygonRings& o) const { return !(*this == o); }
};

} // namespace keo::Source
