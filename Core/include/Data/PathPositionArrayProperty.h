#pragma once

#include "Common/Vector3.h"
#include "Data/DataExport.h"
#include "Data/PositionArrayProperty.h"
#include "Data/PositionProperty.h"

#include <atomic>
#include <cstddef>
#include <mutex>
#include <optional>
#include <vector>

namespace keo {

/**
 * @brief A point that travels along a polyline at a constant speed, and the part of the polyline
 * it has travelled: as a PositionProperty it gives the moving point, as a PositionArrayProperty
 * the path points it has passed followed by the moving point, so a line drawn from it grows
 * along the path.
 *
 * Route. The path points (ECEF, metres) are travelled in order, or in reverse order when
 * reversed; when closed, the route ends with the segment from its last point back to its first.
 * Distances are measured along the straight segments (chords) between consecutive points.
 *
 * Clock. The point starts at the route's first point at the first evaluation (getValue,
 * getValues or getDistance) after construction or restart(); from then on it has travelled
 * speed × (time − start time) metres. Times before the start (or before the latest change of
 * speed) give the position at that moment: the clock does not run backwards. Without
 * loop the point stops at the route's end; with loop it starts again from the route's first
 * point each time it reaches the end (and getValues shows the current lap only). Changing the
 * speed keeps the distance travelled up to the latest time evaluated and goes on from there at
 * the new speed; changing the points, closed, loop or reversed keeps the distance travelled and
 * places it on the new route (clamped to its end, or wrapped round for a loop).
 *
 * Bad input. Path points with a NaN or infinite component are dropped. A speed that is zero,
 * negative, NaN or infinite is stored as given but the point does not move. No points: no
 * position and no values. One point (or a route of length zero): the point stays at the first
 * point. A time that is NaN or infinite does not start the clock: NaN gives the position at the
 * latest time evaluated (the first point before the clock starts), infinitely early the
 * position at the start (or at the latest change of speed), infinitely late the route's end (for a
 * loop, its first point) if the point moves.
 *
 * Threads. Every member may be called from any thread: one mutex guards the route and the clock,
 * so the render thread may evaluate while the owner edits. Each evaluation is a binary search in
 * the precomputed cumulative segment lengths plus one interpolation.
 */
class KEO_DATA_API PathPositionArrayProperty final : public PositionProperty,
                                                     public PositionArrayProperty {
public:
    /** @brief The speed of a new path, metres per second. */
    static constexpr double DEFAULT_SPEED = 300.0;

    /**
     * @brief A path through @p pathPoints (ECEF, metres), open, looping, not reversed, at
     * DEFAULT_SPEED; the clock starts at the first evaluation.
     */
    explicit PathPositionArrayProperty(std::vector<Vector3<double>> pathPoints = {});
    PathPositionArrayProperty(const PathPositionArrayProperty&) = delete;
    PathPositionArrayProperty& operator=(const PathPositionArrayProperty&) = delete;
    ~PathPositionArrayProperty() override;

    /** @brief The path points as kept (in the given order, non-finite ones dropped). */
    std::vector<Vector3<double>> getPathPoints() const;
    /** @brief Replaces the path points; the clock goes on (see the class). */
    void setPathPoints(std::vector<Vector3<double>> pathPoints);
    /** @brief Whether the route ends with the segment back to its first point (default false). */
    bool isClosed() const;
    /** @brief Adds or removes the closing segment. */
    void setClosed(bool closed);
    /** @brief Whether the point starts again at the end of the route (default true). */
    bool isLoop() const;
    /** @brief Turns looping on or off. */
    void setLoop(bool loop);
    /** @brief Whether the path points are travelled in reverse order (default false). */
    bool isReversed() const;
    /** @brief Turns the reverse order on or off. */
    void setReversed(bool reversed);
    /** @brief The speed as stored, metres per second. */
    double getSpeed() const;
    /** @brief Sets the speed, metres per second (see the class for bad values). */
    void setSpeed(double metresPerSecond);
    /** @brief Starts again: the next evaluation puts the point at the route's first point. */
    void restart();

    /** @brief The length of the route (closing segment included), metres. */
    double getLength() const;
    /**
     * @brief The distance along the route of the point at @p time, metres, in [0, getLength()]
     * (an evaluation: it starts the clock).
     */
    double getDistance(const TimePoint& time) const;

    /** @brief The moving point at @p time; empty when there are no path points. */
    std::optional<Vector3<double>> getValue(const TimePoint& time) const override;
    /**
     * @brief The route's points passed by @p time in the current lap, then the moving point
     * unless it lies exactly on the last of them; empty when there are no path points.
     */
    std::vector<Vector3<double>> getValues(const TimePoint& time) const override;
    /**
     * @brief Whether the value cannot change with time as things stand: the point does not move
     * (speed not a positive finite number) or the route has length zero.
     */
    bool isConstant() const noexcept override;
    /** @brief True only for this very object: two paths have separate clocks. */
    bool equals(const PositionProperty& other) const noexcept override;
    /** @brief True only for this very object: two paths have separate clocks. */
    bool equals(const PositionArrayProperty& other) const noexcept override;

private:
    // The point at a distance along the route and the index of the route point that starts its
    // segment.
    struct Placement {
        Vector3<double> point;
        std::size_t segmentStart;
    };

    // Each of these requires the lock.
    void rebuildRoute();                                   // route_ and cumulative_ from the rest
    void updateConstant() noexcept;                        // constant_ from speed and length
    double advanceClock(const TimePoint& time) const;      // starts the clock; metres travelled
    double routeDistance(double travelled) const noexcept; // travelled, clamped or wrapped
    Placement placeAt(double distance) const noexcept;     // the point there; route not empty
    double effectiveSpeed() const noexcept;                // the speed, or 0 if unusable
    double travelledAt(double seconds) const noexcept;     // metres travelled at a time

    mutable std::mutex mutex_;
    std::vector<Vector3<double>> pathPoints_;
    bool closed_ = false;
    bool loop_ = true;
    bool reversed_ = false;
    double speed_ = DEFAULT_SPEED;
    // The points in travel order (closing point appended) and the distance from the route's
    // start to each of them.
    std::vector<Vector3<double>> route_;
    std::vector<double> cumulative_;
    // The clock: whether it runs, the time and distance travelled at its anchor, and the latest
    // time evaluated (where a change of speed re-anchors it).
    mutable bool started_ = false;
    mutable double anchorSeconds_ = 0.0;
    mutable double anchorDistance_ = 0.0;
    mutable double latestSeconds_ = 0.0;
    std::atomic<bool> constant_{false};
};

} // namespace keo
