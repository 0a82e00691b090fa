#pragma once

#include "Common/Color.h"
#include "Common/Vector2.h"
#include "Data/ImageSource.h"
#include "Feature/FeatureExport.h"
#include "Feature/ImageTileSizeUnit.h"
#include "Feature/Material.h"

#include <memory>
#include <string>

namespace keo::Feature {

/**
 * @brief An image tiled over a polygon or a wall, tinted and scrolling in a direction at a rate,
 * through a keo::WallDynamicMaterialProperty.
 *
 * The repeat count handed to the property is recomputed by each update from the tile size and
 * its unit (see ImageTileSizeUnit): with Count it becomes the tile size; with Meter it follows
 * from the extent of the polygon or wall graphics being painted, and other graphics leave it as
 * it is. The tile size and its unit act only through the repeat.
 */
class KEO_FEATURE_API PolygonDynamicMaterial final : public Material {
public:
    /**
     * @brief No image (empty path), repeat and tile size (1, 1) as a count, white, rate 60,
     * moving along (1, 0).
     */
    PolygonDynamicMaterial();
    /**
     * @brief The image at path or URI @p image tinted with @p color, moving at @p rate tiles per
     * minute along (1, 0), with the tile size @p tileSize as a count and the repeat @p repeat
     * (all stored as given).
     */
    PolygonDynamicMaterial(const std::string& image, const keo::Color& color, float rate,
                           const keo::Vector2<float>& tileSize, const keo::Vector2<float>& repeat);
    /** @brief Copies every value; fresh events, no cached property, changed flag set. */
    PolygonDynamicMaterial(const PolygonDynamicMaterial& other);
    ~PolygonDynamicMaterial() override;

    /**
     * @brief Copies image, tile size, tile size unit, colour, rate, movement direction and the
     * moving flag (not the repeat, which the next update derives), then the base values.
     */
    void assign(const Material& other) override;
    /** @brief A copy made with the copy constructor. */
    std::shared_ptr<Material> clone() const override;
    /** @brief Type::PolygonDynamic. */
    Type getType() const override;
    /**
     * @brief Recomputes the repeat from @p graphics (see the class), then does what
     * Material::update does.
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
    /** @brief The number of tiles along u and v (default (1, 1); recomputed by update). */
    const keo::Vector2<float>& getRepeat() const noexcept { return repeat_; }
    /** @brief Sets the number of tiles, stored as given until the next update (edit rule). */
    void setRepeat(const keo::Vector2<float>& repeat);
    /** @brief The tile size: a repeat count, or metres per tile (default (1, 1)). */
    const keo::Vector2<float>& getTileSize() const noexcept { return tileSize_; }
    /** @brief Sets the tile size, stored as given; 0 gives an unbounded repeat (edit rule). */
    void setTileSize(const keo::Vector2<float>& tileSize);
    /** @brief What the tile size means (default Count). */
    ImageTileSizeUnit getTileSizeUnit() const noexcept { return tileSizeUnit_; }
    /** @brief Sets what the tile size means (edit rule). */
    void setTileSizeUnit(ImageTileSizeUnit unit);
    /** @brief The tint (default white). */
    const keo::Color& getColor() const noexcept { return color_; }
    /**
     * @brief Sets the tint, stored as given (edit rule; given the material's own colour, such as
     * getColor()'s reference, it does nothing even when a component is NaN).
     */
    void setColor(const keo::Color& color);
    /** @brief Tiles moved per minute (default 60). */
    float getRate() const noexcept { return rate_; }
    /** @brief Sets the tiles moved per minute, stored as given (edit rule). */
    void setRate(float rate);
    /** @brief The direction of movement in texture space (default (1, 0), along u). */
    const keo::Vector2<float>& getMovementDirection() const noexcept { return movementDirection_; }
    /** @brief Sets the direction of movement, stored as given (edit rule). */
    void setMovementDirection(const keo::Vector2<float>& direction);
    /** @brief Whether the image moves (default true). */
    bool isMoving() const noexcept { return moving_; }
    /** @brief Starts or stops the movement (edit rule). */
    void setMoving(bool moving);

private:
    void updateImplMaterial(bool highlight) const override;

    ImageSource image_;
    mutable keo::Vector2<float> repeat_{1.0f, 1.0f};
    keo::Vector2<float> tileSize_{1.0f, 1.0f};
    ImageTileSizeUnit tileSizeUnit_ = ImageTileSizeUnit::Count;
    keo::Color color_ = keo::Color::WHITE;
    float rate_ = 60.0f;
    keo::Vector2<float> movementDirection_{1.0f, 0.0f};
    bool moving_ = true;
};

} // namespace keo::Feature
