#pragma once

#include "Source/Value.h"

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace keo::Source::detail {

/** @brief What the compiler knows of a node's result; Any when only evaluation tells. */
enum class StaticType : std::uint8_t { Any, Null, Boolean, Number, String, Color };

/** @brief The attributes of one feature by slot, with whether each is present at all. */
struct AttributeRow {
    /** @brief The values by slot; null for an absent attribute. */
    std::vector<Value> values;
    /** @brief 1 where the feature has the attribute (even null), 0 where it has not. */
    std::vector<char> present;
};

struct Node;

/**
 * @brief The state of one evaluation: the feature's attributes and id, and the first failure met
 * (the node whose value had the wrong type, that value and what was expected).
 */
struct EvaluationContext {
    /** @brief A context for the feature @p id with the attributes @p attributes. */
    EvaluationContext(const AttributeRow& attributes, std::optional<std::uint64_t> id) noexcept
        : row(attributes)
        , featureId(id) {}

    /** @brief The attributes by slot. */
    const AttributeRow& row;
    /** @brief The feature id that ["id"] reads. */
    std::optional<std::uint64_t> featureId;
    /** @brief The first node that failed, or null. */
    const Node* failedNode = nullptr;
    /** @brief The value it failed with. */
    Value failedValue;
    /** @brief What was expected there, e.g. "a number". */
    const char* expected = nullptr;

    /** @brief Records a failure at @p node unless one was recorded already. */
    void fail(const Node& node, const Value& value, const char* expectation) {
        if (failedNode == nullptr) {
            failedNode = &node;
            failedValue = value;
            expected = expectation;
        }
    }
};

/** @brief The evaluation of one operator: a node and the context give the value. */
using Evaluator = Value (*)(const Node& node, EvaluationContext& context);

/**
 * @brief A compiled expression node: its operator's evaluation, its arguments and the data the
 * operator fixed at compile time, with its path in the sheet for messages.
 */
struct Node {
    /** @brief The operator's evaluation. */
    Evaluator evaluate = nullptr;
    /** @brief The result type known at compile time. */
    StaticType type = StaticType::Any;
    /** @brief The value of a constant. */
    Value constant;
    /** @brief The attribute slot of get and has. */
    std::uint32_t slot = 0;
    /** @brief The argument nodes, in order (for ramps and match: input, then the outputs). */
    std::vector<Node> args;
    /** @brief The input stops of step and interpolate, strictly ascending. */
    std::vector<double> stops;
    /** @brief The exponential base of interpolate (1: linear). */
    double base = 1.0;
    /** @brief The text labels of match, each to the index of its output in args. */
    std::unordered_map<std::string, std::uint32_t> textLabels;
    /** @brief The number labels of match, ascending, each to the index of its output in args. */
    std::vector<std::pair<double, std::uint32_t>> numberLabels;
    /** @brief The fraction digits of number-format, least and most. */
    int minDigits = 0;
    /** @brief See minDigits. */
    int maxDigits = 3;
    /** @brief Where the node stands in the sheet, e.g. "rules[0].point.size[1]". */
    std::string path;
};

/** @brief The value of @p node in @p context. */
inline Value evaluate(const Node& node, EvaluationContext& context) {
    return node.evaluate(node, context);
}

} // namespace keo::Source::detail
