#pragma once

#include "Common/Vector3.h"
#include "Data/DataExport.h"
#include "Data/TimePoint.h"

#include <vector>

namespace keo {

/**
 * @brief A list of positions that may vary with time: Cartesian points (ECEF, metres), the
 * vertices of a line or outline at each time point.
 */
class KEO_DATA_API PositionArrayProperty {
public:
    virtual ~PositionArrayProperty();

    /** @brief The points at @p time (possibly none). */
    virtual std::vector<Vector3<double>> getValues(const TimePoint& time) const = 0;
    /** @brief Whether the points are the same at every time. */
    virtual bool isConstant() const noexcept = 0;
    /** @brief Whether @p other is of the same kind and gives the same points. */
    virtual bool equals(const PositionArrayProperty& other) const noexcept = 0;

protected:
    PositionArrayProperty() = default;
    PositionArrayProperty(const PositionArrayProperty&) = default;
    PositionArrayProperty& operator=(const PositionArrayProperty&) = default;
};

} // namespace keo
