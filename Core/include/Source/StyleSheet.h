#pragma once

#include "Feature/Feature.h"
#include "Source/GeometryKind.h"
#include "Source/LoadReport.h"
#include "Source/ReadOptions.h"
#include "Source/ResolvedStyle.h"
#include "Source/SourceExport.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace keo::Source {

namespace detail {
class CompiledSheet;
} // namespace detail

/**
 * @brief A style sheet compiled from JSON: an ordered list of rules that turn a record's
 * attributes into a ResolvedStyle.
 *
 * The text is an object with a "rules" array, an optional "version": 1 and an optional "read"
 * object that names the fields the sheet expects the reader to give ("idField", "nameField",
 * "areaField", as in ReadOptions: a sheet that styles by area asks for the area to be computed
 * under the name it reads). Each rule is an
 * object with an optional "filter" (a boolean value) and at least one kind style: "point",
 * "polyline", "polygon", "extrusion". A record is styled by the first rule whose filter is true
 * (or absent) and that has a style for its kind (a polygon takes "polygon" and/or "extrusion");
 * with no such rule it gets no feature.
 *
 * Every value below is a constant or an expression (see Expression) and has a default used when
 * it is absent or evaluates to the wrong type. Colours are CSS texts ("#rgb", "#rrggbb",
 * "#rrggbbaa", "rgb(r,g,b)", "rgba(r,g,b,a)", a CSS 2.1 colour name, "transparent") or colour
 * expressions.
 * - rule: "visible" (boolean, true), "distanceDisplayCondition" ([near, far], metres),
 *   "heightReference" ("absolute", "clampToGround", "relativeToGround", "clampToTerrain",
 *   "relativeToTerrain", "clampTo3DTiles", "relativeTo3DTiles"), "label" (object: "text",
 *   "font", "size", "color", "outlineColor", "outlineWidth", "offset" [x, y] pixels);
 * - "point": "color", "size" (pixels, 8), "outlineColor", "outlineWidth", "image", "imageScale";
 * - "polyline": "width" (pixels, 2), "material";
 * - "polygon": "filled" (true), "fill" (a material), "outline" (true), "outlineColor",
 *   "outlineWidth";
 * - "extrusion": "height" and "base" (metres, 0), "material".
 * A material is a colour (solid) or an object {"type": "solid", "color"} or {"type": "dash",
 * "color", "gapColor", "dashPattern" (16 bits, 255), "dashLength" (pixels, 16)}.
 *
 * Operators: "get", "has", "id", "literal"; "==", "!=", "<", "<=", ">", ">=", "all", "any", "!";
 * "case", "match", "coalesce", "step", "interpolate" (["linear"], ["exponential", base]) over
 * numbers and colours; "+", "-", "*", "/", "%", "^", "min", "max", "round", "floor", "ceil",
 * "abs", "sqrt", "ln", "log10"; "concat", "upcase", "downcase", "to-string", "to-number",
 * "to-boolean", "to-color", "rgb", "rgba", "number-format" (options "min-fraction-digits",
 * "max-fraction-digits").
 *
 * Errors name their place by a path in the sheet, e.g. "rules[2].polygon.fill" or
 * "rules[0].filter[1]" for the second element of the filter expression.
 */
class KEO_SOURCE_API StyleSheet final {
public:
    /**
     * @brief The sheet compiled from @p json; null when the text does not parse (the message gives
     * line and column), or when a rule is invalid: an unknown operator or property, a wrong
     * argument count or a constant of the wrong type (the message gives the path). The error goes
     * into @p report through LoadReport::fail.
     */
    static std::shared_ptr<const StyleSheet> parse(std::string_view json, LoadReport& report);
    /** @brief A sheet of one rule that styles every kind with the defaults. */
    static std::shared_ptr<const StyleSheet> defaultSheet();
    ~StyleSheet();
    StyleSheet(const StyleSheet&) = delete;
    StyleSheet& operator=(const StyleSheet&) = delete;

    /** @brief The number of rules. */
    std::size_t ruleCount() const noexcept;
    /**
     * @brief @p options with the id, name and area fields that it leaves empty taken from the
     * sheet's "read" object (those the sheet does not name stay empty).
     */
    ReadOptions completeReadOptions(ReadOptions options) const;
    /** @brief The names of every attribute the sheet reads, in the order first met. */
    const std::vector<std::string>& attributeNames() const noexcept;
    /**
     * @brief The style of a record of kind @p kind with @p attributes and id @p featureId: the
     * first matching rule, every value evaluated; empty when no rule matches. Values of the wrong
     * type add EvaluationType entries to @p report and take their defaults.
     */
    std::optional<ResolvedStyle> resolve(GeometryKind kind,
                                         const keo::Feature::Feature::AttributeMap& attributes,
                                         std::optional<std::uint64_t> featureId,
                                         LoadReport& report) const;

    /** @brief The compiled rules, for the library's own use. */
    const detail::CompiledSheet& _compiled() const noexcept { return *compiled_; }

private:
    explicit StyleSheet(std::unique_ptr<detail::CompiledSheet> compiled);

    std::unique_ptr<detail::CompiledSheet> compiled_;
};

} // namespace keo::Source
