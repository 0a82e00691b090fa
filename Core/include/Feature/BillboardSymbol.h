#pragma once

#include "Common/Color.h"
#include "Common/Vector2.h"
#include "Data/HorizontalOrigin.h"
#include "Data/ImageSource.h"
#include "Data/VerticalOrigin.h"
#include "Feature/FeatureExport.h"
#include "Feature/Symbol.h"

#include <memory>
#include <optional>
#include <string>

namespace keo {
class BillboardGraphics;
class Image;
} // namespace keo

namespace keo::Feature {

struct SymbolContext;

/**
 * @brief An image drawn at a point feature's position, facing the viewer: an image file or a
 * decoded image, its size, scale, tint, origin and pixel offset.
 *
 * Every setter follows the edit rule: no event for an equal value (exact comparison, so NaN is
 * always a change; optionals equal when both are empty or both hold equal values). Any value is
 * stored as given, without range checks.
 */
class KEO_FEATURE_API BillboardSymbol final : public Symbol {
public:
    /**
     * @brief An empty image path, the image's own width and height, scale 1, white (no tint),
     * both origins at their value 0 (the centre), no pixel offset.
     */
    BillboardSymbol();
    /** @brief Copies every field (a decoded image is shared); fresh, empty events. */
    BillboardSymbol(const BillboardSymbol& other);
    ~BillboardSymbol() override;

    /**
     * @brief Copies @p other's fields through the setters: enabled, image (through the overload
     * of the other's alternative), width, height, scale, colour, horizontal origin, vertical
     * origin, pixel offset. A symbol of another kind is not copied: a warning is logged and
     * nothing changes.
     */
    void assign(const Symbol& other) override;
    /** @brief A copy made by the copy constructor. */
    std::shared_ptr<Symbol> clone() const override;
    /** @brief Type::Billboard. */
    Type getType() const override;

    /** @brief The image: a path or URI, or a decoded image. */
    const ImageSource& getImage() const noexcept { return image_; }
    /**
     * @brief Sets the image to a path or URI; equal only to a held path of the same text (a held
     * decoded image makes any path a change).
     */
    void setImage(const std::string& path);
    /**
     * @brief Sets the image to a decoded image; equal only to a held pointer to the same object
     * (another image with the same pixels is a change).
     */
    void setImage(std::shared_ptr<Image> image);

    /** @brief The drawn width, pixels; empty: the image's own width. */
    const std::optional<float>& getWidth() const noexcept { return width_; }
    /** @brief Sets the drawn width, pixels (empty: the image's own width). */
    void setWidth(const std::optional<float>& width);
    /** @brief The drawn height, pixels; empty: the image's own height. */
    const std::optional<float>& getHeight() const noexcept { return height_; }
    /** @brief Sets the drawn height, pixels (empty: the image's own height). */
    void setHeight(const std::optional<float>& height);
    /** @brief The factor applied to the drawn size. */
    float getScale() const noexcept { return scale_; }
    /** @brief Sets the factor applied to the drawn size. */
    void setScale(float scale);
    /** @brief The colour the image is multiplied by (white: unchanged). */
    const Color& getColor() const noexcept { return color_; }
    /** @brief Sets the colour the image is multiplied by. */
    void setColor(const Color& color);
    /** @brief Which horizontal point of the image sits on the anchor. */
    const HorizontalOrigin& getHorizontalOrigin() const noexcept { return horizontalOrigin_; }
    /** @brief Sets which horizontal point of the image sits on the anchor. */
    void setHorizontalOrigin(const HorizontalOrigin& origin);
    /** @brief Which vertical point of the image sits on the anchor. */
    const VerticalOrigin& getVerticalOrigin() const noexcept { return verticalOrigin_; }
    /** @brief Sets which vertical point of the image sits on the anchor. */
    void setVerticalOrigin(const VerticalOrigin& origin);
    /** @brief The offset of the anchor from the projected position, pixels (x right, y up). */
    const Vector2<float>& getPixelOffset() const noexcept { return pixelOffset_; }
    /**
     * @brief Sets the offset of the anchor from the projected position, pixels (x right, y up;
     * an offset with a NaN is stored, and the billboard graphics ignore it).
     */
    void setPixelOffset(const Vector2<float>& offset);

    /**
     * @brief Writes the image into @p graphics: image, width, height, scale, colour
     * (keo::Color::HIGHLIGHTCOLOR while the feature is highlighted), origins, pixel offset, the
     * context's height reference and distance display condition.
     */
    void _fill(BillboardGraphics& graphics, const SymbolContext& context) const;

private:
    ImageSource image_;
    std::optional<float> width_;
    std::optional<float> height_;
    float scale_ = 1.0f;
    Color color_ = Color::WHITE;
    HorizontalOrigin horizontalOrigin_ = static_cast<HorizontalOrigin>(0);
    VerticalOrigin verticalOrigin_ = static_cast<VerticalOrigin>(0);
    Vector2<float> pixelOffset_;
};

} // namespace keo::Feature
