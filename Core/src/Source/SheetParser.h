#pragma once

#include "CompiledSheet.h"

#include <nlohmann/json.hpp>

namespace keo::Source::detail {

/**
 * @brief Compiles the JSON document of a style sheet into @p sheet. Throws CompileError with the
 * path of the first part that is not valid: an unknown key, a value of the wrong form or type, an
 * unknown operator or a wrong argument count.
 */
void parseSheet(const nlohmann::json& document, CompiledSheet& sheet);

} // namespace keo::Source::detail
