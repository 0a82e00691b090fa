#pragma once

#include "Common/CommonExport.h"
#include "Common/Radian.h"

namespace keo {

/**
 * @brief A geodetic position: longitude and latitude as angles in radians, and the height in
 * metres above the ellipsoid (WGS84 throughout the kit).
 *
 * A plain value. Longitude is positive east, latitude positive north; neither is normalised.
 */
class KEO_COMMON_API Cartographic final {
public:
    /** @brief Longitude, positive east, radians. */
    Radian longitude{};
    /** @brief Geodetic latitude, positive north, radians. */
    Radian latitude{};
    /** @brief Height above the ellipsoid, metres. */
    double height = 0.0;

    /** @brief The position (0, 0, 0). */
    constexpr Cartographic() noexcept = default;
    /** @brief A position from longitude and latitude in radians and height in metres. */
    constexpr Cartographic(Radian longitude_, Radian latitude_, double height_ = 0.0) noexcept
        : longitude(longitude_)
        , latitude(latitude_)
        , height(height_) {}

    /** @brief A position from longitude and latitude in radians and height in metres. */
    static constexpr Cartographic fromRadians(double longitude, double latitude,
                                              double height = 0.0) noexcept {
        return Cartographic(Radian(longitude), Radian(latitude), height);
    }
    /** @brief A position from longitude and latitude in degrees and height in metres. */
    static Cartographic fromDegrees(double longitude, double latitude,
                                    double height = 0.0) noexcept;

    /** @brief Exact equality of the three values (NaN equals nothing). */
    constexpr bool operator==(const Cartographic& o) const noexcept {
        return longitude == o.longitude && latitude == o.latitude && height == o.height;
    }
    /** @brief Negation of operator==. */
    constexpr bool operator!=(const Cartographic& o) const noexcept { return !(*this == o); }

    /**
     * @brief Whether each of longitude, latitude (radians) and height (metres) differs from
     * @p other's by at most @p epsilon, compared absolutely. NaN is never within a tolerance.
     */
    bool equalsEpsilon(const Cartographic& other, double epsilon) const noexcept;
};

} // namespace keo
