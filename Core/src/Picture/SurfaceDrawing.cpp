// The filled kinds: areas on the ground or extruded into prisms (polygons, rectangles, ellipses),
// walls and polyline volumes.
#include "Drawing.h"

#include "Data/GroundGeometryGraphics.h"
#include "Data/PolylineVolumeGraphics.h"
#include "Data/WallGraphics.h"

#include <algorithm>

namespace keo::Picture::detail {

namespace {

using Ring = std::vector<Vector3<double>>;

// The shape of the rings (each projected and clipped) with the fill and outline of @p graphics.
FillShape areaShape(const std::vector<Ring>& localRings, const Color& color,
                    const FilledGeometryGraphics& graphics, const Camera& camera, double& depth) {
    FillShape shape;
    for (const auto& ring : localRings) {
        const auto projected = camera.projectPolygon(ring);
        if (projected.size() >= 3) {
            if (shape.rings.empty()) {
                depth = meanDepth(projected);
            }
            shape.rings.push_back(flat(projected));
        }
    }
    if (graphics.isFill()) {
        shape.fill = color;
    }
    if (graphics.isOutline()) {
        shape.outline = graphics.getOutlineColor();
        shape.outlineWidth = graphics.getOutlineWidth();
    }
    return shape;
}

// An extruded area: a side face along every edge of every ring, and the top with its holes.
bool drawPrism(const std::vector<Ring>& base, double topHeight, const Color& color,
               const GroundGeometryGraphics& area, DrawContext& context) {
    std::vector<Ring> top;
    bool drew = false;
    for (const auto& ring : base) {
        Ring lifted;
        for (const auto& point : ring) {
            lifted.push_back(atHeight(point, topHeight));
        }
        const Ring low = toLocal(ring, context.frame);
        const Ring high = toLocal(lifted, context.frame);
        for (std::size_t i = 0; i < low.size() && low.size() >= 3; ++i) {
            const std::size_t j = (i + 1) % low.size();
            drew |= addFace({low[i], low[j], high[j], high[i]}, faceStyleOf(area, color), context);
        }
        top.push_back(high);
    }
    double depth = 0.0;
    // The top faces straight up: lit as a roof.
    FillShape roof = areaShape(top, color, area, context.camera, depth);
    if (roof.rings.empty()) {
        return drew;
    }
    if (area.isFill()) {
        roof.fill = shaded(color, Vector3<double>(0.0, 0.0, 1.0));
    }
    context.list.add(Layer::Solids, depth, std::move(roof));
    return true;
}

} // namespace

bool drawArea(const Subject& subject, DrawContext& context) {
    const auto& area = static_cast<const GroundGeometryGraphics&>(*subject.graphics);
    if (subject.rings.empty() || subject.rings.front().size() < 3) {
        return false;
    }
    const Color color = materialColor(area.getMaterial().get(), context.time);
    const auto& extruded = area.getExtrudedHeight();
    if (extruded && !area.getClassificationType()) {
        return drawPrism(subject.rings, std::max(*extruded, area.getHeight()), color, area,
                         context);
    }
    std::vector<Ring> local;
    for (const auto& ring : subject.rings) {
        if (ring.size() >= 3) {
            local.push_back(toLocal(ring, context.frame));
        }
    }
    double depth = 0.0;
    FillShape shape = areaShape(local, color, area, context.camera, depth);
    if (shape.rings.empty()) {
        return false;
    }
    context.list.add(Layer::Ground, depth, std::move(shape));
    return true;
}

bool drawWall(const Subject& subject, DrawContext& context) {
    const auto& wall = static_cast<const WallGraphics&>(*subject.graphics);
    if (subject.rings.size() < 2 || subject.rings[1].size() < 2) {
        return false;
    }
    const Color color = materialColor(wall.getMaterial().get(), context.time);
    const Ring foot = toLocal(subject.rings[0], context.frame);
    const Ring top = toLocal(subject.rings[1], context.frame);
    if (context.camera.isMap()) {
        // Seen from straight above a wall is its top edge: drawn as a thick line.
        bool drew = false;
        for (const auto& run : context.camera.projectLine(top)) {
            StrokeShape shape;
            shape.points = flat(run);
            shape.color = wall.isFill() ? color : wall.getOutlineColor();
            shape.width = std::max(3.0, static_cast<double>(wall.getOutlineWidth()) + 2.0);
            context.list.add(Layer::Solids, meanDepth(run), std::move(shape));
            drew = true;
        }
        return drew;
    }
    const FaceStyle style = faceStyleOf(wall, color);
    bool drew = false;
    for (std::size_t i = 0; i + 1 < top.size(); ++i) {
        drew |= addFace({foot[i], foot[i + 1], top[i + 1], top[i]}, style, context);
    }
    return drew;
}

} // namespace keo::Picture::detail
