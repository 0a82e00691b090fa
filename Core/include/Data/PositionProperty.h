#pragma once

#include "Common/Vector3.h"
#include "Data/DataExport.h"
#include "Data/ReferenceFrame.h"
#include "Data/TimePoint.h"

#include <optional>

namespace keo {

/**
 * @brief A position that may vary with time: a Cartesian point (ECEF, metres) at each time point.
 *
 * Held through std::shared_ptr by entities and graphics; implementations are immutable or guard
 * their own state, so one property may be shared by several entities.
 */
class KEO_DATA_API PositionProperty {
public:
    virtual ~PositionProperty();

    /** @brief The position at @p time, or empty where it has none. */
    virtual std::optional<Vector3<double>> getValue(const TimePoint& time) const = 0;
    /** @brief Whether the value is the same at every time. */
    virtual bool isConstant() const noexcept = 0;
    /** @brief Whether @p other is of the same kind and gives the same values. */
    virtual bool equals(const PositionProperty& other) const noexcept = 0;
    /** @brief The frame of the values (Fixed unless a kind says otherwise). */
    virtual ReferenceFrame getReferenceFrame() const noexcept { return ReferenceFrame::Fixed; }

protected:
    PositionProperty() = default;
    PositionProperty(const PositionProperty&) = default;
    PositionProperty& operator=(const PositionProperty&) = default;
};

} // namespace keo
