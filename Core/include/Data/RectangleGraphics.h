#pragma once

#include "Common/GlobeRectangle.h"
#include "Common/Radian.h"
#include "Data/DataExport.h"
#include "Data/GroundGeometryGraphics.h"

namespace keo {

/**
 * @brief A filled rectangle on the globe bounded by two meridians and two parallels, optionally
 * rotated about its centre. An empty rectangle (south above north, or a NaN bound) draws nothing.
 */
class KEO_DATA_API RectangleGraphics final : public GroundGeometryGraphics {
public:
    /** @brief The rectangle's own fields, with their defaults. */
    struct Fields {
        /** @brief West, south, east and north bounds, radians. */
        GlobeRectangle coordinates = GlobeRectangle::EMPTY;
        /** @brief Rotation of the shape about its centre, counter-clockwise, radians. */
        Radian rotation{};
    };
    /** @brief Everything a rectangle is made from: common, fill, area and rectangle fields. */
    struct ConstructorOptions : CommonOptions, FillOptions, GroundOptions, Fields {};

    /** @brief A rectangle of the default options (the empty rectangle). */
    RectangleGraphics();
    /** @brief A rectangle of @p options; values follow the setters' rules. */
    explicit RectangleGraphics(const ConstructorOptions& options);
    ~RectangleGraphics() override;

    /** @brief Whether @p type is Type::Rectangle. */
    static constexpr bool isKindOf(Type type) noexcept { return type == Type::Rectangle; }

    /** @brief The bounds, radians (default GlobeRectangle::EMPTY). */
    const GlobeRectangle& getCoordinates() const noexcept { return fields_.coordinates; }
    /** @brief Sets the bounds, radians (stored as given; an empty rectangle draws nothing). */
    void setCoordinates(const GlobeRectangle& coordinates) noexcept;
    /** @brief The rotation of the shape, radians (default 0). */
    Radian getRotation() const noexcept { return fields_.rotation; }
    /** @brief Sets the rotation of the shape, radians; NaN is ignored. */
    void setRotation(Radian rotation) noexcept;

    /** @brief Writes the area fields, then the bounds and the rotation. */
    void describe(FieldList& fields, const TimePoint& time) const override;

private:
    Fields fields_;
};

} // namespace keo
