#pragma once

#include "Common/Color.h"
#include "Data/DataExport.h"
#include "Data/MaterialProperty.h"

namespace keo {

/**
 * @brief A line in the main colour with an outline of outlineWidth pixels on each side in the
 * outline colour.
 *
 * Values are stored as given. A renderer reads an outline width that is negative or NaN as 0
 * (no outline).
 */
class KEO_DATA_API PolylineOutlineMaterialProperty final : public MaterialProperty {
public:
    /** @brief The kind of this class, as getType() reports it. */
    static constexpr Type TYPE = Type::PolylineOutline;

    /** @brief The values an outlined line material starts with. */
    struct ConstructorOptions {
        /** @brief The colour of the line (default Color::WHITE). */
        Color color{1.0f, 1.0f, 1.0f, 1.0f};
        /** @brief The colour of the outline (default Color::BLACK). */
        Color outlineColor{0.0f, 0.0f, 0.0f, 1.0f};
        /** @brief The width of the outline on each side, pixels (default 1). */
        float outlineWidth = 1.0f;
    };

    /** @brief A white line with a black outline of 1 pixel. */
    PolylineOutlineMaterialProperty() noexcept;
    /** @brief An outlined line of the values of @p options. */
    explicit PolylineOutlineMaterialProperty(const ConstructorOptions& options) noexcept;
    PolylineOutlineMaterialProperty(const PolylineOutlineMaterialProperty&) = default;
    PolylineOutlineMaterialProperty& operator=(const PolylineOutlineMaterialProperty&) = default;
    ~PolylineOutlineMaterialProperty() override;

    /** @brief The colour of the outline. */
    const Color& getOutlineColor() const noexcept { return outlineColor_; }
    /** @brief Sets the colour of the outline (stored as given). */
    void setOutlineColor(const Color& outlineColor) noexcept { outlineColor_ = outlineColor; }
    /** @brief The width of the outline on each side, pixels. */
    float getOutlineWidth() const noexcept { return outlineWidth_; }
    /** @brief Sets the width of the outline, pixels (stored as given; see the class). */
    void setOutlineWidth(float outlineWidth) noexcept { outlineWidth_ = outlineWidth; }

    /** @brief Writes the base fields, then "outlineColor" and "outlineWidth". */
    void describe(FieldList& fields) const override;

private:
    Color outlineColor_;
    float outlineWidth_;
};

} // namespace keo
