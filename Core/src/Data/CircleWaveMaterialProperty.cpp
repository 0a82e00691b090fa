#include "Data/CircleWaveMaterialProperty.h"

#include "Data/FieldList.h"

#include <cmath>

namespace keo {

CircleWaveMaterialProperty::CircleWaveMaterialProperty() noexcept
    : CircleWaveMaterialProperty(ConstructorOptions{}) {}

CircleWaveMaterialProperty::CircleWaveMaterialProperty(const ConstructorOptions& options) noexcept
    : MaterialProperty(TYPE, options.color)
    , count_(options.count)
    , speed_(options.speed)
    , duration_(options.duration)
    , direction_(options.direction) {}

CircleWaveMaterialProperty::~CircleWaveMaterialProperty() = default;

std::optional<double> CircleWaveMaterialProperty::getPeriod() const noexcept {
    const auto usable = [](double value) { return std::isfinite(value) && value > 0.0; };
    if (duration_ && usable(static_cast<double>(*duration_))) {
        return static_cast<double>(*duration_);
    }
    const double speed = static_cast<double>(speed_);
    if (usable(speed) && usable(100.0 / speed)) {
        return 100.0 / speed;
    }
    return std::nullopt;
}

double CircleWaveMaterialProperty::getWaveProgress(const TimePoint& time) const noexcept {
    const std::optional<double> period = getPeriod();
    if (!period) {
        return 0.0;
    }
    const double fraction = cycleFraction(1.0 / *period, time);
    if (direction_ > 0 || fraction == 0.0) {
        return fraction;
    }
    return 1.0 - fraction;
}

void CircleWaveMaterialProperty::describe(FieldList& fields) const {
    MaterialProperty::describe(fields);
    fields.add("count", unsigned{count_});
    fields.add("speed", speed_);
    if (duration_) {
        fields.add("duration", *duration_);
    } else {
        fields.addNull("duration");
    }
    fields.add("direction", int{direction_});
}

} // namespace keo
