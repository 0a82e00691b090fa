#pragma once

#include "StyleRule.h"

#include "Source/RecordGeometry.h"
#include "Source/ResolvedStyle.h"

#include "Feature/Feature.h"
#include "Feature/Geometry.h"
#include "Feature/Style.h"

#include <memory>

namespace keo::Source::detail {

/**
 * @brief The keoFeature objects that draw a record: the feature (null until it is built), its
 * geometry and its style, and the height its polygon rings are raised by.
 */
struct FeatureObjects {
    /** @brief The feature, or null before it is built. */
    std::shared_ptr<keo::Feature::Feature> feature;
    /** @brief The geometry; null for a record without any part. */
    std::shared_ptr<keo::Feature::Geometry> geometry;
    /** @brief The style of the geometry's kind (of its components' kind for a multi geometry). */
    std::shared_ptr<keo::Feature::Style> style;
    /**
     * @brief The extrusion base, metres, last added to the heights of every polygon ring (0 for
     * other kinds and for polygons without extrusion).
     */
    double raisedBy = 0.0;
};

/**
 * @brief The geometry and style for @p geometry: for a single part a PointGeometry with a
 * PointStyle, a PolylineGeometry with a PolylineStyle or a PolygonGeometry (outer ring, holes,
 * islands in holes as holes of holes) with a PolygonStyle; for a multi record a MultiGeometry
 * holding one such geometry per part, in order, with the style of the parts' kind. Heights are
 * the record's. Both null when the record has no part of its kind.
 */
FeatureObjects mapRecord(const RecordGeometry& geometry);

/**
 * @brief Gives the feature of @p objects and its style the values of the @p parts of @p resolved
 * through their setters, so that only values that differ raise events: the visibility, distance
 * display condition and height reference (PART_FEATURE); the label symbol's look (PART_LABEL)
 * and the label text, with whether the label shows (PART_LABEL_TEXT); a dot and an image for
 * points (PART_POINT); a line of the width and material for lines (PART_LINE); for polygons the
 * surface, hidden when the rule gives only an extrusion (its fill material and switch,
 * PART_FILL, and outline, PART_OUTLINE), and the extrusion: its height above the base to which
 * the polygon rings are raised (by the difference to the base they were raised by before,
 * PART_EXTRUSION) and the material of its wall and roof (PART_EXTRUSION_MATERIAL). A part left
 * out touches none of its objects, so that a re-evaluation reaches only what it evaluated; a new
 * rule hands on every part.
 */
void applyStyle(const ResolvedStyle& resolved, FeatureObjects& objects,
                StyleParts parts = PART_ALL);

} // namespace keo::Source::detail
