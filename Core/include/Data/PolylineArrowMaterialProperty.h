#pragma once

#include "Common/Color.h"
#include "Data/DataExport.h"
#include "Data/MaterialProperty.h"

namespace keo {

/**
 * @brief A line painted in the main colour whose last segment ends in an arrow head pointing in
 * the direction of the line.
 */
class KEO_DATA_API PolylineArrowMaterialProperty final : public MaterialProperty {
public:
    /** @brief The kind of this class, as getType() reports it. */
    static constexpr Type TYPE = Type::PolylineArrow;

    /** @brief The values an arrow line material starts with. */
    struct ConstructorOptions {
        /** @brief The colour of the line and the arrow head (default Color::WHITE). */
        Color color{1.0f, 1.0f, 1.0f, 1.0f};
    };

    /** @brief An opaque white arrow. */
    PolylineArrowMaterialProperty() noexcept;
    /** @brief An arrow of the values of @p options. */
    explicit PolylineArrowMaterialProperty(const ConstructorOptions& options) noexcept;
    PolylineArrowMaterialProperty(const PolylineArrowMaterialProperty&) = default;
    PolylineArrowMaterialProperty& operator=(const PolylineArrowMaterialProperty&) = default;
    ~PolylineArrowMaterialProperty() override;
};

} // namespace keo
