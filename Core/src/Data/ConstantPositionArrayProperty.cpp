#include "Data/ConstantPositionArrayProperty.h"

#include "FiniteVector.h"

#include <utility>

namespace keo {

ConstantPositionArrayProperty::ConstantPositionArrayProperty(std::vector<Vector3<double>> points)
    : points_(keepFinite(std::move(points))) {}

ConstantPositionArrayProperty::~ConstantPositionArrayProperty() = default;

std::vector<Vector3<double>> ConstantPositionArrayProperty::getValues(const TimePoint&) const {
    return points_;
}

bool ConstantPositionArrayProperty::equals(const PositionArrayProperty& other) const noexcept {
    const auto* constant = dynamic_cast<const ConstantPositionArrayProperty*>(&other);
    return constant != nullptr && constant->points_ == points_;
}

} // namespace keo
