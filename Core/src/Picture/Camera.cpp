#include "Camera.h"

#include <cmath>

namespace keo::Picture::detail {

namespace {

// The point where the segment from @p a to @p b (view coordinates) meets the near plane.
Vector3<double> nearCrossing(const Vector3<double>& a, const Vector3<double>& b) noexcept {
    const double t = (Camera::NEAR_DISTANCE - a.z) / (b.z - a.z);
    return a + (b - a) * t;
}

bool inFront(const Vector3<double>& view) noexcept {
    return view.z >= Camera::NEAR_DISTANCE;
}

} // namespace

Camera Camera::map(double east, double north, double metresPerPixel, double height, double width,
                   double pictureHeight) noexcept {
    Camera camera;
    camera.map_ = true;
    camera.position_ = {east, north, height};
    camera.targetDistance_ = height;
    camera.metresPerPixel_ = metresPerPixel;
    camera.centreX_ = width / 2.0;
    camera.centreY_ = pictureHeight / 2.0;
    return camera;
}

Camera Camera::oblique(const Vector3<double>& target, Radian heading, Radian pitch, double range,
                       double width, double pictureHeight) noexcept {
    Camera camera;
    camera.map_ = false;
    const double h = heading.value();
    const double p = pitch.value();
    camera.forward_ = {std::sin(h) * std::cos(p), std::cos(h) * std::cos(p), std::sin(p)};
    camera.right_ = {std::cos(h), -std::sin(h), 0.0};
    camera.up_ = camera.right_.cross(camera.forward_);
    camera.position_ = target - camera.forward_ * range;
    camera.targetDistance_ = range;
    camera.focal_ = (pictureHeight / 2.0) / std::tan(FIELD_OF_VIEW / 2.0);
    camera.metresPerPixel_ = range / camera.focal_;
    camera.centreX_ = width / 2.0;
    camera.centreY_ = pictureHeight / 2.0;
    return camera;
}

Vector3<double> Camera::toView(const Vector3<double>& local) const noexcept {
    const Vector3<double> d = local - position_;
    if (map_) {
        // Straight down: depth grows as the point gets lower.
        return {d.x, d.y, -d.z};
    }
    return {d.dot(right_), d.dot(up_), d.dot(forward_)};
}

ScreenPoint Camera::fromView(const Vector3<double>& view) const noexcept {
    if (map_) {
        return {centreX_ + view.x / metresPerPixel_, centreY_ - view.y / metresPerPixel_, view.z};
    }
    return {centreX_ + view.x / view.z * focal_, centreY_ - view.y / view.z * focal_, view.z};
}

std::optional<ScreenPoint> Camera::project(const Vector3<double>& local) const noexcept {
    const Vector3<double> view = toView(local);
    if (!map_ && !inFront(view)) {
        return std::nullopt;
    }
    return fromView(view);
}

std::vector<ScreenPoint> Camera::projectPolygon(const std::vector<Vector3<double>>& ring) const {
    std::vector<ScreenPoint> result;
    result.reserve(ring.size() + 2);
    if (map_) {
        for (const auto& point : ring) {
            result.push_back(fromView(toView(point)));
        }
        return result;
    }
    // Sutherland-Hodgman against the one near plane.
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const Vector3<double> a = toView(ring[i]);
        const Vector3<double> b = toView(ring[(i + 1) % ring.size()]);
        if (inFront(a)) {
            result.push_back(fromView(a));
        }
        if (inFront(a) != inFront(b)) {
            result.push_back(fromView(nearCrossing(a, b)));
        }
    }
    return result;
}

std::vector<std::vector<ScreenPoint>>
Camera::projectLine(const std::vector<Vector3<double>>& line) const {
    std::vector<std::vector<ScreenPoint>> runs(1);
    for (std::size_t i = 0; i < line.size(); ++i) {
        const Vector3<double> a = toView(line[i]);
        if (map_ || inFront(a)) {
            runs.back().push_back(fromView(a));
        }
        if (map_ || i + 1 == line.size()) {
            continue;
        }
        const Vector3<double> b = toView(line[i + 1]);
        if (inFront(a) && !inFront(b)) {
            runs.back().push_back(fromView(nearCrossing(a, b)));
            runs.emplace_back();
        } else if (!inFront(a) && inFront(b)) {
            runs.back().push_back(fromView(nearCrossing(a, b)));
        }
    }
    std::vector<std::vector<ScreenPoint>> kept;
    for (auto& run : runs) {
        if (run.size() >= 2) {
            kept.push_back(std::move(run));
        }
    }
    return kept;
}

} // namespace keo::Picture::detail
