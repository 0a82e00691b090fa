#pragma once

#include "Common/Color.h"
#include "Data/DataExport.h"
#include "Data/ImageSource.h"
#include "Data/TimePoint.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace keo {

class FieldList;
class Image;
class ColorMaterialProperty;
class ImageMaterialProperty;
class CircleWaveMaterialProperty;
class PolylineArrowMaterialProperty;
class PolylineDashMaterialProperty;
class PolylineDynamicMaterialProperty;
class PolylineGlowMaterialProperty;
class PolylineOutlineMaterialProperty;
class WallDynamicMaterialProperty;

/**
 * @brief How the surface of a graphics component is painted: the base of every material kind.
 *
 * Every kind has a main colour (the base keeps it, with its getter and setter) and the breathing
 * effect: when enabled, the renderer multiplies the material's alpha by a factor that pulses
 * between 0 and 1 at the breathing rate (getBreathingAlpha computes it). The kind of a property
 * is fixed at construction and given by getType(); the as...MaterialProperty() casts return the
 * property as its kind, or null when it is of another kind.
 *
 * Material properties are held through std::shared_ptr by graphics components and by the
 * materials that feed them. They are plain values without a lock of their own: the owner edits
 * them under the same lock that orders its edits with the frame update that reads them.
 */
class KEO_DATA_API MaterialProperty {
public:
    /** @brief The material kinds. */
    enum class Type : std::uint8_t {
        Color = 1,           ///< ColorMaterialProperty: a solid colour.
        Image = 2,           ///< ImageMaterialProperty: a tiled, tinted image.
        CircleWave = 3,      ///< CircleWaveMaterialProperty: rings spreading from the centre.
        PolylineArrow = 4,   ///< PolylineArrowMaterialProperty: a line ending in an arrow head.
        PolylineDash = 5,    ///< PolylineDashMaterialProperty: a dashed line.
        PolylineDynamic = 6, ///< PolylineDynamicMaterialProperty: an image flowing along a line.
        PolylineGlow = 7,    ///< PolylineGlowMaterialProperty: a glowing line.
        PolylineOutline = 8, ///< PolylineOutlineMaterialProperty: a line with an outline.
        WallDynamic = 9,     ///< WallDynamicMaterialProperty: an image moving across a surface.
    };

    virtual ~MaterialProperty();

    /** @brief The kind of this property. */
    Type getType() const noexcept { return type_; }
    /** @brief The class name of the kind, e.g. "ColorMaterialProperty". */
    const char* getTypeName() const noexcept { return typeName(type_); }
    /** @brief The class name of a kind; "MaterialProperty" for a value outside the enumeration. */
    static const char* typeName(Type type) noexcept;

    /** @brief The main colour (the tint, line or ring colour, depending on the kind). */
    const Color& getColor() const noexcept { return color_; }
    /** @brief Sets the main colour; components are stored as given (not clamped). */
    void setColor(const Color& color) noexcept { color_ = color; }

    /** @brief Whether the breathing effect is on (default false). */
    bool isEnableBreathing() const noexcept { return enableBreathing_; }
    /** @brief Turns the breathing effect on or off. */
    void setEnableBreathing(bool enable) noexcept { enableBreathing_ = enable; }
    /** @brief The breathing rate in pulses per minute (default 100). */
    float getBreathingRate() const noexcept { return breathingRate_; }
    /**
     * @brief Sets the breathing rate in pulses per minute. Stored as given; a rate that is not a
     * positive finite number (0, negative, NaN, infinite) means no pulse: getBreathingAlpha then
     * gives 1.
     */
    void setBreathingRate(float rate) noexcept { breathingRate_ = rate; }
    /**
     * @brief The factor, in [0, 1], by which the renderer multiplies the alpha at @p time.
     *
     * 1 when breathing is off or the rate means no pulse (see setBreathingRate) or the time is
     * not finite; otherwise 0.5 × (1 + cos(2π × rate / 60 × seconds)), so the material is fully
     * opaque at second 0 and fades out and in once per pulse.
     */
    float getBreathingAlpha(const TimePoint& time) const noexcept;

    /**
     * @brief Writes the property's fields for a scene dump, named as their setters: the base
     * writes "color", "enableBreathing" and "breathingRate", each kind then its own fields.
     */
    virtual void describe(FieldList& fields) const;

    /** @brief This property as a colour material, or null for another kind. */
    ColorMaterialProperty* asColorMaterialProperty() noexcept;
    /** @brief This property as a colour material, or null for another kind. */
    const ColorMaterialProperty* asColorMaterialProperty() const noexcept;
    /** @brief This property as an image material, or null for another kind. */
    ImageMaterialProperty* asImageMaterialProperty() noexcept;
    /** @brief This property as an image material, or null for another kind. */
    const ImageMaterialProperty* asImageMaterialProperty() const noexcept;
    /** @brief This property as a circle-wave material, or null for another kind. */
    CircleWaveMaterialProperty* asCircleWaveMaterialProperty() noexcept;
    /** @brief This property as a circle-wave material, or null for another kind. */
    const CircleWaveMaterialProperty* asCircleWaveMaterialProperty() const noexcept;
    /** @brief This property as an arrow line material, or null for another kind. */
    PolylineArrowMaterialProperty* asPolylineArrowMaterialProperty() noexcept;
    /** @brief This property as an arrow line material, or null for another kind. */
    const PolylineArrowMaterialProperty* asPolylineArrowMaterialProperty() const noexcept;
    /** @brief This property as a dashed line material, or null for another kind. */
    PolylineDashMaterialProperty* asPolylineDashMaterialProperty() noexcept;
    /** @brief This property as a dashed line material, or null for another kind. */
    const PolylineDashMaterialProperty* asPolylineDashMaterialProperty() const noexcept;
    /** @brief This property as a flowing-image line material, or null for another kind. */
    PolylineDynamicMaterialProperty* asPolylineDynamicMaterialProperty() noexcept;
    /** @brief This property as a flowing-image line material, or null for another kind. */
    const PolylineDynamicMaterialProperty* asPolylineDynamicMaterialProperty() const noexcept;
    /** @brief This property as a glowing line material, or null for another kind. */
    PolylineGlowMaterialProperty* asPolylineGlowMaterialProperty() noexcept;
    /** @brief This property as a glowing line material, or null for another kind. */
    const PolylineGlowMaterialProperty* asPolylineGlowMaterialProperty() const noexcept;
    /** @brief This property as an outlined line material, or null for another kind. */
    PolylineOutlineMaterialProperty* asPolylineOutlineMaterialProperty() noexcept;
    /** @brief This property as an outlined line material, or null for another kind. */
    const PolylineOutlineMaterialProperty* asPolylineOutlineMaterialProperty() const noexcept;
    /** @brief This property as a moving-image surface material, or null for another kind. */
    WallDynamicMaterialProperty* asWallDynamicMaterialProperty() noexcept;
    /** @brief This property as a moving-image surface material, or null for another kind. */
    const WallDynamicMaterialProperty* asWallDynamicMaterialProperty() const noexcept;

protected:
    /** @brief A property of kind @p type with main colour @p color, breathing off, rate 100. */
    MaterialProperty(Type type, const Color& color) noexcept;
    MaterialProperty(const MaterialProperty&) = default;
    MaterialProperty& operator=(const MaterialProperty&) = default;

    /**
     * @brief Writes an image source for a scene dump: a URI as a JSON string, a decoded image as
     * {"width": w, "height": h}, a null image pointer as null.
     */
    static void describeImage(FieldList& fields, std::string_view name, const ImageSource& image);

    /**
     * @brief The fractional part, in [0, 1), of the number of cycles completed at @p time by a
     * motion of @p cyclesPerSecond (negative rates count backwards); 0 when the product is not
     * finite. Shared by every animated kind so that they agree on the phase at each time.
     */
    static double cycleFraction(double cyclesPerSecond, const TimePoint& time) noexcept;

private:
    Type type_;
    bool enableBreathing_ = false;
    float breathingRate_ = 100.0f;
    // On a 16-byte boundary, so that the colour, written and read as one 16-byte value, never
    // straddles two cache lines: which it did depended on where the heap placed the property, and
    // such a write costs several times an aligned one.
    alignas(16) Color color_;
};

} // namespace keo
