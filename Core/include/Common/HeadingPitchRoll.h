#pragma once

#include "Common/Radian.h"

namespace keo {

/**
 * @brief An orientation as three successive rotations, each an angle in radians, declared in the
 * order heading, pitch, roll.
 *
 * Heading rotates about the negative z axis, pitch about the negative y axis and roll about the
 * x axis of the frame it is applied in (Matrix3::fromHeadingPitchRoll gives the matrix).
 */
struct HeadingPitchRoll final {
    /** @brief Rotation about the negative z axis, radians. */
    Radian heading{};
    /** @brief Rotation about the negative y axis, radians. */
    Radian pitch{};
    /** @brief Rotation about the x axis, radians. */
    Radian roll{};

    /** @brief All three angles zero. */
    constexpr HeadingPitchRoll() noexcept = default;
    /** @brief The three angles in their declared order. */
    constexpr HeadingPitchRoll(Radian heading_, Radian pitch_, Radian roll_) noexcept
        : heading(heading_)
        , pitch(pitch_)
        , roll(roll_) {}

    /** @brief Exact equality of the three angles. */
    constexpr bool operator==(const HeadingPitchRoll& o) const noexcept {
        return heading == o.heading && pitch == o.pitch && roll == o.roll;
    }
    /** @brief Negation of operator==. */
    constexpr bool operator!=(const HeadingPitchRoll& o) const noexcept { return !(*this == o); }
};

} // namespace keo
