#pragma once

#include "Data/DataExport.h"

#include <cstdint>
#include <memory>

namespace keo {

class FieldList;

/**
 * @brief The shape from which a particle system's particles leave: the base of the emitter kinds
 * BoxEmitter, CircleEmitter, ConeEmitter and SphereEmitter.
 *
 * Sizes are in metres and angles in radians, in the particle system's own frame (its emitter
 * model matrix places it). The setters store what they are given without checks; a renderer
 * reads a negative or NaN size as 0. Emitters are plain values without a lock of their own: the
 * owner edits them under the lock that orders its edits with the frame update that reads them.
 */
class KEO_DATA_API ParticleEmitter {
public:
    /** @brief The emitter kinds. */
    enum class Type : std::uint8_t {
        Box = 1,    ///< BoxEmitter: particles leave from inside a box.
        Circle = 2, ///< CircleEmitter: particles leave from a disc, upwards.
        Cone = 3,   ///< ConeEmitter: particles leave from the apex of a cone, within its angle.
        Sphere = 4, ///< SphereEmitter: particles leave from inside a sphere, outwards.
    };

    virtual ~ParticleEmitter();

    /** @brief The kind of this emitter. */
    Type getType() const noexcept { return type_; }
    /** @brief The class name of the kind, e.g. "BoxEmitter". */
    const char* getTypeName() const noexcept { return typeName(type_); }
    /** @brief The class name of a kind; "ParticleEmitter" for a value outside the enumeration. */
    static const char* typeName(Type type) noexcept;

    /** @brief An independent copy of this emitter, of the same kind and with the same fields. */
    virtual std::unique_ptr<ParticleEmitter> clone() const = 0;

    /**
     * @brief Writes the emitter's fields for a scene dump, named as their setters ("dimensions",
     * "radius" or "angle").
     */
    virtual void describe(FieldList& fields) const = 0;

protected:
    /** @brief An emitter of kind @p type. */
    explicit ParticleEmitter(Type type) noexcept
        : type_(type) {}
    ParticleEmitter(const ParticleEmitter&) = default;
    ParticleEmitter& operator=(const ParticleEmitter&) = default;

private:
    Type type_;
};

} // namespace keo
