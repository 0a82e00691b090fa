#pragma once

#include "Common/Radian.h"
#include "Data/DataExport.h"
#include "Data/ParticleEmitter.h"

namespace keo {

/**
 * @brief An emitter whose particles leave from the particle system's origin (the apex of a cone
 * opening along +z), each in a random direction within the cone's half-angle of the z axis.
 */
class KEO_DATA_API ConeEmitter final : public ParticleEmitter {
public:
    /**
     * @brief A cone of half-angle @p angle, radians (default 30°, π/6). Stored as given; a
     * renderer reads the angle's absolute value clamped to [0, π] and a NaN angle as 0 (a jet
     * along +z).
     */
    explicit ConeEmitter(const Radian& angle = Radian(0.5235987755982988)) noexcept
        : ParticleEmitter(Type::Cone)
        , angle_(angle) {}
    ConeEmitter(const ConeEmitter&) = default;
    ConeEmitter& operator=(const ConeEmitter&) = default;
    ~ConeEmitter() override;

    /** @brief The half-angle of the cone, radians. */
    const Radian& getAngle() const noexcept { return angle_; }
    /** @brief Sets the half-angle of the cone, radians; stored as given (see the constructor). */
    void setAngle(const Radian& angle) noexcept { angle_ = angle; }

    /** @brief An independent copy of this emitter. */
    std::unique_ptr<ParticleEmitter> clone() const override;
    /** @brief Writes "angle" as a number of radians. */
    void describe(FieldList& fields) const override;

private:
    Radian angle_;
};

} // namespace keo
