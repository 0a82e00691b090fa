#pragma once

#include "Common/Radian.h"
#include "Common/Vector3.h"
#include "Feature/ChangeEvents.h"
#include "Feature/FeatureExport.h"
#include "Feature/FunctionWrapper.h"

#include <cstdint>
#include <functional>
#include <memory>

/**
 * @file
 * @brief The particle emitters: the base ParticleEmitter and its four kinds BoxEmitter,
 * CircleEmitter, ConeEmitter and SphereEmitter.
 *
 * The kinds share this header and its source because their parameter checks are reported at fixed
 * sites of these two files (see each constructor and setter).
 */

namespace keo {
class ParticleEmitter;
} // namespace keo

namespace keo::Feature {

namespace detail {
struct EmitterAccess;
} // namespace detail

/**
 * @brief The shape from which the particles of a ParticleSystemSymbol leave (sizes in metres,
 * angles in radians, in the particle system's own frame).
 *
 * Every changing setter follows the edit rule (changed-lock true, store and set the changed flag,
 * changed-lock false, definition-changed); a setter given the current value does nothing, not
 * even its check. Parameter checks stop the process with the standard assertion report.
 *
 * Each emitter owns one cached emitter of the data library (keo::BoxEmitter, ...), made by its
 * first update and refreshed in place only while the changed flag is set. A copy starts with
 * fresh, empty events, no cached object and the changed flag set. Not thread-safe on its own: its
 * owner edits and updates it under the owning feature's lock.
 */
class KEO_FEATURE_API ParticleEmitter : public ChangeEvents<std::function<void()>> {
public:
    /** @brief The emitter kinds, one code per class. */
    enum class Type : std::uint8_t {
        Base = 0,   ///< ParticleEmitter itself (no concrete kind)
        Box = 1,    ///< BoxEmitter
        Circle = 2, ///< CircleEmitter
        Cone = 3,   ///< ConeEmitter
        Sphere = 4, ///< SphereEmitter
    };

    virtual ~ParticleEmitter();
    ParticleEmitter& operator=(const ParticleEmitter&) = delete;

    /** @brief The kind of the emitter (Type::Base for the base). */
    virtual Type getType() const noexcept;

    /**
     * @brief For the point geometry: brings the cached data-library emitter up to date and returns
     * it. The first call makes it from the current field; later calls write the field into the
     * same object while the emitter changed since the previous call, and leave it alone
     * otherwise. Emitters shared by several symbols share this object too. Call under the owning
     * feature's lock.
     */
    const std::shared_ptr<keo::ParticleEmitter>& _update() const;

    /** @brief Raises the definition-changed event. */
    void _raiseDefinitionChangedEvent();

protected:
    /** @brief An emitter with fresh events, no cached object and the changed flag set. */
    ParticleEmitter();
    /** @brief Same as the default constructor: nothing of @p other's state is shared. */
    ParticleEmitter(const ParticleEmitter& other);

private:
    friend struct detail::EmitterAccess;

    /** @brief Makes or refreshes the cached data-library emitter, then clears the flag. */
    virtual void updateImpl() const = 0;

    mutable std::shared_ptr<keo::ParticleEmitter> emitter_;
    mutable bool changed_ = true;
};

/** @brief Particles leave from random points inside a box centred on the system's origin. */
class KEO_FEATURE_API BoxEmitter final : public ParticleEmitter {
public:
    /**
     * @brief A box of edge lengths @p dimensions along x, y and z, metres. Starts at (0, 0, 0) and
     * goes through setDimensions, so (0, 0, 0) checks nothing and a negative edge stops the
     * process as setDimensions does.
     */
    explicit BoxEmitter(const Vector3<double>& dimensions);
    /** @brief Copies the dimensions; fresh events, no cached object. */
    BoxEmitter(const BoxEmitter& other);
    /** @brief Same as the copy: the source keeps its events, listeners and cached object. */
    BoxEmitter(BoxEmitter&& other);
    ~BoxEmitter() override;

    /** @brief Type::Box. */
    Type getType() const noexcept override;

    /** @brief The edge lengths along x, y and z, metres. */
    const Vector3<double>& getDimensions() const noexcept { return dimensions_; }
    /**
     * @brief Sets the edge lengths, metres (edit rule). A new value with a negative or NaN
     * component stops the process, checking x, then y, then z.
     */
    void setDimensions(const Vector3<double>& value);

private:
    void updateImpl() const override;

    Vector3<double> dimensions_;
};

/** @brief Particles leave from random points of a disc in the system's x-y plane, along +z. */
class KEO_FEATURE_API CircleEmitter final : public ParticleEmitter {
public:
    /** @brief A disc of radius @p radius, metres; a radius not above 0 (or NaN) stops the process.
     */
    explicit CircleEmitter(double radius);
    /** @brief Copies the radius; fresh events, no cached object. */
    CircleEmitter(const CircleEmitter& other);
    /** @brief Same as the copy: the source keeps its events, listeners and cached object. */
    CircleEmitter(CircleEmitter&& other);
    ~CircleEmitter() override;

    /** @brief Type::Circle. */
    Type getType() const noexcept override;

    /** @brief The radius, metres. */
    double getRadius() const noexcept { return radius_; }
    /** @brief Sets the radius, metres (edit rule); a new value not above 0 stops the process. */
    void setRadius(double value);

private:
    void updateImpl() const override;

    double radius_;
};

/**
 * @brief Particles leave from the system's origin, the apex of a cone opening along +z, each
 * within the cone's half-angle of the z axis.
 */
class KEO_FEATURE_API ConeEmitter final : public ParticleEmitter {
public:
    /** @brief A cone of half-angle @p angle, radians; any value is accepted. */
    explicit ConeEmitter(const Radian& angle);
    /** @brief Copies the angle; fresh events, no cached object. */
    ConeEmitter(const ConeEmitter& other);
    /** @brief Same as the copy: the source keeps its events, listeners and cached object. */
    ConeEmitter(ConeEmitter&& other);
    ~ConeEmitter() override;

    /** @brief Type::Cone. */
    Type getType() const noexcept override;

    /** @brief The half-angle, radians. */
    const Radian& getAngle() const noexcept { return angle_; }
    /** @brief Sets the half-angle, radians (edit rule; no check). */
    void setAngle(const Radian& value);

private:
    void updateImpl() const override;

    Radian angle_;
};

/** @brief Particles leave from random points inside a sphere centred on the system's origin. */
class KEO_FEATURE_API SphereEmitter final : public ParticleEmitter {
public:
    /** @brief A sphere of radius @p radius, metres; a radius not above 0 (or NaN) stops the
     * process. */
    explicit SphereEmitter(double radius);
    /** @brief Copies the radius; fresh events, no cached object. */
    SphereEmitter(const SphereEmitter& other);
    /** @brief Same as the copy: the source keeps its events, listeners and cached object. */
    SphereEmitter(SphereEmitter&& other);
    ~SphereEmitter() override;

    /** @brief Type::Sphere. */
    Type getType() const noexcept override;

    /** @brief The radius, metres. */
    double getRadius() const noexcept { return radius_; }
    /** @brief Sets the radius, metres (edit rule); a new value not above 0 stops the process. */
    void setRadius(double value);

private:
    void updateImpl() const override;

    double radius_;
};

} // namespace keo::Feature
