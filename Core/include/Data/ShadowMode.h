#pragma once

#include <cstdint>

namespace keo {

/** @brief Whether a graphics component casts shadows from, and receives shadows of, the sun. */
enum class ShadowMode : std::uint8_t {
    Disabled = 0,    ///< Neither casts nor receives shadows.
    Enabled = 1,     ///< Casts and receives shadows.
    CastOnly = 2,    ///< Casts shadows only.
    ReceiveOnly = 3, ///< Receives shadows only.
};

/** @brief Whether @p value is one of the four named modes (0 to 3). */
constexpr bool isValid(ShadowMode value) noexcept {
    return static_cast<std::uint8_t>(value) <= static_cast<std::uint8_t>(ShadowMode::ReceiveOnly);
}

} // namespace keo
