#pragma once

#include "Common/Vector3.h"
#include "Data/DataExport.h"
#include "Data/ParticleEmitter.h"

namespace keo {

/**
 * @brief An emitter whose particles leave from random points inside an axis-aligned box centred
 * on the particle system's origin.
 */
class KEO_DATA_API BoxEmitter final : public ParticleEmitter {
public:
    /**
     * @brief A box of the given edge lengths along x, y and z, metres (default 1 × 1 × 1). Stored
     * as given; a renderer reads a negative or NaN edge as 0 (a flat or empty box).
     */
    explicit BoxEmitter(const Vector3<double>& dimensions = {1.0, 1.0, 1.0}) noexcept
        : ParticleEmitter(Type::Box)
        , dimensions_(dimensions) {}
    BoxEmitter(const BoxEmitter&) = default;
    BoxEmitter& operator=(const BoxEmitter&) = default;
    ~BoxEmitter() override;

    /** @brief The edge lengths along x, y and z, metres. */
    const Vector3<double>& getDimensions() const noexcept { return dimensions_; }
    /** @brief Sets the edge lengths, metres; stored as given (see the constructor). */
    void setDimensions(const Vector3<double>& dimensions) noexcept { dimensions_ = dimensions; }

    /** @brief An independent copy of this emitter. */
    std::unique_ptr<ParticleEmitter> clone() const override;
    /** @brief Writes "dimensions" as an array of three numbers. */
    void describe(FieldList& fields) const override;

private:
    Vector3<double> dimensions_;
};

} // namespace keo
