#include "Composer.h"

#include "Camera.h"
#include "Decorations.h"
#include "DrawList.h"
#include "Drawing.h"
#include "LocalFrame.h"
#include "Painter.h"
#include "Subject.h"

#include "Common/Ellipsoid.h"
#include "Data/Entity.h"
#include "Data/GeometryGraphics.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

namespace keo::Picture::detail {

namespace {

// The smallest extent a view shows, metres, so that a single point has room around it.
constexpr double MIN_SPAN = 200.0;
// The share of the picture the data's extent fills.
constexpr double FILL = 0.85;
// The oblique view's default pitch, radians (-35°).
constexpr double DEFAULT_PITCH = -0.6108652381980153;

// The entities to draw, each evaluated; the others are counted in the report.
std::vector<Subject> gatherSubjects(const std::vector<const Entity*>& entities,
                                    const TimePoint& time, Report& report) {
    std::vector<Subject> subjects;
    subjects.reserve(entities.size());
    for (const Entity* entity : entities) {
        ++report.entities;
        const GeometryGraphics* graphics =
            entity != nullptr ? entity->getGeometryGraphics().get() : nullptr;
        if (graphics == nullptr) {
            ++report.withoutGraphics;
            continue;
        }
        if (!entity->isShowing() || !graphics->isShow()) {
            ++report.hidden;
            continue;
        }
        Subject subject{entity, graphics, std::nullopt, {}};
        if (evaluateSubject(subject, time, report.invalidPositions) == Evaluation::NoPosition) {
            ++report.noPosition;
            continue;
        }
        subjects.push_back(std::move(subject));
    }
    return subjects;
}

// Calls @p visit with every position of every subject.
template <typename Visit>
void forEachPosition(const std::vector<Subject>& subjects, Visit&& visit) {
    for (const auto& subject : subjects) {
        if (subject.anchor) {
            visit(*subject.anchor);
        }
        for (const auto& ring : subject.rings) {
            for (const auto& point : ring) {
                visit(point);
            }
        }
    }
}

// The tangent plane at the centre of the subjects' positions (0°, 0° when there are none).
LocalFrame frameOf(const std::vector<Subject>& subjects) {
    Vector3<double> sum;
    std::optional<Vector3<double>> first;
    double count = 0.0;
    forEachPosition(subjects, [&](const Vector3<double>& point) {
        sum += point;
        count += 1.0;
        first = first.value_or(point);
    });
    if (count == 0.0) {
        return LocalFrame(Cartographic());
    }
    // Data spread round the globe can average near its centre, where no surface point is below.
    auto centre = Ellipsoid::WGS84.cartesianToCartographic(sum / count);
    if (!centre || sum.magnitude() / count < 1.0e6) {
        centre = Ellipsoid::WGS84.cartesianToCartographic(*first);
    }
    return LocalFrame(centre.value_or(Cartographic()));
}

// The subjects' extent in the local frame: west-south-low and east-north-high corners.
struct Extent {
    Vector3<double> low{0.0, 0.0, 0.0};
    Vector3<double> high{0.0, 0.0, 0.0};
};

Extent extentOf(const std::vector<Subject>& subjects, const LocalFrame& frame) {
    constexpr double INF = std::numeric_limits<double>::infinity();
    Extent extent{{INF, INF, INF}, {-INF, -INF, -INF}};
    forEachPosition(subjects, [&](const Vector3<double>& point) {
        const Vector3<double> local = frame.toLocal(point);
        extent.low = {std::min(extent.low.x, local.x), std::min(extent.low.y, local.y),
                      std::min(extent.low.z, local.z)};
        extent.high = {std::max(extent.high.x, local.x), std::max(extent.high.y, local.y),
                       std::max(extent.high.z, local.z)};
    });
    return extent.low.x <= extent.high.x ? extent : Extent{};
}

Camera mapCamera(const Extent& extent, const Options& options) {
    const double width = options.width;
    const double height = options.height;
    const double spanX = std::max(extent.high.x - extent.low.x, MIN_SPAN);
    const double spanY = std::max(extent.high.y - extent.low.y, MIN_SPAN);
    const double usable = std::max(height - (options.title.empty() ? 0.0 : TITLE_BAND), 1.0);
    const double metresPerPixel = std::max(spanX / (width * FILL), spanY / (usable * FILL));
    // Seen from the height at which a 60° field of view covers the picture's height.
    const double cameraHeight =
        height * metresPerPixel / 2.0 / std::tan(Camera::FIELD_OF_VIEW / 2.0);
    // The title band shifts the data's centre down by half its height.
    const double shift = (height - usable) / 2.0 * metresPerPixel;
    return Camera::map((extent.low.x + extent.high.x) / 2.0,
                       (extent.low.y + extent.high.y) / 2.0 + shift, metresPerPixel,
                       std::max(extent.high.z, 0.0) + cameraHeight, width, height);
}

Camera obliqueCamera(const Extent& extent, const LocalFrame& frame, const Options& options) {
    const ObliqueCamera& asked = options.camera;
    Vector3<double> target((extent.low.x + extent.high.x) / 2.0,
                           (extent.low.y + extent.high.y) / 2.0, 0.0);
    if (asked.target && isFinite(*asked.target)) {
        target = frame.toLocal(*asked.target);
    }
    const double heading = std::isnan(asked.heading.value()) ? 0.0 : asked.heading.value();
    const double pitch = asked.pitch.value() < 0.0 ? asked.pitch.value() : DEFAULT_PITCH;
    const double radius =
        std::max(std::hypot(extent.high.x - extent.low.x, extent.high.y - extent.low.y,
                            extent.high.z - extent.low.z) /
                     2.0,
                 MIN_SPAN / 2.0);
    const double aspect = std::min(1.0, static_cast<double>(options.width) / options.height);
    const double fitted = radius / std::sin(Camera::FIELD_OF_VIEW / 2.0 * aspect) * 1.1;
    const bool usable = asked.range && std::isfinite(*asked.range) && *asked.range > 0.0;
    return Camera::oblique(target, Radian(heading), Radian(pitch), usable ? *asked.range : fitted,
                           options.width, options.height);
}

bool inRange(const Subject& subject, const LocalFrame& frame, const Camera& camera) {
    const auto& condition = subject.graphics->getDistanceDisplayCondition();
    if (!condition) {
        return true;
    }
    const auto reference = subject.reference();
    const double distance = reference ? camera.position().distance(frame.toLocal(*reference)) : 0.0;
    return condition->isVisibleAt(distance);
}

std::string noteOf(const Report& report) {
    std::string note = "nothing to draw: " + std::to_string(report.entities) + " entities";
    const std::pair<std::size_t, const char*> parts[] = {
        {report.withoutGraphics, "without graphics"},
        {report.hidden, "hidden"},
        {report.outOfRange, "out of display range"},
        {report.noPosition, "without position"},
        {report.emptyGraphics, "with empty graphics"}};
    const char* separator = " (";
    for (const auto& [count, what] : parts) {
        if (count != 0) {
            note += separator + std::to_string(count) + " " + what;
            separator = ", ";
        }
    }
    return report.entities == 0 ? note : note + ")";
}

void paintOverlays(Painter& painter, cairo_t* cr, const Camera& camera, const Report& report,
                   const Options& options) {
    const Color ink = inkFor(options.background);
    const double width = options.width;
    const double height = options.height;
    const double top = options.title.empty() ? 0.0 : TITLE_BAND;
    if (options.decorations) {
        if (camera.isMap()) {
            drawScaleBar(painter, cr, camera.metresPerPixel(), height, ink);
        }
        drawNorthArrow(painter, cr, width, top,
                       camera.isMap() ? 0.0 : -options.camera.heading.value(), ink);
    }
    if (!options.title.empty()) {
        drawTitle(painter, cr, options.title, width, ink);
    }
    if (!report.note.empty()) {
        drawNote(painter, cr, report.note, width, height, ink);
    }
}

} // namespace

Report compose(cairo_t* cr, const std::vector<const Entity*>& entities, const Options& options) {
    Report report;
    const std::vector<Subject> subjects = gatherSubjects(entities, options.time, report);
    const LocalFrame frame = frameOf(subjects);
    const Extent extent = extentOf(subjects, frame);
    const Camera camera = options.view == View::Map ? mapCamera(extent, options)
                                                    : obliqueCamera(extent, frame, options);
    report.cameraDistance = camera.targetDistance();

    DrawList list;
    DrawContext context{frame, camera, options.time, list};
    for (const auto& subject : subjects) {
        if (!inRange(subject, frame, camera)) {
            ++report.outOfRange;
        } else if (drawSubject(subject, context)) {
            ++report.drawn;
        } else {
            ++report.emptyGraphics;
        }
    }
    if (report.drawn == 0) {
        report.note = noteOf(report);
    }
    setColor(cr, options.background);
    cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
    cairo_paint(cr);
    cairo_set_operator(cr, CAIRO_OPERATOR_OVER);
    list.sort();
    Painter painter(cr);
    painter.paint(list);
    paintOverlays(painter, cr, camera, report, options);
    return report;
}

} // namespace keo::Picture::detail
