#pragma once

#include "Common/Color.h"
#include "Feature/ChangeEvents.h"
#include "Feature/FeatureExport.h"
#include "Feature/FunctionWrapper.h"
#include "Feature/Publisher.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace keo {
class GeometryGraphics;
class Image;
class MaterialProperty;
} // namespace keo

namespace keo::Feature {

/**
 * @brief The base of every material: how the surface of a geometry is painted, kept as a plain,
 * editable value that turns itself into the data library's material property on request.
 *
 * Each material owns at most one cached keo::MaterialProperty of its kind. The first update (or
 * _getMaterial) creates it from the material's values; later updates refresh it in place while
 * the material's changed flag is set, so every graphics component painted with this material
 * shares the one property object. The main colour (and any colour that follows highlighting) is
 * pushed on every update, so highlighting switches on and off without marking anything changed.
 *
 * Every setter follows the edit rule: nothing when the value is equal (exact comparison, a NaN
 * never equals anything); otherwise changed-lock true, store and set the changed flag,
 * changed-lock false, definition-changed. A copy gets fresh, empty events, no cached property and
 * a set changed flag.
 *
 * Not thread-safe: update, _getMaterial and the setters of one material must not run
 * concurrently (the owning feature orders them under its lock through the changed-lock event).
 */
class KEO_FEATURE_API Material : public ChangeEvents<std::function<void()>> {
public:
    /** @brief The material kinds, one code per class (9 is not used). */
    enum class Type : std::uint8_t {
        None = 0,           ///< The base class itself.
        Color = 1,          ///< ColorMaterial
        Image = 2,          ///< ImageMaterial
        LineDash = 3,       ///< LineDashMaterial
        LineArrow = 4,      ///< LineArrowMaterial
        LineGlow = 5,       ///< LineGlowMaterial
        LineOutline = 6,    ///< LineOutlineMaterial
        LineDynamic = 7,    ///< LineDynamicMaterial
        PolygonDynamic = 8, ///< PolygonDynamicMaterial
        CircleWave = 10,    ///< CircleWaveMaterial
    };

    virtual ~Material();
    Material& operator=(const Material&) = delete;

    /**
     * @brief Copies @p other's values through the setters, so that only values that differ raise
     * events. A material of another kind is not copied: a warning is logged and nothing changes.
     * The base part copies enable-breathing, then the breathing rate; each kind copies its own
     * fields first and the base's last.
     */
    virtual void assign(const Material& other) = 0;
    /** @brief A copy of the same kind, without listeners and without a cached property. */
    virtual std::shared_ptr<Material> clone() const = 0;
    /** @brief The kind of the material (None for the base). */
    virtual Type getType() const;
    /**
     * @brief Brings the cached property up to date (creating it on the first call) and sets it
     * as @p graphics' material, shared. With @p highlight the property shows
     * keo::Color::HIGHLIGHTCOLOR in place of the material's own colour; the flag is not
     * remembered, and the next call without it shows the own colour again.
     */
    virtual void update(keo::GeometryGraphics& graphics, bool highlight) const;

    /** @brief Whether the property pulses its opacity (default false). */
    bool isEnableBreathing() const noexcept { return enableBreathing_; }
    /** @brief Turns breathing on or off (edit rule). */
    void setEnableBreathing(bool enable);
    /**
     * @brief The breathing rate handed to the property, in pulses per minute (default 100; see
     * keo::MaterialProperty::setBreathingRate).
     */
    float getBreathingRate() const noexcept { return breathingRate_; }
    /** @brief Sets the breathing rate, pulses per minute, stored as given (edit rule). */
    void setBreathingRate(float rate);

    /**
     * @brief Brings the cached property up to date as update does (with @p highlight) and returns
     * it, shared, without handing it to a graphics component.
     */
    std::shared_ptr<keo::MaterialProperty> _getMaterial(bool highlight);

    /** @brief Raises the definition-changed event. */
    void _raiseDefinitionChangedEvent();

protected:
    /** @brief Breathing off at rate 100, no property, changed flag set, fresh events. */
    Material();
    /** @brief Copies the breathing values; fresh events, no property, changed flag set. */
    Material(const Material& other);

    /**
     * @brief Creates or refreshes the cached property. The base body is the breathing step that
     * every kind ends with: when a property is cached and the changed flag is set, it hands the
     * breathing values to the property. It does not clear the flag.
     */
    virtual void updateImplMaterial(bool highlight) const = 0;

    /**
     * @brief The setter of every material field: the edit rule, setting the changed flag when it
     * stores. Returns whether it stored. Defined in the library's sources.
     */
    template <typename T, typename U>
    bool editField(T& field, U&& value);

    /**
     * @brief The update of every kind whose property is of class @p Property: creates the
     * property from makeOptions() when none is cached; otherwise, while changed, refresh(property)
     * pushes the values that follow edits; then push(property) pushes what follows every call
     * (the highlight-dependent colours); then the breathing step; then clears the changed flag.
     * Defined in the library's sources.
     */
    template <typename Property, typename MakeOptions, typename Refresh, typename Push>
    void refreshMaterial(bool highlight, MakeOptions&& makeOptions, Refresh&& refresh,
                         Push&& push) const;

private:
    mutable std::shared_ptr<keo::MaterialProperty> material_;
    mutable bool changed_ = true;
    bool enableBreathing_ = false;
    float breathingRate_ = 100.0f;
};

} // namespace keo::Feature
