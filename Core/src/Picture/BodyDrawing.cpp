// The kinds placed in the entity's own axes: models (their oriented bounding box) and particle
// systems (the shape of their emitter, marked at its centre).
#include "Drawing.h"

#include "Common/Math.h"
#include "Common/Matrix3.h"
#include "Data/BoxEmitter.h"
#include "Data/ConeEmitter.h"
#include "Data/ModelGraphics.h"
#include "Data/ParticleSystemGraphics.h"
#include "Data/RadialEmitter.h"

#include <algorithm>
#include <cmath>

namespace keo::Picture::detail {

namespace {

using Ring = std::vector<Vector3<double>>;

// Points of each circle that outlines an emitter.
constexpr int CIRCLE_STEPS = 48;
// The corners of a box, as signs of the half extents, and its six faces by corner index.
constexpr double CORNER_SIGNS[8][3] = {{-1, -1, -1}, {1, -1, -1}, {1, 1, -1}, {-1, 1, -1},
                                       {-1, -1, 1},  {1, -1, 1},  {1, 1, 1},  {-1, 1, 1}};
constexpr int BOX_FACES[6][4] = {{0, 1, 2, 3}, {4, 5, 6, 7}, {0, 1, 5, 4},
                                 {1, 2, 6, 5}, {2, 3, 7, 6}, {3, 0, 4, 7}};

// The eight corners of the box of @p centre and @p half extents.
Ring boxCorners(const Vector3<double>& centre, const Vector3<double>& half) {
    Ring corners;
    for (const auto& sign : CORNER_SIGNS) {
        corners.push_back(centre +
                          Vector3<double>(sign[0] * half.x, sign[1] * half.y, sign[2] * half.z));
    }
    return corners;
}

bool drawModelBox(const Subject& subject, const ModelGraphics& model, DrawContext& context) {
    const auto& box = *model.getBoundingBox();
    const Vector3<Radian>& turn = model.getRotation();
    // Turned about x, then y, then z.
    const Matrix3 rotation = Matrix3::fromRotationZ(turn.z) * Matrix3::fromRotationY(turn.y) *
                             Matrix3::fromRotationX(turn.x);
    const Placement placement = placementOf(subject, context.time);
    Ring corners = boxCorners(box.center, box.halfExtents.multiplyComponents(model.getScale()));
    for (auto& corner : corners) {
        corner = context.frame.toLocal(placement.toEcef(rotation * corner));
    }
    FaceStyle style;
    style.fill = model.getColor();
    // Dark edges, so that the box reads as a solid.
    style.outline = Color(model.getColor().r * 0.4f, model.getColor().g * 0.4f,
                          model.getColor().b * 0.4f, model.getColor().a);
    style.outlineWidth = 1.0;
    bool drew = false;
    for (const auto& face : BOX_FACES) {
        drew |= addFace({corners[static_cast<std::size_t>(face[0])],
                         corners[static_cast<std::size_t>(face[1])],
                         corners[static_cast<std::size_t>(face[2])],
                         corners[static_cast<std::size_t>(face[3])]},
                        style, context);
    }
    return drew;
}

// A circle of @p radius in the plane of axes @p a and @p b around @p centre.
Ring circle(const Vector3<double>& centre, const Vector3<double>& a, const Vector3<double>& b,
            double radius) {
    Ring points;
    for (int step = 0; step <= CIRCLE_STEPS; ++step) {
        const double t = Math::TWO_PI * step / CIRCLE_STEPS;
        points.push_back(centre + a * (radius * std::cos(t)) + b * (radius * std::sin(t)));
    }
    return points;
}

// The outlines of an emitter in its own frame (x, y, z metres).
std::vector<Ring> emitterOutlines(const ParticleSystemGraphics& system) {
    const ParticleEmitter* emitter = system.getEmitter().get();
    const Vector3<double> o;
    const Vector3<double> x(1.0, 0.0, 0.0);
    const Vector3<double> y(0.0, 1.0, 0.0);
    const Vector3<double> z(0.0, 0.0, 1.0);
    const auto size = [](double value) { return value > 0.0 ? value : 0.0; };
    switch (emitter == nullptr ? ParticleEmitter::Type::Box : emitter->getType()) {
    case ParticleEmitter::Type::Box: {
        if (emitter == nullptr) {
            return {};
        }
        const Vector3<double>& d = static_cast<const BoxEmitter&>(*emitter).getDimensions();
        const Ring c = boxCorners(o, Vector3<double>(size(d.x), size(d.y), size(d.z)) * 0.5);
        return {{c[0], c[1], c[2], c[3], c[0]},
                {c[4], c[5], c[6], c[7], c[4]},
                {c[0], c[4]},
                {c[1], c[5]},
                {c[2], c[6]},
                {c[3], c[7]}};
    }
    case ParticleEmitter::Type::Circle:
        return {circle(o, x, y, size(static_cast<const RadialEmitter&>(*emitter).getRadius()))};
    case ParticleEmitter::Type::Sphere: {
        const double r = size(static_cast<const RadialEmitter&>(*emitter).getRadius());
        return {circle(o, x, y, r), circle(o, x, z, r), circle(o, y, z, r)};
    }
    case ParticleEmitter::Type::Cone: {
        const double angle = static_cast<const ConeEmitter&>(*emitter).getAngle().value();
        const double half = std::isnan(angle) ? 0.0 : std::min(std::fabs(angle), 1.4);
        // Drawn as far as the fastest particle flies in its longest life, within 1 to 100 m.
        const double length = std::clamp(static_cast<double>(system.getMaximumSpeed()) *
                                             static_cast<double>(system.getMaximumParticleLife()),
                                         1.0, 100.0);
        const double r = length * std::tan(half);
        return {circle(z * length, x, y, r),
                {o, Vector3<double>(r, 0, length)},
                {o, Vector3<double>(-r, 0, length)},
                {o, Vector3<double>(0, r, length)},
                {o, Vector3<double>(0, -r, length)}};
    }
    }
    return {};
}

} // namespace

bool drawModel(const Subject& subject, DrawContext& context) {
    const auto& model = static_cast<const ModelGraphics&>(*subject.graphics);
    if (!model.getUri()) {
        return false;
    }
    if (model.isReady() && model.getBoundingBox()) {
        return drawModelBox(subject, model, context);
    }
    const auto at = projectAnchor(subject, context);
    if (!at) {
        return false;
    }
    context.list.add(Layer::Markers, at->depth,
                     MarkShape{{at->x, at->y}, 14.0, model.getColor(), MarkKind::PendingModel});
    return true;
}

bool drawParticles(const Subject& subject, DrawContext& context) {
    const auto& system = static_cast<const ParticleSystemGraphics&>(*subject.graphics);
    const Placement placement = placementOf(subject, context.time);
    const Matrix4& matrix = system.getEmitterModelMatrix();
    const auto toLocalPoint = [&](const Vector3<double>& point) {
        return context.frame.toLocal(placement.toEcef(matrix.multiplyByPoint(point)));
    };
    for (const auto& outline : emitterOutlines(system)) {
        Ring local;
        for (const auto& point : outline) {
            local.push_back(toLocalPoint(point));
        }
        for (const auto& run : context.camera.projectLine(local)) {
            StrokeShape shape;
            shape.points = flat(run);
            shape.color = system.getStartColor();
            shape.width = 1.5;
            shape.look = LineLook::Dash;
            shape.dashes = {4.0, 3.0};
            context.list.add(Layer::Markers, meanDepth(run), std::move(shape));
        }
    }
    const auto centre = context.camera.project(toLocalPoint(Vector3<double>()));
    if (!centre) {
        return false;
    }
    context.list.add(
        Layer::Markers, centre->depth,
        MarkShape{{centre->x, centre->y}, 12.0, system.getStartColor(), MarkKind::Particles});
    return true;
}

} // namespace keo::Picture::detail
