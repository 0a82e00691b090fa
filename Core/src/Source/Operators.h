#pragma once

#include "Node.h"
#include "Source/Value.h"

namespace keo::Source::detail {

/**
 * @file
 * @brief The evaluation of every operator of the style language. Each takes its node (whose
 * arguments and compile-time data the compiler checked) and the context, and returns the value;
 * an argument of the wrong type records a failure in the context and gives null.
 */

/** @brief The evaluation that each argument of a typed operator goes through. */
bool numberArgument(const Node& argument, EvaluationContext& context, double& number);

Value evaluateConstant(const Node& node, EvaluationContext& context);
Value evaluateGet(const Node& node, EvaluationContext& context);
Value evaluateHas(const Node& node, EvaluationContext& context);
Value evaluateId(const Node& node, EvaluationContext& context);
Value evaluateEqual(const Node& node, EvaluationContext& context);
Value evaluateNotEqual(const Node& node, EvaluationContext& context);
Value evaluateLess(const Node& node, EvaluationContext& context);
Value evaluateLessEqual(const Node& node, EvaluationContext& context);
Value evaluateGreater(const Node& node, EvaluationContext& context);
Value evaluateGreaterEqual(const Node& node, EvaluationContext& context);
Value evaluateAll(const Node& node, EvaluationContext& context);
Value evaluateAny(const Node& node, EvaluationContext& context);
Value evaluateNot(const Node& node, EvaluationContext& context);
Value evaluateCase(const Node& node, EvaluationContext& context);
Value evaluateMatch(const Node& node, EvaluationContext& context);
Value evaluateCoalesce(const Node& node, EvaluationContext& context);

Value evaluateAdd(const Node& node, EvaluationContext& context);
Value evaluateSubtract(const Node& node, EvaluationContext& context);
Value evaluateMultiply(const Node& node, EvaluationContext& context);
Value evaluateDivide(const Node& node, EvaluationContext& context);
Value evaluateModulo(const Node& node, EvaluationContext& context);
Value evaluatePower(const Node& node, EvaluationContext& context);
Value evaluateMin(const Node& node, EvaluationContext& context);
Value evaluateMax(const Node& node, EvaluationContext& context);
Value evaluateRound(const Node& node, EvaluationContext& context);
Value evaluateFloor(const Node& node, EvaluationContext& context);
Value evaluateCeil(const Node& node, EvaluationContext& context);
Value evaluateAbs(const Node& node, EvaluationContext& context);
Value evaluateSqrt(const Node& node, EvaluationContext& context);
Value evaluateLn(const Node& node, EvaluationContext& context);
Value evaluateLog10(const Node& node, EvaluationContext& context);

Value evaluateStep(const Node& node, EvaluationContext& context);
Value evaluateInterpolate(const Node& node, EvaluationContext& context);

Value evaluateConcat(const Node& node, EvaluationContext& context);
Value evaluateUpcase(const Node& node, EvaluationContext& context);
Value evaluateDowncase(const Node& node, EvaluationContext& context);
Value evaluateToString(const Node& node, EvaluationContext& context);
Value evaluateToNumber(const Node& node, EvaluationContext& context);
Value evaluateToBoolean(const Node& node, EvaluationContext& context);
Value evaluateToColor(const Node& node, EvaluationContext& context);
Value evaluateRgb(const Node& node, EvaluationContext& context);
Value evaluateRgba(const Node& node, EvaluationContext& context);
Value evaluateNumberFormat(const Node& node, EvaluationContext& context);

} // namespace keo::Source::detail
