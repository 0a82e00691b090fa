#pragma once

#include "Data/DataExport.h"
#include "Data/ParticleEmitter.h"

namespace keo {

/**
 * @brief The common part of the emitters whose shape is given by one radius: CircleEmitter and
 * SphereEmitter.
 */
class KEO_DATA_API RadialEmitter : public ParticleEmitter {
public:
    ~RadialEmitter() override;

    /** @brief The radius, metres. */
    double getRadius() const noexcept { return radius_; }
    /**
     * @brief Sets the radius, metres. Stored as given; a renderer reads a negative or NaN radius
     * as 0 (every particle leaves from the centre).
     */
    void setRadius(double radius) noexcept { radius_ = radius; }

    /** @brief Writes "radius" as a number. */
    void describe(FieldList& fields) const override;

protected:
    /** @brief An emitter of kind @p type and radius @p radius, metres (stored as given). */
    RadialEmitter(Type type, double radius) noexcept
        : ParticleEmitter(type)
        , radius_(radius) {}
    RadialEmitter(const RadialEmitter&) = default;
    RadialEmitter& operator=(const RadialEmitter&) = default;

private:
    double radius_;
};

} // namespace keo
