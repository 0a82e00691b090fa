#pragma once

#include "Common/Color.h"
#include "Common/Radian.h"
#include "Common/Vector2.h"
#include "Data/ImageSource.h"
#include "Feature/FeatureExport.h"
#include "Feature/ImageTileSizeUnit.h"
#include "Feature/Material.h"

#include <memory>
#include <string>

namespace keo::Feature {

/**
 * @brief An image tiled over a surface, shifted, turned and tinted, through a
 * keo::ImageMaterialProperty.
 *
 * The repeat count handed to the property is derived by each update from the tile size and its
 * unit (see ImageTileSizeUnit): with Count it is the tile size; with Meter it follows from the
 * extent of the polygon or wall graphics being painted, and other graphics keep the last repeat
 * (initially (0, 0)). Deriving it marks nothing changed and raises no event.
 *
 * The texture matrix is the rotation by the rotation angle when the property is created, and the
 * rotation by the opposite angle whenever a later edit refreshes it. This is intended; mind it
 * when the rotation is not 0 (a material edited after its first update turns the other way).
 */
class KEO_FEATURE_API ImageMaterial final : public Material {
public:
    /** @brief No image (empty path), tile size (1, 1) as a count, no offset, no rotation, white. */
    ImageMaterial();
    /**
     * @brief The image at path or URI @p image with @p tileSize as a repeat count and the tint
     * @p color; no offset, no rotation.
     */
    ImageMaterial(const std::string& image, const keo::Vector2<float>& tileSize,
                  const keo::Color& color);
    /**
     * @brief Copies every value but the derived repeat, which starts again at (0, 0); fresh
     * events, no cached property, changed flag set.
     */
    ImageMaterial(const ImageMaterial& other);
    ~ImageMaterial() override;

    /**
     * @brief Copies image, tile size, tile size unit, offset, rotation and colour (not the
     * derived repeat), then the base values.
     */
    void assign(const Material& other) override;
    /** @brief A copy made with the copy constructor. */
    std::shared_ptr<Material> clone() const override;
    /** @brief Type::Image. */
    Type getType() const override;
    /**
     * @brief Derives the repeat from @p graphics (see the class), then does what Material::update
     * does.
     * @throws std::out_of_range "invalid vector subscript" with unit Meter on wall graphics whose
     * height lists are shorter than its positions; the repeat and @p graphics stay as they were.
     */
    void update(keo::GeometryGraphics& graphics, bool highlight) const override;

    /** @brief The image: its path or URI, or the decoded image (default the empty path). */
    const ImageSource& getImage() const noexcept { return image_; }
    /**
     * @brief Sets the image (edit rule: equal when of the same alternative with the same text, or
     * the same image object).
     */
    void setImage(const ImageSource& image);
    /** @brief The tile size: a repeat count, or metres per tile (default (1, 1)). */
    const keo::Vector2<float>& getTileSize() const noexcept { return tileSize_; }
    /** @brief Sets the tile size, stored as given; 0 gives an unbounded repeat (edit rule). */
    void setTileSize(const keo::Vector2<float>& tileSize);
    /** @brief What the tile size means (default Count). */
    ImageTileSizeUnit getTileSizeUnit() const noexcept { return tileSizeUnit_; }
    /** @brief Sets what the tile size means (edit rule). */
    void setTileSizeUnit(ImageTileSizeUnit unit);
    /** @brief The texture offset, in tiles (default (0, 0)). */
    const keo::Vector2<float>& getOffset() const noexcept { return offset_; }
    /** @brief Sets the texture offset, in tiles (edit rule). */
    void setOffset(const keo::Vector2<float>& offset);
    /** @brief The texture rotation, radians (default 0). */
    const keo::Radian& getRotation() const noexcept { return rotation_; }
    /** @brief Sets the texture rotation, radians (edit rule). */
    void setRotation(const keo::Radian& rotation);
    /** @brief The tint (default white: the image as it is). */
    const keo::Color& getColor() const noexcept { return color_; }
    /** @brief Sets the tint, stored as given (edit rule). */
    void setColor(const keo::Color& color);

private:
    void updateImplMaterial(bool highlight) const override;

    ImageSource image_;
    keo::Vector2<float> tileSize_{1.0f, 1.0f};
    ImageTileSizeUnit tileSizeUnit_ = ImageTileSizeUnit::Count;
    keo::Vector2<float> offset_{0.0f, 0.0f};
    keo::Radian rotation_{0.0};
    keo::Color color_ = keo::Color::WHITE;
    mutable keo::Vector2<float> repeat_{0.0f, 0.0f};
};

} // namespace keo::Feature
