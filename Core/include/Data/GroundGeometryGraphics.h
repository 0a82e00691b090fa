#pragma once

#include "Common/Radian.h"
#include "Data/DataExport.h"
#include "Data/FilledGeometryGraphics.h"

#include <optional>

namespace keo {

/**
 * @brief The base of the area graphics that lie on the globe's surface (polygon, rectangle,
 * ellipse): the surface height, an optional extrusion, the granularity of the tessellation and
 * the rotation of the texture, besides fill and outline.
 *
 * When the classification type is set the area is draped on those surfaces and its height is not
 * used; otherwise it lies at its height, measured as the height reference says.
 */
class KEO_DATA_API GroundGeometryGraphics : public FilledGeometryGraphics {
public:
    /** @brief The fields every area graphics adds, with their defaults. */
    struct GroundOptions {
        /** @brief Height of the area's surface, metres (see the height reference). */
        double height = 0.0;
        /** @brief Height of the top of an extruded body, metres; empty: not extruded. */
        std::optional<double> extrudedHeight;
        /** @brief Angular distance between tessellated points, radians (one degree). */
        double granularity = 0.017453292519943295;
        /** @brief Rotation of the texture, counter-clockwise from north, radians. */
        Radian stRotation{};
    };

    ~GroundGeometryGraphics() override;

    /** @brief Whether @p type is an area kind (polygon, rectangle or ellipse). */
    static constexpr bool isKindOf(Type type) noexcept {
        return type == Type::Polygon || type == Type::Rectangle || type == Type::Ellipse;
    }

    /** @brief Height of the area's surface, metres (default 0). */
    double getHeight() const noexcept { return ground_.height; }
    /** @brief Sets the surface height, metres; NaN is ignored. */
    void setHeight(double height) noexcept;
    /** @brief Height of the extruded top, metres; empty (the default) when not extruded. */
    const std::optional<double>& getExtrudedHeight() const noexcept {
        return ground_.extrudedHeight;
    }
    /** @brief Sets the extruded height, metres; empty stops extruding; NaN is ignored. */
    void setExtrudedHeight(const std::optional<double>& height) noexcept;
    /** @brief Tessellation granularity, radians (default one degree). */
    double getGranularity() const noexcept { return ground_.granularity; }
    /** @brief Sets the granularity, radians; a value that is not greater than 0 is ignored. */
    void setGranularity(double granularity) noexcept;
    /** @brief Texture rotation, radians (default 0). */
    Radian getStRotation() const noexcept { return ground_.stRotation; }
    /** @brief Sets the texture rotation, radians; NaN is ignored. */
    void setStRotation(Radian rotation) noexcept;

    /** @brief Writes the common, fill and outline fields, then the area fields. */
    void describe(FieldList& fields, const TimePoint& time) const override;

protected:
    /** @brief An area graphics of kind @p type from the common, fill and area options. */
    GroundGeometryGraphics(Type type, const CommonOptions& common, const FillOptions& fill,
                           const GroundOptions& ground);

private:
    GroundOptions ground_;
};

} // namespace keo
