#pragma once

#include "Common/Vector3.h"
#include "Data/DataExport.h"
#include "Data/PositionArrayProperty.h"

#include <vector>

namespace keo {

/**
 * @brief A list of Cartesian points (ECEF, metres) that is the same at every time: the vertices
 * of a line or outline that does not move.
 *
 * Immutable after construction, so it may be read from any thread.
 */
class KEO_DATA_API ConstantPositionArrayProperty final : public PositionArrayProperty {
public:
    /** @brief No points. */
    ConstantPositionArrayProperty() noexcept = default;
    /**
     * @brief The points @p points, in order. Points with a NaN or infinite component are
     * dropped, so a reader never sees them.
     */
    explicit ConstantPositionArrayProperty(std::vector<Vector3<double>> points);
    ConstantPositionArrayProperty(const ConstantPositionArrayProperty&) = default;
    ConstantPositionArrayProperty& operator=(const ConstantPositionArrayProperty&) = default;
    ~ConstantPositionArrayProperty() override;

    /** @brief The points kept by the constructor. */
    const std::vector<Vector3<double>>& getPoints() const noexcept { return points_; }
    /** @brief A copy of the points; @p time is not used. */
    std::vector<Vector3<double>> getValues(const TimePoint& time) const override;
    /** @brief Always true. */
    bool isConstant() const noexcept override { return true; }
    /**
     * @brief Whether @p other is also a ConstantPositionArrayProperty with the same points in the
     * same order (exactly).
     */
    bool equals(const PositionArrayProperty& other) const noexcept override;

private:
    std::vector<Vector3<double>> points_;
};

} // namespace keo
