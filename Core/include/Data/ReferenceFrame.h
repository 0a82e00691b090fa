#pragma once

#include <cstddef>
#include <cstdint>

namespace keo {

/** @brief The frame a Cartesian position is given in. */
enum class ReferenceFrame : std::uint8_t {
    Fixed = 0,    ///< Earth-centred, Earth-fixed (ECEF), metres: the frame of the whole kit.
    Inertial = 1, ///< Earth-centred inertial, metres.
};

/**
 * @brief The name of @p value as scene dumps write it ("fixed", "inertial"), or
 * null for a value outside the enumeration.
 */
constexpr const char* toString(ReferenceFrame value) noexcept {
    constexpr const char* NAMES[] = {"fixed", "inertial"};
    const auto index = static_cast<std::size_t>(value);
    return index < sizeof NAMES / sizeof NAMES[0] ? NAMES[index] : nullptr;
}

} // namespace keo
