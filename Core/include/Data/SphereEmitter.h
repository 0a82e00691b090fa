#pragma once

#include "Data/DataExport.h"
#include "Data/RadialEmitter.h"

namespace keo {

/**
 * @brief An emitter whose particles leave from random points inside a sphere centred on the
 * particle system's origin, moving outwards from the centre.
 */
class KEO_DATA_API SphereEmitter final : public RadialEmitter {
public:
    /** @brief A sphere of radius @p radius, metres (default 1; stored as given, see setRadius). */
    explicit SphereEmitter(double radius = 1.0) noexcept
        : RadialEmitter(Type::Sphere, radius) {}
    SphereEmitter(const SphereEmitter&) = default;
    SphereEmitter& operator=(const SphereEmitter&) = default;
    ~SphereEmitter() override;

    /** @brief An independent copy of this emitter. */
    std::unique_ptr<ParticleEmitter> clone() const override;
};

} // namespace keo
