#pragma once

#include "Common/CommonExport.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace keo {

/**
 * @brief A 128-bit universally unique identifier, held as two 64-bit halves (high holds the
 * first eight bytes of the canonical text).
 */
struct KEO_COMMON_API Uuid final {
    /** @brief The first 64 bits (bytes 0 to 7, big-endian). */
    std::uint64_t high = 0;
    /** @brief The last 64 bits (bytes 8 to 15, big-endian). */
    std::uint64_t low = 0;

    /** @brief The version number (bits 48 to 51: 4 for a random UUID). */
    constexpr unsigned version() const noexcept {
        return static_cast<unsigned>((high >> 12) & 0xF);
    }
    /** @brief The variant bits (the top two bits of byte 8: 2 for RFC 4122 UUIDs). */
    constexpr unsigned variant() const noexcept { return static_cast<unsigned>(low >> 62); }

    /** @brief The canonical lower-case text, 8-4-4-4-12 hexadecimal digits. */
    std::string toString() const;
    /** @brief Parses canonical text (either case); empty for anything else. */
    static std::optional<Uuid> fromString(std::string_view text) noexcept;

    /** @brief Equality of both halves. */
    constexpr bool operator==(const Uuid& o) const noexcept {
        return high == o.high && low == o.low;
    }
    /** @brief Negation of operator==. */
    constexpr bool operator!=(const Uuid& o) const noexcept { return !(*this == o); }
    /** @brief Ordering by high, then low (the order of the canonical texts). */
    constexpr bool operator<(const Uuid& o) const noexcept {
        return high < o.high || (high == o.high && low < o.low);
    }
};

/**
 * @brief A random (version 4, RFC 4122 variant) UUID: 122 random bits from a per-thread
 * generator seeded from the operating system's entropy source. Thread-safe.
 */
KEO_COMMON_API Uuid uuid4();

} // namespace keo

/** @brief Hash of a Uuid, for unordered containers. */
template <>
struct std::hash<keo::Uuid> {
    std::size_t operator()(const keo::Uuid& u) const noexcept {
        return std::hash<std::uint64_t>()(u.high ^ (u.low * 0x9E3779B97F4A7C15ULL));
    }
};
