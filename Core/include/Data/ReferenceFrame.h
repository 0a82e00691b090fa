#pragma once

#include <cstdint>

namespace keo {

/** @brief The frame a Cartesian position is given in. */
enum class ReferenceFrame : std::uint8_t {
    Fixed = 0,    ///< Earth-centred, Earth-fixed (ECEF), metres: the frame of the whole kit.
    Inertial = 1, ///< Earth-centred inertial, metres.
};

} // namespace keo
