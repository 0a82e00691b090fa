#include "Data/ConstantPositionProperty.h"

#include "FiniteVector.h"

namespace keo {

namespace {

ReferenceFrame frameOf(int number) noexcept {
    return number == 1 ? ReferenceFrame::Inertial : ReferenceFrame::Fixed;
}

} // namespace

ConstantPositionProperty::ConstantPositionProperty(const Vector3<double>& value,
                                                   ReferenceFrame frame) noexcept
    : frame_(frame) {
    if (isFinite(value)) {
        value_ = value;
        hasValue_ = true;
    }
}

ConstantPositionProperty::ConstantPositionProperty(const Vector3<double>& value, int frame) noexcept
    : ConstantPositionProperty(value, frameOf(frame)) {}

ConstantPositionProperty::~ConstantPositionProperty() = default;

std::optional<Vector3<double>> ConstantPositionProperty::getValue(const TimePoint&) const {
    if (!hasValue_) {
        return std::nullopt;
    }
    return value_;
}

bool ConstantPositionProperty::equals(const PositionProperty& other) const noexcept {
    const auto* constant = dynamic_cast<const ConstantPositionProperty*>(&other);
    return constant != nullptr && constant->frame_ == frame_ && constant->hasValue_ == hasValue_ &&
           (!hasValue_ || constant->value_ == value_);
}

} // namespace keo
