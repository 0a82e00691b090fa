#pragma once

#include "FieldTable.h"
#include "Node.h"
#include "StyleRule.h"

#include "Source/GeometryKind.h"
#include "Source/LoadReport.h"
#include "Source/ResolvedStyle.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace keo::Source::detail {

/**
 * @brief A style sheet's rules compiled, with the attribute names they read: chooses a record's
 * rule, resolves its style, and re-evaluates the values that read one attribute.
 */
class CompiledSheet final {
public:
    /** @brief The attribute names by slot. */
    FieldTable fields;
    /** @brief The rules in order. */
    std::vector<CompiledRule> rules;
    /** @brief The id field the sheet asks the reader for; empty: none. */
    std::string idField;
    /** @brief The name field the sheet asks the reader for; empty: none. */
    std::string nameField;
    /** @brief The computed area field the sheet asks the reader for; empty: none. */
    std::string areaField;

    /**
     * @brief The index of the first rule that styles @p kind and whose filter is true for @p row;
     * empty when none. A filter that does not give a boolean counts as false and adds an
     * EvaluationType entry to @p report.
     */
    std::optional<std::size_t> match(GeometryKind kind, const AttributeRow& row,
                                     std::optional<std::uint64_t> featureId,
                                     LoadReport& report) const;
    /** @brief The style that rule @p rule gives a record of @p kind, every value evaluated. */
    ResolvedStyle resolve(std::size_t rule, GeometryKind kind, const AttributeRow& row,
                          std::optional<std::uint64_t> featureId, LoadReport& report) const;
    /**
     * @brief Evaluates again, into @p style, the values of rule @p rule for @p kind that read
     * @p slot; returns the parts of the style it evaluated values of (0: none).
     */
    StyleParts refresh(std::size_t rule, GeometryKind kind, const AttributeRow& row,
                       std::optional<std::uint64_t> featureId, std::uint32_t slot,
                       ResolvedStyle& style, LoadReport& report) const;
    /**
     * @brief Whether a change of @p slot can change which rule a record gets, given that it now
     * gets @p rule (empty: none): true when a filter of that rule or of one before it reads the
     * slot (of any rule when none matched).
     */
    bool choiceReads(std::optional<std::size_t> rule, std::uint32_t slot) const;

private:
    template <typename Visit>
    void forEachProperty(const CompiledRule& rule, GeometryKind kind, Visit&& visit) const;
};

} // namespace keo::Source::detail
