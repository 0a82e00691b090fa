#include "Data/PathPositionArrayProperty.h"

#include "FiniteVector.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace keo {

PathPositionArrayProperty::PathPositionArrayProperty(std::vector<Vector3<double>> pathPoints)
    : pathPoints_(keepFinite(std::move(pathPoints))) {
    rebuildRoute();
}

PathPositionArrayProperty::~PathPositionArrayProperty() = default;

std::vector<Vector3<double>> PathPositionArrayProperty::getPathPoints() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return pathPoints_;
}

void PathPositionArrayProperty::setPathPoints(std::vector<Vector3<double>> pathPoints) {
    std::vector<Vector3<double>> kept = keepFinite(std::move(pathPoints));
    const std::lock_guard<std::mutex> lock(mutex_);
    pathPoints_ = std::move(kept);
    rebuildRoute();
}

bool PathPositionArrayProperty::isClosed() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return closed_;
}

void PathPositionArrayProperty::setClosed(bool closed) {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (closed_ != closed) {
        closed_ = closed;
        rebuildRoute();
    }
}

bool PathPositionArrayProperty::isLoop() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return loop_;
}

void PathPositionArrayProperty::setLoop(bool loop) {
    const std::lock_guard<std::mutex> lock(mutex_);
    loop_ = loop;
}

bool PathPositionArrayProperty::isReversed() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return reversed_;
}

void PathPositionArrayProperty::setReversed(bool reversed) {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (reversed_ != reversed) {
        reversed_ = reversed;
        rebuildRoute();
    }
}

double PathPositionArrayProperty::getSpeed() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return speed_;
}

void PathPositionArrayProperty::setSpeed(double metresPerSecond) {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (started_) {
        // Re-anchor at the latest time seen so the point goes on from where it is, not from where
        // the new speed would have put it had it applied since the start.
        anchorDistance_ = travelledAt(latestSeconds_);
        anchorSeconds_ = latestSeconds_;
    }
    speed_ = metresPerSecond;
    updateConstant();
}

void PathPositionArrayProperty::restart() {
    const std::lock_guard<std::mutex> lock(mutex_);
    started_ = false;
    anchorDistance_ = 0.0;
}

double PathPositionArrayProperty::getLength() const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return cumulative_.empty() ? 0.0 : cumulative_.back();
}

double PathPositionArrayProperty::getDistance(const TimePoint& time) const {
    const std::lock_guard<std::mutex> lock(mutex_);
    return routeDistance(advanceClock(time));
}

std::optional<Vector3<double>> PathPositionArrayProperty::getValue(const TimePoint& time) const {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (route_.empty()) {
        return std::nullopt;
    }
    return placeAt(routeDistance(advanceClock(time))).point;
}

std::vector<Vector3<double>> PathPositionArrayProperty::getValues(const TimePoint& time) const {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (route_.empty()) {
        return {};
    }
    const Placement placement = placeAt(routeDistance(advanceClock(time)));
    const std::size_t passed = placement.segmentStart + 1;
    std::vector<Vector3<double>> values;
    values.reserve(passed + 1);
    values.assign(route_.begin(), route_.begin() + static_cast<std::ptrdiff_t>(passed));
    if (placement.point != route_[placement.segmentStart]) {
        values.push_back(placement.point);
    }
    return values;
}

bool PathPositionArrayProperty::isConstant() const noexcept {
    return constant_.load(std::memory_order_relaxed);
}

bool PathPositionArrayProperty::equals(const PositionProperty& other) const noexcept {
    return &other == static_cast<const PositionProperty*>(this);
}

bool PathPositionArrayProperty::equals(const PositionArrayProperty& other) const noexcept {
    return &other == static_cast<const PositionArrayProperty*>(this);
}

void PathPositionArrayProperty::rebuildRoute() {
    route_ = pathPoints_;
    if (reversed_) {
        std::reverse(route_.begin(), route_.end());
    }
    if (closed_ && route_.size() >= 2) {
        route_.push_back(route_.front());
    }
    cumulative_.assign(route_.size(), 0.0);
    for (std::size_t i = 1; i < route_.size(); ++i) {
        cumulative_[i] = cumulative_[i - 1] + route_[i].distance(route_[i - 1]);
    }
    updateConstant();
}

void PathPositionArrayProperty::updateConstant() noexcept {
    const double length = cumulative_.empty() ? 0.0 : cumulative_.back();
    const bool moves = effectiveSpeed() > 0.0 && length > 0.0 && std::isfinite(length);
    constant_.store(!moves, std::memory_order_relaxed);
}

double PathPositionArrayProperty::effectiveSpeed() const noexcept {
    return std::isfinite(speed_) && speed_ > 0.0 ? speed_ : 0.0;
}

double PathPositionArrayProperty::travelledAt(double seconds) const noexcept {
    const double elapsed = seconds - anchorSeconds_;
    const double speed = effectiveSpeed();
    if (speed == 0.0 || !(elapsed > 0.0)) {
        return anchorDistance_;
    }
    return anchorDistance_ + speed * elapsed;
}

double PathPositionArrayProperty::advanceClock(const TimePoint& time) const {
    const double seconds = time.seconds();
    if (std::isnan(seconds)) {
        // No time at all: the point stays where the latest evaluation left it.
        return started_ ? travelledAt(latestSeconds_) : anchorDistance_;
    }
    if (std::isinf(seconds)) {
        // Infinitely late: past the end of the route; infinitely early: before the anchor.
        return seconds > 0.0 && effectiveSpeed() > 0.0 ? HUGE_VAL : anchorDistance_;
    }
    if (!started_) {
        started_ = true;
        anchorSeconds_ = seconds;
        latestSeconds_ = seconds;
    } else if (seconds > latestSeconds_) {
        latestSeconds_ = seconds;
    }
    return travelledAt(seconds);
}

double PathPositionArrayProperty::routeDistance(double travelled) const noexcept {
    const double length = cumulative_.empty() ? 0.0 : cumulative_.back();
    if (!(length > 0.0) || !std::isfinite(length)) {
        return 0.0;
    }
    if (!std::isfinite(travelled)) {
        return loop_ ? 0.0 : length;
    }
    if (!loop_) {
        return std::clamp(travelled, 0.0, length);
    }
    const double lap = std::fmod(travelled, length);
    return lap < 0.0 ? lap + length : lap;
}

PathPositionArrayProperty::Placement
PathPositionArrayProperty::placeAt(double distance) const noexcept {
    const std::size_t count = route_.size();
    if (count == 1) {
        return {route_.front(), 0};
    }
    // The first cumulative length past the distance ends the segment the point is on.
    const auto end = std::upper_bound(cumulative_.begin() + 1, cumulative_.end(), distance);
    const std::size_t start =
        std::min(static_cast<std::size_t>(std::distance(cumulative_.begin(), end)) - 1, count - 2);
    const Vector3<double>& a = route_[start];
    const Vector3<double>& b = route_[start + 1];
    const double segment = cumulative_[start + 1] - cumulative_[start];
    const double fraction =
        segment > 0.0 ? std::clamp((distance - cumulative_[start]) / segment, 0.0, 1.0) : 0.0;
    return {a + (b - a) * fraction, start};
}

} // namespace keo
