#pragma once

#include "Common/Color.h"
#include "Data/DataExport.h"
#include "Data/MaterialProperty.h"

namespace keo {

/** @brief A solid colour: the surface or line is painted in the main colour. */
class KEO_DATA_API ColorMaterialProperty final : public MaterialProperty {
public:
    /** @brief The kind of this class, as getType() reports it. */
    static constexpr Type TYPE = Type::Color;

    /** @brief The values a colour material starts with. */
    struct ConstructorOptions {
        /** @brief The colour (default Color::WHITE). */
        Color color{1.0f, 1.0f, 1.0f, 1.0f};
    };

    /** @brief Opaque white. */
    ColorMaterialProperty() noexcept;
    /** @brief The colour @p color (stored as given). */
    explicit ColorMaterialProperty(const Color& color) noexcept;
    /** @brief The colour of @p options. */
    explicit ColorMaterialProperty(const ConstructorOptions& options) noexcept;
    ColorMaterialProperty(const ColorMaterialProperty&) = default;
    ColorMaterialProperty& operator=(const ColorMaterialProperty&) = default;
    ~ColorMaterialProperty() override;
};

} // namespace keo
