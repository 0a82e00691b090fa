#pragma once

#include "Common/Color.h"
#include "Feature/FeatureExport.h"
#include "Feature/Material.h"

#include <memory>

namespace keo::Feature {

/**
 * @brief A line of one colour ending in an arrow head, through a
 * keo::PolylineArrowMaterialProperty.
 */
class KEO_FEATURE_API LineArrowMaterial final : public Material {
public:
    /** @brief A line and arrow head of @p color (stored as given). */
    explicit LineArrowMaterial(const keo::Color& color = keo::Color::WHITE);
    /** @brief Copies the values; fresh events, no cached property, changed flag set. */
    LineArrowMaterial(const LineArrowMaterial& other);
    ~LineArrowMaterial() override;

    /** @brief Copies the colour, then the base values. */
    void assign(const Material& other) override;
    /** @brief A copy made with the copy constructor. */
    std::shared_ptr<Material> clone() const override;
    /** @brief Type::LineArrow. */
    Type getType() const override;

    /** @brief The colour of the line and its arrow head (default white). */
    const keo::Color& getColor() const noexcept { return color_; }
    /** @brief Sets the colour, stored as given (edit rule). */
    void setColor(const keo::Color& color);

private:
    void updateImplMaterial(bool highlight) const override;

    keo::Color color_;
};

} // namespace keo::Feature
