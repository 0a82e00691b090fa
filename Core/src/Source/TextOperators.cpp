#include "Operators.h"

#include "ColorText.h"
#include "NumberText.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <string>

namespace keo::Source::detail {

namespace {

constexpr const char* A_STRING = "a string";
constexpr const char* CONVERTIBLE_NUMBER = "a value that converts to a number";
constexpr const char* CONVERTIBLE_COLOR = "a color or a color text";
constexpr const char* BYTE_RANGE = "a number from 0 to 255";
constexpr const char* ALPHA_RANGE = "a number from 0 to 1";
constexpr double BYTE_MAX = 255.0;

template <typename Convert>
Value convertCase(const Node& node, EvaluationContext& context, Convert&& convert) {
    const Value value = evaluate(node.args[0], context);
    if (value.type() != Value::Type::String) {
        context.fail(node.args[0], value, A_STRING);
        return Value();
    }
    std::string text = value.asString();
    std::transform(text.begin(), text.end(), text.begin(),
                   [&convert](unsigned char c) { return static_cast<char>(convert(c)); });
    return Value(std::move(text));
}

std::optional<double> toNumber(const Value& value) {
    switch (value.type()) {
    case Value::Type::Null:
        return 0.0;
    case Value::Type::Boolean:
        return value.asBoolean() ? 1.0 : 0.0;
    case Value::Type::Number:
        return value.asNumber();
    case Value::Type::String:
        return parseNumber(value.asString());
    case Value::Type::Color:
        break;
    }
    return std::nullopt;
}

bool channel(const Node& argument, EvaluationContext& context, double most, const char* expected,
             float& component) {
    const Value value = evaluate(argument, context);
    const double number = value.asNumber();
    if (value.type() != Value::Type::Number || !(number >= 0.0 && number <= most)) {
        context.fail(argument, value, expected);
        return false;
    }
    component = static_cast<float>(number / most);
    return true;
}

Value colorOfChannels(const Node& node, EvaluationContext& context, bool withAlpha) {
    float rgba[4] = {0.0f, 0.0f, 0.0f, 1.0f};
    for (std::size_t i = 0; i < 3; ++i) {
        if (!channel(node.args[i], context, BYTE_MAX, BYTE_RANGE, rgba[i])) {
            return Value();
        }
    }
    if (withAlpha && !channel(node.args[3], context, 1.0, ALPHA_RANGE, rgba[3])) {
        return Value();
    }
    return Value(keo::Color(rgba[0], rgba[1], rgba[2], rgba[3]));
}

} // namespace

Value evaluateConcat(const Node& node, EvaluationContext& context) {
    std::string text;
    for (const Node& argument : node.args) {
        text += evaluate(argument, context).toString();
    }
    return Value(std::move(text));
}

Value evaluateUpcase(const Node& node, EvaluationContext& context) {
    return convertCase(node, context, [](unsigned char c) { return std::toupper(c); });
}

Value evaluateDowncase(const Node& node, EvaluationContext& context) {
    return convertCase(node, context, [](unsigned char c) { return std::tolower(c); });
}

Value evaluateToString(const Node& node, EvaluationContext& context) {
    return Value(evaluate(node.args[0], context).toString());
}

Value evaluateToNumber(const Node& node, EvaluationContext& context) {
    Value last;
    for (const Node& argument : node.args) {
        last = evaluate(argument, context);
        if (const auto number = toNumber(last)) {
            return Value(*number);
        }
    }
    context.fail(node.args.back(), last, CONVERTIBLE_NUMBER);
    return Value();
}

Value evaluateToBoolean(const Node& node, EvaluationContext& context) {
    const Value value = evaluate(node.args[0], context);
    switch (value.type()) {
    case Value::Type::Null:
        return Value(false);
    case Value::Type::Boolean:
        return value;
    case Value::Type::Number:
        return Value(value.asNumber() != 0.0 && !std::isnan(value.asNumber()));
    case Value::Type::String:
        return Value(!value.asString().empty());
    case Value::Type::Color:
        break;
    }
    return Value(true);
}

Value evaluateToColor(const Node& node, EvaluationContext& context) {
    Value last;
    for (const Node& argument : node.args) {
        last = evaluate(argument, context);
        if (last.type() == Value::Type::Color) {
            return last;
        }
        if (last.type() == Value::Type::String) {
            if (const auto color = parseColor(last.asString())) {
                return Value(*color);
            }
        }
    }
    context.fail(node.args.back(), last, CONVERTIBLE_COLOR);
    return Value();
}

Value evaluateRgb(const Node& node, EvaluationContext& context) {
    return colorOfChannels(node, context, false);
}

Value evaluateRgba(const Node& node, EvaluationContext& context) {
    return colorOfChannels(node, context, true);
}

Value evaluateNumberFormat(const Node& node, EvaluationContext& context) {
    double number = 0.0;
    if (!numberArgument(node.args[0], context, number)) {
        return Value();
    }
    return Value(formatFixed(number, node.minDigits, node.maxDigits));
}

} // namespace keo::Source::detail
