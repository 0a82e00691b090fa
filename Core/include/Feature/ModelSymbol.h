#pragma once

#include "Common/Color.h"
#include "Common/Radian.h"
#include "Common/Vector3.h"
#include "Feature/FeatureExport.h"
#include "Feature/Symbol.h"

#include <memory>

namespace keo {
class ModelGraphics;
class Resource;
} // namespace keo

namespace keo::Feature {

struct SymbolContext;

/**
 * @brief A 3D model drawn at a point feature's position: its resource, scale, tint, rotation and
 * whether it can be picked.
 *
 * Every setter follows the edit rule: no event for an equal value (exact comparison, so NaN is
 * always a change; the model resource by identity). Any value is stored as given, without range
 * checks.
 */
class KEO_FEATURE_API ModelSymbol final : public Symbol {
public:
    /** @brief No model, scale (1, 1, 1), white (no tint), no rotation, pickable. */
    ModelSymbol();
    /** @brief Copies every field (the model resource is shared); fresh, empty events. */
    ModelSymbol(const ModelSymbol& other);
    ~ModelSymbol() override;

    /**
     * @brief Copies @p other's fields through the setters: enabled, model URI, scale, colour,
     * rotation, allow picking. A symbol of another kind is not copied: a warning is logged and
     * nothing changes.
     */
    void assign(const Symbol& other) override;
    /** @brief A copy made by the copy constructor. */
    std::shared_ptr<Symbol> clone() const override;
    /** @brief Type::Model. */
    Type getType() const override;

    /** @brief The model to load; null: the point geometry draws no model. */
    const std::shared_ptr<Resource>& getModelUri() const noexcept { return modelUri_; }
    /** @brief Sets the model to load; equal only to the same resource object (identity). */
    void setModelUri(std::shared_ptr<Resource> uri);
    /** @brief The scale along the model's x, y and z axes. */
    const Vector3<double>& getScale() const noexcept { return scale_; }
    /** @brief Sets the scale along the model's x, y and z axes. */
    void setScale(const Vector3<double>& scale);
    /** @brief The colour the model is multiplied by (white: unchanged). */
    const Color& getColor() const noexcept { return color_; }
    /** @brief Sets the colour the model is multiplied by. */
    void setColor(const Color& color);
    /** @brief The rotation about the model's x, y and z axes, radians. */
    const Vector3<Radian>& getRotation() const noexcept { return rotation_; }
    /** @brief Sets the rotation about the model's x, y and z axes, radians. */
    void setRotation(const Vector3<Radian>& rotation);
    /** @brief Whether the model can be picked. */
    bool isAllowPicking() const noexcept { return allowPicking_; }
    /** @brief Sets whether the model can be picked. */
    void setAllowPicking(bool allow);

    /**
     * @brief Writes the model into @p graphics: URI, scale, rotation, colour
     * (keo::Color::HIGHLIGHTCOLOR while the feature is highlighted), picking, the context's
     * height reference and distance display condition.
     */
    void _fill(ModelGraphics& graphics, const SymbolContext& context) const;

private:
    std::shared_ptr<Resource> modelUri_;
    Vector3<double> scale_{1.0, 1.0, 1.0};
    Color color_ = Color::WHITE;
    Vector3<Radian> rotation_;
    bool allowPicking_ = true;
};

} // namespace keo::Feature
