#pragma once

#include "Common/Vector2.h"
#include "Common/Vector3.h"
#include "Data/DataExport.h"
#include "Data/GeometryGraphics.h"

#include <memory>
#include <vector>

namespace keo {

class PositionArrayProperty;

/**
 * @brief A line through Cartesian positions (ECEF, metres), of a width in pixels, painted with
 * its material.
 *
 * The positions are always held as a PositionArrayProperty, so that a line may move or grow with
 * time: setPositions with a plain list of points wraps them in a ConstantPositionArrayProperty,
 * and getPositions gives back the property itself, whose dynamic type callers may test (for
 * example to find a PathPositionArrayProperty they installed and update it in place). The
 * renderer evaluates the property at each frame's time. A line needs two positions.
 *
 * A line whose pixel offsets are set is drawn in screen space instead: through those offsets, in
 * pixels to the right and up, from the point where its entity's position appears on screen (as a
 * leader line from a label to its anchor).
 */
class KEO_DATA_API PolylineGraphics final : public GeometryGraphics {
public:
    /** @brief The line's own fields, with their defaults. */
    struct Fields {
        /** @brief The positions; null: the line has no positions. */
        std::shared_ptr<PositionArrayProperty> positions;
        /** @brief Line width, pixels. */
        float width = 1.0f;
        /** @brief Whether the line follows the ground surfaces of the classification type. */
        bool clampToGround = false;
        /** @brief Scale of the height of the shadow volume used to drape the line. */
        double shadowVolumeHeightScale = 1.0;
        /** @brief Screen-space vertices, pixels from the entity's position; empty: not used. */
        std::vector<Vector2<float>> pixelOffsets;
    };
    /** @brief Everything a line is made from: common and line fields. */
    struct ConstructorOptions : CommonOptions, Fields {};

    /** @brief A line of the default options (no positions, width 1). */
    PolylineGraphics();
    /** @brief A line of @p options; values follow the setters' rules. */
    explicit PolylineGraphics(const ConstructorOptions& options);
    ~PolylineGraphics() override;

    /** @brief Whether @p type is Type::Polyline. */
    static constexpr bool isKindOf(Type type) noexcept { return type == Type::Polyline; }

    /**
     * @brief The library's default line material: a new opaque white ColorMaterialProperty on
     * each call (so that editing one line's material never changes another's). The renderer
     * draws a line without a material this way too.
     */
    static std::shared_ptr<MaterialProperty> getDefaultMaterial();

    /** @brief The positions property as it was set; null when the line has none. */
    const std::shared_ptr<PositionArrayProperty>& getPositions() const noexcept {
        return fields_.positions;
    }
    /** @brief Sets the positions property (shared with the caller); null removes the positions. */
    void setPositions(std::shared_ptr<PositionArrayProperty> positions) noexcept;
    /**
     * @brief Sets constant positions: a new ConstantPositionArrayProperty of @p points (points
     * with a NaN or infinite coordinate are dropped).
     */
    void setPositions(std::vector<Vector3<double>> points);
    /** @brief The positions at @p time; none when there is no positions property. */
    std::vector<Vector3<double>> getPositionValues(const TimePoint& time) const;

    /** @brief Line width, pixels (default 1). */
    float getWidth() const noexcept { return fields_.width; }
    /** @brief Sets the width, pixels; NaN is ignored, a negative width becomes 0. */
    void setWidth(float width) noexcept;
    /** @brief Whether the line follows the ground (default false). */
    bool isClampToGround() const noexcept { return fields_.clampToGround; }
    /** @brief Makes the line follow the ground surfaces of its classification type, or not. */
    void setClampToGround(bool clamp) noexcept { fields_.clampToGround = clamp; }
    /** @brief The shadow volume's height scale (default 1). */
    double getShadowVolumeHeightScale() const noexcept { return fields_.shadowVolumeHeightScale; }
    /** @brief Sets the shadow volume's height scale; NaN is ignored, a negative scale becomes 0. */
    void setShadowVolumeHeightScale(double scale) noexcept;
    /** @brief The screen-space vertices, pixels (default none: the line uses its positions). */
    const std::vector<Vector2<float>>& getPixelOffsets() const noexcept {
        return fields_.pixelOffsets;
    }
    /**
     * @brief Sets the screen-space vertices, pixels right and up from the entity's position on
     * screen; offsets with a NaN are dropped. Empty returns to drawing through the positions.
     */
    void setPixelOffsets(std::vector<Vector2<float>> offsets);

    /**
     * @brief Writes the common fields, then the positions evaluated at @p time (null without a
     * property) with "positionsConstant", and the line's other fields.
     */
    void describe(FieldList& fields, const TimePoint& time) const override;

private:
    Fields fields_;
};

} // namespace keo
