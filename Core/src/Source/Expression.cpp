#include "Source/Expression.h"

#include "Compiler.h"
#include "Evaluation.h"
#include "FieldTable.h"
#include "JsonText.h"
#include "Node.h"

#include <utility>

namespace keo::Source {

namespace detail {

/** @brief A compiled expression: the attribute names it reads and its node tree. */
struct CompiledExpression {
    FieldTable fields;
    Node root;
};

} // namespace detail

namespace {

constexpr const char* ROOT_PATH = "expression";

} // namespace

Expression::Expression(std::unique_ptr<detail::CompiledExpression> compiled)
    : compiled_(std::move(compiled)) {}

Expression::~Expression() = default;

std::unique_ptr<Expression> Expression::parse(std::string_view json, LoadReport& report) {
    nlohmann::json document;
    if (!detail::parseJson(json, ROOT_PATH, document, report)) {
        return nullptr;
    }
    auto compiled = std::make_unique<detail::CompiledExpression>();
    const bool compiles = detail::compileOrFail("", report, [&] {
        detail::Compiler compiler(compiled->fields);
        compiled->root = compiler.compile(document, ROOT_PATH, detail::StaticType::Any);
    });
    if (!compiles) {
        return nullptr;
    }
    return std::unique_ptr<Expression>(new Expression(std::move(compiled)));
}

Value Expression::evaluate(const keo::Feature::Feature::AttributeMap& attributes,
                           std::optional<std::uint64_t> featureId, LoadReport* report) const {
    detail::AttributeRow row;
    detail::fillRow(compiled_->fields, attributes, row);
    detail::EvaluationContext context{row, featureId};
    Value value = detail::evaluate(compiled_->root, context);
    if (context.failedNode == nullptr) {
        return value;
    }
    if (report != nullptr) {
        report->add(LoadReport::Issue::EvaluationType,
                    detail::failureMessage(context, featureId) + "; the result is null");
    }
    return Value();
}

const std::vector<std::string>& Expression::attributeNames() const noexcept {
    return compiled_->fields.names();
}

} // namespace keo::Source
