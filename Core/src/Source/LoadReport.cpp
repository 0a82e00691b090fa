#include "Source/LoadReport.h"

#include <utility>

namespace keo::Source {

namespace {

constexpr std::array<const char*, LoadReport::ISSUE_COUNT> ISSUE_NAMES{
    "file-unreadable",
    "layer-missing",
    "field-missing",
    "style-syntax",
    "style-invalid",
    "null-geometry",
    "empty-geometry",
    "ring-too-short",
    "line-too-short",
    "non-finite-coordinate",
    "coordinate-out-of-range",
    "unsupported-geometry",
    "reprojection-failed",
    "no-matching-rule",
    "evaluation-type",
    "collection-split",
    "id-replaced",
};

static_assert(static_cast<std::size_t>(LoadReport::Issue::IdReplaced) + 1 ==
                  LoadReport::ISSUE_COUNT,
              "one name per issue kind");

std::size_t indexOf(LoadReport::Issue issue) noexcept {
    return static_cast<std::size_t>(issue);
}

} // namespace

const char* LoadReport::name(Issue issue) noexcept {
    const std::size_t index = indexOf(issue);
    return index < ISSUE_COUNT ? ISSUE_NAMES[index] : "unknown";
}

bool LoadReport::isError(Issue issue) noexcept {
    return indexOf(issue) <= indexOf(Issue::StyleInvalid);
}

bool LoadReport::isNote(Issue issue) noexcept {
    return issue == Issue::CollectionSplit || issue == Issue::IdReplaced;
}

void LoadReport::add(Issue issue, std::string message) {
    const std::size_t index = indexOf(issue);
    if (index >= ISSUE_COUNT) {
        return;
    }
    ++counts_[index];
    if (entries_.size() < MAX_MESSAGES) {
        entries_.push_back({issue, std::move(message)});
    }
}

void LoadReport::fail(Issue issue, std::string message) {
    if (!failed_) {
        failed_ = true;
        error_ = message;
    }
    add(issue, std::move(message));
}

std::size_t LoadReport::count(Issue issue) const noexcept {
    const std::size_t index = indexOf(issue);
    return index < ISSUE_COUNT ? counts_[index] : 0;
}

std::size_t LoadReport::problemCount() const noexcept {
    std::size_t total = 0;
    for (std::size_t i = 0; i < ISSUE_COUNT; ++i) {
        const auto issue = static_cast<Issue>(i);
        if (!isError(issue) && !isNote(issue)) {
            total += counts_[i];
        }
    }
    return total;
}

std::string LoadReport::toText() const {
    std::string text = "read " + std::to_string(sourceFeatures) +
                       " source features: " + std::to_string(records) + " records, " +
                       std::to_string(skippedFeatures) + " skipped, " + std::to_string(features) +
                       " features created";
    text += failed_ ? "; failed: " + error_ + "\n" : "\n";
    for (std::size_t i = 0; i < ISSUE_COUNT; ++i) {
        if (counts_[i] != 0) {
            text += "  " + std::string(ISSUE_NAMES[i]) + ": " + std::to_string(counts_[i]) + "\n";
        }
    }
    for (const Entry& entry : entries_) {
        text += std::string(name(entry.issue)) + ": " + entry.message + "\n";
    }
    return text;
}

} // namespace keo::Source
