#pragma once

#include "Source/LoadOptions.h"
#include "Source/LoadReport.h"
#include "Source/RecordSet.h"
#include "Source/ResolvedStyle.h"
#include "Source/SourceExport.h"
#include "Source/StyleSheet.h"

#include "Feature/AttributeValue.h"
#include "Feature/Feature.h"
#include "Feature/FeatureCollection.h"
#include "Feature/FeatureGroup.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace keo::Source {

namespace detail {
class SourceState;
} // namespace detail

/**
 * @brief Features made from records and styled by a style sheet, which stay live: an attribute
 * changed through setAttribute evaluates again the values that read it and updates the feature's
 * style objects, whose setters mark the feature for its next update.
 *
 * Each record that a rule styles becomes one keo::Feature::Feature, added in record order to the
 * group (and the collection, when given), its heights those of the record:
 * - a point: a PointGeometry with a PointStyle (a PointSymbol dot, a BillboardSymbol for an
 *   image);
 * - a line: a PolylineGeometry with a PolylineStyle (a LineSymbol of the width, painted by a
 *   ColorMaterial or a LineDashMaterial);
 * - a polygon: a PolygonGeometry (holes, and islands in holes as holes of holes) with a
 *   PolygonStyle: a PolygonSymbol for the surface (its fill material and switch, and an outline
 *   LineSymbol of one colour; present but hidden when the rule gives only an extrusion) and an
 *   ExtrusionSymbol for the extrusion (a wall and a roof, PolygonSymbols of its material). An
 *   extrusion stands on its base: the rings are raised by the base, and the extrusion reaches
 *   from them up by the height less the base, so that its top is the height;
 * - a multi record: a MultiGeometry of one such geometry per part, with the style of the parts'
 *   kind. The kit logs a style on a multi geometry as not matching it, and draws it all the same
 *   (one log record per feature, not a problem of the load);
 * and a LabelSymbol for a label. A record that no rule styles gets no feature (no-matching-rule),
 * nor does a record without any part (empty-geometry; the reader never gives one).
 *
 * A feature's id is its record's id when that is above 0 and not taken already (by an earlier
 * feature of this source or a member of the collection); otherwise it gets a fresh id and an
 * id-replaced note. Its name is the record's name, its attributes the record's.
 *
 * Not thread-safe: use one source from one thread at a time (the features themselves keep their
 * own locking for the rendering side).
 */
class KEO_SOURCE_API VectorSource final {
public:
    /**
     * @brief An empty source that styles with @p sheet (null: StyleSheet::defaultSheet()) and adds
     * its features to @p group (null: a new group) and, when given, to @p collection.
     */
    explicit VectorSource(std::shared_ptr<const StyleSheet> sheet,
                          std::shared_ptr<keo::Feature::FeatureGroup> group = nullptr,
                          std::shared_ptr<keo::Feature::FeatureCollection> collection = nullptr);
    ~VectorSource();
    VectorSource(const VectorSource&) = delete;
    VectorSource& operator=(const VectorSource&) = delete;

    /**
     * @brief Styles @p records and adds their features; returns how many it added. Records without
     * a rule or without parts, and values of the wrong type are counted in @p report;
     * with @p strict, the first such problem fails the report and nothing is added. The report's
     * feature count grows by the number added.
     */
    std::size_t add(const RecordSet& records, LoadReport& report, bool strict = false);
    /**
     * @brief As add above, taking the attributes of @p records over instead of copying them: the
     * records are left without attributes.
     */
    std::size_t add(RecordSet&& records, LoadReport& report, bool strict = false);

    /**
     * @brief Reads the file at @p path (see Reader::readFile) with the read options, whose empty
     * id, name and area fields are taken from the style sheet (StyleSheet::completeReadOptions),
     * then styles and adds its records to a new source. Null when reading or the sheet failed
     * (see @p report).
     */
    static std::unique_ptr<VectorSource> loadFile(const std::string& path,
                                                  const LoadOptions& options, LoadReport& report);
    /** @brief As loadFile, for the content of a file held in memory (see Reader::readText). */
    static std::unique_ptr<VectorSource> loadText(std::string_view text, const LoadOptions& options,
                                                  LoadReport& report,
                                                  const std::string& extension = {});

    /** @brief The group the features are added to. */
    const std::shared_ptr<keo::Feature::FeatureGroup>& group() const noexcept;
    /** @brief The collection the features are added to, or null. */
    const std::shared_ptr<keo::Feature::FeatureCollection>& collection() const noexcept;
    /** @brief The style sheet. */
    const std::shared_ptr<const StyleSheet>& styleSheet() const noexcept;
    /** @brief The number of features made. */
    std::size_t size() const noexcept;
    /** @brief The feature with @p id made by this source, or null. */
    std::shared_ptr<keo::Feature::Feature> feature(std::uint64_t id) const;
    /** @brief The current resolved style of the feature @p id, or null for another id. */
    const ResolvedStyle* resolvedStyle(std::uint64_t id) const;

    /**
     * @brief Sets the attribute @p name of the feature @p id to @p value (a null value makes it
     * null) and brings its style up to date: when a rule filter reads the attribute, the rule is
     * chosen again (a feature left without rule is hidden, with a no-matching-rule entry); then
     * every value that reads it is evaluated again and the style objects are given the results
     * through their setters, so that only what changed raises events. Values of the wrong type
     * are counted in @p report. False when no feature of this source has the id.
     */
    bool setAttribute(std::uint64_t id, const std::string& name,
                      const keo::Feature::AttributeValue& value, LoadReport& report);

private:
    std::unique_ptr<detail::SourceState> state_;
};

} // namespace keo::Source
