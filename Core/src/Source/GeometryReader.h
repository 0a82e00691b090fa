#pragma once

#include "ProblemSink.h"

#include "Source/RecordGeometry.h"

#include <ogr_geometry.h>

#include <string>
#include <vector>

namespace keo::Source::detail {

/**
 * @brief The record geometries of @p geometry (WGS84 longitude, latitude in degrees, heights in
 * metres): one for a single or multi geometry of one kind, one per kind for a collection that
 * mixes kinds (a collection-split note), none when nothing can be kept. Parts that fail the checks
 * are dropped with a problem in @p sink, named after @p where ("feature 3").
 */
std::vector<RecordGeometry> readGeometry(const OGRGeometry* geometry, const std::string& where,
                                         ProblemSink& sink);

} // namespace keo::Source::detail
