#pragma once

#include "Common/Quaternion.h"
#include "Data/DataExport.h"
#include "Data/OrientationProperty.h"
#include "Data/PositionProperty.h"

#include <memory>
#include <optional>

namespace keo {

/**
 * @brief The orientation of something that faces the way it moves: derived from a position
 * property's motion.
 *
 * At a time t the velocity is taken from the positions at t and t + STEP_SECONDS (or, when the
 * latter is missing, t − STEP_SECONDS and t). The orientation turns the local axes into ECEF:
 * x is the unit velocity, z the ellipsoid's (WGS84) surface normal under the position made
 * orthogonal to x (so it points up, away from the Earth, as nearly as x allows), and y = z × x
 * (to the left of the motion). A position that moves less than MINIMUM_DISPLACEMENT metres in
 * the step, or moves straight up or down, has the local east-north-up frame instead: x east,
 * y north, z up (on the polar axis, where east is undefined, x is the ECEF y axis).
 *
 * Immutable after construction; thread safety is that of the position property it reads.
 */
class KEO_DATA_API VelocityOrientationProperty final : public OrientationProperty {
public:
    /** @brief The time step over which the velocity is measured, seconds. */
    static constexpr double STEP_SECONDS = 1.0 / 60.0;
    /** @brief The smallest displacement over the step that counts as motion, metres. */
    static constexpr double MINIMUM_DISPLACEMENT = 1e-6;

    /** @brief The orientation that follows @p position (null: no orientation at any time). */
    explicit VelocityOrientationProperty(std::shared_ptr<PositionProperty> position) noexcept;
    VelocityOrientationProperty(const VelocityOrientationProperty&) = default;
    VelocityOrientationProperty& operator=(const VelocityOrientationProperty&) = default;
    ~VelocityOrientationProperty() override;

    /** @brief The position property followed (may be null). */
    const std::shared_ptr<PositionProperty>& getPosition() const noexcept { return position_; }

    /**
     * @brief The orientation at @p time (see the class). Empty when there is no position
     * property, when it has no value at @p time, or at the Earth's centre (no surface normal).
     */
    std::optional<Quaternion> getValue(const TimePoint& time) const override;
    /** @brief True when there is no position or the position is constant. */
    bool isConstant() const noexcept override;

    /**
     * @brief The east-north-up orientation at @p position (ECEF, metres): x east, y north, z up;
     * empty at the Earth's centre or for a non-finite position.
     */
    static std::optional<Quaternion> eastNorthUp(const Vector3<double>& position) noexcept;

private:
    std::shared_ptr<PositionProperty> position_;
};

} // namespace keo
