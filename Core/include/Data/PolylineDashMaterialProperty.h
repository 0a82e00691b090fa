#pragma once

#include "Common/Color.h"
#include "Data/DataExport.h"
#include "Data/MaterialProperty.h"

#include <cstdint>

namespace keo {

/**
 * @brief A dashed line: the line is cut into repeats of dashLength pixels, each split into 16
 * equal parts; bit i of the dash pattern (from the least significant) tells whether part i is
 * painted in the main colour (1) or in the gap colour (0).
 *
 * Values are stored as given. A renderer draws a dash length that is not a positive finite
 * number as a solid line in the main colour.
 */
class KEO_DATA_API PolylineDashMaterialProperty final : public MaterialProperty {
public:
    /** @brief The kind of this class, as getType() reports it. */
    static constexpr Type TYPE = Type::PolylineDash;

    /** @brief The values a dashed line material starts with. */
    struct ConstructorOptions {
        /** @brief The colour of the dashes (default Color::WHITE). */
        Color color{1.0f, 1.0f, 1.0f, 1.0f};
        /** @brief The colour between the dashes (default Color::TRANSPARENT). */
        Color gapColor{0.0f, 0.0f, 0.0f, 0.0f};
        /** @brief The length of one repeat of the pattern, pixels (default 16). */
        float dashLength = 16.0f;
        /** @brief The 16-bit pattern of painted parts (default 255: first half dash, then gap). */
        std::uint16_t dashPattern = 255;
    };

    /** @brief A white dash of 16 pixels with transparent gaps, pattern 255. */
    PolylineDashMaterialProperty() noexcept;
    /** @brief A dashed line of the values of @p options. */
    explicit PolylineDashMaterialProperty(const ConstructorOptions& options) noexcept;
    PolylineDashMaterialProperty(const PolylineDashMaterialProperty&) = default;
    PolylineDashMaterialProperty& operator=(const PolylineDashMaterialProperty&) = default;
    ~PolylineDashMaterialProperty() override;

    /** @brief The colour between the dashes. */
    const Color& getGapColor() const noexcept { return gapColor_; }
    /** @brief Sets the colour between the dashes (stored as given). */
    void setGapColor(const Color& gapColor) noexcept { gapColor_ = gapColor; }
    /** @brief The length of one repeat of the pattern, pixels. */
    float getDashLength() const noexcept { return dashLength_; }
    /** @brief Sets the length of one repeat, pixels (stored as given; see the class). */
    void setDashLength(float dashLength) noexcept { dashLength_ = dashLength; }
    /** @brief The 16-bit pattern of painted parts. */
    std::uint16_t getDashPattern() const noexcept { return dashPattern_; }
    /** @brief Sets the 16-bit pattern of painted parts (0: only gaps; 0xFFFF: solid). */
    void setDashPattern(std::uint16_t dashPattern) noexcept { dashPattern_ = dashPattern; }

    /** @brief Writes the base fields, then "gapColor", "dashLength" and "dashPattern". */
    void describe(FieldList& fields) const override;

private:
    Color gapColor_;
    float dashLength_;
    std::uint16_t dashPattern_;
};

} // namespace keo
