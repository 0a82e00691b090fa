#include "Operators.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace keo::Source::detail {

namespace {

constexpr const char* A_BOOLEAN = "a boolean";
constexpr const char* A_NUMBER = "a number";
constexpr const char* COMPARABLE = "two numbers or two strings";

bool booleanArgument(const Node& argument, EvaluationContext& context, bool& flag) {
    const Value value = evaluate(argument, context);
    if (value.type() != Value::Type::Boolean) {
        context.fail(argument, value, A_BOOLEAN);
        return false;
    }
    flag = value.asBoolean();
    return true;
}

// Compares the two arguments of node with compare when they are two numbers (NaN is unordered,
// so every comparison with it is false) or two texts (byte order); otherwise records the failure
// at the argument that does not fit and gives null.
template <typename Compare>
Value compareArguments(const Node& node, EvaluationContext& context, Compare&& compare) {
    const Value left = evaluate(node.args[0], context);
    const Value right = evaluate(node.args[1], context);
    if (left.type() == Value::Type::Number && right.type() == Value::Type::Number) {
        return Value(compare(left.asNumber(), right.asNumber()));
    }
    if (left.type() == Value::Type::String && right.type() == Value::Type::String) {
        return Value(compare(left.asString(), right.asString()));
    }
    const bool leftFits = left.type() == Value::Type::Number || left.type() == Value::Type::String;
    context.fail(leftFits ? node.args[1] : node.args[0], leftFits ? right : left, COMPARABLE);
    return Value();
}

} // namespace

bool numberArgument(const Node& argument, EvaluationContext& context, double& number) {
    const Value value = evaluate(argument, context);
    if (value.type() != Value::Type::Number) {
        context.fail(argument, value, A_NUMBER);
        return false;
    }
    number = value.asNumber();
    return true;
}

Value evaluateConstant(const Node& node, EvaluationContext&) {
    return node.constant;
}

Value evaluateGet(const Node& node, EvaluationContext& context) {
    return context.row.values[node.slot];
}

Value evaluateHas(const Node& node, EvaluationContext& context) {
    return Value(context.row.present[node.slot] != 0);
}

Value evaluateId(const Node&, EvaluationContext& context) {
    if (!context.featureId) {
        return Value();
    }
    return Value(static_cast<double>(*context.featureId));
}

Value evaluateEqual(const Node& node, EvaluationContext& context) {
    return Value(evaluate(node.args[0], context) == evaluate(node.args[1], context));
}

Value evaluateNotEqual(const Node& node, EvaluationContext& context) {
    return Value(evaluate(node.args[0], context) != evaluate(node.args[1], context));
}

Value evaluateLess(const Node& node, EvaluationContext& context) {
    return compareArguments(node, context, [](const auto& a, const auto& b) { return a < b; });
}

Value evaluateLessEqual(const Node& node, EvaluationContext& context) {
    return compareArguments(node, context, [](const auto& a, const auto& b) { return a <= b; });
}

Value evaluateGreater(const Node& node, EvaluationContext& context) {
    return compareArguments(node, context, [](const auto& a, const auto& b) { return a > b; });
}

Value evaluateGreaterEqual(const Node& node, EvaluationContext& context) {
    return compareArguments(node, context, [](const auto& a, const auto& b) { return a >= b; });
}

Value evaluateAll(const Node& node, EvaluationContext& context) {
    for (const Node& argument : node.args) {
        bool flag = false;
        if (!booleanArgument(argument, context, flag)) {
            return Value();
        }
        if (!flag) {
            return Value(false);
        }
    }
    return Value(true);
}

Value evaluateAny(const Node& node, EvaluationContext& context) {
    for (const Node& argument : node.args) {
        bool flag = false;
        if (!booleanArgument(argument, context, flag)) {
            return Value();
        }
        if (flag) {
            return Value(true);
        }
    }
    return Value(false);
}

Value evaluateNot(const Node& node, EvaluationContext& context) {
    bool flag = false;
    if (!booleanArgument(node.args[0], context, flag)) {
        return Value();
    }
    return Value(!flag);
}

Value evaluateCase(const Node& node, EvaluationContext& context) {
    const std::size_t last = node.args.size() - 1;
    for (std::size_t i = 0; i < last; i += 2) {
        bool flag = false;
        if (!booleanArgument(node.args[i], context, flag)) {
            return Value();
        }
        if (flag) {
            return evaluate(node.args[i + 1], context);
        }
    }
    return evaluate(node.args[last], context);
}

Value evaluateMatch(const Node& node, EvaluationContext& context) {
    const Value input = evaluate(node.args[0], context);
    std::size_t branch = node.args.size() - 1;
    if (input.type() == Value::Type::String) {
        const auto found = node.textLabels.find(input.asString());
        if (found != node.textLabels.end()) {
            branch = found->second;
        }
    } else if (input.type() == Value::Type::Number) {
        const double number = input.asNumber();
        const auto found =
            std::lower_bound(node.numberLabels.begin(), node.numberLabels.end(), number,
                             [](const std::pair<double, std::uint32_t>& label, double x) {
                                 return label.first < x;
                             });
        if (found != node.numberLabels.end() && found->first == number) {
            branch = found->second;
        }
    }
    return evaluate(node.args[branch], context);
}

Value evaluateCoalesce(const Node& node, EvaluationContext& context) {
    for (const Node& argument : node.args) {
        Value value = evaluate(argument, context);
        if (!value.isNull()) {
            return value;
        }
    }
    return Value();
}

} // namespace keo::Source::detail
