#include "Data/CallbackPositionProperty.h"

#include "FiniteVector.h"

#include <utility>

namespace keo {

CallbackPositionProperty::CallbackPositionProperty(Callback callback, bool isConstant,
                                                   ReferenceFrame frame)
    : callback_(std::move(callback))
    , constant_(isConstant)
    , frame_(frame) {}

CallbackPositionProperty::~CallbackPositionProperty() = default;

std::optional<Vector3<double>> CallbackPositionProperty::getValue(const TimePoint& time) const {
    if (!callback_) {
        return std::nullopt;
    }
    std::optional<Vector3<double>> value = callback_(time);
    if (value && !isFinite(*value)) {
        return std::nullopt;
    }
    return value;
}

} // namespace keo
