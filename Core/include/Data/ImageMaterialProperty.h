#pragma once

#include "Common/Color.h"
#include "Common/Matrix2.h"
#include "Common/Vector2.h"
#include "Data/DataExport.h"
#include "Data/ImageSource.h"
#include "Data/MaterialProperty.h"

namespace keo {

/**
 * @brief An image tiled over a surface and tinted with the main colour.
 *
 * A surface point with texture coordinates uv in [0, 1] × [0, 1] shows the image at
 * matrix × (repeat ⊙ uv) + offset (⊙: component-wise product), wrapped into [0, 1): the repeat
 * is the number of tiles along u and v, the matrix turns (and may scale) the tiles, the offset
 * shifts them in units of one tile. Each pixel is multiplied by the main colour.
 *
 * Values are stored as given. A renderer shows nothing for an empty URI or a null or empty
 * image, and reads a repeat component that is not a positive finite number as 1.
 */
class KEO_DATA_API ImageMaterialProperty final : public MaterialProperty {
public:
    /** @brief The kind of this class, as getType() reports it. */
    static constexpr Type TYPE = Type::Image;

    /** @brief The values an image material starts with. */
    struct ConstructorOptions {
        /** @brief The image: its URI or the decoded image (default the empty URI). */
        ImageSource image;
        /** @brief The number of tiles along u and v (default (1, 1)). */
        Vector2<float> repeat{1.0f, 1.0f};
        /** @brief The shift of the tiles, in tiles (default (0, 0)). */
        Vector2<float> offset{0.0f, 0.0f};
        /** @brief The transform of the tiled coordinates (default the identity). */
        Matrix2 matrix{1.0, 0.0, 0.0, 1.0};
        /** @brief The tint (default Color::WHITE, the image as it is). */
        Color color{1.0f, 1.0f, 1.0f, 1.0f};
    };

    /** @brief No image (empty URI), one untransformed tile, white tint. */
    ImageMaterialProperty();
    /** @brief An image material of the values of @p options. */
    explicit ImageMaterialProperty(const ConstructorOptions& options);
    ImageMaterialProperty(const ImageMaterialProperty&) = default;
    ImageMaterialProperty& operator=(const ImageMaterialProperty&) = default;
    ~ImageMaterialProperty() override;

    /** @brief The image: its URI or the decoded image. */
    const ImageSource& getImage() const noexcept { return image_; }
    /** @brief Sets the image: a URI or a decoded image (a null pointer shows nothing). */
    void setImage(const ImageSource& image) { image_ = image; }
    /** @brief The number of tiles along u and v. */
    const Vector2<float>& getRepeat() const noexcept { return repeat_; }
    /** @brief Sets the number of tiles along u and v (stored as given; see the class). */
    void setRepeat(const Vector2<float>& repeat) noexcept { repeat_ = repeat; }
    /** @brief The shift of the tiles, in tiles. */
    const Vector2<float>& getOffset() const noexcept { return offset_; }
    /** @brief Sets the shift of the tiles, in tiles. */
    void setOffset(const Vector2<float>& offset) noexcept { offset_ = offset; }
    /** @brief The transform of the tiled coordinates. */
    const Matrix2& getMatrix() const noexcept { return matrix_; }
    /** @brief Sets the transform of the tiled coordinates (a rotation turns the tiles). */
    void setMatrix(const Matrix2& matrix) noexcept { matrix_ = matrix; }

    /**
     * @brief Writes the base fields, then "image", "repeat", "offset" and "matrix" (rows as
     * arrays: [[m00, m01], [m10, m11]]).
     */
    void describe(FieldList& fields) const override;

private:
    ImageSource image_;
    Vector2<float> repeat_;
    Vector2<float> offset_;
    Matrix2 matrix_;
};

} // namespace keo
