#pragma once

#include "Feature/Feature.h"
#include "Source/LoadReport.h"
#include "Source/SourceExport.h"
#include "Source/Value.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace keo::Source {

namespace detail {
struct CompiledExpression;
} // namespace detail

/**
 * @brief One expression of the style language, compiled once from its JSON form and evaluated
 * against a feature's attributes.
 *
 * The language follows the open map style conventions: an expression is a JSON array whose first
 * element names the operator (["get", "population"], ["*", ["get", "area"], 2]); any other JSON
 * value is a constant (a string, a number, a boolean or null). See StyleSheet for the operators.
 * Evaluation walks the compiled tree only (no JSON is read again) and is safe to run on several
 * threads at once.
 */
class KEO_SOURCE_API Expression final {
public:
    /**
     * @brief The expression compiled from the JSON text @p json; null when the text does not parse
     * (the message gives line and column) or is not a valid expression (the message gives the path
     * of the offending part, e.g. "expression[2]", and what is wrong). The error goes into
     * @p report through LoadReport::fail.
     */
    static std::unique_ptr<Expression> parse(std::string_view json, LoadReport& report);
    ~Expression();
    Expression(const Expression&) = delete;
    Expression& operator=(const Expression&) = delete;

    /**
     * @brief The value for a feature with @p attributes and id @p featureId (read by ["id"]). A
     * value of the wrong type met on the way (["+", "a", 1] after a `get` gives text) makes the
     * result null and adds an EvaluationType entry to @p report (when given) naming the feature,
     * the path of the failing part and the value.
     */
    Value evaluate(const keo::Feature::Feature::AttributeMap& attributes,
                   std::optional<std::uint64_t> featureId = std::nullopt,
                   LoadReport* report = nullptr) const;
    /** @brief The names of the attributes the expression reads, in the order first met. */
    const std::vector<std::string>& attributeNames() const noexcept;

private:
    explicit Expression(std::unique_ptr<detail::CompiledExpression> compiled);

    std::unique_ptr<detail::CompiledExpression> compiled_;
};

} // namespace keo::Source
