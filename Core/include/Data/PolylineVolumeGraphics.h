#pragma once

#include "Common/Vector2.h"
#include "Common/Vector3.h"
#include "Data/DataExport.h"
#include "Data/FilledGeometryGraphics.h"

#include <vector>

namespace keo {

/**
 * @brief A two-dimensional shape swept along a line of Cartesian positions (ECEF, metres): a
 * tube, a channel or a fence.
 *
 * The shape is the cross-section outline in metres, x to the right of the direction of travel
 * and y up. A volume needs two positions and a shape of three points; with less it draws
 * nothing. The ends are closed with caps when asked.
 */
class KEO_DATA_API PolylineVolumeGraphics final : public FilledGeometryGraphics {
public:
    /** @brief The volume's own fields, with their defaults. */
    struct Fields {
        /** @brief The line the shape is swept along, ECEF metres. */
        std::vector<Vector3<double>> positions;
        /** @brief The cross-section outline, metres. */
        std::vector<Vector2<double>> shape;
        /** @brief Whether the start is closed with a cap. */
        bool closeStart = true;
        /** @brief Whether the end is closed with a cap. */
        bool closeEnd = true;
    };
    /** @brief Everything a volume is made from: common, fill and volume fields. */
    struct ConstructorOptions : CommonOptions, FillOptions, Fields {};

    /** @brief A volume of the default options (no positions, no shape). */
    PolylineVolumeGraphics();
    /** @brief A volume of @p options. */
    explicit PolylineVolumeGraphics(const ConstructorOptions& options);
    ~PolylineVolumeGraphics() override;

    /** @brief Whether @p type is Type::PolylineVolume. */
    static constexpr bool isKindOf(Type type) noexcept { return type == Type::PolylineVolume; }

    /** @brief The line positions, ECEF metres (default none). */
    const std::vector<Vector3<double>>& getPositions() const noexcept { return fields_.positions; }
    /** @brief Sets the line positions (stored as given). */
    void setPositions(std::vector<Vector3<double>> positions) noexcept;
    /** @brief The cross-section outline, metres (default none). */
    const std::vector<Vector2<double>>& getShape() const noexcept { return fields_.shape; }
    /** @brief Sets the cross-section outline (stored as given). */
    void setShape(std::vector<Vector2<double>> shape) noexcept;
    /** @brief Whether the start is capped (default true). */
    bool getCloseStart() const noexcept { return fields_.closeStart; }
    /** @brief Caps the start, or not. */
    void setCloseStart(bool close) noexcept { fields_.closeStart = close; }
    /** @brief Whether the end is capped (default true). */
    bool getCloseEnd() const noexcept { return fields_.closeEnd; }
    /** @brief Caps the end, or not. */
    void setCloseEnd(bool close) noexcept { fields_.closeEnd = close; }

    /** @brief Writes the fill fields, then the positions, the shape and the caps. */
    void describe(FieldList& fields, const TimePoint& time) const override;

private:
    Fields fields_;
};

} // namespace keo
