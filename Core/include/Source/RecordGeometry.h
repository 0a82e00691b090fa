#pragma once

#include "Common/Cartographic.h"
#include "Source/GeometryKind.h"
#include "Source/PolygonRings.h"

#include <cstddef>
#include <vector>

namespace keo::Source {

/**
 * @brief The geometry of a record: parts of one kind, WGS84 longitude and latitude in radians and
 * heights in metres (a source without Z gives height 0).
 *
 * Only the list of the record's kind is filled: `points` for Point, `lines` for Line, `polygons`
 * for Polygon. `multi` tells whether the source geometry was a collection of parts (a Multi*
 * geometry, or the parts of one kind of a geometry collection), even when it holds one part.
 */
struct RecordGeometry final {
    /** @brief The kind of every part. */
    GeometryKind kind = GeometryKind::Point;
    /** @brief Whether the source held a collection of parts rather than one part. */
    bool multi = false;
    /** @brief The positions of a Point record, one per part. */
    std::vector<Cartographic> points;
    /** @brief The lines of a Line record, each of at least two positions. */
    std::vector<std::vector<Cartographic>> lines;
    /**
     * @brief The polygons of a Polygon record. A member of a multi-polygon that lies inside a
     * hole of another member is nested under that hole rather than listed here.
     */
    std::vector<PolygonRings> polygons;

    /** @brief The number of parts of the record's kind. */
    std::size_t partCount() const noexcept {
        switch (kind) {
        case GeometryKind::Point:
            return points.size();
        case GeometryKind::Line:
            return lines.size();
        case GeometryKind::Polygon:
            return polygons.size();
        }
        return 0;
    }
    /** @brief Exact equality of kind, multi flag and every position, in order. */
    bool operator==(const RecordGeometry& o) const {
        return kind == o.kind && multi == o.multi && points == o.points && lines == o.lines &&
               polygons == o.polygons;
    }
    /** @brief Negation of operator==. */
    bool operator!=(const RecordGeometry& o) const { return !(*this == o); }
};

} // namespace keo::Source
