#pragma once

#include "Common/Vector3.h"
#include "Data/DataExport.h"
#include "Data/PositionProperty.h"
#include "Data/ReferenceFrame.h"

#include <optional>

namespace keo {

/**
 * @brief A position that is the same at every time: one Cartesian point (metres) in a reference
 * frame, or no point at all.
 *
 * Immutable after construction, so it may be read from any thread.
 */
class KEO_DATA_API ConstantPositionProperty final : public PositionProperty {
public:
    /** @brief No position: getValue is empty at every time; the frame is Fixed. */
    ConstantPositionProperty() noexcept = default;
    /**
     * @brief The point @p value (metres) in @p frame. A value with a NaN or infinite component
     * is no position: getValue is then empty at every time.
     */
    explicit ConstantPositionProperty(const Vector3<double>& value,
                                      ReferenceFrame frame = ReferenceFrame::Fixed) noexcept;
    /**
     * @brief The point @p value (metres) in the frame numbered @p frame: 0 Fixed, 1 Inertial;
     * any other number is read as Fixed. A non-finite value is no position, as above.
     */
    ConstantPositionProperty(const Vector3<double>& value, int frame) noexcept;
    ConstantPositionProperty(const ConstantPositionProperty&) = default;
    ConstantPositionProperty& operator=(const ConstantPositionProperty&) = default;
    ~ConstantPositionProperty() override;

    /** @brief The point, or empty for no position; @p time is not used. */
    std::optional<Vector3<double>> getValue(const TimePoint& time) const override;
    /** @brief Always true. */
    bool isConstant() const noexcept override { return true; }
    /**
     * @brief Whether @p other is also a ConstantPositionProperty with the same frame and the
     * same point (exactly), or likewise without a point.
     */
    bool equals(const PositionProperty& other) const noexcept override;
    /** @brief The frame given at construction. */
    ReferenceFrame getReferenceFrame() const noexcept override { return frame_; }

private:
    // The point, when finite (an optional would add a padded flag: the two below share a word).
    Vector3<double> value_;
    bool hasValue_ = false;
    ReferenceFrame frame_ = ReferenceFrame::Fixed;
};

} // namespace keo
