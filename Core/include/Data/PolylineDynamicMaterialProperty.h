#pragma once

#include "Common/Color.h"
#include "Data/DataExport.h"
#include "Data/ImageSource.h"
#include "Data/MaterialProperty.h"

namespace keo {

/**
 * @brief An image that flows along a line: the image is repeated every textureSize pixels along
 * the line, tinted with the main colour, and moves from the line's start towards its end by rate
 * image lengths per minute (the default 60: one image length per second).
 *
 * Values are stored as given. A negative rate flows backwards; a rate that is not finite stands
 * still. A renderer reads a texture size that is not a positive finite number as the line's
 * width, and shows nothing for an empty URI or a null or empty image.
 */
class KEO_DATA_API PolylineDynamicMaterialProperty final : public MaterialProperty {
public:
    /** @brief The kind of this class, as getType() reports it. */
    static constexpr Type TYPE = Type::PolylineDynamic;

    /** @brief The values a flowing-image line material starts with. */
    struct ConstructorOptions {
        /** @brief Image lengths moved per minute (default 60). */
        float rate = 60.0f;
        /** @brief The image: its URI or the decoded image (default the empty URI). */
        ImageSource image;
        /** @brief The length of one image along the line, pixels (default 50). */
        float textureSize = 50.0f;
        /** @brief The tint (default Color::WHITE). */
        Color color{1.0f, 1.0f, 1.0f, 1.0f};
    };

    /** @brief No image, 50-pixel images flowing at 60 per minute, white tint. */
    PolylineDynamicMaterialProperty();
    /** @brief A flowing-image line of the values of @p options. */
    explicit PolylineDynamicMaterialProperty(const ConstructorOptions& options);
    PolylineDynamicMaterialProperty(const PolylineDynamicMaterialProperty&) = default;
    PolylineDynamicMaterialProperty& operator=(const PolylineDynamicMaterialProperty&) = default;
    ~PolylineDynamicMaterialProperty() override;

    /** @brief Image lengths moved per minute. */
    float getRate() const noexcept { return rate_; }
    /** @brief Sets the image lengths moved per minute (stored as given; see the class). */
    void setRate(float rate) noexcept { rate_ = rate; }
    /** @brief The image: its URI or the decoded image. */
    const ImageSource& getImage() const noexcept { return image_; }
    /** @brief Sets the image: a URI or a decoded image (a null pointer shows nothing). */
    void setImage(const ImageSource& image) { image_ = image; }
    /** @brief The length of one image along the line, pixels. */
    float getTextureSize() const noexcept { return textureSize_; }
    /** @brief Sets the length of one image along the line, pixels (stored as given). */
    void setTextureSize(float textureSize) noexcept { textureSize_ = textureSize; }

    /**
     * @brief The shift of the image along the line at @p time, in image lengths, in [0, 1):
     * the fractional part of rate / 60 × seconds; 0 when the rate or the time is not finite.
     */
    double getTextureOffset(const TimePoint& time) const noexcept;

    /** @brief Writes the base fields, then "rate", "image" and "textureSize". */
    void describe(FieldList& fields) const override;

private:
    float rate_;
    ImageSource image_;
    float textureSize_;
};

} // namespace keo
