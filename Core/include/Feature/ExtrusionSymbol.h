#pragma once

#include "Feature/FeatureExport.h"
#include "Feature/Symbol.h"
#include "Feature/detail/SubscriptionPair.h"

#include <cstdint>
#include <memory>
#include <string>

namespace keo::Feature {

class Feature;

/**
 * @brief An extrusion: a polygon, rectangle or polyline raised into a body by a height. The body
 * symbol draws the wall, the tail symbol the top. The body must be a PolygonSymbol. The tail must
 * be a PolygonSymbol on a polygon (a roof, with the roof outline from its outline symbol) and a
 * LineSymbol on a polyline (a line along the top of the wall); a rectangle draws no top. On a
 * polygon or a polyline a symbol of another kind, or a hidden one, draws nothing (its child
 * entity is dropped); a rectangle draws its wall whatever the body, with the body's look only
 * when that is a shown PolygonSymbol. The height is measured as the height reference says, and
 * comes from the feature's attribute named by the field name when that holds a number.
 *
 * Edits of the body and tail symbols are relayed as edits of the extrusion.
 */
class KEO_FEATURE_API ExtrusionSymbol final : public Symbol {
public:
    /** @brief How the extrusion height is measured. */
    enum class HeightReference : std::uint8_t {
        /** @brief Up from each vertex's own height (a negative height extrudes down). */
        Relative = 0,
        /** @brief To the height above the ellipsoid, whatever the vertices' heights. */
        Absolute = 1,
    };

    /** @brief No field name, height 0, relative, no body or tail symbol. */
    ExtrusionSymbol();
    /**
     * @brief Copies the values; the body and tail symbols are cloned and relayed anew; fresh,
     * empty events.
     */
    ExtrusionSymbol(const ExtrusionSymbol& other);
    ~ExtrusionSymbol() override;

    /**
     * @brief Copies an extrusion symbol's values: field name, height and height reference by the
     * edit rule, then the body and tail symbols (assigned in place when both hold one of the same
     * symbol kind, else a clone or null through their setters). Another kind only logs.
     */
    void assign(const Symbol& other) override;
    /** @brief A deep copy without listeners. */
    std::shared_ptr<Symbol> clone() const override;
    /** @brief Type::Extrusion. */
    Type getType() const override;

    /**
     * @brief The name of a feature attribute that gives the height in place of getHeight, where
     * the feature has a number of that name; empty: the height is always getHeight.
     */
    const std::string& getFieldName() const noexcept { return fieldName_; }
    /** @brief Sets the attribute name (edit rule). */
    void setFieldName(const std::string& name);
    /** @brief The extrusion height, metres (default 0). */
    double getHeight() const noexcept { return height_; }
    /** @brief Sets the extrusion height, metres (edit rule; a NaN always counts as a change). */
    void setHeight(double height);
    /** @brief How the height is measured (default Relative). */
    HeightReference getHeightReference() const noexcept { return heightReference_; }
    /**
     * @brief Sets how the height is measured (edit rule; any 8-bit value is stored). A value that
     * is neither Relative nor Absolute extrudes a polygon's and a rectangle's wall as Absolute,
     * leaves a polyline's wall without heights, and leaves the top (roof or line) at the
     * vertices' own heights.
     */
    void setHeightReference(HeightReference heightReference);
    /** @brief The symbol of the wall, or null. */
    const std::shared_ptr<Symbol>& getBodySymbol() noexcept { return body_; }
    /** @brief The symbol of the wall, or null. */
    const Symbol* getBodySymbol() const noexcept { return body_.get(); }
    /** @brief Sets the symbol of the wall (relayed; the same pointer changes nothing). */
    void setBodySymbol(std::shared_ptr<Symbol> symbol);
    /** @brief The symbol of the top, or null. */
    const std::shared_ptr<Symbol>& getTailSymbol() noexcept { return tail_; }
    /** @brief The symbol of the top, or null. */
    const Symbol* getTailSymbol() const noexcept { return tail_.get(); }
    /** @brief Sets the symbol of the top (relayed; the same pointer changes nothing). */
    void setTailSymbol(std::shared_ptr<Symbol> symbol);

    /**
     * @brief The extrusion height for @p feature, metres: the feature's attribute named by the
     * field name when it holds a number (integer or floating), else getHeight.
     */
    double _getHeight(const Feature& feature) const;

private:
    std::string fieldName_;
    double height_ = 0.0;
    HeightReference heightReference_ = HeightReference::Relative;
    std::shared_ptr<Symbol> body_;
    std::shared_ptr<Symbol> tail_;
    detail::SubscriptionPair bodySubscription_;
    detail::SubscriptionPair tailSubscription_;
};

} // namespace keo::Feature
