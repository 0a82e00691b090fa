#include "Operators.h"

#include "Common/Color.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace keo::Source::detail {

namespace {

constexpr const char* NUMBER_OR_COLOR = "a number or a color, as the other stop's output";

// The index of the last stop at or below x (stops ascending); the count of stops when x is below
// the first.
std::size_t stopAtOrBelow(const std::vector<double>& stops, double x) {
    const auto above = std::upper_bound(stops.begin(), stops.end(), x);
    return above == stops.begin() ? stops.size()
                                  : static_cast<std::size_t>(above - stops.begin()) - 1;
}

// How far x lies from lower to upper, 0..1: straight for base 1, else along base^x.
double interpolationFactor(double base, double x, double lower, double upper) {
    const double span = upper - lower;
    const double progress = x - lower;
    if (base == 1.0) {
        return progress / span;
    }
    return (std::pow(base, progress) - 1.0) / (std::pow(base, span) - 1.0);
}

float mix(float a, float b, double t) {
    const auto from = static_cast<double>(a);
    return static_cast<float>(from + (static_cast<double>(b) - from) * t);
}

Value mixValues(const Node& node, std::size_t lowerOutput, const Value& lower, const Value& upper,
                double t, EvaluationContext& context) {
    if (lower.type() == Value::Type::Number && upper.type() == Value::Type::Number) {
        return Value(lower.asNumber() + (upper.asNumber() - lower.asNumber()) * t);
    }
    if (lower.type() == Value::Type::Color && upper.type() == Value::Type::Color) {
        const keo::Color& a = lower.asColor();
        const keo::Color& b = upper.asColor();
        return Value(
            keo::Color(mix(a.r, b.r, t), mix(a.g, b.g, t), mix(a.b, b.b, t), mix(a.a, b.a, t)));
    }
    const bool lowerFits =
        lower.type() == Value::Type::Number || lower.type() == Value::Type::Color;
    context.fail(node.args[lowerFits ? lowerOutput + 1 : lowerOutput], lowerFits ? upper : lower,
                 NUMBER_OR_COLOR);
    return Value();
}

} // namespace

Value evaluateStep(const Node& node, EvaluationContext& context) {
    double x = 0.0;
    if (!numberArgument(node.args[0], context, x)) {
        return Value();
    }
    // args: input, the output below the first stop, then one output per stop.
    // A NaN input lies below every stop.
    const std::size_t stop = std::isnan(x) ? node.stops.size() : stopAtOrBelow(node.stops, x);
    return evaluate(node.args[stop == node.stops.size() ? 1 : stop + 2], context);
}

Value evaluateInterpolate(const Node& node, EvaluationContext& context) {
    double x = 0.0;
    if (!numberArgument(node.args[0], context, x)) {
        return Value();
    }
    // args: input, then one output per stop.
    const std::size_t count = node.stops.size();
    if (std::isnan(x) || x <= node.stops.front()) {
        return evaluate(node.args[1], context);
    }
    if (x >= node.stops.back()) {
        return evaluate(node.args[count], context);
    }
    const std::size_t stop = stopAtOrBelow(node.stops, x);
    const double t = interpolationFactor(node.base, x, node.stops[stop], node.stops[stop + 1]);
    const Value lower = evaluate(node.args[stop + 1], context);
    const Value upper = evaluate(node.args[stop + 2], context);
    return mixValues(node, stop + 1, lower, upper, t, context);
}

} // namespace keo::Source::detail
