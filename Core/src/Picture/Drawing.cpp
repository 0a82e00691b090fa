#include "Drawing.h"

#include "Data/Entity.h"
#include "Data/FilledGeometryGraphics.h"
#include "Data/GeometryGraphics.h"
#include "Data/MaterialProperty.h"
#include "Data/OrientationProperty.h"

#include <algorithm>
#include <cmath>
#include <exception>

namespace keo::Picture::detail {

namespace {

using Type = GeometryGraphics::Type;

// The light that shades solids: from the south-west and above, in the local frame.
const Vector3<double> LIGHT = Vector3<double>(-0.35, -0.45, 0.82).normalize();
// The share of a face's colour it keeps when turned away from the light.
constexpr double AMBIENT = 0.5;

// The unit normal of a flat polygon (Newell's method), turned towards the camera.
Vector3<double> facingNormal(const std::vector<Vector3<double>>& face, const Camera& camera) {
    Vector3<double> normal;
    Vector3<double> centre;
    for (std::size_t i = 0; i < face.size(); ++i) {
        const auto& a = face[i];
        const auto& b = face[(i + 1) % face.size()];
        normal += Vector3<double>((a.y - b.y) * (a.z + b.z), (a.z - b.z) * (a.x + b.x),
                                  (a.x - b.x) * (a.y + b.y));
        centre += a;
    }
    normal = normal.normalize();
    centre /= static_cast<double>(face.size());
    return normal.dot(camera.position() - centre) < 0.0 ? -normal : normal;
}

} // namespace

Color shaded(const Color& color, const Vector3<double>& normal) noexcept {
    const double lit = std::max(0.0, normal.dot(LIGHT));
    const auto factor = static_cast<float>(AMBIENT + (1.0 - AMBIENT) * lit);
    return {color.r * factor, color.g * factor, color.b * factor, color.a};
}

bool drawSubject(const Subject& subject, DrawContext& context) {
    switch (subject.graphics->getType()) {
    case Type::Point:
        return drawPoint(subject, context);
    case Type::Billboard:
        return drawBillboard(subject, context);
    case Type::Label:
        return drawLabel(subject, context);
    case Type::Polyline:
        return drawPolyline(subject, context);
    case Type::Polygon:
    case Type::Rectangle:
    case Type::Ellipse:
        return drawArea(subject, context);
    case Type::Wall:
        return drawWall(subject, context);
    case Type::PolylineVolume:
        return drawVolume(subject, context);
    case Type::Model:
        return drawModel(subject, context);
    case Type::ParticleSystem:
        return drawParticles(subject, context);
    }
    return false;
}

Color materialColor(const MaterialProperty* material, const TimePoint& time) noexcept {
    if (material == nullptr) {
        return Color::WHITE;
    }
    const Color& color = material->getColor();
    return color.withAlpha(color.a * material->getBreathingAlpha(time));
}

std::optional<ScreenPoint> projectAnchor(const Subject& subject, const DrawContext& context) {
    if (!subject.anchor) {
        return std::nullopt;
    }
    return context.camera.project(context.frame.toLocal(*subject.anchor));
}

std::vector<Vector3<double>> toLocal(const std::vector<Vector3<double>>& ring,
                                     const LocalFrame& frame) {
    std::vector<Vector3<double>> local;
    local.reserve(ring.size());
    for (const auto& point : ring) {
        local.push_back(frame.toLocal(point));
    }
    return local;
}

std::vector<Point2> flat(const std::vector<ScreenPoint>& points) {
    std::vector<Point2> result;
    result.reserve(points.size());
    for (const auto& point : points) {
        result.push_back({point.x, point.y});
    }
    return result;
}

double meanDepth(const std::vector<ScreenPoint>& points) noexcept {
    double sum = 0.0;
    for (const auto& point : points) {
        sum += point.depth;
    }
    return points.empty() ? 0.0 : sum / static_cast<double>(points.size());
}

FaceStyle faceStyleOf(const FilledGeometryGraphics& graphics, const Color& color) noexcept {
    FaceStyle style;
    if (graphics.isFill()) {
        style.fill = color;
    }
    if (graphics.isOutline()) {
        style.outline = graphics.getOutlineColor();
        style.outlineWidth = static_cast<double>(graphics.getOutlineWidth());
    }
    return style;
}

bool addFace(const std::vector<Vector3<double>>& face, const FaceStyle& style,
             DrawContext& context) {
    const auto projected = context.camera.projectPolygon(face);
    if (projected.size() < 3) {
        return false;
    }
    FillShape shape;
    shape.rings.push_back(flat(projected));
    shape.fill = shaded(style.fill, facingNormal(face, context.camera));
    shape.outline = style.outline;
    shape.outlineWidth = style.outlineWidth;
    context.list.add(Layer::Solids, meanDepth(projected), std::move(shape));
    return true;
}

Placement placementOf(const Subject& subject, const TimePoint& time) {
    Placement placement;
    placement.origin = subject.anchor.value_or(Vector3<double>());
    const auto& property = subject.entity->getOrientation();
    std::optional<Quaternion> orientation;
    try {
        orientation = property ? property->getValue(time) : std::nullopt;
    } catch (const std::exception&) {
        // An orientation that cannot be computed leaves the entity's axes east, north and up.
    }
    if (orientation) {
        const Quaternion q = orientation->normalize();
        placement.axes[0] = q.rotate({1.0, 0.0, 0.0});
        placement.axes[1] = q.rotate({0.0, 1.0, 0.0});
        placement.axes[2] = q.rotate({0.0, 0.0, 1.0});
    } else {
        eastNorthUpAxes(placement.origin, placement.axes);
    }
    return placement;
}

} // namespace keo::Picture::detail
