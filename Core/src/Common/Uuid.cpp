#include "Common/Uuid.h"

#include "HexDigits.h"

#include <array>
#include <random>

namespace keo {

namespace {

bool isDashPosition(std::size_t i) noexcept {
    return i == 8 || i == 13 || i == 18 || i == 23;
}

// One generator per thread, so draws need no lock. Each is seeded with 256 bits from the
// operating system's entropy source (std::random_device reads it on this platform).
std::mt19937_64& generator() {
    thread_local std::mt19937_64 engine = [] {
        std::random_device device;
        std::array<std::uint32_t, 8> seed{};
        for (auto& word : seed) {
            word = device();
        }
        std::seed_seq sequence(seed.begin(), seed.end());
        return std::mt19937_64(sequence);
    }();
    return engine;
}

} // namespace

std::string Uuid::toString() const {
    std::string text;
    text.reserve(36);
    for (int nibble = 0; nibble < 32; ++nibble) {
        if (nibble == 8 || nibble == 12 || nibble == 16 || nibble == 20) {
            text += '-';
        }
        const std::uint64_t half = nibble < 16 ? high : low;
        const int shift = 60 - 4 * (nibble % 16);
        text += detail::HEX_DIGITS[(half >> shift) & 0xF];
    }
    return text;
}

std::optional<Uuid> Uuid::fromString(std::string_view text) noexcept {
    if (text.size() != 36) {
        return std::nullopt;
    }
    Uuid uuid;
    int nibble = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (isDashPosition(i)) {
            if (text[i] != '-') {
                return std::nullopt;
            }
            continue;
        }
        const int value = detail::hexDigitValue(text[i]);
        if (value < 0) {
            return std::nullopt;
        }
        std::uint64_t& half = nibble < 16 ? uuid.high : uuid.low;
        half = (half << 4) | static_cast<std::uint64_t>(value);
        ++nibble;
    }
    return uuid;
}

Uuid uuid4() {
    std::mt19937_64& engine = generator();
    Uuid uuid{engine(), engine()};
    // Version 4 in bits 12..15 of the high half; variant 10 in the top two bits of the low half.
    uuid.high = (uuid.high & ~std::uint64_t{0xF000}) | std::uint64_t{0x4000};
    uuid.low = (uuid.low & ~(std::uint64_t{0x3} << 62)) | (std::uint64_t{0x2} << 62);
    return uuid;
}

} // namespace keo
