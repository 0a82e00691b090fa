#pragma once

#include "Common/Radian.h"
#include "Common/Vector3.h"

#include <optional>

namespace keo::Picture {

/**
 * @brief Where the oblique view's camera stands: it looks at the target from the range, in the
 * direction given by the heading and the pitch, in the local east-north-up frame of the target.
 *
 * Values that cannot be used fall back to the defaults: a NaN heading is read as 0, a pitch
 * that is NaN or not below 0 as -35°, a range that is not a positive finite number as the fitted
 * range, and a target with a NaN or infinite coordinate as the centre of the data.
 */
struct ObliqueCamera final {
    /** @brief Direction the camera looks to, clockwise from north, radians (0: north). */
    Radian heading{0.0};
    /** @brief Angle of the line of sight below the horizon, radians; negative looks down. */
    Radian pitch{-0.6108652381980153};
    /**
     * @brief Distance from the camera to the target, metres; empty: the range at which the whole
     * extent of the data fits in the picture.
     */
    std::optional<double> range;
    /** @brief The point looked at, ECEF metres; empty: the centre of the data's extent. */
    std::optional<Vector3<double>> target;
};

} // namespace keo::Picture
