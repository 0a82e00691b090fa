#pragma once

#include "Source/RecordGeometry.h"
#include "Source/ResolvedStyle.h"

#include "Feature/Feature.h"
#include "Feature/Geometry.h"
#include "Feature/Style.h"

#include <memory>

namespace keo::Source::detail {

/**
 * @brief The keoFeature objects that draw a record: its geometry and its style. Both null when
 * the record's kind has no feature classes to map to yet.
 */
struct MappedFeature {
    /** @brief The geometry, or null. */
    std::shared_ptr<keo::Feature::Geometry> geometry;
    /** @brief The style, or null. */
    std::shared_ptr<keo::Feature::Style> style;
};

/**
 * @brief The objects for @p geometry: mapPoint for a single point, mapPolyline for a single line,
 * mapPolygon for a single polygon, mapMulti for any multi record.
 */
MappedFeature mapRecord(const RecordGeometry& geometry);

/** @brief A PointGeometry at the point and an empty PointStyle. */
MappedFeature mapPoint(const RecordGeometry& geometry);

/**
 * @brief Where a line record becomes a PolylineGeometry (its positions) with a PolylineStyle,
 * once keoFeature has them; until then nothing (the record is reported as not yet supported).
 */
MappedFeature mapPolyline(const RecordGeometry& geometry);

/**
 * @brief Where a polygon record becomes a PolygonGeometry (outer ring, holes, islands in holes)
 * with a PolygonStyle, once keoFeature has them; until then nothing.
 */
MappedFeature mapPolygon(const RecordGeometry& geometry);

/**
 * @brief Where a multi record becomes a MultiGeometry holding one geometry per part (mapPoint,
 * mapPolyline, mapPolygon of each part), once keoFeature has it; until then nothing.
 */
MappedFeature mapMulti(const RecordGeometry& geometry);

/**
 * @brief Gives @p feature and its @p style the values of @p resolved through their setters: the
 * visibility, distance display condition and label text on the feature; the height reference and
 * the label symbol on the style; then the kind's own symbols (applyPointStyle for a point style;
 * the line and polygon styles get theirs in applyKindStyle when they exist).
 */
void applyStyle(const ResolvedStyle& resolved, keo::Feature::Feature& feature,
                keo::Feature::Style& style);

} // namespace keo::Source::detail
