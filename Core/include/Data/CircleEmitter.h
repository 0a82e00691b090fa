#pragma once

#include "Data/DataExport.h"
#include "Data/RadialEmitter.h"

namespace keo {

/**
 * @brief An emitter whose particles leave from random points of a disc in the particle system's
 * x-y plane, centred on its origin, moving along +z.
 */
class KEO_DATA_API CircleEmitter final : public RadialEmitter {
public:
    /** @brief A disc of radius @p radius, metres (default 1; stored as given, see setRadius). */
    explicit CircleEmitter(double radius = 1.0) noexcept
        : RadialEmitter(Type::Circle, radius) {}
    CircleEmitter(const CircleEmitter&) = default;
    CircleEmitter& operator=(const CircleEmitter&) = default;
    ~CircleEmitter() override;

    /** @brief An independent copy of this emitter. */
    std::unique_ptr<ParticleEmitter> clone() const override;
};

} // namespace keo
