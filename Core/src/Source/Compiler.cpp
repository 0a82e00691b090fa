#include "Compiler.h"

#include "ColorText.h"
#include "OperatorTable.h"
#include "Operators.h"

#include <string>
#include <utility>

namespace keo::Source::detail {

namespace {

std::string countText(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " argument" : " arguments");
}

// The message for an argument count outside [least, most].
std::string arityMessage(const OperatorSpec& spec, std::size_t count) {
    std::string expected;
    if (spec.minArguments == spec.maxArguments) {
        expected = countText(spec.minArguments);
    } else if (spec.maxArguments == MANY) {
        expected = "at least " + countText(spec.minArguments);
    } else {
        expected =
            "from " + std::to_string(spec.minArguments) + " to " + countText(spec.maxArguments);
    }
    return "\"" + std::string(spec.name) + "\" takes " + expected + ", got " +
           std::to_string(count);
}

Node constantOf(const nlohmann::json& json, const std::string& path, StaticType expected) {
    if (json.is_string()) {
        const auto& text = json.get_ref<const std::string&>();
        if (expected != StaticType::Color) {
            return constantNode(Value(text), path);
        }
        const auto color = parseColor(text);
        if (!color) {
            throw CompileError{path, "\"" + text + "\" is not a color"};
        }
        return constantNode(Value(*color), path);
    }
    if (json.is_number()) {
        return constantNode(Value(json.get<double>()), path);
    }
    if (json.is_boolean()) {
        return constantNode(Value(json.get<bool>()), path);
    }
    if (json.is_null()) {
        return constantNode(Value(), path);
    }
    if (json.is_object()) {
        throw CompileError{path, "an object is not a value"};
    }
    throw CompileError{path, "an array must name its operator first, e.g. [\"get\", \"name\"]; "
                             "other arrays are not values"};
}

bool fitsTopLevel(StaticType type, StaticType expected) {
    if (expected == StaticType::Any || type == StaticType::Any || type == expected ||
        type == StaticType::Null) {
        return true;
    }
    // Texts take numbers and booleans as their text; colours take texts read at evaluation.
    return (expected == StaticType::String &&
            (type == StaticType::Number || type == StaticType::Boolean)) ||
           (expected == StaticType::Color && type == StaticType::String);
}

StaticType typeOf(const Value& value) {
    switch (value.type()) {
    case Value::Type::Null:
        return StaticType::Null;
    case Value::Type::Boolean:
        return StaticType::Boolean;
    case Value::Type::Number:
        return StaticType::Number;
    case Value::Type::String:
        return StaticType::String;
    case Value::Type::Color:
        return StaticType::Color;
    }
    return StaticType::Any;
}

} // namespace

std::string elementPath(const std::string& path, std::size_t index) {
    return path + "[" + std::to_string(index) + "]";
}

void requireType(const Node& node, StaticType expected) {
    if (expected == StaticType::Any || node.type == StaticType::Any || node.type == expected) {
        return;
    }
    throw CompileError{node.path, std::string("expected ") + Compiler::describe(expected) +
                                      ", got " + Compiler::describe(node.type)};
}

Node constantNode(Value value, const std::string& path) {
    Node node;
    node.evaluate = evaluateConstant;
    node.type = typeOf(value);
    node.constant = std::move(value);
    node.path = path;
    return node;
}

const char* Compiler::describe(StaticType type) noexcept {
    switch (type) {
    case StaticType::Any:
        return "any value";
    case StaticType::Null:
        return "null";
    case StaticType::Boolean:
        return "a boolean";
    case StaticType::Number:
        return "a number";
    case StaticType::String:
        return "a string";
    case StaticType::Color:
        return "a color";
    }
    return "a value";
}

void Compiler::collectSlots(const Node& node, SlotSet& slots) {
    if (node.evaluate == evaluateGet || node.evaluate == evaluateHas) {
        slots.insert(node.slot);
    }
    for (const Node& argument : node.args) {
        collectSlots(argument, slots);
    }
}

Node Compiler::compile(const nlohmann::json& json, const std::string& path, StaticType expected) {
    Node node = compileAt(json, path, 0, expected);
    if (!fitsTopLevel(node.type, expected)) {
        throw CompileError{path, std::string("expected ") + describe(expected) + ", got " +
                                     describe(node.type)};
    }
    return node;
}

Node Compiler::compileAt(const nlohmann::json& json, const std::string& path, std::size_t depth,
                         StaticType expected) {
    if (!json.is_array() || json.empty() || !json.front().is_string()) {
        return constantOf(json, path, expected);
    }
    if (depth >= MAX_DEPTH) {
        throw CompileError{path,
                           "expressions nest deeper than " + std::to_string(MAX_DEPTH) + " levels"};
    }
    const auto& name = json.front().get_ref<const std::string&>();
    const OperatorSpec* spec = findOperator(name);
    if (spec == nullptr) {
        throw CompileError{path, "unknown operator \"" + name + "\""};
    }
    const std::size_t count = json.size() - 1;
    if (count < spec->minArguments || count > spec->maxArguments) {
        throw CompileError{path, arityMessage(*spec, count)};
    }
    Node node;
    node.evaluate = spec->evaluate;
    node.type = spec->resultType;
    node.path = path;
    if (spec->special != nullptr) {
        spec->special(*this, json, node, depth, expected);
        return node;
    }
    for (std::size_t i = 1; i < json.size(); ++i) {
        node.args.push_back(compileAt(json[i], elementPath(path, i), depth + 1, StaticType::Any));
        requireType(node.args.back(), spec->argumentType);
    }
    return node;
}

} // namespace keo::Source::detail
