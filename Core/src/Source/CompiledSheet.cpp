#include "CompiledSheet.h"

#include "Compiler.h"
#include "Evaluation.h"

namespace keo::Source::detail {

namespace {

bool styles(const CompiledRule& rule, GeometryKind kind) {
    switch (kind) {
    case GeometryKind::Point:
        return rule.point.present;
    case GeometryKind::Line:
        return rule.polyline.present;
    case GeometryKind::Polygon:
        return rule.polygon.present || rule.extrusion.present;
    }
    return false;
}

bool filterPasses(const CompiledRule& rule, const AttributeRow& row,
                  std::optional<std::uint64_t> featureId, LoadReport& report) {
    if (!rule.filter) {
        return true;
    }
    EvaluationContext context{row, featureId};
    const Value value = evaluate(*rule.filter, context);
    if (context.failedNode == nullptr && (value.isNull() || value.type() == Value::Type::Boolean)) {
        return value.asBoolean();
    }
    context.fail(*rule.filter, value, "a boolean");
    report.add(LoadReport::Issue::EvaluationType,
               failureMessage(context, featureId) + "; the filter counts as false");
    return false;
}

void evaluateProperty(const CompiledProperty& property, const AttributeRow& row,
                      std::optional<std::uint64_t> featureId, ResolvedStyle& style,
                      LoadReport& report) {
    EvaluationContext context{row, featureId};
    Value value = evaluate(property.node, context);
    if (context.failedNode == nullptr) {
        // A null value (an absent or null attribute) takes the default without a message.
        if (value.isNull()) {
            property.store(style, property.fallback);
            return;
        }
        const Value original = value;
        if (coerce(value, property.type) && property.store(style, value)) {
            return;
        }
        context.fail(property.node, original, property.expectation);
    }
    report.add(LoadReport::Issue::EvaluationType,
               failureMessage(context, featureId) + "; the default is used");
    property.store(style, property.fallback);
}

// The resolved style with the parts that rule gives kind engaged, before any value is evaluated.
ResolvedStyle skeleton(const CompiledRule& rule, std::size_t index, GeometryKind kind) {
    ResolvedStyle style;
    style.rule = index;
    if (rule.hasLabel) {
        style.label.emplace();
    }
    if (rule.hasDistanceDisplayCondition) {
        style.distanceDisplayCondition.emplace();
    }
    if (kind == GeometryKind::Point) {
        style.point.emplace();
    } else if (kind == GeometryKind::Line) {
        style.polyline.emplace();
        style.polyline->material.kind = rule.polyline.materialKind;
    } else if (rule.polygon.present) {
        style.polygon.emplace();
        style.polygon->fill.kind = rule.polygon.materialKind;
    }
    if (kind == GeometryKind::Polygon && rule.extrusion.present) {
        style.extrusion.emplace();
        style.extrusion->material.kind = rule.extrusion.materialKind;
    }
    return style;
}

} // namespace

template <typename Visit>
void CompiledSheet::forEachProperty(const CompiledRule& rule, GeometryKind kind,
                                    Visit&& visit) const {
    for (const CompiledProperty& property : rule.common) {
        visit(property);
    }
    const auto visitKind = [&visit](const KindStyle& style) {
        if (style.present) {
            for (const CompiledProperty& property : style.properties) {
                visit(property);
            }
        }
    };
    if (kind == GeometryKind::Point) {
        visitKind(rule.point);
    } else if (kind == GeometryKind::Line) {
        visitKind(rule.polyline);
    } else {
        visitKind(rule.polygon);
        visitKind(rule.extrusion);
    }
}

std::optional<std::size_t> CompiledSheet::match(GeometryKind kind, const AttributeRow& row,
                                                std::optional<std::uint64_t> featureId,
                                                LoadReport& report) const {
    for (std::size_t i = 0; i < rules.size(); ++i) {
        if (styles(rules[i], kind) && filterPasses(rules[i], row, featureId, report)) {
            return i;
        }
    }
    return std::nullopt;
}

ResolvedStyle CompiledSheet::resolve(std::size_t rule, GeometryKind kind, const AttributeRow& row,
                                     std::optional<std::uint64_t> featureId,
                                     LoadReport& report) const {
    ResolvedStyle style = skeleton(rules[rule], rule, kind);
    forEachProperty(rules[rule], kind, [&](const CompiledProperty& property) {
        evaluateProperty(property, row, featureId, style, report);
    });
    return style;
}

StyleParts CompiledSheet::refresh(std::size_t rule, GeometryKind kind, const AttributeRow& row,
                                  std::optional<std::uint64_t> featureId, std::uint32_t slot,
                                  ResolvedStyle& style, LoadReport& report) const {
    StyleParts evaluated = 0;
    forEachProperty(rules[rule], kind, [&](const CompiledProperty& property) {
        if (property.slots.contains(slot)) {
            evaluateProperty(property, row, featureId, style, report);
            evaluated |= property.part;
        }
    });
    return evaluated;
}

bool CompiledSheet::choiceReads(std::optional<std::size_t> rule, std::uint32_t slot) const {
    const std::size_t last = rule ? *rule : rules.size() - 1;
    for (std::size_t i = 0; i <= last && i < rules.size(); ++i) {
        if (rules[i].filterSlots.contains(slot)) {
            return true;
        }
    }
    return false;
}

} // namespace keo::Source::detail
