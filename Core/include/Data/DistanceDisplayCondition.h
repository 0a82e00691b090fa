#pragma once

#include <cmath>
#include <limits>

namespace keo {

/**
 * @brief The range of camera distances, in metres, at which a graphics component is shown: from
 * the near distance to the far distance, both included.
 *
 * A plain value holding two 32-bit floats. Values are stored as given, so that callers can compare
 * them exactly (a NaN bound makes a condition unequal to every condition, itself included); when
 * the condition is applied, a NaN bound does not limit the range (see isVisibleAt). A near
 * distance greater than the far one shows the component at no distance.
 */
class DistanceDisplayCondition final {
public:
    /** @brief Every distance: near 0, far the largest finite float. */
    constexpr DistanceDisplayCondition() noexcept = default;
    /** @brief The range from @p nearDistance to @p farDistance, metres (stored as given). */
    constexpr DistanceDisplayCondition(float nearDistance, float farDistance) noexcept
        : near_(nearDistance)
        , far_(farDistance) {}

    /** @brief The nearest distance at which the component is shown, metres. */
    constexpr float getNear() const noexcept { return near_; }
    /** @brief The farthest distance at which the component is shown, metres. */
    constexpr float getFar() const noexcept { return far_; }
    /** @brief Sets the near distance, metres (stored as given). */
    constexpr void setNear(float nearDistance) noexcept { near_ = nearDistance; }
    /** @brief Sets the far distance, metres (stored as given). */
    constexpr void setFar(float farDistance) noexcept { far_ = farDistance; }

    /**
     * @brief Whether a component seen from @p distance metres is shown: near <= distance <= far.
     * A NaN bound does not limit its side; a NaN distance is never shown.
     */
    bool isVisibleAt(double distance) const noexcept {
        if (std::isnan(distance)) {
            return false;
        }
        return !(distance < static_cast<double>(near_)) && !(distance > static_cast<double>(far_));
    }

    /** @brief Exact equality of both bounds. */
    constexpr bool operator==(const DistanceDisplayCondition& o) const noexcept {
        return near_ == o.near_ && far_ == o.far_;
    }
    /** @brief Negation of operator==. */
    constexpr bool operator!=(const DistanceDisplayCondition& o) const noexcept {
        return !(*this == o);
    }

private:
    float near_ = 0.0f;
    float far_ = std::numeric_limits<float>::max();
};

} // namespace keo
