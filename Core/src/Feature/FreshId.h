#pragma once

#include "Common/Uuid.h"

#include <cstdint>

namespace keo::Feature::detail {

/**
 * @brief A fresh id for a feature, group or collection: the two 64-bit halves of a random
 * version-4 UUID folded together by XOR.
 */
inline std::uint64_t freshId() {
    const Uuid uuid = uuid4();
    return uuid.high ^ uuid.low;
}

} // namespace keo::Feature::detail
