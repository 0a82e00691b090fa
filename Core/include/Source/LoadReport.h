#pragma once

#include "Source/SourceExport.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace keo::Source {

/**
 * @brief What a load found: the errors that stop it, the problems that cost a feature or part of
 * one, and notes, each counted by kind with a readable message.
 *
 * Counts are exact; messages are kept for the first MAX_MESSAGES entries only, so that a file with
 * a million bad features does not hold a million texts. A failed report (see fail) means the load
 * stopped: the caller gets no records or features from it.
 */
class KEO_SOURCE_API LoadReport final {
public:
    /** @brief The kinds of finding. */
    enum class Issue : std::uint8_t {
        FileUnreadable,       ///< error: the file or text cannot be opened as vector data
        LayerMissing,         ///< error: the named layer does not exist, or there is none
        FieldMissing,         ///< error: the named id or name field does not exist
        StyleSyntax,          ///< error: the style sheet is not JSON (with line and column)
        StyleInvalid,         ///< error: the style sheet is JSON but not a valid sheet
        NullGeometry,         ///< problem: a feature without geometry is skipped
        EmptyGeometry,        ///< problem: an empty geometry (or one left empty) is skipped
        RingTooShort,         ///< problem: a ring under three positions is dropped
        LineTooShort,         ///< problem: a line under two positions is dropped
        NonFiniteCoordinate,  ///< problem: a part with a NaN or infinite coordinate is dropped
        CoordinateOutOfRange, ///< problem: a part outside the longitude-latitude range is dropped
        UnsupportedGeometry,  ///< problem: a geometry type without a mapping is skipped
        ReprojectionFailed,   ///< problem: a geometry that cannot be reprojected is skipped
        NoMatchingRule,       ///< problem: no rule of the sheet styles the record; no feature
        EvaluationType,       ///< problem: a style value of the wrong type; the default is used
        CollectionSplit,      ///< note: a mixed geometry collection became one record per kind
        IdReplaced,           ///< note: an id of 0 or a repeated id was replaced by a fresh one
    };
    /** @brief The number of issue kinds. */
    static constexpr std::size_t ISSUE_COUNT = 17;
    /** @brief How many messages are kept; counting goes on past it. */
    static constexpr std::size_t MAX_MESSAGES = 1000;

    /** @brief One finding: its kind and its message. */
    struct Entry {
        /** @brief The kind. */
        Issue issue;
        /** @brief What was found and where (feature index or id, path in the sheet). */
        std::string message;
    };

    /** @brief An empty report that has not failed. */
    LoadReport() = default;

    /** @brief The lower-case name of @p issue, e.g. "ring-too-short". */
    static const char* name(Issue issue) noexcept;
    /** @brief Whether @p issue stops a load whatever the options (the first five kinds). */
    static bool isError(Issue issue) noexcept;
    /** @brief Whether @p issue is a note, never turned into an error by the strict option. */
    static bool isNote(Issue issue) noexcept;

    /** @brief Counts @p issue and keeps @p message while fewer than MAX_MESSAGES are kept. */
    void add(Issue issue, std::string message);
    /**
     * @brief Marks the load as failed with @p issue and @p message (counted as add does); the
     * first failure's message is the one error() returns.
     */
    void fail(Issue issue, std::string message);
    /** @brief Whether the load failed. */
    bool failed() const noexcept { return failed_; }
    /** @brief The message of the first failure, empty when the load did not fail. */
    const std::string& error() const noexcept { return error_; }

    /** @brief How many times @p issue was found. */
    std::size_t count(Issue issue) const noexcept;
    /** @brief The number of problems (neither errors nor notes) found. */
    std::size_t problemCount() const noexcept;
    /** @brief The kept findings, in the order they were found. */
    const std::vector<Entry>& entries() const noexcept { return entries_; }

    /** @brief The number of source features read. */
    std::size_t sourceFeatures = 0;
    /** @brief The number of records produced. */
    std::size_t records = 0;
    /** @brief The number of source features that gave no record. */
    std::size_t skippedFeatures = 0;
    /** @brief The number of keo features created. */
    std::size_t features = 0;

    /**
     * @brief A readable account: one line with the totals, one line per issue kind found with its
     * count, then the kept messages, each on its own line.
     */
    std::string toText() const;

private:
    std::array<std::size_t, ISSUE_COUNT> counts_{};
    std::vector<Entry> entries_;
    bool failed_ = false;
    std::string error_;
};

} // namespace keo::Source
