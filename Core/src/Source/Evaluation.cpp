#include "Evaluation.h"

#include "ColorText.h"

namespace keo::Source::detail {

void fillRow(const FieldTable& fields, const keo::Feature::Feature::AttributeMap& attributes,
             AttributeRow& row) {
    const std::size_t count = fields.size();
    row.values.assign(count, Value());
    row.present.assign(count, 0);
    for (std::size_t slot = 0; slot < count; ++slot) {
        const auto found = attributes.find(fields.names()[slot]);
        if (found != attributes.end()) {
            row.values[slot] = Value::fromAttribute(found->second);
            row.present[slot] = 1;
        }
    }
}

std::string failureMessage(const EvaluationContext& context,
                           std::optional<std::uint64_t> featureId) {
    std::string message = featureId ? "feature " + std::to_string(*featureId) : "a feature";
    if (context.failedNode != nullptr) {
        message += ": " + context.failedNode->path + ": expected " + context.expected + ", got " +
                   context.failedValue.describe();
    }
    return message;
}

bool coerce(Value& value, StaticType expected) {
    const Value::Type type = value.type();
    switch (expected) {
    case StaticType::Any:
        return true;
    case StaticType::Null:
        return type == Value::Type::Null;
    case StaticType::Boolean:
        return type == Value::Type::Boolean;
    case StaticType::Number:
        return type == Value::Type::Number;
    case StaticType::String:
        if (type == Value::Type::Number || type == Value::Type::Boolean) {
            value = Value(value.toString());
        }
        return value.type() == Value::Type::String;
    case StaticType::Color:
        if (type == Value::Type::String) {
            if (const auto color = parseColor(value.asString())) {
                value = Value(*color);
            }
        }
        return value.type() == Value::Type::Color;
    }
    return false;
}

} // namespace keo::Source::detail
