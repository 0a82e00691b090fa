#pragma once

#include "Data/DistanceDisplayCondition.h"
#include "Data/HeightReference.h"
#include "Source/GeometryKind.h"
#include "Source/ResolvedExtrusionStyle.h"
#include "Source/ResolvedLabel.h"
#include "Source/ResolvedPointStyle.h"
#include "Source/ResolvedPolygonStyle.h"
#include "Source/ResolvedPolylineStyle.h"

#include <cstddef>
#include <optional>

namespace keo::Source {

/**
 * @brief The style of one record after its rule was chosen and every value evaluated: plain
 * values, independent of the feature classes that will draw them.
 *
 * The part of the record's kind is filled: `point` for points, `polyline` for lines, and for
 * polygons `polygon` and/or `extrusion`, as the rule gives them. The label, visibility, distance
 * display condition and height reference apply to every kind.
 */
struct ResolvedStyle final {
    /** @brief The index of the rule that styles the record. */
    std::size_t rule = 0;
    /** @brief Whether the feature is shown (default true). */
    bool visible = true;
    /** @brief The camera distances, metres, at which it is shown; empty: every distance. */
    std::optional<keo::DistanceDisplayCondition> distanceDisplayCondition;
    /** @brief Where its heights are measured from (default Absolute). */
    keo::HeightReference heightReference = keo::HeightReference::Absolute;
    /** @brief The label; empty: no label. */
    std::optional<ResolvedLabel> label;
    /** @brief The point part (points only). */
    std::optional<ResolvedPointStyle> point;
    /** @brief The line part (lines only). */
    std::optional<ResolvedPolylineStyle> polyline;
    /** @brief The flat polygon part (polygons whose rule gives one). */
    std::optional<ResolvedPolygonStyle> polygon;
    /** @brief The extrusion part (polygons whose rule gives one). */
    std::optional<ResolvedExtrusionStyle> extrusion;

    /** @brief Exact equality of every field. */
    bool operator==(const ResolvedStyle& o) const {
        return rule == o.rule && visible == o.visible &&
               distanceDisplayCondition == o.distanceDisplayCondition &&
               heightReference == o.heightReference && label == o.label && point == o.point &&
               polyline == o.polyline && polygon == o.polygon && extrusion == o.extrusion;
    }
    /** @brief Negation of operator==. */
    bool operator!=(const ResolvedStyle& o) const { return !(*this == o); }
};

} // namespace keo::Source
