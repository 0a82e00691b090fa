#pragma once

#include "Node.h"
#include "StyleRule.h"

#include "Source/Value.h"

#include <vector>

namespace keo::Source::detail {

/** @brief A value that a part of a rule may give: its key, type, default and field. */
struct PropertySpec {
    /** @brief The key in the rule's JSON object. */
    const char* key;
    /** @brief The type of its value. */
    StaticType type;
    /** @brief What the value expects, for messages. */
    const char* expectation;
    /** @brief The default. */
    Value fallback;
    /** @brief Where it goes. */
    Store store;
    /** @brief The part of the style it belongs to. */
    StyleParts part;
};

/** @brief The values of a rule that every kind takes (except the label's and the distance's). */
const std::vector<PropertySpec>& ruleProperties();
/** @brief The values of a rule's "label" object ("offset" apart). */
const std::vector<PropertySpec>& labelProperties();
/** @brief The label offset [x, y], pixels. */
const std::vector<PropertySpec>& labelOffsetProperties();
/** @brief The distance display condition [near, far], metres. */
const std::vector<PropertySpec>& distanceProperties();
/** @brief The values of "point". */
const std::vector<PropertySpec>& pointProperties();
/** @brief The values of "polyline" ("material" apart). */
const std::vector<PropertySpec>& polylineProperties();
/** @brief The values of "polygon" ("fill" apart). */
const std::vector<PropertySpec>& polygonProperties();
/** @brief The values of "extrusion" ("material" apart). */
const std::vector<PropertySpec>& extrusionProperties();
/** @brief The values of a material of @p kind for the line style. */
const std::vector<PropertySpec>& polylineMaterialProperties(ResolvedMaterial::Kind kind);
/** @brief The values of a material of @p kind for the polygon fill. */
const std::vector<PropertySpec>& polygonFillProperties(ResolvedMaterial::Kind kind);
/** @brief The values of a material of @p kind for the extrusion. */
const std::vector<PropertySpec>& extrusionMaterialProperties(ResolvedMaterial::Kind kind);

} // namespace keo::Source::detail
