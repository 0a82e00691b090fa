#include "Operators.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace keo::Source::detail {

namespace {

// Folds the numbers of every argument with combine, starting from the first; null after a failure.
template <typename Combine>
Value foldNumbers(const Node& node, EvaluationContext& context, Combine&& combine) {
    double result = 0.0;
    if (!numberArgument(node.args[0], context, result)) {
        return Value();
    }
    for (std::size_t i = 1; i < node.args.size(); ++i) {
        double number = 0.0;
        if (!numberArgument(node.args[i], context, number)) {
            return Value();
        }
        result = combine(result, number);
    }
    return Value(result);
}

// Applies function to the number of the one argument; null after a failure.
template <typename Function>
Value mapNumber(const Node& node, EvaluationContext& context, Function&& function) {
    double number = 0.0;
    if (!numberArgument(node.args[0], context, number)) {
        return Value();
    }
    return Value(function(number));
}

} // namespace

Value evaluateAdd(const Node& node, EvaluationContext& context) {
    return foldNumbers(node, context, [](double a, double b) { return a + b; });
}

Value evaluateSubtract(const Node& node, EvaluationContext& context) {
    if (node.args.size() == 1) {
        return mapNumber(node, context, [](double a) { return -a; });
    }
    return foldNumbers(node, context, [](double a, double b) { return a - b; });
}

Value evaluateMultiply(const Node& node, EvaluationContext& context) {
    return foldNumbers(node, context, [](double a, double b) { return a * b; });
}

Value evaluateDivide(const Node& node, EvaluationContext& context) {
    return foldNumbers(node, context, [](double a, double b) { return a / b; });
}

Value evaluateModulo(const Node& node, EvaluationContext& context) {
    return foldNumbers(node, context, [](double a, double b) { return std::fmod(a, b); });
}

Value evaluatePower(const Node& node, EvaluationContext& context) {
    return foldNumbers(node, context, [](double a, double b) { return std::pow(a, b); });
}

Value evaluateMin(const Node& node, EvaluationContext& context) {
    return foldNumbers(node, context, [](double a, double b) { return std::fmin(a, b); });
}

Value evaluateMax(const Node& node, EvaluationContext& context) {
    return foldNumbers(node, context, [](double a, double b) { return std::fmax(a, b); });
}

Value evaluateRound(const Node& node, EvaluationContext& context) {
    // Halves round away from zero, as the open map style language does.
    return mapNumber(node, context, [](double a) { return std::round(a); });
}

Value evaluateFloor(const Node& node, EvaluationContext& context) {
    return mapNumber(node, context, [](double a) { return std::floor(a); });
}

Value evaluateCeil(const Node& node, EvaluationContext& context) {
    return mapNumber(node, context, [](double a) { return std::ceil(a); });
}

Value evaluateAbs(const Node& node, EvaluationContext& context) {
    return mapNumber(node, context, [](double a) { return std::fabs(a); });
}

Value evaluateSqrt(const Node& node, EvaluationContext& context) {
    return mapNumber(node, context, [](double a) { return std::sqrt(a); });
}

Value evaluateLn(const Node& node, EvaluationContext& context) {
    return mapNumber(node, context, [](double a) { return std::log(a); });
}

Value evaluateLog10(const Node& node, EvaluationContext& context) {
    return mapNumber(node, context, [](double a) { return std::log10(a); });
}

} // namespace keo::Source::detail
