#pragma once

#include "Common/Color.h"
#include "Common/Vector2.h"
#include "Data/DataExport.h"
#include "Data/GeometryGraphics.h"
#include "Data/HorizontalOrigin.h"
#include "Data/ImageSource.h"
#include "Data/VerticalOrigin.h"

#include <optional>

namespace keo {

/**
 * @brief An image drawn facing the camera at its entity's position, at a size in pixels.
 *
 * Without a width or height the image's own size in pixels is used; the size is then multiplied
 * by the scale. The colour multiplies the image's pixels (white leaves them as they are). The
 * origins say which point of the image sits on the anchor: the entity's position on screen moved
 * by the pixel offset (x to the right, y up).
 */
class KEO_DATA_API BillboardGraphics final : public GeometryGraphics {
public:
    /** @brief The billboard's own fields, with their defaults. */
    struct Fields {
        /** @brief The image; an empty URI or a null image: nothing is drawn. */
        ImageSource image;
        /** @brief Width, pixels; empty: the image's own width. */
        std::optional<float> width;
        /** @brief Height, pixels; empty: the image's own height. */
        std::optional<float> height;
        /** @brief Factor applied to the size. */
        float scale = 1.0f;
        /** @brief Colour multiplied with the image. */
        Color color = Color(1.0f, 1.0f, 1.0f, 1.0f);
        /** @brief Which horizontal point of the image sits on the anchor. */
        HorizontalOrigin horizontalOrigin = HorizontalOrigin::Center;
        /** @brief Which vertical point of the image sits on the anchor. */
        VerticalOrigin verticalOrigin = VerticalOrigin::Center;
        /** @brief Offset of the anchor from the entity's position on screen, pixels. */
        Vector2<float> pixelOffset;
    };
    /** @brief Everything a billboard is made from: common and billboard fields. */
    struct ConstructorOptions : CommonOptions, Fields {};

    /** @brief A billboard of the default options (no image). */
    BillboardGraphics();
    /** @brief A billboard of @p options; values follow the setters' rules. */
    explicit BillboardGraphics(const ConstructorOptions& options);
    ~BillboardGraphics() override;

    /** @brief Whether @p type is Type::Billboard. */
    static constexpr bool isKindOf(Type type) noexcept { return type == Type::Billboard; }

    /** @brief The image (default an empty URI). */
    const ImageSource& getImage() const noexcept { return fields_.image; }
    /** @brief Sets the image: a URI or a decoded image (shared with the caller). */
    void setImage(ImageSource image) noexcept;
    /** @brief The width, pixels; empty (the default): the image's own. */
    const std::optional<float>& getWidth() const noexcept { return fields_.width; }
    /** @brief Sets the width, pixels; NaN is ignored, a negative width becomes 0. */
    void setWidth(const std::optional<float>& width) noexcept;
    /** @brief The height, pixels; empty (the default): the image's own. */
    const std::optional<float>& getHeight() const noexcept { return fields_.height; }
    /** @brief Sets the height, pixels; NaN is ignored, a negative height becomes 0. */
    void setHeight(const std::optional<float>& height) noexcept;
    /** @brief The scale (default 1). */
    float getScale() const noexcept { return fields_.scale; }
    /** @brief Sets the scale; NaN is ignored, a negative scale becomes 0. */
    void setScale(float scale) noexcept;
    /** @brief The colour (default opaque white). */
    const Color& getColor() const noexcept { return fields_.color; }
    /** @brief Sets the colour (stored as given). */
    void setColor(const Color& color) noexcept { fields_.color = color; }
    /** @brief The horizontal origin (default Center). */
    HorizontalOrigin getHorizontalOrigin() const noexcept { return fields_.horizontalOrigin; }
    /** @brief Sets the horizontal origin; a value outside HorizontalOrigin is ignored. */
    void setHorizontalOrigin(HorizontalOrigin origin) noexcept;
    /** @brief The vertical origin (default Center). */
    VerticalOrigin getVerticalOrigin() const noexcept { return fields_.verticalOrigin; }
    /** @brief Sets the vertical origin; a value outside VerticalOrigin is ignored. */
    void setVerticalOrigin(VerticalOrigin origin) noexcept;
    /** @brief The pixel offset (default (0, 0)). */
    const Vector2<float>& getPixelOffset() const noexcept { return fields_.pixelOffset; }
    /** @brief Sets the pixel offset (x right, y up); an offset with a NaN is ignored. */
    void setPixelOffset(const Vector2<float>& offset) noexcept;

    /** @brief Writes the common fields, then the billboard's. */
    void describe(FieldList& fields, const TimePoint& time) const override;

private:
    Fields fields_;
};

} // namespace keo
