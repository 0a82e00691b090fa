#pragma once

#include "Data/DataExport.h"
#include "Data/TimePoint.h"

#include <string>

namespace keo {

class Entity;

/**
 * @brief Writes an entity tree as JSON or as an indented text tree, to show what was built.
 *
 * For each entity, in tree order: its name, show and asynchronous flags, its position and
 * orientation evaluated at the given time (null where it has none), its graphics component (the
 * class name as "type", then every field the component describes, its material as an object with
 * its own "type" and fields), and its children in order.
 *
 * JSON form (two spaces per level; field values on one line each):
 * @code
 * {
 *   "name": "root",
 *   "show": true,
 *   "asynchronous": true,
 *   "position": [6378137, 0, 0],
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
 *   position: [6378137, 0, 0]
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

    /** @brief The tree under @p root as JSON, with time-varying values taken at @p time. */
    static std::string toJson(const Entity& root, const TimePoint& time = TimePoint());
    /** @brief The tree under @p root as indented text, values taken at @p time. */
    static std::string toText(const Entity& root, const TimePoint& time = TimePoint());
};

} // namespace keo
