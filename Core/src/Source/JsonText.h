#pragma once

#include "Source/LoadReport.h"

#include <nlohmann/json.hpp>

#include <string>
#include <string_view>

namespace keo::Source::detail {

/**
 * @brief Parses @p text into @p document. False when it is not JSON, with @p error saying where
 * ("line 3, column 7: ...") and what the parser met.
 */
bool parseJson(std::string_view text, nlohmann::json& document, std::string& error);

/**
 * @brief Parses @p text into @p document; when it is not JSON, fails @p report with a StyleSyntax
 * entry "<what>: JSON does not parse at line L, column C: ..." and returns false.
 */
bool parseJson(std::string_view text, const char* what, nlohmann::json& document,
               LoadReport& report);

} // namespace keo::Source::detail
