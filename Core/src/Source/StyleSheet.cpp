#include "Source/StyleSheet.h"

#include "CompiledSheet.h"
#include "Compiler.h"
#include "Evaluation.h"
#include "JsonText.h"
#include "SheetParser.h"

#include <utility>

namespace keo::Source {

namespace {

constexpr const char* DEFAULT_SHEET =
    R"({"rules": [{"point": {}, "polyline": {}, "polygon": {}}]})";

} // namespace

StyleSheet::StyleSheet(std::unique_ptr<detail::CompiledSheet> compiled)
    : compiled_(std::move(compiled)) {}

StyleSheet::~StyleSheet() = default;

std::shared_ptr<const StyleSheet> StyleSheet::parse(std::string_view json, LoadReport& report) {
    nlohmann::json document;
    if (!detail::parseJson(json, "style sheet", document, report)) {
        return nullptr;
    }
    auto compiled = std::make_unique<detail::CompiledSheet>();
    if (!detail::compileOrFail("style sheet: ", report,
                               [&] { detail::parseSheet(document, *compiled); })) {
        return nullptr;
    }
    return std::shared_ptr<const StyleSheet>(new StyleSheet(std::move(compiled)));
}

std::shared_ptr<const StyleSheet> StyleSheet::defaultSheet() {
    static const std::shared_ptr<const StyleSheet> SHEET = [] {
        LoadReport report;
        return parse(DEFAULT_SHEET, report);
    }();
    return SHEET;
}

std::size_t StyleSheet::ruleCount() const noexcept {
    return compiled_->rules.size();
}

ReadOptions StyleSheet::completeReadOptions(ReadOptions options) const {
    const std::pair<std::string*, const std::string*> fields[] = {
        {&options.idField, &compiled_->idField},
        {&options.nameField, &compiled_->nameField},
        {&options.areaField, &compiled_->areaField},
    };
    for (const auto& [given, asked] : fields) {
        if (given->empty()) {
            *given = *asked;
        }
    }
    return options;
}

const std::vector<std::string>& StyleSheet::attributeNames() const noexcept {
    return compiled_->fields.names();
}

std::optional<ResolvedStyle>
StyleSheet::resolve(GeometryKind kind, const keo::Feature::Feature::AttributeMap& attributes,
                    std::optional<std::uint64_t> featureId, LoadReport& report) const {
    detail::AttributeRow row;
    detail::fillRow(compiled_->fields, attributes, row);
    const auto rule = compiled_->match(kind, row, featureId, report);
    if (!rule) {
        return std::nullopt;
    }
    return compiled_->resolve(*rule, kind, row, featureId, report);
}

} // namespace keo::Source
