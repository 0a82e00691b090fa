#include "SheetParser.h"

#include "Compiler.h"
#include "Evaluation.h"
#include "Operators.h"
#include "StyleProperties.h"

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <string>
#include <utility>

namespace keo::Source::detail {

namespace {

using json = nlohmann::json;
using Kind = ResolvedMaterial::Kind;
using MaterialTable = const std::vector<PropertySpec>& (*)(Kind);

constexpr const char* SHEET_PATH = "sheet";
constexpr int SHEET_VERSION = 1;

void requireObject(const json& value, const std::string& path) {
    if (!value.is_object()) {
        throw CompileError{path, "expected an object"};
    }
}

void requireKeys(const json& object, const std::string& path,
                 std::initializer_list<const char*> keys, const std::vector<PropertySpec>& specs) {
    for (const auto& item : object.items()) {
        const bool known =
            std::any_of(keys.begin(), keys.end(), [&](const char* k) { return item.key() == k; }) ||
            std::any_of(specs.begin(), specs.end(),
                        [&](const PropertySpec& s) { return item.key() == s.key; });
        if (!known) {
            throw CompileError{path + "." + item.key(), "unknown property"};
        }
    }
}

// A style with every part engaged, for checking constants against their fields.
ResolvedStyle scratchStyle() {
    ResolvedStyle style;
    style.label.emplace();
    style.distanceDisplayCondition.emplace();
    style.point.emplace();
    style.polyline.emplace();
    style.polygon.emplace();
    style.extrusion.emplace();
    return style;
}

CompiledProperty compileProperty(Compiler& compiler, const json& value, const std::string& path,
                                 const PropertySpec& spec) {
    CompiledProperty property;
    property.node = compiler.compile(value, path, spec.type);
    property.type = spec.type;
    property.expectation = spec.expectation;
    property.fallback = spec.fallback;
    property.store = spec.store;
    property.part = spec.part;
    Compiler::collectSlots(property.node, property.slots);
    const Value& constant = property.node.constant;
    if (property.node.evaluate == evaluateConstant && !constant.isNull()) {
        Value converted = constant;
        ResolvedStyle scratch = scratchStyle();
        if (!coerce(converted, spec.type) || !spec.store(scratch, converted)) {
            throw CompileError{path, std::string("expected ") + spec.expectation + ", got " +
                                         constant.describe()};
        }
    }
    return property;
}

// Compiles the keys of object that specs name, in the order of specs.
void compileProperties(Compiler& compiler, const json& object, const std::string& path,
                       const std::vector<PropertySpec>& specs,
                       std::vector<CompiledProperty>& properties) {
    for (const PropertySpec& spec : specs) {
        const auto found = object.find(spec.key);
        if (found != object.end()) {
            properties.push_back(compileProperty(compiler, *found, path + "." + spec.key, spec));
        }
    }
}

// Compiles a pair [first, second] whose elements specs names "0" and "1".
void compilePair(Compiler& compiler, const json& pair, const std::string& path,
                 const std::vector<PropertySpec>& specs,
                 std::vector<CompiledProperty>& properties) {
    if (!pair.is_array() || pair.size() != 2) {
        throw CompileError{path, "expected a pair of values [" + std::string(specs[0].key) + ", " +
                                     specs[1].key + "]"};
    }
    for (std::size_t i = 0; i < 2; ++i) {
        properties.push_back(compileProperty(compiler, pair[i], elementPath(path, i), specs[i]));
    }
}

void compileMaterial(Compiler& compiler, const json& material, const std::string& path,
                     KindStyle& style, MaterialTable table) {
    if (!material.is_object()) {
        style.materialKind = Kind::Solid;
        style.properties.push_back(
            compileProperty(compiler, material, path, table(Kind::Solid).front()));
        return;
    }
    const auto type = material.find("type");
    if (type == material.end() || (*type != "solid" && *type != "dash")) {
        throw CompileError{path + ".type", "expected \"solid\" or \"dash\""};
    }
    style.materialKind = *type == "dash" ? Kind::Dash : Kind::Solid;
    requireKeys(material, path, {"type"}, table(style.materialKind));
    compileProperties(compiler, material, path, table(style.materialKind), style.properties);
}

void compileKind(Compiler& compiler, const json& rule, const std::string& rulePath, const char* key,
                 const char* materialKey, MaterialTable materials,
                 const std::vector<PropertySpec>& specs, KindStyle& style) {
    const auto found = rule.find(key);
    if (found == rule.end()) {
        return;
    }
    const std::string path = rulePath + "." + key;
    requireObject(*found, path);
    if (materials != nullptr) {
        requireKeys(*found, path, {materialKey}, specs);
    } else {
        requireKeys(*found, path, {}, specs);
    }
    style.present = true;
    compileProperties(compiler, *found, path, specs, style.properties);
    const auto material = materials != nullptr ? found->find(materialKey) : found->end();
    if (material != found->end()) {
        compileMaterial(compiler, *material, path + "." + materialKey, style, materials);
    }
}

void compileLabel(Compiler& compiler, const json& label, const std::string& path,
                  CompiledRule& rule) {
    requireObject(label, path);
    requireKeys(label, path, {"offset"}, labelProperties());
    rule.hasLabel = true;
    compileProperties(compiler, label, path, labelProperties(), rule.common);
    const auto offset = label.find("offset");
    if (offset != label.end()) {
        compilePair(compiler, *offset, path + ".offset", labelOffsetProperties(), rule.common);
    }
}

void compileCommon(Compiler& compiler, const json& rule, const std::string& path,
                   CompiledRule& compiled) {
    const auto filter = rule.find("filter");
    if (filter != rule.end()) {
        compiled.filter = compiler.compile(*filter, path + ".filter", StaticType::Boolean);
        Compiler::collectSlots(*compiled.filter, compiled.filterSlots);
    }
    compileProperties(compiler, rule, path, ruleProperties(), compiled.common);
    const auto distance = rule.find("distanceDisplayCondition");
    if (distance != rule.end()) {
        compiled.hasDistanceDisplayCondition = true;
        compilePair(compiler, *distance, path + ".distanceDisplayCondition", distanceProperties(),
                    compiled.common);
    }
    const auto label = rule.find("label");
    if (label != rule.end()) {
        compileLabel(compiler, *label, path + ".label", compiled);
    }
}

CompiledRule compileRule(Compiler& compiler, const json& rule, const std::string& path) {
    requireObject(rule, path);
    requireKeys(rule, path,
                {"name", "filter", "distanceDisplayCondition", "label", "point", "polyline",
                 "polygon", "extrusion"},
                ruleProperties());
    const auto name = rule.find("name");
    if (name != rule.end() && !name->is_string()) {
        throw CompileError{path + ".name", "expected a string"};
    }
    CompiledRule compiled;
    compileCommon(compiler, rule, path, compiled);
    compileKind(compiler, rule, path, "point", "", nullptr, pointProperties(), compiled.point);
    compileKind(compiler, rule, path, "polyline", "material", polylineMaterialProperties,
                polylineProperties(), compiled.polyline);
    compileKind(compiler, rule, path, "polygon", "fill", polygonFillProperties, polygonProperties(),
                compiled.polygon);
    compileKind(compiler, rule, path, "extrusion", "material", extrusionMaterialProperties,
                extrusionProperties(), compiled.extrusion);
    if (!compiled.point.present && !compiled.polyline.present && !compiled.polygon.present &&
        !compiled.extrusion.present) {
        throw CompileError{path, "a rule needs a style for at least one kind: \"point\", "
                                 "\"polyline\", \"polygon\" or \"extrusion\""};
    }
    return compiled;
}

// The fields the sheet asks the reader for: {"idField", "nameField", "areaField"}, each a name.
void parseReadFields(const json& read, CompiledSheet& sheet) {
    const std::string path = "read";
    requireObject(read, path);
    const std::pair<const char*, std::string*> fields[] = {
        {"idField", &sheet.idField},
        {"nameField", &sheet.nameField},
        {"areaField", &sheet.areaField},
    };
    for (const auto& item : read.items()) {
        const auto field = std::find_if(std::begin(fields), std::end(fields),
                                        [&](const auto& f) { return item.key() == f.first; });
        if (field == std::end(fields)) {
            throw CompileError{path + "." + item.key(), "unknown property"};
        }
        if (!item.value().is_string() || item.value().get_ref<const std::string&>().empty()) {
            throw CompileError{path + "." + item.key(), "expected the name of a field"};
        }
        *field->second = item.value().get<std::string>();
    }
}

} // namespace

void parseSheet(const json& document, CompiledSheet& sheet) {
    if (!document.is_object()) {
        throw CompileError{SHEET_PATH, "expected an object with a \"rules\" array"};
    }
    for (const auto& item : document.items()) {
        if (item.key() != "rules" && item.key() != "version" && item.key() != "read") {
            throw CompileError{item.key(), "unknown property"};
        }
    }
    const auto version = document.find("version");
    if (version != document.end() && *version != SHEET_VERSION) {
        throw CompileError{"version", "expected 1"};
    }
    const auto read = document.find("read");
    if (read != document.end()) {
        parseReadFields(*read, sheet);
    }
    const auto rules = document.find("rules");
    if (rules == document.end() || !rules->is_array()) {
        throw CompileError{"rules", "expected an array of rules"};
    }
    Compiler compiler(sheet.fields);
    for (std::size_t i = 0; i < rules->size(); ++i) {
        sheet.rules.push_back(compileRule(compiler, (*rules)[i], elementPath("rules", i)));
    }
}

} // namespace keo::Source::detail
