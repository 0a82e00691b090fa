#pragma once

#include "Common/Vector2.h"
#include "Feature/ImageTileSizeUnit.h"

namespace keo {
class GeometryGraphics;
}

namespace keo::Feature::detail {

/**
 * @brief The repeat count of an image tiled over @p graphics with @p tileSize in @p unit.
 *
 * Count: the tile size itself. Meter: on polygon graphics, the outer ring's extent on the globe
 * in metres divided by the tile size (the east-west extent taken at the centre latitude); on
 * wall graphics, the wall's length and its greatest height divided by the tile size; on any
 * other graphics, @p previous. A zero tile component gives an infinite or NaN count (not
 * checked).
 *
 * @throws std::out_of_range "invalid vector subscript" when a wall's height lists are shorter
 * than its positions.
 */
Vector2<float> tileRepeat(const GeometryGraphics& graphics, const Vector2<float>& tileSize,
                          ImageTileSizeUnit unit, const Vector2<float>& previous);

} // namespace keo::Feature::detail
