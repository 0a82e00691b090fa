#pragma once

#include "Data/DataExport.h"
#include "Data/EntityOwner.h"
#include "Data/TimePoint.h"

#include <optional>
#include <string>

namespace keo {

class Entity;

/**
 * @brief Writes an entity tree as JSON or as an indented text tree, to show what was built.
 *
 * For each entity, in tree order: its name, show and asynchronous flags, its position (ECEF
 * metres, and beside it longitude and latitude in degrees and height in metres on WGS84, unless
 * it lies more than 100 km below the ellipsoid and is no place on the globe) and
 * orientation evaluated at the given time (null where it has none), its graphics component (the
 * class name as "type", then every field the component describes, its material as an object with
 * its own "type" and fields), and its children in order. An enumeration is written as its number
 * with the name of its value beside it (`heightReference: 2 (relativeToGround)` in text, a
 * further field `"heightReferenceName": "relativeToGround"` in JSON). When the caller says whom
 * the tree belongs to, the root names its owner (`Entity "" of feature 1001 "Marker"`, or an
 * `"owner"` object in JSON).
 *
 * JSON form (two spaces per level; field values on one line each):
 * @code
 * {
 *   "name": "root",
 *   "show": true,
 *   "asynchronous": true,
 *   "position": [6378137, 0, 0],
 *   "positionCartographic": {"longitude": 0, "latitude": 0, "height": 0},
 *   "orientation": null,
 *   "graphics": {
 *     "type": "PointGraphics",
 *     "show": true,
 *     ...
 *   },
 *   "children": [
 *     { ... }
 *   ]
 * }
 * @endcode
 * Text form (each child two spaces deeper than its parent):
 * @code
 * Entity "root"
 *   show: true
 *   asynchronous: true
 *   position: [6378137, 0, 0] (longitude 0.000000°, latitude 0.000000°, height 0.00 m)
 *   orientation: null
 *   graphics: PointGraphics
 *     show: true
 *     ...
 *   children: 1
 *   Entity "label-symbol"
 *     ...
 * @endcode
 * Numbers are written in their shortest exact form; NaN and infinities as the strings "NaN",
 * "Infinity" and "-Infinity"; colours as CSS hex strings; orientations as [x, y, z, w]. Trees of
 * any depth are written without deep recursion.
 */
class KEO_DATA_API SceneDump final {
public:
    SceneDump() = delete;

    /**
     * @brief The tree under @p root as JSON, with time-varying values taken at @p time; the root
     * names @p owner when given.
     */
    static std::string toJson(const Entity& root, const TimePoint& time = TimePoint(),
                              const std::optional<EntityOwner>& owner = std::nullopt);
    /**
     * @brief The tree under @p root as indented text, values taken at @p time; the root names
     * @p owner when given.
     */
    static std::string toText(const Entity& root, const TimePoint& time = TimePoint(),
                              const std::optional<EntityOwner>& owner = std::nullopt);
};

} // namespace keo
