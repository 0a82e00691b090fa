#pragma once

#include "Common/CommonExport.h"
#include "Common/HeadingPitchRoll.h"
#include "Common/Vector3.h"

namespace keo {

class Matrix3;

/**
 * @brief A quaternion x i + y j + z k + w; unit quaternions represent rotations (orientations of
 * entities in the Earth-centred, Earth-fixed frame).
 */
class KEO_COMMON_API Quaternion final {
public:
    /** @brief i component. */
    double x = 0.0;
    /** @brief j component. */
    double y = 0.0;
    /** @brief k component. */
    double z = 0.0;
    /** @brief Real component. */
    double w = 1.0;

    /** @brief The identity rotation (0, 0, 0, 1). */
    constexpr Quaternion() noexcept = default;
    /** @brief The quaternion of the four given components. */
    constexpr Quaternion(double x_, double y_, double z_, double w_) noexcept
        : x(x_)
        , y(y_)
        , z(z_)
        , w(w_) {}

    /** @brief The identity rotation. */
    static constexpr Quaternion identity() noexcept { return {}; }
    /**
     * @brief The counter-clockwise rotation by @p angle about @p axis; the axis is normalised
     * first, and a zero axis gives the identity.
     */
    static Quaternion fromAxisAngle(const Vector3<double>& axis, Radian angle) noexcept;
    /** @brief The rotation of a rotation matrix (Shepperd's method, stable for every angle). */
    static Quaternion fromRotationMatrix(const Matrix3& rotation) noexcept;
    /** @brief The rotation of a heading, pitch and roll (as Matrix3::fromHeadingPitchRoll). */
    static Quaternion fromHeadingPitchRoll(const HeadingPitchRoll& hpr) noexcept;

    /** @brief The Hamilton product this × @p o (apply @p o first, then this). */
    Quaternion operator*(const Quaternion& o) const noexcept;
    /** @brief The conjugate (the inverse of a unit quaternion). */
    constexpr Quaternion conjugate() const noexcept { return {-x, -y, -z, w}; }
    /** @brief The Euclidean norm. */
    double magnitude() const noexcept;
    /** @brief The unit quaternion of the same direction; the zero quaternion gives the identity. */
    Quaternion normalize() const noexcept;
    /** @brief @p v rotated by this (unit) quaternion. */
    Vector3<double> rotate(const Vector3<double>& v) const noexcept;

    /** @brief Exact equality of the four components. */
    constexpr bool operator==(const Quaternion& o) const noexcept {
        return x == o.x && y == o.y && z == o.z && w == o.w;
    }
    /** @brief Negation of operator==. */
    constexpr bool operator!=(const Quaternion& o) const noexcept { return !(*this == o); }
    /**
     * @brief Whether the two represent the same rotation within @p epsilon per component
     * (q and -q are the same rotation).
     */
    bool equalsRotationEpsilon(const Quaternion& o, double epsilon) const noexcept;
};

} // namespace keo
