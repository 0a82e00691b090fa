#pragma once

#include "Common/Color.h"
#include "Feature/FeatureExport.h"
#include "Feature/Material.h"

#include <memory>

namespace keo::Feature {

/**
 * @brief A dashed line, through a keo::PolylineDashMaterialProperty: repeats of dash-length
 * pixels, each cut into 16 parts painted in the colour or the gap colour by the bits of the dash
 * pattern.
 *
 * Highlighting replaces the colour on every update, the gap colour only when the property is
 * created or refreshed after an edit: a clean, highlighted line that is updated without
 * highlight shows its own colour again but keeps the gap colour last pushed. This is intended:
 * only the main colour follows the highlight on every update.
 */
class KEO_FEATURE_API LineDashMaterial final : public Material {
public:
    /**
     * @brief A dashed line of @p color with gaps of @p gapColor, the 16-bit @p dashPattern and
     * repeats of @p dashLength pixels (all stored as given).
     */
    explicit LineDashMaterial(const keo::Color& color = keo::Color::WHITE,
                              const keo::Color& gapColor = keo::Color::TRANSPARENT,
                              unsigned short dashPattern = 255, float dashLength = 16.0f);
    /** @brief Copies the values; fresh events, no cached property, changed flag set. */
    LineDashMaterial(const LineDashMaterial& other);
    ~LineDashMaterial() override;

    /** @brief Copies colour, gap colour, dash pattern and dash length, then the base values. */
    void assign(const Material& other) override;
    /** @brief A copy made with the copy constructor. */
    std::shared_ptr<Material> clone() const override;
    /** @brief Type::LineDash. */
    Type getType() const override;

    /** @brief The colour of the dashes (default white). */
    const keo::Color& getColor() const noexcept { return color_; }
    /** @brief Sets the colour of the dashes, stored as given (edit rule). */
    void setColor(const keo::Color& color);
    /** @brief The colour between the dashes (default transparent). */
    const keo::Color& getGapColor() const noexcept { return gapColor_; }
    /** @brief Sets the colour between the dashes, stored as given (edit rule). */
    void setGapColor(const keo::Color& gapColor);
    /** @brief The 16-bit pattern of painted parts (default 255: half dash, half gap). */
    unsigned short getDashPattern() const noexcept { return dashPattern_; }
    /** @brief Sets the 16-bit pattern of painted parts (edit rule). */
    void setDashPattern(unsigned short dashPattern);
    /** @brief The length of one repeat of the pattern, pixels (default 16). */
    float getDashLength() const noexcept { return dashLength_; }
    /** @brief Sets the length of one repeat, pixels, stored as given (edit rule). */
    void setDashLength(float dashLength);

private:
    void updateImplMaterial(bool highlight) const override;

    keo::Color color_;
    keo::Color gapColor_;
    unsigned short dashPattern_;
    float dashLength_;
};

} // namespace keo::Feature
