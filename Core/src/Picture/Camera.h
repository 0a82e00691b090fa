#pragma once

#include "Common/Radian.h"
#include "Common/Vector3.h"

#include <optional>
#include <vector>

namespace keo::Picture::detail {

/** @brief A projected point: pixels from the top-left corner (y down) and its depth, metres. */
struct ScreenPoint {
    double x = 0.0;
    double y = 0.0;
    /** @brief Distance in front of the camera along its line of sight, metres. */
    double depth = 0.0;
};

/**
 * @brief Projects points of the local frame (east, north, up metres) onto the picture: straight
 * down and orthographic for the map view, in perspective for the oblique view. Lines and
 * polygons are clipped to the near plane, so that parts behind the camera never reach the
 * picture.
 */
class Camera final {
public:
    /** @brief The oblique view's vertical field of view, radians (60°). */
    static constexpr double FIELD_OF_VIEW = 1.0471975511965976;
    /** @brief Distance of the near plane, metres. */
    static constexpr double NEAR_DISTANCE = 0.5;

    /**
     * @brief The map view: the point (@p east, @p north) at the picture's centre, @p metresPerPixel
     * metres per pixel, the camera @p height metres above the frame's origin.
     */
    static Camera map(double east, double north, double metresPerPixel, double height, double width,
                      double pictureHeight) noexcept;
    /**
     * @brief The oblique view: looking at @p target from @p range metres, along the heading
     * (clockwise from north) and the pitch (negative looks down).
     */
    static Camera oblique(const Vector3<double>& target, Radian heading, Radian pitch, double range,
                          double width, double pictureHeight) noexcept;

    /** @brief Whether this is the map view. */
    bool isMap() const noexcept { return map_; }
    /** @brief The camera's position in the local frame, metres. */
    const Vector3<double>& position() const noexcept { return position_; }
    /**
     * @brief Distance from the camera to what it looks at, metres: the oblique view's range, the
     * map view's height above the ground.
     */
    double targetDistance() const noexcept { return targetDistance_; }
    /** @brief Metres per pixel of the map view (at the ground for the oblique view's target). */
    double metresPerPixel() const noexcept { return metresPerPixel_; }

    /** @brief The picture point of @p local; empty when it lies behind the near plane. */
    std::optional<ScreenPoint> project(const Vector3<double>& local) const noexcept;
    /** @brief A closed polygon clipped to the near plane and projected (empty: all behind). */
    std::vector<ScreenPoint> projectPolygon(const std::vector<Vector3<double>>& ring) const;
    /** @brief An open line clipped to the near plane: the runs in front of it, projected. */
    std::vector<std::vector<ScreenPoint>>
    projectLine(const std::vector<Vector3<double>>& line) const;

private:
    Camera() = default;
    Vector3<double> toView(const Vector3<double>& local) const noexcept;
    ScreenPoint fromView(const Vector3<double>& view) const noexcept;

    bool map_ = true;
    Vector3<double> position_;
    Vector3<double> right_{1.0, 0.0, 0.0};
    Vector3<double> up_{0.0, 1.0, 0.0};
    Vector3<double> forward_{0.0, 0.0, -1.0};
    double metresPerPixel_ = 1.0;
    double targetDistance_ = 0.0;
    double focal_ = 1.0;
    double centreX_ = 0.0;
    double centreY_ = 0.0;
};

} // namespace keo::Picture::detail
