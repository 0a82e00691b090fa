#pragma once

#include "Common/Radian.h"
#include "Data/DataExport.h"
#include "Data/GroundGeometryGraphics.h"

namespace keo {

/**
 * @brief A filled ellipse on the globe, centred on its entity's position: two semi-axes in metres
 * and the rotation of the major axis. An ellipse with a zero semi-axis encloses no area and draws
 * nothing.
 */
class KEO_DATA_API EllipseGraphics final : public GroundGeometryGraphics {
public:
    /** @brief The ellipse's own fields, with their defaults. */
    struct Fields {
        /** @brief Half the length of the major axis, metres. */
        double semiMajorAxis = 0.0;
        /** @brief Half the length of the minor axis, metres. */
        double semiMinorAxis = 0.0;
        /** @brief Rotation of the major axis counter-clockwise from east, radians. */
        Radian rotation{};
    };
    /** @brief Everything an ellipse is made from: common, fill, area and ellipse fields. */
    struct ConstructorOptions : CommonOptions, FillOptions, GroundOptions, Fields {};

    /** @brief An ellipse of the default options (both semi-axes 0). */
    EllipseGraphics();
    /** @brief An ellipse of @p options; values follow the setters' rules. */
    explicit EllipseGraphics(const ConstructorOptions& options);
    ~EllipseGraphics() override;

    /** @brief Whether @p type is Type::Ellipse. */
    static constexpr bool isKindOf(Type type) noexcept { return type == Type::Ellipse; }

    /** @brief The semi-major axis, metres (default 0). */
    double getSemiMajorAxis() const noexcept { return fields_.semiMajorAxis; }
    /** @brief Sets the semi-major axis, metres; NaN is ignored, a negative length becomes 0. */
    void setSemiMajorAxis(double length) noexcept;
    /** @brief The semi-minor axis, metres (default 0). */
    double getSemiMinorAxis() const noexcept { return fields_.semiMinorAxis; }
    /** @brief Sets the semi-minor axis, metres; NaN is ignored, a negative length becomes 0. */
    void setSemiMinorAxis(double length) noexcept;
    /** @brief The rotation of the major axis, radians (default 0). */
    Radian getRotation() const noexcept { return fields_.rotation; }
    /** @brief Sets the rotation, radians; NaN is ignored. */
    void setRotation(Radian rotation) noexcept;

    /** @brief Writes the area fields, then the semi-axes and the rotation. */
    void describe(FieldList& fields, const TimePoint& time) const override;

private:
    Fields fields_;
};

} // namespace keo
