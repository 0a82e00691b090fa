#pragma once

#include <cstddef>
#include <cstdint>

namespace keo {

/** @brief Whether a graphics component casts shadows from, and receives shadows of, the sun. */
enum class ShadowMode : std::uint8_t {
    Disabled = 0,    ///< Neither casts nor receives shadows.
    Enabled = 1,     ///< Casts and receives shadows.
    CastOnly = 2,    ///< Casts shadows only.
    ReceiveOnly = 3, ///< Receives shadows only.
};

/**
 * @brief The name of @p value as scene dumps write it ("disabled", "enabled",
 * "castOnly", "receiveOnly"), or null for a value outside the enumeration.
 */
constexpr const char* toString(ShadowMode value) noexcept {
    constexpr const char* NAMES[] = {"disabled", "enabled", "castOnly", "receiveOnly"};
    const auto index = static_cast<std::size_t>(value);
    return index < sizeof NAMES / sizeof NAMES[0] ? NAMES[index] : nullptr;
}

/** @brief Whether @p value is one of the four named modes (0 to 3). */
constexpr bool isValid(ShadowMode value) noexcept {
    return static_cast<std::uint8_t>(value) <= static_cast<std::uint8_t>(ShadowMode::ReceiveOnly);
}

} // namespace keo
