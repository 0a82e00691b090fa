#pragma once

#include "Common/Vector3.h"
#include "Data/DataExport.h"
#include "Data/FilledGeometryGraphics.h"

#include <vector>

namespace keo {

/**
 * @brief A vertical wall along a line of Cartesian positions (ECEF, metres), from a minimum to a
 * maximum height at each position.
 *
 * The height lists give one height in metres per position, in order. An empty minimum list puts
 * the wall's foot on the ground; an empty maximum list puts its top at the positions' own
 * heights. Lists whose length differs from the number of positions are stored as given; a
 * renderer draws only the positions that have both heights. A wall needs two positions.
 */
class KEO_DATA_API WallGraphics final : public FilledGeometryGraphics {
public:
    /** @brief The wall's own fields, with their defaults. */
    struct Fields {
        /** @brief The positions along the wall, ECEF metres. */
        std::vector<Vector3<double>> positions;
        /** @brief Height of the wall's foot at each position, metres. */
        std::vector<double> minimumHeights;
        /** @brief Height of the wall's top at each position, metres. */
        std::vector<double> maximumHeights;
    };
    /** @brief Everything a wall is made from: common, fill and wall fields. */
    struct ConstructorOptions : CommonOptions, FillOptions, Fields {};

    /** @brief A wall of the default options (no positions). */
    WallGraphics();
    /** @brief A wall of @p options. */
    explicit WallGraphics(const ConstructorOptions& options);
    ~WallGraphics() override;

    /** @brief Whether @p type is Type::Wall. */
    static constexpr bool isKindOf(Type type) noexcept { return type == Type::Wall; }

    /** @brief The positions, ECEF metres (default none). */
    const std::vector<Vector3<double>>& getPositions() const noexcept { return fields_.positions; }
    /** @brief Sets the positions (stored as given). */
    void setPositions(std::vector<Vector3<double>> positions) noexcept;
    /** @brief The minimum heights, metres (default none: the ground). */
    const std::vector<double>& getMinimumHeights() const noexcept { return fields_.minimumHeights; }
    /** @brief Sets the minimum heights, metres (stored as given). */
    void setMinimumHeights(std::vector<double> heights) noexcept;
    /** @brief The maximum heights, metres (default none: the positions' heights). */
    const std::vector<double>& getMaximumHeights() const noexcept { return fields_.maximumHeights; }
    /** @brief Sets the maximum heights, metres (stored as given). */
    void setMaximumHeights(std::vector<double> heights) noexcept;

    /** @brief Writes the fill fields, then the positions and both height lists. */
    void describe(FieldList& fields, const TimePoint& time) const override;

private:
    Fields fields_;
};

} // namespace keo
