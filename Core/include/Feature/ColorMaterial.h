#pragma once

#include "Common/Color.h"
#include "Feature/FeatureExport.h"
#include "Feature/Material.h"

#include <memory>

namespace keo::Feature {

/**
 * @brief A solid colour: paints the surface in one colour through a keo::ColorMaterialProperty.
 */
class KEO_FEATURE_API ColorMaterial final : public Material {
public:
    /** @brief Opaque white. */
    ColorMaterial();
    /** @brief The colour @p color (stored as given). */
    explicit ColorMaterial(const keo::Color& color);
    /** @brief Copies the values; fresh events, no cached property, changed flag set. */
    ColorMaterial(const ColorMaterial& other);
    ~ColorMaterial() override;

    /** @brief Copies the colour, then the base values (see Material::assign). */
    void assign(const Material& other) override;
    /** @brief A copy made with the copy constructor. */
    std::shared_ptr<Material> clone() const override;
    /** @brief Type::Color. */
    Type getType() const override;

    /** @brief The colour (default white). */
    const keo::Color& getColor() const noexcept { return color_; }
    /** @brief Sets the colour, stored as given (edit rule). */
    void setColor(const keo::Color& color);

private:
    void updateImplMaterial(bool highlight) const override;

    keo::Color color_ = keo::Color::WHITE;
};

} // namespace keo::Feature
