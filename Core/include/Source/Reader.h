#pragma once

#include "Source/LoadReport.h"
#include "Source/ReadOptions.h"
#include "Source/RecordSet.h"
#include "Source/SourceExport.h"

#include <string>
#include <string_view>

namespace keo::Source {

/**
 * @brief Reads one layer of vector data through GDAL/OGR (GeoJSON, GeoPackage, Shapefile,
 * FlatGeobuf, KML, CSV with coordinates and every other vector format the installed GDAL reads)
 * into checked records in WGS84 longitude and latitude.
 *
 * Geometries are reprojected from the layer's coordinate system (a layer without one is taken as
 * WGS84 longitude, latitude); EPSG:4326 is read as longitude, latitude whatever GDAL's axis
 * order. Curves are approximated by lines. Each source feature gives, in source order:
 * - a Point, LineString or Polygon: one record of that kind;
 * - a MultiPoint, MultiLineString, MultiPolygon (or a polyhedral surface or TIN): one multi
 *   record of its kind;
 * - a GeometryCollection: one multi record per kind found, in the order the kinds first appear
 *   (a collection-split note when there are several).
 * Checks drop what cannot be drawn and count it in the report: a NaN or infinite coordinate or
 * one outside longitude ±360°, latitude ±90° drops its part (point, line or polygon; in a hole,
 * the hole); a line under two positions and a ring under three (after dropping the closing
 * position) are dropped likewise; a feature without geometry, with an empty geometry or with
 * nothing left is skipped. With ReadOptions::strict the first such problem fails the read.
 *
 * Not thread-safe with respect to GDAL's global error handler: read from one thread at a time.
 */
class KEO_SOURCE_API Reader final {
public:
    /**
     * @brief The records of one layer of the file at @p path (UTF-8). A file that cannot be
     * opened as vector data, a missing layer or a missing id or name field fails @p report and
     * gives an empty set.
     */
    static RecordSet readFile(const std::string& path, const ReadOptions& options,
                              LoadReport& report);
    /**
     * @brief The records of one layer of @p text, the content of a file held in memory, read as
     * readFile reads a file. GeoJSON, KML and GML are recognised by their content; for formats
     * that GDAL recognises by the file name only (CSV, for one), give the file's @p extension,
     * e.g. ".csv".
     */
    static RecordSet readText(std::string_view text, const ReadOptions& options, LoadReport& report,
                              const std::string& extension = {});
};

} // namespace keo::Source
