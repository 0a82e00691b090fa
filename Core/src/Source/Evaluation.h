#pragma once

#include "FieldTable.h"
#include "Node.h"

#include "Feature/Feature.h"

#include <cstdint>
#include <optional>
#include <string>

namespace keo::Source::detail {

/** @brief Fills @p row with the attributes of @p attributes that @p fields names, by slot. */
void fillRow(const FieldTable& fields, const keo::Feature::Feature::AttributeMap& attributes,
             AttributeRow& row);

/**
 * @brief The message of the failure recorded in @p context for the feature @p featureId:
 * "feature 12: rules[0].point.size[1]: expected a number, got \"abc\"".
 */
std::string failureMessage(const EvaluationContext& context,
                           std::optional<std::uint64_t> featureId);

/**
 * @brief Whether @p value fits a value of type @p expected, after the conversions a style value
 * allows: numbers and booleans to text for a text, a colour text to a colour for a colour.
 */
bool coerce(Value& value, StaticType expected);

} // namespace keo::Source::detail
