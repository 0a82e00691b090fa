#pragma once

#include "Common/Cartographic.h"
#include "Common/CommonExport.h"
#include "Common/Vector3.h"

#include <vector>

namespace keo {

class Ellipsoid;

/**
 * @brief A rectangle on the globe bounded by two meridians and two parallels: west, south, east
 * and north, each an angle in radians.
 *
 * West may be greater than east: the rectangle then crosses the antimeridian. A rectangle whose
 * south is greater than its north is empty.
 */
class KEO_COMMON_API GlobeRectangle final {
public:
    /** @brief The rectangle of the given bounds in radians (not checked nor normalised). */
    constexpr GlobeRectangle(double west, double south, double east, double north) noexcept
        : west_(west)
        , south_(south)
        , east_(east)
        , north_(north) {}

    /** @brief The empty rectangle (west pi, south pi/2, east -pi, north -pi/2). */
    static const GlobeRectangle EMPTY;
    /** @brief The whole globe (west -pi, south -pi/2, east pi, north pi/2). */
    static const GlobeRectangle MAXIMUM;

    /** @brief Western bound, radians. */
    constexpr double getWest() const noexcept { return west_; }
    /** @brief Southern bound, radians. */
    constexpr double getSouth() const noexcept { return south_; }
    /** @brief Eastern bound, radians. */
    constexpr double getEast() const noexcept { return east_; }
    /** @brief Northern bound, radians. */
    constexpr double getNorth() const noexcept { return north_; }

    /** @brief Whether the rectangle is empty (south greater than north, or a NaN bound). */
    bool isEmpty() const noexcept { return !(south_ <= north_); }

    /**
     * @brief The smallest rectangle holding every position: the narrower of the spans that does
     * and does not cross the antimeridian (longitudes are first brought into [-pi, pi]). Positions
     * with a NaN or infinite longitude or latitude, or a NaN height, are skipped; EMPTY when no
     * position is left.
     */
    static GlobeRectangle
    fromCartographicArray(const std::vector<Cartographic>& positions) noexcept;
    /**
     * @brief fromCartographicArray of Cartesian positions (ECEF, metres) converted on
     * @p ellipsoid; positions that have no geodetic position (the centre, a non-finite coordinate)
     * are skipped.
     */
    static GlobeRectangle fromCartesianArray(const std::vector<Vector3<double>>& positions,
                                             const Ellipsoid& ellipsoid) noexcept;

    /**
     * @brief The centre: the middle longitude (across the antimeridian where the rectangle crosses
     * it), normalised to [-pi, pi], and the middle latitude; height 0.
     */
    Cartographic computeCenter() const noexcept;
    /** @brief East minus west in radians, adding 2 pi where the rectangle crosses the antimeridian.
     */
    double computeWidth() const noexcept;
    /** @brief North minus south in radians. */
    double computeHeight() const noexcept;
    /** @brief Whether a position's longitude and latitude lie inside or on the bounds. */
    bool contains(const Cartographic& position) const noexcept;

    /** @brief Exact equality of the four bounds. */
    constexpr bool operator==(const GlobeRectangle& o) const noexcept {
        return west_ == o.west_ && south_ == o.south_ && east_ == o.east_ && north_ == o.north_;
    }
    /** @brief Negation of operator==. */
    constexpr bool operator!=(const GlobeRectangle& o) const noexcept { return !(*this == o); }

private:
    double west_;
    double south_;
    double east_;
    double north_;
};

} // namespace keo
