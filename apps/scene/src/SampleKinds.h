#pragma once

// The makers of the sample's features beyond the points, one source per family of kinds; the
// sample's table (Sample.cpp) lists them.

#include "Scene.h"

#include "Common/Cartographic.h"
#include "Common/GlobeRectangle.h"
#include "Feature/PolygonGeometry.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace keo::scene {

/** @brief A new feature @p id named @p name with @p geometry and @p style. */
SceneFeature assemble(std::uint64_t id, const std::string& name,
                      std::shared_ptr<Feature::Geometry> geometry,
                      std::shared_ptr<Feature::Style> style);

/** @brief A place of the sample, @p east and @p north degrees from its centre, @p height metres. */
Cartographic samplePlace(double east, double north, double height);

/** @brief "Road": a dashed road with segment and total length labels, on relative heights. */
SceneFeature makeRoad(std::uint64_t id, const std::string& name);
/** @brief "Patrol": a glowing line with a moving path and segment length labels. */
SceneFeature makePatrol(std::uint64_t id, const std::string& name);
/** @brief "Fence": a line standing as a wall 3 m high with a line along its top. */
SceneFeature makeFence(std::uint64_t id, const std::string& name);
/** @brief "Pipe": a round pipe 1 m across swept along a line. */
SceneFeature makePipe(std::uint64_t id, const std::string& name);
/** @brief "Canal": a wide blue line with a thin white line over it, on the ground. */
SceneFeature makeCanal(std::uint64_t id, const std::string& name);

/** @brief "Park": a square park with a pond (a hole) and a length label on each edge. */
SceneFeature makePark(std::uint64_t id, const std::string& name);
/** @brief "District": a U-shaped district, labelled in an arm rather than in its notch. */
SceneFeature makeDistrict(std::uint64_t id, const std::string& name);
/** @brief "Building": a footprint extruded 45 m up from its own height (wall, roof, outline). */
SceneFeature makeBuilding(std::uint64_t id, const std::string& name);
/** @brief "Tower block": a footprint extruded up to 120 m above the ellipsoid. */
SceneFeature makeTowerBlock(std::uint64_t id, const std::string& name);
/** @brief "Plaza": an area painted with a moving image, one tile per 20 m of its extent. */
SceneFeature makePlaza(std::uint64_t id, const std::string& name);
/** @brief "Field": an area on heights relative to the terrain (drawn clamped, with a warning). */
SceneFeature makeField(std::uint64_t id, const std::string& name);

/** @brief "Stadium": a rectangle turned 0.35 rad, its stands extruded 25 m (not turned). */
SceneFeature makeStadium(std::uint64_t id, const std::string& name);
/** @brief "Search area": an ellipse of 900 m by 500 m semi-axes, filled half transparent. */
SceneFeature makeSearchArea(std::uint64_t id, const std::string& name);
/** @brief "Fleet": five boats in a row, one multi geometry of points. */
SceneFeature makeFleet(std::uint64_t id, const std::string& name);
/** @brief "River": a main stream and two branches, one multi geometry of polylines. */
SceneFeature makeRiver(std::uint64_t id, const std::string& name);
/** @brief "Islands": three islands, one multi geometry of polygons, each labelled. */
SceneFeature makeIslands(std::uint64_t id, const std::string& name);

/** @brief The stadium's rectangle (west, south, east, north, radians). */
GlobeRectangle stadiumExtent();
/** @brief Where boat @p index of "Fleet" is made. */
Cartographic fleetBoat(std::size_t index);
/** @brief Island @p index of "Islands" (0 to 2 are made with it; 3 is the script's). */
std::shared_ptr<Feature::PolygonGeometry> makeIsland(std::size_t index);

/** @brief The park's outer ring and its pond, with a second pond when @p secondPond. */
Feature::PolygonGeometry::Hierarchy parkHierarchy(bool secondPond);

/** @brief The vertices of "Patrol" as made, and as the script edits them. */
std::vector<Cartographic> patrolRoute(std::size_t vertices);

} // namespace keo::scene
