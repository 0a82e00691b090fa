#pragma once

#include "Compiler.h"
#include "Node.h"

#include <nlohmann/json.hpp>

#include <cstddef>
#include <string_view>

namespace keo::Source::detail {

/**
 * @brief The compilation of an operator whose arguments are not all plain expressions of one
 * type: it fills @p node (evaluation, result type and path already set) from the JSON array
 * @p array (the operator name first), @p depth levels deep, with @p expected passed down to the
 * outputs.
 */
using SpecialCompile = void (*)(Compiler& compiler, const nlohmann::json& array, Node& node,
                                std::size_t depth, StaticType expected);

/** @brief One operator of the language: its name, evaluation, argument count and types. */
struct OperatorSpec {
    /** @brief The name, as written first in the array. */
    const char* name;
    /** @brief The evaluation. */
    Evaluator evaluate;
    /** @brief The least number of arguments. */
    std::size_t minArguments;
    /** @brief The most arguments; MANY for no limit. */
    std::size_t maxArguments;
    /** @brief The type every argument must have (Any: no check); ignored with a special. */
    StaticType argumentType;
    /** @brief The result type (a special may narrow Any). */
    StaticType resultType;
    /** @brief The compilation of an operator with particular arguments, or null. */
    SpecialCompile special;
};

/** @brief The maxArguments of an operator without limit. */
constexpr std::size_t MANY = static_cast<std::size_t>(-1);

/** @brief The operator named @p name, or null when the language has none. */
const OperatorSpec* findOperator(std::string_view name) noexcept;

} // namespace keo::Source::detail
