#pragma once

#include "Common/Quaternion.h"
#include "Data/DataExport.h"
#include "Data/TimePoint.h"

#include <optional>

namespace keo {

/**
 * @brief An orientation that may vary with time: a unit quaternion that turns an entity's local
 * axes into the Earth-centred, Earth-fixed frame at each time point.
 */
class KEO_DATA_API OrientationProperty {
public:
    virtual ~OrientationProperty();

    /** @brief The orientation at @p time, or empty where it has none. */
    virtual std::optional<Quaternion> getValue(const TimePoint& time) const = 0;
    /** @brief Whether the value is the same at every time. */
    virtual bool isConstant() const noexcept = 0;

protected:
    OrientationProperty() = default;
    OrientationProperty(const OrientationProperty&) = default;
    OrientationProperty& operator=(const OrientationProperty&) = default;
};

} // namespace keo
