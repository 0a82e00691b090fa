#include "Source/Value.h"

#include "ColorText.h"
#include "NumberText.h"

#include <any>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string_view>

namespace keo::Source {

namespace {

const std::string EMPTY_TEXT;

// The number held by value when it is of one of the standard arithmetic types.
template <typename... Numbers>
bool numberOf(const std::any& value, double& number) {
    return ((value.type() == typeid(Numbers)
                 ? (number = static_cast<double>(std::any_cast<Numbers>(value)), true)
                 : false) ||
            ...);
}

Value textOf(const std::any& value) {
    if (const auto* text = std::any_cast<std::string>(&value)) {
        return Value(*text);
    }
    if (const auto* view = std::any_cast<std::string_view>(&value)) {
        return Value(std::string(*view));
    }
    if (const auto* chars = std::any_cast<const char*>(&value)) {
        return Value(*chars);
    }
    return Value();
}

} // namespace

bool Value::asBoolean() const noexcept {
    const bool* value = std::get_if<bool>(&data_);
    return value != nullptr && *value;
}

double Value::asNumber() const noexcept {
    const double* value = std::get_if<double>(&data_);
    return value != nullptr ? *value : std::numeric_limits<double>::quiet_NaN();
}

const std::string& Value::asString() const noexcept {
    const std::string* value = std::get_if<std::string>(&data_);
    return value != nullptr ? *value : EMPTY_TEXT;
}

const keo::Color& Value::asColor() const noexcept {
    const keo::Color* value = std::get_if<keo::Color>(&data_);
    return value != nullptr ? *value : keo::Color::WHITE;
}

std::string Value::toString() const {
    switch (type()) {
    case Type::Null:
        return {};
    case Type::Boolean:
        return asBoolean() ? "true" : "false";
    case Type::Number:
        return detail::shortestText(asNumber());
    case Type::String:
        return asString();
    case Type::Color:
        return detail::colorText(asColor());
    }
    return {};
}

std::string Value::describe() const {
    if (type() == Type::Null) {
        return "null";
    }
    if (type() == Type::String) {
        return "\"" + asString() + "\"";
    }
    return toString();
}

const char* Value::typeName(Type type) noexcept {
    switch (type) {
    case Type::Null:
        return "null";
    case Type::Boolean:
        return "boolean";
    case Type::Number:
        return "number";
    case Type::String:
        return "string";
    case Type::Color:
        return "color";
    }
    return "unknown";
}

Value Value::fromAttribute(const keo::Feature::AttributeValue& attribute) {
    const std::any& value = attribute.value;
    if (!value.has_value()) {
        return Value();
    }
    if (const bool* flag = std::any_cast<bool>(&value)) {
        return Value(*flag);
    }
    double number = 0.0;
    if (numberOf<double, float, int, long, long long, unsigned, unsigned long, unsigned long long,
                 short, unsigned short, signed char, unsigned char>(value, number)) {
        return Value(number);
    }
    if (const auto* color = std::any_cast<keo::Color>(&value)) {
        return Value(*color);
    }
    return textOf(value);
}

} // namespace keo::Source
