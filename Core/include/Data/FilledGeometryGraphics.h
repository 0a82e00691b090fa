#pragma once

#include "Common/Color.h"
#include "Data/DataExport.h"
#include "Data/GeometryGraphics.h"

namespace keo {

/**
 * @brief The base of the graphics that have a filled surface and an outline: the area kinds
 * (through GroundGeometryGraphics), walls and polyline volumes.
 *
 * The surface is painted with the material when fill is on; the outline is drawn along the
 * surface's edges in its own colour and width when outline is on.
 */
class KEO_DATA_API FilledGeometryGraphics : public GeometryGraphics {
public:
    /** @brief The fill and outline fields, with their defaults. */
    struct FillOptions {
        /** @brief Whether the surface is filled with the material. */
        bool fill = true;
        /** @brief Whether the outline is drawn. */
        bool outline = false;
        /** @brief Colour of the outline. */
        Color outlineColor = Color(0.0f, 0.0f, 0.0f, 1.0f);
        /** @brief Width of the outline, pixels. */
        float outlineWidth = 1.0f;
    };

    ~FilledGeometryGraphics() override;

    /** @brief Whether @p type has a fill and an outline (areas, walls and polyline volumes). */
    static constexpr bool isKindOf(Type type) noexcept {
        return type == Type::Polygon || type == Type::Rectangle || type == Type::Ellipse ||
               type == Type::Wall || type == Type::PolylineVolume;
    }

    /** @brief Whether the surface is filled (default true). */
    bool isFill() const noexcept { return fill_.fill; }
    /** @brief Fills the surface with the material, or not. */
    void setFill(bool fill) noexcept { fill_.fill = fill; }
    /** @brief Whether the outline is drawn (default false). */
    bool isOutline() const noexcept { return fill_.outline; }
    /** @brief Draws the outline, or not. */
    void setOutline(bool outline) noexcept { fill_.outline = outline; }
    /** @brief Outline colour (default opaque black). */
    const Color& getOutlineColor() const noexcept { return fill_.outlineColor; }
    /** @brief Sets the outline colour (stored as given). */
    void setOutlineColor(const Color& color) noexcept { fill_.outlineColor = color; }
    /** @brief Outline width, pixels (default 1). */
    float getOutlineWidth() const noexcept { return fill_.outlineWidth; }
    /** @brief Sets the outline width, pixels; NaN is ignored, a negative width becomes 0. */
    void setOutlineWidth(float width) noexcept;

    /** @brief Writes the common fields, then fill and outline. */
    void describe(FieldList& fields, const TimePoint& time) const override;

protected:
    /** @brief A filled graphics of kind @p type from the common and fill options. */
    FilledGeometryGraphics(Type type, const CommonOptions& common, const FillOptions& fill);

private:
    FillOptions fill_;
};

} // namespace keo
