#include "OperatorTable.h"

#include "Operators.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace keo::Source::detail {

namespace {

using json = nlohmann::json;

constexpr int MAX_FRACTION_DIGITS = 20;
constexpr const char* ASCENDING_STOPS = "stops must be numbers in strictly ascending order";

// Folds one more output type into common (start with Null): equal types and null outputs keep
// it; any other difference, or an output only known at evaluation, gives Any.
StaticType joinType(StaticType common, StaticType type) {
    if (type == StaticType::Null || type == common) {
        return common;
    }
    return common == StaticType::Null ? type : StaticType::Any;
}

Node argument(Compiler& compiler, const json& array, const Node& node, std::size_t index,
              std::size_t depth, StaticType expected) {
    return compiler.compileAt(array[index], elementPath(node.path, index), depth + 1, expected);
}

Node typedArgument(Compiler& compiler, const json& array, const Node& node, std::size_t index,
                   std::size_t depth, StaticType required) {
    Node argumentNode = argument(compiler, array, node, index, depth, StaticType::Any);
    requireType(argumentNode, required);
    return argumentNode;
}

void compileAttribute(Compiler& compiler, const json& array, Node& node, std::size_t, StaticType) {
    if (!array[1].is_string()) {
        throw CompileError{elementPath(node.path, 1), "expected an attribute name, a string"};
    }
    node.slot = compiler.slotOf(array[1].get_ref<const std::string&>());
}

void compileLiteral(Compiler& compiler, const json& array, Node& node, std::size_t depth,
                    StaticType expected) {
    if (array[1].is_array() || array[1].is_object()) {
        throw CompileError{elementPath(node.path, 1),
                           "\"literal\" takes a string, a number, a boolean or null"};
    }
    std::string path = node.path;
    node = compiler.compileAt(array[1], path, depth + 1, expected);
    node.path = std::move(path);
}

void compileOrder(Compiler& compiler, const json& array, Node& node, std::size_t depth,
                  StaticType) {
    for (std::size_t i = 1; i <= 2; ++i) {
        node.args.push_back(argument(compiler, array, node, i, depth, StaticType::Any));
        const StaticType type = node.args.back().type;
        if (type != StaticType::Any && type != StaticType::Number && type != StaticType::String) {
            throw CompileError{node.args.back().path,
                               std::string("expected a number or a string, got ") +
                                   Compiler::describe(type)};
        }
    }
    if (joinType(node.args[0].type, node.args[1].type) == StaticType::Any &&
        node.args[0].type != StaticType::Any && node.args[1].type != StaticType::Any) {
        throw CompileError{node.path, "compares a number with a string"};
    }
}

void compileCase(Compiler& compiler, const json& array, Node& node, std::size_t depth,
                 StaticType expected) {
    if (array.size() % 2 != 0) {
        throw CompileError{node.path, "\"case\" takes condition-output pairs and a fallback, "
                                      "an odd number of arguments"};
    }
    StaticType common = StaticType::Null;
    for (std::size_t i = 1; i < array.size(); ++i) {
        const bool condition = i % 2 == 1 && i + 1 < array.size();
        node.args.push_back(
            condition ? typedArgument(compiler, array, node, i, depth, StaticType::Boolean)
                      : argument(compiler, array, node, i, depth, expected));
        if (!condition) {
            common = joinType(common, node.args.back().type);
        }
    }
    node.type = common;
}

void compileCoalesce(Compiler& compiler, const json& array, Node& node, std::size_t depth,
                     StaticType expected) {
    StaticType common = StaticType::Null;
    for (std::size_t i = 1; i < array.size(); ++i) {
        node.args.push_back(argument(compiler, array, node, i, depth, expected));
        common = joinType(common, node.args.back().type);
    }
    node.type = common;
}

// Files one label (a literal text or number) of match under the output index.
void addMatchLabel(Node& node, const json& label, const std::string& path, std::uint32_t output) {
    if (label.is_string()) {
        if (!node.numberLabels.empty()) {
            throw CompileError{path, "labels must all be strings or all be numbers"};
        }
        if (!node.textLabels.emplace(label.get<std::string>(), output).second) {
            throw CompileError{path, "duplicate label " + label.dump()};
        }
        return;
    }
    if (!label.is_number() || !std::isfinite(label.get<double>())) {
        throw CompileError{path, "a label must be a string, a number or an array of them"};
    }
    if (!node.textLabels.empty()) {
        throw CompileError{path, "labels must all be strings or all be numbers"};
    }
    const double number = label.get<double>();
    for (const auto& existing : node.numberLabels) {
        if (existing.first == number) {
            throw CompileError{path, "duplicate label " + label.dump()};
        }
    }
    node.numberLabels.emplace_back(number, output);
}

void compileMatchLabels(const json& labels, Node& node, const std::string& path,
                        std::uint32_t output) {
    if (!labels.is_array()) {
        addMatchLabel(node, labels, path, output);
        return;
    }
    if (labels.empty()) {
        throw CompileError{path, "an array of labels must not be empty"};
    }
    for (std::size_t i = 0; i < labels.size(); ++i) {
        addMatchLabel(node, labels[i], elementPath(path, i), output);
    }
}

void compileMatch(Compiler& compiler, const json& array, Node& node, std::size_t depth,
                  StaticType expected) {
    if (array.size() % 2 != 1) {
        throw CompileError{node.path, "\"match\" takes an input, label-output pairs and a "
                                      "fallback, an even number of arguments"};
    }
    node.args.push_back(argument(compiler, array, node, 1, depth, StaticType::Any));
    StaticType common = StaticType::Null;
    for (std::size_t i = 2; i < array.size(); i += 2) {
        const bool fallback = i + 1 == array.size();
        if (!fallback) {
            compileMatchLabels(array[i], node, elementPath(node.path, i),
                               static_cast<std::uint32_t>(node.args.size()));
        }
        node.args.push_back(argument(compiler, array, node, fallback ? i : i + 1, depth, expected));
        common = joinType(common, node.args.back().type);
    }
    std::sort(node.numberLabels.begin(), node.numberLabels.end());
    node.type = common;
}

// Reads the stop at array[index] into node.stops, checking that the stops ascend.
void addStop(const json& array, Node& node, std::size_t index) {
    const json& stop = array[index];
    if (!stop.is_number() || !std::isfinite(stop.get<double>()) ||
        (!node.stops.empty() && !(stop.get<double>() > node.stops.back()))) {
        throw CompileError{elementPath(node.path, index), ASCENDING_STOPS};
    }
    node.stops.push_back(stop.get<double>());
}

void compileStep(Compiler& compiler, const json& array, Node& node, std::size_t depth,
                 StaticType expected) {
    if (array.size() % 2 != 1) {
        throw CompileError{node.path, "\"step\" takes an input, a first output and stop-output "
                                      "pairs, an even number of arguments"};
    }
    node.args.push_back(typedArgument(compiler, array, node, 1, depth, StaticType::Number));
    node.args.push_back(argument(compiler, array, node, 2, depth, expected));
    StaticType common = joinType(StaticType::Null, node.args.back().type);
    for (std::size_t i = 3; i < array.size(); i += 2) {
        addStop(array, node, i);
        node.args.push_back(argument(compiler, array, node, i + 1, depth, expected));
        common = joinType(common, node.args.back().type);
    }
    node.type = common;
}

void compileInterpolationType(const json& type, Node& node) {
    const std::string path = elementPath(node.path, 1);
    if (type == json::array({"linear"})) {
        node.base = 1.0;
        return;
    }
    if (type.is_array() && type.size() == 2 && type[0] == "exponential" && type[1].is_number() &&
        type[1].get<double>() > 0.0 && std::isfinite(type[1].get<double>())) {
        node.base = type[1].get<double>();
        return;
    }
    throw CompileError{path, "expected [\"linear\"] or [\"exponential\", base] with a base "
                             "above 0"};
}

void compileInterpolate(Compiler& compiler, const json& array, Node& node, std::size_t depth,
                        StaticType expected) {
    if (array.size() % 2 != 1) {
        throw CompileError{node.path, "\"interpolate\" takes a type, an input and stop-output "
                                      "pairs, an even number of arguments"};
    }
    compileInterpolationType(array[1], node);
    node.args.push_back(typedArgument(compiler, array, node, 2, depth, StaticType::Number));
    // Texts among the outputs are colours unless a number is expected.
    const StaticType outputs =
        expected == StaticType::Number ? StaticType::Number : StaticType::Color;
    // The type that every output known before evaluation has; any other known type is an error.
    StaticType known = StaticType::Null;
    bool evaluated = false;
    for (std::size_t i = 3; i < array.size(); i += 2) {
        addStop(array, node, i);
        node.args.push_back(argument(compiler, array, node, i + 1, depth, outputs));
        const Node& output = node.args.back();
        if (output.type == StaticType::Any) {
            evaluated = true;
            continue;
        }
        if (output.type != StaticType::Number && output.type != StaticType::Color) {
            throw CompileError{output.path, std::string("expected a number or a color, got ") +
                                                Compiler::describe(output.type)};
        }
        if (known != StaticType::Null && output.type != known) {
            throw CompileError{output.path, "outputs must all be numbers or all be colors"};
        }
        known = output.type;
    }
    const StaticType common = evaluated ? StaticType::Any : known;
    node.type = common;
}

int fractionDigits(const json& options, const char* key, int fallback, const std::string& path) {
    const auto found = options.find(key);
    if (found == options.end()) {
        return fallback;
    }
    if (!found->is_number_integer() || found->get<long long>() < 0 ||
        found->get<long long>() > MAX_FRACTION_DIGITS) {
        throw CompileError{path + "." + key, "expected a whole number from 0 to " +
                                                 std::to_string(MAX_FRACTION_DIGITS)};
    }
    return static_cast<int>(found->get<long long>());
}

void compileNumberFormat(Compiler& compiler, const json& array, Node& node, std::size_t depth,
                         StaticType) {
    node.args.push_back(typedArgument(compiler, array, node, 1, depth, StaticType::Number));
    const json& options = array[2];
    const std::string path = elementPath(node.path, 2);
    if (!options.is_object()) {
        throw CompileError{path, "expected an options object"};
    }
    for (const auto& item : options.items()) {
        if (item.key() != "min-fraction-digits" && item.key() != "max-fraction-digits") {
            throw CompileError{path + "." + item.key(), "unknown option"};
        }
    }
    node.minDigits = fractionDigits(options, "min-fraction-digits", 0, path);
    node.maxDigits =
        fractionDigits(options, "max-fraction-digits", std::max(3, node.minDigits), path);
    if (node.minDigits > node.maxDigits) {
        throw CompileError{path, "min-fraction-digits is above max-fraction-digits"};
    }
}

constexpr StaticType ANY = StaticType::Any;
constexpr StaticType BOOLEAN = StaticType::Boolean;
constexpr StaticType NUMBER = StaticType::Number;
constexpr StaticType STRING = StaticType::String;
constexpr StaticType COLOR = StaticType::Color;

const std::array<OperatorSpec, 43> OPERATORS{{
    {"get", evaluateGet, 1, 1, ANY, ANY, compileAttribute},
    {"has", evaluateHas, 1, 1, ANY, BOOLEAN, compileAttribute},
    {"id", evaluateId, 0, 0, ANY, ANY, nullptr},
    {"literal", evaluateConstant, 1, 1, ANY, ANY, compileLiteral},
    {"==", evaluateEqual, 2, 2, ANY, BOOLEAN, nullptr},
    {"!=", evaluateNotEqual, 2, 2, ANY, BOOLEAN, nullptr},
    {"<", evaluateLess, 2, 2, ANY, BOOLEAN, compileOrder},
    {"<=", evaluateLessEqual, 2, 2, ANY, BOOLEAN, compileOrder},
    {">", evaluateGreater, 2, 2, ANY, BOOLEAN, compileOrder},
    {">=", evaluateGreaterEqual, 2, 2, ANY, BOOLEAN, compileOrder},
    {"all", evaluateAll, 0, MANY, BOOLEAN, BOOLEAN, nullptr},
    {"any", evaluateAny, 0, MANY, BOOLEAN, BOOLEAN, nullptr},
    {"!", evaluateNot, 1, 1, BOOLEAN, BOOLEAN, nullptr},
    {"case", evaluateCase, 3, MANY, ANY, ANY, compileCase},
    {"match", evaluateMatch, 4, MANY, ANY, ANY, compileMatch},
    {"coalesce", evaluateCoalesce, 1, MANY, ANY, ANY, compileCoalesce},
    {"step", evaluateStep, 2, MANY, ANY, ANY, compileStep},
    {"interpolate", evaluateInterpolate, 4, MANY, ANY, ANY, compileInterpolate},
    {"+", evaluateAdd, 2, MANY, NUMBER, NUMBER, nullptr},
    {"-", evaluateSubtract, 1, 2, NUMBER, NUMBER, nullptr},
    {"*", evaluateMultiply, 2, MANY, NUMBER, NUMBER, nullptr},
    {"/", evaluateDivide, 2, 2, NUMBER, NUMBER, nullptr},
    {"%", evaluateModulo, 2, 2, NUMBER, NUMBER, nullptr},
    {"^", evaluatePower, 2, 2, NUMBER, NUMBER, nullptr},
    {"min", evaluateMin, 1, MANY, NUMBER, NUMBER, nullptr},
    {"max", evaluateMax, 1, MANY, NUMBER, NUMBER, nullptr},
    {"round", evaluateRound, 1, 1, NUMBER, NUMBER, nullptr},
    {"floor", evaluateFloor, 1, 1, NUMBER, NUMBER, nullptr},
    {"ceil", evaluateCeil, 1, 1, NUMBER, NUMBER, nullptr},
    {"abs", evaluateAbs, 1, 1, NUMBER, NUMBER, nullptr},
    {"sqrt", evaluateSqrt, 1, 1, NUMBER, NUMBER, nullptr},
    {"concat", evaluateConcat, 1, MANY, ANY, STRING, nullptr},
    {"upcase", evaluateUpcase, 1, 1, STRING, STRING, nullptr},
    {"downcase", evaluateDowncase, 1, 1, STRING, STRING, nullptr},
    {"to-string", evaluateToString, 1, 1, ANY, STRING, nullptr},
    {"to-number", evaluateToNumber, 1, MANY, ANY, NUMBER, nullptr},
    {"to-boolean", evaluateToBoolean, 1, 1, ANY, BOOLEAN, nullptr},
    {"to-color", evaluateToColor, 1, MANY, ANY, COLOR, nullptr},
    {"rgb", evaluateRgb, 3, 3, NUMBER, COLOR, nullptr},
    {"rgba", evaluateRgba, 4, 4, NUMBER, COLOR, nullptr},
    {"number-format", evaluateNumberFormat, 2, 2, ANY, STRING, compileNumberFormat},
    {"ln", evaluateLn, 1, 1, NUMBER, NUMBER, nullptr},
    {"log10", evaluateLog10, 1, 1, NUMBER, NUMBER, nullptr},
}};

} // namespace

const OperatorSpec* findOperator(std::string_view name) noexcept {
    for (const OperatorSpec& spec : OPERATORS) {
        if (name == spec.name) {
            return &spec;
        }
    }
    return nullptr;
}

} // namespace keo::Source::detail
