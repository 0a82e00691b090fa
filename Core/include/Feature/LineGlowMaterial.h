#pragma once

#include "Common/Color.h"
#include "Feature/FeatureExport.h"
#include "Feature/Material.h"

#include <memory>

namespace keo::Feature {

/**
 * @brief A glowing line, through a keo::PolylineGlowMaterialProperty: brightest on the centre
 * line, the glow power being the fraction of the width that glows and the taper power narrowing
 * the line towards its end (1: no taper).
 */
class KEO_FEATURE_API LineGlowMaterial final : public Material {
public:
    /** @brief A glowing line of @p color, @p glowPower and @p taperPower (stored as given). */
    explicit LineGlowMaterial(const keo::Color& color = keo::Color::WHITE, float glowPower = 0.25f,
                              float taperPower = 1.0f);
    /** @brief Copies the values; fresh events, no cached property, changed flag set. */
    LineGlowMaterial(const LineGlowMaterial& other);
    ~LineGlowMaterial() override;

    /** @brief Copies colour, glow power and taper power, then the base values. */
    void assign(const Material& other) override;
    /** @brief A copy made with the copy constructor. */
    std::shared_ptr<Material> clone() const override;
    /** @brief Type::LineGlow. */
    Type getType() const override;

    /** @brief The colour of the line (default white). */
    const keo::Color& getColor() const noexcept { return color_; }
    /** @brief Sets the colour, stored as given (edit rule). */
    void setColor(const keo::Color& color);
    /** @brief The fraction of the width that glows (default 0.25). */
    float getGlowPower() const noexcept { return glowPower_; }
    /** @brief Sets the fraction of the width that glows, stored as given (edit rule). */
    void setGlowPower(float glowPower);
    /** @brief The strength of the taper towards the end (default 1, no taper). */
    float getTaperPower() const noexcept { return taperPower_; }
    /** @brief Sets the strength of the taper, stored as given (edit rule). */
    void setTaperPower(float taperPower);

private:
    void updateImplMaterial(bool highlight) const override;

    keo::Color color_;
    float glowPower_;
    float taperPower_;
};

} // namespace keo::Feature
