#pragma once

#include "Common/Cartographic.h"
#include "Source/PolygonRings.h"

#include <vector>

namespace keo::Source::detail {

/**
 * @brief The signed area of @p ring in the plane of longitude and latitude (radians squared, by
 * the shoelace formula): positive when the ring runs counter-clockwise.
 */
double planarSignedArea(const std::vector<Cartographic>& ring) noexcept;

/**
 * @brief Makes @p ring run counter-clockwise (@p counterClockwise) or clockwise in the plane of
 * longitude and latitude, reversing it when needed while its first position stays first (so
 * that a file that stores the reverse ring from the same start gives the same ring).
 */
void orient(std::vector<Cartographic>& ring, bool counterClockwise);

/** @brief Whether @p point lies inside @p ring in the longitude-latitude plane (even-odd rule). */
bool containsPoint(const std::vector<Cartographic>& ring, const Cartographic& point) noexcept;

/**
 * @brief The members of a multi-polygon with each member that lies inside a hole of another
 * (its first position inside the hole, the hole smaller than its own outer ring and larger than
 * the member) moved under the smallest such hole; the other members stay in order.
 */
std::vector<PolygonRings> nestPolygons(std::vector<PolygonRings> polygons);

/**
 * @brief The area of @p polygon on a sphere of the WGS84 authalic radius (6 371 007.181 m), in
 * square metres: the outer ring's area less its holes', each hole less its islands', and so on.
 * Each ring's area comes from the sum over its positions of the longitude step across the
 * position times the sine of its latitude (Chamberlain and Duquette, "Some algorithms for
 * polygons on a sphere", 2007), with geodetic latitudes taken as spherical ones. Rings must not
 * cross the antimeridian.
 */
double sphericalArea(const PolygonRings& polygon) noexcept;

} // namespace keo::Source::detail
