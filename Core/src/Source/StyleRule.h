#pragma once

#include "Node.h"
#include "SlotSet.h"

#include "Source/ResolvedMaterial.h"
#include "Source/ResolvedStyle.h"
#include "Source/Value.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace keo::Source::detail {

/**
 * @brief Stores a value (already of the property's type) into its field of a resolved style;
 * false when the value does not fit the field (an unknown height reference name, a dash pattern
 * outside 16 bits), which the caller treats as a value of the wrong type.
 */
using Store = bool (*)(ResolvedStyle& style, const Value& value);

/**
 * @brief The parts of a resolved style that go to separate objects of a feature, as bits: a
 * re-evaluation hands on only the parts whose values it evaluated again.
 */
using StyleParts = std::uint16_t;
/** @brief The visibility, distance display condition and height reference. */
constexpr StyleParts PART_FEATURE = 1U << 0U;
/** @brief The label's look: font, size, colours, outline and offset. */
constexpr StyleParts PART_LABEL = 1U << 1U;
/** @brief The label's text (and whether the label shows, which an empty text turns off). */
constexpr StyleParts PART_LABEL_TEXT = 1U << 2U;
/** @brief The point's dot and image. */
constexpr StyleParts PART_POINT = 1U << 3U;
/** @brief The line's width and material. */
constexpr StyleParts PART_LINE = 1U << 4U;
/** @brief The polygon's fill switch and material. */
constexpr StyleParts PART_FILL = 1U << 5U;
/** @brief The polygon's outline. */
constexpr StyleParts PART_OUTLINE = 1U << 6U;
/** @brief The extrusion's height and base (the base the polygon rings stand on). */
constexpr StyleParts PART_EXTRUSION = 1U << 7U;
/** @brief The extrusion's material. */
constexpr StyleParts PART_EXTRUSION_MATERIAL = 1U << 8U;
/** @brief Every part. */
constexpr StyleParts PART_ALL = (1U << 9U) - 1U;

/** @brief One value of a rule compiled: its expression, type, default, the slots it reads. */
struct CompiledProperty {
    /** @brief The expression (a constant node for a constant). */
    Node node;
    /** @brief The type the value must have. */
    StaticType type = StaticType::Any;
    /** @brief What the value expects, for messages ("a number", "a height reference name"). */
    const char* expectation = "";
    /** @brief The default, stored when the value is null or of the wrong type. */
    Value fallback;
    /** @brief Where the value goes in the resolved style. */
    Store store = nullptr;
    /** @brief The attribute slots the expression reads. */
    SlotSet slots;
    /** @brief The part of the style the value belongs to. */
    StyleParts part = PART_FEATURE;
};

/** @brief The style a rule gives one kind: present or not, its values, its material kind. */
struct KindStyle {
    /** @brief Whether the rule gives this kind a style. */
    bool present = false;
    /** @brief The kind of its material (fill or line), fixed by the sheet. */
    ResolvedMaterial::Kind materialKind = ResolvedMaterial::Kind::Solid;
    /** @brief Its values. */
    std::vector<CompiledProperty> properties;
};

/** @brief One rule of a sheet compiled. */
struct CompiledRule {
    /** @brief The filter, or empty for a rule that matches every record of its kinds. */
    std::optional<Node> filter;
    /** @brief The slots the filter reads. */
    SlotSet filterSlots;
    /** @brief Whether the rule gives a label. */
    bool hasLabel = false;
    /** @brief Whether the rule gives a distance display condition. */
    bool hasDistanceDisplayCondition = false;
    /** @brief The values of every kind: visibility, distance, height reference, label. */
    std::vector<CompiledProperty> common;
    /** @brief The point style. */
    KindStyle point;
    /** @brief The line style. */
    KindStyle polyline;
    /** @brief The flat polygon style. */
    KindStyle polygon;
    /** @brief The extrusion style. */
    KindStyle extrusion;
};

} // namespace keo::Source::detail
