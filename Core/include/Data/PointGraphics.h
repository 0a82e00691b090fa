#pragma once

#include "Common/Color.h"
#include "Data/DataExport.h"
#include "Data/GeometryGraphics.h"

namespace keo {

/**
 * @brief A round dot drawn at its entity's position, a fixed number of pixels across, with an
 * optional outline around it.
 */
class KEO_DATA_API PointGraphics final : public GeometryGraphics {
public:
    /** @brief The point's own fields, with their defaults. */
    struct Fields {
        /** @brief Diameter of the dot, pixels. */
        float pixelSize = 1.0f;
        /** @brief Colour of the dot. */
        Color color = Color(1.0f, 1.0f, 1.0f, 1.0f);
        /** @brief Colour of the outline. */
        Color outlineColor = Color(0.0f, 0.0f, 0.0f, 1.0f);
        /** @brief Width of the outline, pixels; 0: no outline. */
        float outlineWidth = 0.0f;
    };
    /** @brief Everything a point is made from: common and point fields. */
    struct ConstructorOptions : CommonOptions, Fields {};

    /** @brief A point of the default options (one white pixel). */
    PointGraphics();
    /** @brief A point of @p options; values follow the setters' rules. */
    explicit PointGraphics(const ConstructorOptions& options);
    ~PointGraphics() override;

    /** @brief Whether @p type is Type::Point. */
    static constexpr bool isKindOf(Type type) noexcept { return type == Type::Point; }

    /** @brief The diameter, pixels (default 1). */
    float getPixelSize() const noexcept { return fields_.pixelSize; }
    /** @brief Sets the diameter, pixels; NaN is ignored, a negative size becomes 0. */
    void setPixelSize(float size) noexcept;
    /** @brief The colour (default opaque white). */
    const Color& getColor() const noexcept { return fields_.color; }
    /** @brief Sets the colour (stored as given). */
    void setColor(const Color& color) noexcept { fields_.color = color; }
    /** @brief The outline colour (default opaque black). */
    const Color& getOutlineColor() const noexcept { return fields_.outlineColor; }
    /** @brief Sets the outline colour (stored as given). */
    void setOutlineColor(const Color& color) noexcept { fields_.outlineColor = color; }
    /** @brief The outline width, pixels (default 0: none). */
    float getOutlineWidth() const noexcept { return fields_.outlineWidth; }
    /** @brief Sets the outline width, pixels; NaN is ignored, a negative width becomes 0. */
    void setOutlineWidth(float width) noexcept;

    /** @brief Writes the common fields, then the point's. */
    void describe(FieldList& fields, const TimePoint& time) const override;

private:
    Fields fields_;
};

} // namespace keo
