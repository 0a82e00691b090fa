#pragma once

#include "Data/DistanceDisplayCondition.h"

#include <algorithm>
#include <optional>

namespace keo::Feature::detail {

/**
 * @brief The distance display condition that satisfies both @p first and @p second: when both
 * are present, the larger near and the smaller far distance; otherwise whichever is present (or
 * none).
 */
inline std::optional<DistanceDisplayCondition>
intersectDisplayConditions(const std::optional<DistanceDisplayCondition>& first,
                           const std::optional<DistanceDisplayCondition>& second) {
    if (!first) {
        return second;
    }
    if (!second) {
        return first;
    }
    return DistanceDisplayCondition(std::max(first->getNear(), second->getNear()),
                                    std::min(first->getFar(), second->getFar()));
}

} // namespace keo::Feature::detail
