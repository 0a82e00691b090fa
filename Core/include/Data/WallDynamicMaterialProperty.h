#pragma once

#include "Common/Color.h"
#include "Common/Vector2.h"
#include "Data/DataExport.h"
#include "Data/ImageSource.h"
#include "Data/MaterialProperty.h"

namespace keo {

/**
 * @brief An image tiled over a surface (a polygon or a wall), tinted with the main colour and,
 * while dynamic, moving across it.
 *
 * A surface point with texture coordinates uv in [0, 1] × [0, 1] shows the image at
 * repeat ⊙ uv − offset(t), wrapped into [0, 1): the repeat is the number of tiles along u and v;
 * while dynamic, the tiles move along the unit movement direction by rate tiles per minute (the
 * default 60: one tile per second).
 *
 * Values are stored as given. A negative rate moves against the direction; a rate that is not
 * finite or a zero or non-finite direction stands still. A renderer reads a repeat component
 * that is not a positive finite number as 1.
 */
class KEO_DATA_API WallDynamicMaterialProperty final : public MaterialProperty {
public:
    /** @brief The kind of this class, as getType() reports it. */
    static constexpr Type TYPE = Type::WallDynamic;

    /** @brief The values a moving-image surface material starts with. */
    struct ConstructorOptions {
        /** @brief The tint (default Color::WHITE). */
        Color color{1.0f, 1.0f, 1.0f, 1.0f};
        /** @brief Tiles moved per minute (default 60). */
        float rate = 60.0f;
        /** @brief The image: its URI or the decoded image (default the empty URI). */
        ImageSource image;
        /** @brief The number of tiles along u and v (default (1, 1)). */
        Vector2<float> repeat{1.0f, 1.0f};
        /** @brief The direction of movement in texture space (default (1, 0), along u). */
        Vector2<float> movementDirection{1.0f, 0.0f};
        /** @brief Whether the image moves (default true). */
        bool dynamic = true;
    };

    /** @brief No image, one tile, moving along u at 60 tiles per minute, white tint. */
    WallDynamicMaterialProperty();
    /** @brief A moving-image material of the values of @p options. */
    explicit WallDynamicMaterialProperty(const ConstructorOptions& options);
    WallDynamicMaterialProperty(const WallDynamicMaterialProperty&) = default;
    WallDynamicMaterialProperty& operator=(const WallDynamicMaterialProperty&) = default;
    ~WallDynamicMaterialProperty() override;

    /** @brief Tiles moved per minute. */
    float getRate() const noexcept { return rate_; }
    /** @brief Sets the tiles moved per minute (stored as given; see the class). */
    void setRate(float rate) noexcept { rate_ = rate; }
    /** @brief The image: its URI or the decoded image. */
    const ImageSource& getImage() const noexcept { return image_; }
    /** @brief Sets the image: a URI or a decoded image (a null pointer shows nothing). */
    void setImage(const ImageSource& image) { image_ = image; }
    /** @brief The number of tiles along u and v. */
    const Vector2<float>& getRepeat() const noexcept { return repeat_; }
    /** @brief Sets the number of tiles along u and v (stored as given; see the class). */
    void setRepeat(const Vector2<float>& repeat) noexcept { repeat_ = repeat; }
    /** @brief The direction of movement in texture space (not necessarily of unit length). */
    const Vector2<float>& getMovementDirection() const noexcept { return movementDirection_; }
    /** @brief Sets the direction of movement (normalised when used; see the class). */
    void setMovementDirection(const Vector2<float>& direction) noexcept {
        movementDirection_ = direction;
    }
    /** @brief Whether the image moves. */
    bool isDynamic() const noexcept { return dynamic_; }
    /** @brief Starts or stops the movement. */
    void setDynamic(bool dynamic) noexcept { dynamic_ = dynamic; }

    /**
     * @brief The shift of the tiles at @p time, in tiles: the unit movement direction times the
     * fractional part of rate / 60 × seconds; (0, 0) when not dynamic or standing still (see
     * the class) or the time is not finite.
     */
    Vector2<float> getTextureOffset(const TimePoint& time) const noexcept;

    /**
     * @brief Writes the base fields, then "rate", "image", "repeat", "movementDirection" and
     * "dynamic".
     */
    void describe(FieldList& fields) const override;

private:
    float rate_;
    ImageSource image_;
    Vector2<float> repeat_;
    Vector2<float> movementDirection_;
    bool dynamic_;
};

} // namespace keo
