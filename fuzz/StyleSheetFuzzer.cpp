// Feeds arbitrary bytes to the style-sheet parser and, for sheets that compile, resolves every
// geometry kind for a few attribute tables, so that the evaluation of every operator meets values
// of every type. Any crash, sanitizer report or leak fails the run.
#include "Source/GeometryKind.h"
#include "Source/LoadReport.h"
#include "Source/StyleSheet.h"

#include "Feature/AttributeValue.h"
#include "Feature/Feature.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace {

using Attributes = keo::Feature::Feature::AttributeMap;

// Attribute tables that give each name the sheet reads a value of another type in turn.
std::vector<Attributes> tablesFor(const std::vector<std::string>& names) {
    const std::vector<keo::Feature::AttributeValue> values{{1, std::int64_t{42}},
                                                           {2, -0.5},
                                                           {3, std::string("city")},
                                                           {4, true},
                                                           {3, std::string("#ff0000")},
                                                           {2, 1e300},
                                                           {3, {}}};
    std::vector<Attributes> tables(values.size() + 1);
    for (std::size_t t = 0; t < values.size(); ++t) {
        for (std::size_t n = 0; n < names.size(); ++n) {
            tables[t][names[n]] = values[(t + n) % values.size()];
        }
    }
    return tables; // the last table is empty: every attribute absent
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    keo::Source::LoadReport report;
    const auto sheet = keo::Source::StyleSheet::parse(text, report);
    if (sheet == nullptr) {
        return 0;
    }
    for (const Attributes& attributes : tablesFor(sheet->attributeNames())) {
        for (const auto kind : {keo::Source::GeometryKind::Point, keo::Source::GeometryKind::Line,
                                keo::Source::GeometryKind::Polygon}) {
            keo::Source::LoadReport evaluation;
            sheet->resolve(kind, attributes, 1, evaluation);
        }
    }
    return 0;
}
