#pragma once

#include "Common/Color.h"
#include "Data/ImageSource.h"
#include "Feature/FeatureExport.h"
#include "Feature/Material.h"

#include <memory>
#include <string>

namespace keo::Feature {

/**
 * @brief An image flowing along a line, through a keo::PolylineDynamicMaterialProperty: the
 * image is repeated every tile length pixels, tinted, and moves at the rate in image lengths per
 * minute.
 *
 * The default tint is white with alpha 0.99999 (the single-precision value 0.9999899864...), not
 * 1: this is intended, the image is drawn blended rather than as an opaque surface.
 */
class KEO_FEATURE_API LineDynamicMaterial final : public Material {
public:
    /** @brief No image (empty path), tile length 50, tint (1, 1, 1, 0.99999), rate 60. */
    LineDynamicMaterial();
    /**
     * @brief The image at path or URI @p image tinted with @p color, flowing at @p rate image
     * lengths per minute, one image every @p tileLength pixels (all stored as given).
     */
    LineDynamicMaterial(const std::string& image, const keo::Color& color, float rate,
                        float tileLength);
    /** @brief Copies the values; fresh events, no cached property, changed flag set. */
    LineDynamicMaterial(const LineDynamicMaterial& other);
    ~LineDynamicMaterial() override;

    /** @brief Copies image, tile length, colour and rate, then the base values. */
    void assign(const Material& other) override;
    /** @brief A copy made with the copy constructor. */
    std::shared_ptr<Material> clone() const override;
    /** @brief Type::LineDynamic. */
    Type getType() const override;

    /** @brief The image: its path or URI, or the decoded image (default the empty path). */
    const ImageSource& getImage() const noexcept { return image_; }
    /**
     * @brief Sets the image (edit rule: equal when of the same alternative with the same text, or
     * the same image object).
     */
    void setImage(const ImageSource& image);
    /** @brief The length of one image along the line, pixels (default 50). */
    float getTileLength() const noexcept { return tileLength_; }
    /** @brief Sets the length of one image along the line, pixels, stored as given (edit rule). */
    void setTileLength(float tileLength);
    /** @brief The tint (default (1, 1, 1, 0.99999)). */
    const keo::Color& getColor() const noexcept { return color_; }
    /** @brief Sets the tint, stored as given (edit rule). */
    void setColor(const keo::Color& color);
    /** @brief Image lengths moved per minute (default 60). */
    float getRate() const noexcept { return rate_; }
    /** @brief Sets the image lengths moved per minute, stored as given (edit rule). */
    void setRate(float rate);

private:
    void updateImplMaterial(bool highlight) const override;

    ImageSource image_;
    float tileLength_ = 50.0f;
    keo::Color color_{1.0f, 1.0f, 1.0f, 0.99999f};
    float rate_ = 60.0f;
};

} // namespace keo::Feature
