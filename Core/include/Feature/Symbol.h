#pragma once

#include "Feature/ChangeEvents.h"
#include "Feature/FeatureExport.h"
#include "Feature/FunctionWrapper.h"
#include "Feature/Publisher.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace keo::Feature {

/**
 * @brief The base of every symbol: one drawable part of a style (a billboard, a label, a line,
 * ...), with an enabled flag and the two change events that its holder relays.
 *
 * Every setter follows the edit rule: nothing when the value is equal; otherwise changed-lock
 * true, store, changed-lock false, definition-changed. A copy gets fresh, empty events.
 */
class KEO_FEATURE_API Symbol : public ChangeEvents<std::function<void()>> {
public:
    /** @brief The symbol kinds, one code per class. */
    enum class Type : std::uint8_t {
        Point = 0,          ///< PointSymbol
        Billboard = 1,      ///< BillboardSymbol
        Label = 2,          ///< LabelSymbol
        Model = 3,          ///< ModelSymbol
        Line = 4,           ///< LineSymbol
        Polygon = 5,        ///< PolygonSymbol
        Extrusion = 6,      ///< ExtrusionSymbol
        Ellipse = 7,        ///< EllipseSymbol
        ParticleSystem = 8, ///< ParticleSystemSymbol
        LineVolume = 9,     ///< LineVolumeSymbol
        LengthLabel = 10,   ///< LengthLabelSymbol
    };

    virtual ~Symbol();
    Symbol& operator=(const Symbol&) = delete;

    /**
     * @brief Copies @p other's values through the setters, so that only values that differ raise
     * events. A symbol of another kind is not copied: a warning is logged and nothing changes.
     * Each kind copies its own fields after the base's.
     */
    virtual void assign(const Symbol& other);
    /** @brief A deep copy of the same kind, without listeners. */
    virtual std::shared_ptr<Symbol> clone() const = 0;
    /** @brief The kind of the symbol. */
    virtual Type getType() const = 0;

    /** @brief Whether the symbol is drawn (default true). */
    bool isEnabled() const noexcept { return enabled_; }
    /** @brief Turns drawing of the symbol on or off (edit rule). */
    void setEnabled(bool enabled);

    /** @brief Raises the definition-changed event. */
    void _raiseDefinitionChangedEvent();

protected:
    /** @brief An enabled symbol with fresh events. */
    Symbol();
    /** @brief Copies the enabled flag; the copy gets fresh, empty events. */
    Symbol(const Symbol& other);

private:
    bool enabled_ = true;
};

} // namespace keo::Feature
