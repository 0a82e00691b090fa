#pragma once

#include "Common/Vector3.h"
#include "Data/DataExport.h"
#include "Data/PositionProperty.h"
#include "Data/ReferenceFrame.h"

#include <functional>
#include <optional>

namespace keo {

/**
 * @brief A position computed by a function of time each time it is read, e.g. a point that
 * follows another entity.
 *
 * Immutable after construction; the callback itself is called from whichever thread reads the
 * property (the render thread included), so it must be safe to call from there.
 */
class KEO_DATA_API CallbackPositionProperty final : public PositionProperty {
public:
    /** @brief The function: the position at a time (metres), or empty where there is none. */
    using Callback = std::function<std::optional<Vector3<double>>(const TimePoint&)>;

    /**
     * @brief A position given by @p callback in @p frame. @p isConstant tells whether the
     * callback gives the same value at every time (default false). An empty callback gives no
     * position at every time.
     */
    explicit CallbackPositionProperty(Callback callback, bool isConstant = false,
                                      ReferenceFrame frame = ReferenceFrame::Fixed);
    CallbackPositionProperty(const CallbackPositionProperty&) = delete;
    CallbackPositionProperty& operator=(const CallbackPositionProperty&) = delete;
    ~CallbackPositionProperty() override;

    /**
     * @brief The callback's value at @p time. Empty when there is no callback, when it gives
     * nothing, or when its value has a NaN or infinite component. An exception thrown by the
     * callback propagates to the caller.
     */
    std::optional<Vector3<double>> getValue(const TimePoint& time) const override;
    /** @brief What the constructor was told (false by default). */
    bool isConstant() const noexcept override { return constant_; }
    /**
     * @brief True only for this very object: two callbacks cannot be compared, so two
     * properties made from the same function are still different.
     */
    bool equals(const PositionProperty& other) const noexcept override { return &other == this; }
    /** @brief The frame given at construction. */
    ReferenceFrame getReferenceFrame() const noexcept override { return frame_; }

private:
    Callback callback_;
    bool constant_;
    ReferenceFrame frame_;
};

} // namespace keo
