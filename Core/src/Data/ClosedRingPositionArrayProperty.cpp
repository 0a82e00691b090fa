#include "Data/ClosedRingPositionArrayProperty.h"

#include "FiniteVector.h"

#include <utility>

namespace keo {

namespace {

const std::vector<Vector3<double>>&
pointsOf(const std::shared_ptr<const std::vector<Vector3<double>>>& ring) noexcept {
    static const std::vector<Vector3<double>> none;
    return ring ? *ring : none;
}

} // namespace

ClosedRingPositionArrayProperty::ClosedRingPositionArrayProperty(
    std::shared_ptr<const std::vector<Vector3<double>>> ring) noexcept
    : ring_(std::move(ring)) {}

ClosedRingPositionArrayProperty::~ClosedRingPositionArrayProperty() = default;

std::vector<Vector3<double>> ClosedRingPositionArrayProperty::getValues(const TimePoint&) const {
    const std::vector<Vector3<double>>& ring = pointsOf(ring_);
    std::vector<Vector3<double>> closed;
    if (ring.empty()) {
        return closed;
    }
    closed.reserve(ring.size() + 1);
    for (const Vector3<double>& point : ring) {
        if (isFinite(point)) {
            closed.push_back(point);
        }
    }
    if (isFinite(ring.front())) {
        closed.push_back(ring.front());
    }
    return closed;
}

bool ClosedRingPositionArrayProperty::equals(const PositionArrayProperty& other) const noexcept {
    const auto* closed = dynamic_cast<const ClosedRingPositionArrayProperty*>(&other);
    return closed != nullptr && pointsOf(closed->ring_) == pointsOf(ring_);
}

} // namespace keo
