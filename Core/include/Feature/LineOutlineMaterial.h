#pragma once

#include "Common/Color.h"
#include "Feature/FeatureExport.h"
#include "Feature/Material.h"

#include <memory>

namespace keo::Feature {

/**
 * @brief A line with an outline, through a keo::PolylineOutlineMaterialProperty: the line in its
 * colour with an outline of outline-width pixels on each side in the outline colour.
 *
 * Highlighting replaces the colour on every update, the outline colour only when the property is
 * created or refreshed after an edit: a clean, highlighted line that is updated without
 * highlight shows its own colour again but keeps the outline colour last pushed. This is
 * intended: only the main colour follows the highlight on every update.
 */
class KEO_FEATURE_API LineOutlineMaterial final : public Material {
public:
    /**
     * @brief A line of @p color with an outline of @p outlineColor, @p outlineWidth pixels wide
     * on each side (all stored as given).
     */
    explicit LineOutlineMaterial(const keo::Color& color = keo::Color::WHITE,
                                 const keo::Color& outlineColor = keo::Color::BLACK,
                                 float outlineWidth = 1.0f);
    /** @brief Copies the values; fresh events, no cached property, changed flag set. */
    LineOutlineMaterial(const LineOutlineMaterial& other);
    ~LineOutlineMaterial() override;

    /** @brief Copies colour, outline colour and outline width, then the base values. */
    void assign(const Material& other) override;
    /** @brief A copy made with the copy constructor. */
    std::shared_ptr<Material> clone() const override;
    /** @brief Type::LineOutline. */
    Type getType() const override;

    /** @brief The colour of the line (default white). */
    const keo::Color& getColor() const noexcept { return color_; }
    /** @brief Sets the colour of the line, stored as given (edit rule). */
    void setColor(const keo::Color& color);
    /** @brief The colour of the outline (default black). */
    const keo::Color& getOutlineColor() const noexcept { return outlineColor_; }
    /** @brief Sets the colour of the outline, stored as given (edit rule). */
    void setOutlineColor(const keo::Color& outlineColor);
    /** @brief The width of the outline on each side, pixels (default 1). */
    float getOutlineWidth() const noexcept { return outlineWidth_; }
    /** @brief Sets the width of the outline, pixels, stored as given (edit rule). */
    void setOutlineWidth(float outlineWidth);

private:
    void updateImplMaterial(bool highlight) const override;

    keo::Color color_;
    keo::Color outlineColor_;
    float outlineWidth_;
};

} // namespace keo::Feature
