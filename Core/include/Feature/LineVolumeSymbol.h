#pragma once

#include "Common/Vector2.h"
#include "Feature/FeatureExport.h"
#include "Feature/Symbol.h"
#include "Feature/detail/SubscriptionPair.h"

#include <memory>
#include <vector>

namespace keo {
class PolylineVolumeGraphics;
} // namespace keo

namespace keo::Feature {

class Material;
struct SymbolContext;

/**
 * @brief A line volume: a 2D cross-section swept along a polyline (a pipe, a tunnel, a fence
 * seen as a solid), with its ends closed or open, filled or not, painted with a material.
 *
 * The shape is given in metres in the plane perpendicular to the line, x to the right of the
 * direction of travel and y up. A shape of fewer than 3 points draws nothing: the polyline drops
 * its line volume child. Edits of the material are relayed as edits of the symbol.
 */
class KEO_FEATURE_API LineVolumeSymbol final : public Symbol {
public:
    /** @brief An empty shape, both ends closed, filled, no material. */
    LineVolumeSymbol();
    /**
     * @brief Copies the values; the material is cloned and relayed anew; the copy gets fresh,
     * empty events.
     */
    LineVolumeSymbol(const LineVolumeSymbol& other);
    ~LineVolumeSymbol() override;

    /**
     * @brief Copies a line volume symbol's values by the edit rule in field order (shape, close
     * start, close end, fill), then the material: a copy of the source's installed through
     * setMaterial (an empty source empties it). Another kind only logs.
     */
    void assign(const Symbol& other) override;
    /** @brief A deep copy without listeners. */
    std::shared_ptr<Symbol> clone() const override;
    /** @brief Type::LineVolume. */
    Type getType() const override;

    /** @brief The cross-section, metres (x right, y up); empty by default. */
    const std::vector<Vector2<double>>& getShape() const noexcept { return shape_; }
    /** @brief Sets the cross-section (edit rule: equal when of the same size and every point
     * equal). */
    void setShape(const std::vector<Vector2<double>>& shape);
    /** @brief Sets the cross-section, moved in (edit rule as the other overload). */
    void setShape(std::vector<Vector2<double>>&& shape);
    /** @brief Whether the start of the volume is capped (default true). */
    bool getCloseStart() const noexcept { return closeStart_; }
    /** @brief Caps the start or leaves it open (edit rule). */
    void setCloseStart(bool close);
    /** @brief Whether the end of the volume is capped (default true). */
    bool getCloseEnd() const noexcept { return closeEnd_; }
    /** @brief Caps the end or leaves it open (edit rule). */
    void setCloseEnd(bool close);
    /** @brief Whether the volume is filled (default true). */
    bool isFill() const noexcept { return fill_; }
    /** @brief Fills the volume or not (edit rule). */
    void setFill(bool fill);
    /** @brief The material painted on the volume, or null (the renderer's default). */
    const std::shared_ptr<Material>& getMaterial() const noexcept { return material_; }
    /** @brief Sets the material (relayed; the same pointer changes nothing). */
    void setMaterial(std::shared_ptr<Material> material);

    /**
     * @brief Writes the volume's look into @p graphics: fill, shape, close start and end, the
     * context's distance display condition and the material (brought up to date and shared,
     * showing keo::Color::HIGHLIGHTCOLOR while the feature is highlighted; without a material, the
     * graphics' material is cleared). The positions belong to the polyline that draws it.
     */
    void _fill(PolylineVolumeGraphics& graphics, const SymbolContext& context) const;

private:
    std::vector<Vector2<double>> shape_;
    bool closeStart_ = true;
    bool closeEnd_ = true;
    bool fill_ = true;
    std::shared_ptr<Material> material_;
    detail::SubscriptionPair materialSubscription_;
};

} // namespace keo::Feature
