#pragma once

#include "Camera.h"
#include "DrawList.h"
#include "LocalFrame.h"
#include "Subject.h"

#include "Common/Color.h"
#include "Data/TimePoint.h"

#include <optional>
#include <vector>

namespace keo {
class FilledGeometryGraphics;
class GeometryGraphics;
class MaterialProperty;
} // namespace keo

namespace keo::Picture::detail {

/** @brief What every kind's drawing step works with. */
struct DrawContext {
    const LocalFrame& frame;
    const Camera& camera;
    TimePoint time;
    DrawList& list;
};

/** @brief Adds the shapes of @p subject to the list; returns whether it added any. */
bool drawSubject(const Subject& subject, DrawContext& context);

// Each kind's drawing step (one per graphics kind), returning whether it added a shape.
bool drawPoint(const Subject& subject, DrawContext& context);
bool drawBillboard(const Subject& subject, DrawContext& context);
bool drawLabel(const Subject& subject, DrawContext& context);
bool drawPolyline(const Subject& subject, DrawContext& context);
bool drawArea(const Subject& subject, DrawContext& context);
bool drawWall(const Subject& subject, DrawContext& context);
bool drawVolume(const Subject& subject, DrawContext& context);
bool drawModel(const Subject& subject, DrawContext& context);
bool drawParticles(const Subject& subject, DrawContext& context);

// ---- Shared steps ---------------------------------------------------------------------------

/**
 * @brief The colour @p material paints with at @p time: its main colour with the alpha times the
 * breathing factor; opaque white without a material.
 */
Color materialColor(const MaterialProperty* material, const TimePoint& time) noexcept;

/** @brief The entity's position projected onto the picture; empty when behind the camera. */
std::optional<ScreenPoint> projectAnchor(const Subject& subject, const DrawContext& context);

/** @brief ECEF positions in the local frame. */
std::vector<Vector3<double>> toLocal(const std::vector<Vector3<double>>& ring,
                                     const LocalFrame& frame);

/** @brief Screen points without their depth. */
std::vector<Point2> flat(const std::vector<ScreenPoint>& points);

/** @brief The mean depth of @p points (0 for none). */
double meanDepth(const std::vector<ScreenPoint>& points) noexcept;

/**
 * @brief @p color as a face of unit normal @p normal (local frame, facing the camera) shows under
 * the fixed light: half its brightness in shadow, all of it facing the light.
 */
Color shaded(const Color& color, const Vector3<double>& normal) noexcept;

/** @brief How a face of a solid is painted. */
struct FaceStyle {
    /** @brief Fill colour before shading; fully transparent: not filled. */
    Color fill = Color::TRANSPARENT;
    Color outline = Color::TRANSPARENT;
    /** @brief Outline width, pixels; 0: no outline. */
    double outlineWidth = 0.0;
};

/** @brief The face style of @p graphics' fill and outline, filling with @p color. */
FaceStyle faceStyleOf(const FilledGeometryGraphics& graphics, const Color& color) noexcept;

/**
 * @brief Adds one face of a solid (a flat polygon in the local frame) to the Solids layer, shaded
 * by the fixed light. False when the face lies wholly behind the camera.
 */
bool addFace(const std::vector<Vector3<double>>& face, const FaceStyle& style,
             DrawContext& context);

/**
 * @brief Where an entity's own axes lie: its position and its x, y and z axes in ECEF (the
 * entity's orientation at the time, else east, north and up at its position).
 */
struct Placement {
    Vector3<double> origin;
    Vector3<double> axes[3];

    /** @brief A point given in the entity's axes, metres, in ECEF. */
    Vector3<double> toEcef(const Vector3<double>& point) const noexcept {
        return origin + axes[0] * point.x + axes[1] * point.y + axes[2] * point.z;
    }
};

/** @brief The placement of @p subject's entity at @p time; requires its anchor. */
Placement placementOf(const Subject& subject, const TimePoint& time);

} // namespace keo::Picture::detail
