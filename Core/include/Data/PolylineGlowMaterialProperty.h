#pragma once

#include "Common/Color.h"
#include "Data/DataExport.h"
#include "Data/MaterialProperty.h"

namespace keo {

/**
 * @brief A glowing line: the main colour is brightest on the centre line and fades towards the
 * edges; the glow power is the fraction of the width that glows, the taper power narrows the
 * line towards its end (1: no taper).
 *
 * Values are stored as given. A renderer reads a glow power outside [0, 1] clamped to it and a
 * NaN glow power as 0, and a taper power that is not a positive finite number as 1.
 */
class KEO_DATA_API PolylineGlowMaterialProperty final : public MaterialProperty {
public:
    /** @brief The kind of this class, as getType() reports it. */
    static constexpr Type TYPE = Type::PolylineGlow;

    /** @brief The values a glowing line material starts with. */
    struct ConstructorOptions {
        /** @brief The colour of the line (default Color::WHITE). */
        Color color{1.0f, 1.0f, 1.0f, 1.0f};
        /** @brief The fraction of the width that glows (default 0.25). */
        float glowPower = 0.25f;
        /** @brief The strength of the taper towards the end (default 1, no taper). */
        float taperPower = 1.0f;
    };

    /** @brief A white glow of power 0.25 without taper. */
    PolylineGlowMaterialProperty() noexcept;
    /** @brief A glowing line of the values of @p options. */
    explicit PolylineGlowMaterialProperty(const ConstructorOptions& options) noexcept;
    PolylineGlowMaterialProperty(const PolylineGlowMaterialProperty&) = default;
    PolylineGlowMaterialProperty& operator=(const PolylineGlowMaterialProperty&) = default;
    ~PolylineGlowMaterialProperty() override;

    /** @brief The fraction of the width that glows. */
    float getGlowPower() const noexcept { return glowPower_; }
    /** @brief Sets the fraction of the width that glows (stored as given; see the class). */
    void setGlowPower(float glowPower) noexcept { glowPower_ = glowPower; }
    /** @brief The strength of the taper towards the end. */
    float getTaperPower() const noexcept { return taperPower_; }
    /** @brief Sets the strength of the taper (stored as given; see the class). */
    void setTaperPower(float taperPower) noexcept { taperPower_ = taperPower; }

    /** @brief Writes the base fields, then "glowPower" and "taperPower". */
    void describe(FieldList& fields) const override;

private:
    float glowPower_;
    float taperPower_;
};

} // namespace keo
