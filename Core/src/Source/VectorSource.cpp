#include "Source/VectorSource.h"

#include "CompiledSheet.h"
#include "Evaluation.h"
#include "FeatureMapping.h"
#include "Node.h"

#include "Source/Reader.h"

#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace keo::Source {

namespace detail {

/** @brief What the source keeps of a feature to restyle it: objects, attributes, rule, style. */
struct LiveFeature {
    FeatureObjects objects;
    GeometryKind kind = GeometryKind::Point;
    AttributeRow row;
    std::optional<std::size_t> rule;
    ResolvedStyle resolved;
};

/** @brief A record on its way to becoming a feature: its objects, rule and resolved style. */
struct PlannedFeature {
    const Record* record = nullptr;
    std::optional<std::uint64_t> id;
    FeatureObjects objects;
    AttributeRow row;
    std::size_t rule = 0;
    ResolvedStyle resolved;
    /** @brief The attributes the feature gets (the record's, copied or taken over). */
    keo::Feature::Feature::AttributeMap attributes;
};

/** @brief The state of a VectorSource. */
class SourceState final {
public:
    std::shared_ptr<const StyleSheet> sheet;
    std::shared_ptr<keo::Feature::FeatureGroup> group;
    std::shared_ptr<keo::Feature::FeatureCollection> collection;
    std::vector<LiveFeature> features;
    std::unordered_map<std::uint64_t, std::size_t> byId;

    const CompiledSheet& compiled() const noexcept { return sheet->_compiled(); }
    bool plan(const Record& record, std::unordered_set<std::uint64_t>& taken, LoadReport& report,
              PlannedFeature& planned) const;
    void build(PlannedFeature& planned);
    void restyle(LiveFeature& live, std::uint32_t slot, LoadReport& report) const;
};

namespace {

using Issue = LoadReport::Issue;

constexpr const char* KIND_NAMES[] = {"point", "line", "polygon"};

std::string recordName(const Record& record) {
    std::string name = "feature " + std::to_string(record.index);
    return record.id ? name + " (id " + std::to_string(*record.id) + ")" : name;
}

// The id the record's feature gets: its own when above 0 and free, else empty for a fresh one
// (noted when the record had an id).
std::optional<std::uint64_t> chooseId(const Record& record,
                                      const std::unordered_set<std::uint64_t>& taken,
                                      const keo::Feature::FeatureCollection* collection,
                                      LoadReport& report) {
    if (record.id && *record.id > 0) {
        const auto id = static_cast<std::uint64_t>(*record.id);
        if (taken.count(id) == 0 && (collection == nullptr || collection->getById(id) == nullptr)) {
            return id;
        }
    }
    if (record.id) {
        report.add(Issue::IdReplaced, recordName(record) + ": id " + std::to_string(*record.id) +
                                          " is 0 or taken; the feature gets a fresh id");
    }
    return std::nullopt;
}

} // namespace

bool SourceState::plan(const Record& record, std::unordered_set<std::uint64_t>& taken,
                       LoadReport& report, PlannedFeature& planned) const {
    planned.record = &record;
    planned.objects = mapRecord(record.geometry);
    const char* kind = KIND_NAMES[static_cast<int>(record.geometry.kind)];
    if (planned.objects.geometry == nullptr) {
        report.add(Issue::EmptyGeometry, recordName(record) + ": a " + kind +
                                             " record without any " + kind + "; no feature");
        return false;
    }
    fillRow(compiled().fields, record.attributes, planned.row);
    const std::optional<std::uint64_t> sourceId =
        record.id ? std::optional<std::uint64_t>(static_cast<std::uint64_t>(*record.id))
                  : std::nullopt;
    const auto rule = compiled().match(record.geometry.kind, planned.row, sourceId, report);
    if (!rule) {
        report.add(Issue::NoMatchingRule,
                   recordName(record) + ": no rule styles this " + kind + "; no feature");
        return false;
    }
    planned.rule = *rule;
    planned.resolved =
        compiled().resolve(*rule, record.geometry.kind, planned.row, sourceId, report);
    planned.id = chooseId(record, taken, collection.get(), report);
    if (planned.id) {
        taken.insert(*planned.id);
    }
    return true;
}

void SourceState::build(PlannedFeature& planned) {
    const Record& record = *planned.record;
    FeatureObjects& objects = planned.objects;
    objects.feature = std::make_shared<keo::Feature::Feature>(planned.id);
    keo::Feature::Feature& feature = *objects.feature;
    feature.setName(record.name);
    feature.setAttributes(std::move(planned.attributes));
    feature.setGeometry(objects.geometry);
    // A multi geometry logs the style as not matching it, and draws it all the same.
    feature.setStyle(objects.style);
    applyStyle(planned.resolved, objects);
    group->add(objects.feature);
    if (collection != nullptr) {
        collection->add(objects.feature);
    }
    byId.emplace(feature.getId(), features.size());
    features.push_back({std::move(objects), record.geometry.kind, std::move(planned.row),
                        planned.rule, std::move(planned.resolved)});
}

void SourceState::restyle(LiveFeature& live, std::uint32_t slot, LoadReport& report) const {
    const std::uint64_t id = live.objects.feature->getId();
    if (compiled().choiceReads(live.rule, slot)) {
        const auto rule = compiled().match(live.kind, live.row, id, report);
        if (!rule) {
            report.add(Issue::NoMatchingRule,
                       "feature " + std::to_string(id) + ": no rule styles it any more; hidden");
            live.rule.reset();
            live.objects.feature->setShow(false);
            return;
        }
        if (rule != live.rule) {
            live.rule = rule;
            live.resolved = compiled().resolve(*rule, live.kind, live.row, id, report);
            applyStyle(live.resolved, live.objects);
            return;
        }
    }
    if (!live.rule) {
        return;
    }
    const StyleParts parts =
        compiled().refresh(*live.rule, live.kind, live.row, id, slot, live.resolved, report);
    if (parts != 0) {
        applyStyle(live.resolved, live.objects, parts);
    }
}

} // namespace detail

VectorSource::VectorSource(std::shared_ptr<const StyleSheet> sheet,
                           std::shared_ptr<keo::Feature::FeatureGroup> group,
                           std::shared_ptr<keo::Feature::FeatureCollection> collection)
    : state_(std::make_unique<detail::SourceState>()) {
    state_->sheet = sheet != nullptr ? std::move(sheet) : StyleSheet::defaultSheet();
    state_->group =
        group != nullptr ? std::move(group) : std::make_shared<keo::Feature::FeatureGroup>();
    state_->collection = std::move(collection);
}

VectorSource::~VectorSource() = default;

namespace {

// Asks the processor to start loading @p address into its cache; only a hint, and nothing where
// the compiler offers no way to give it.
void prefetch(const void* address) {
#if defined(__GNUC__)
    __builtin_prefetch(address);
#else
    static_cast<void>(address);
#endif
}

// A record the source may consume gives its attributes up; one it may only read lends a copy.
keo::Feature::Feature::AttributeMap attributesOf(const Record& record) {
    return record.attributes;
}

keo::Feature::Feature::AttributeMap attributesOf(Record& record) {
    return std::move(record.attributes);
}

// VectorSource::add, for records it may only read (const) or may consume.
template <typename Records>
std::size_t addRecords(detail::SourceState& state, Records& records, LoadReport& report,
                       bool strict) {
    const std::size_t problemsBefore = report.problemCount();
    const std::size_t entriesBefore = report.entries().size();
    const std::size_t expected = state.features.size() + records.records.size();
    std::unordered_set<std::uint64_t> taken;
    taken.reserve(expected);
    for (const auto& [id, index] : state.byId) {
        taken.insert(id);
    }
    std::vector<detail::PlannedFeature> planned;
    planned.reserve(records.records.size());
    for (auto& record : records.records) {
        detail::PlannedFeature next;
        if (state.plan(record, taken, report, next)) {
            next.attributes = attributesOf(record);
            planned.push_back(std::move(next));
        }
    }
    if (strict && report.problemCount() > problemsBefore) {
        // The first problem found stops the load: nothing is added.
        for (std::size_t i = entriesBefore; i < report.entries().size(); ++i) {
            const LoadReport::Entry& entry = report.entries()[i];
            if (!LoadReport::isNote(entry.issue)) {
                report.fail(entry.issue, entry.message);
                break;
            }
        }
        return 0;
    }
    if (state.collection != nullptr) {
        state.collection->suspendEvents();
    }
    state.features.reserve(expected);
    state.byId.reserve(expected);
    for (detail::PlannedFeature& next : planned) {
        state.build(next);
    }
    if (state.collection != nullptr) {
        state.collection->resumeEvents();
    }
    report.features += planned.size();
    return planned.size();
}

} // namespace

std::size_t VectorSource::add(const RecordSet& records, LoadReport& report, bool strict) {
    return addRecords(*state_, records, report, strict);
}

std::size_t VectorSource::add(RecordSet&& records, LoadReport& report, bool strict) {
    return addRecords(*state_, records, report, strict);
}

namespace {

// Reads with the fields the sheet asks for where the options name none, then styles and adds.
template <typename Read>
std::unique_ptr<VectorSource> load(const LoadOptions& options, LoadReport& report, Read&& read) {
    const auto& sheet =
        options.styleSheet != nullptr ? *options.styleSheet : *StyleSheet::defaultSheet();
    RecordSet records = read(sheet.completeReadOptions(options.read));
    if (report.failed()) {
        return nullptr;
    }
    auto source =
        std::make_unique<VectorSource>(options.styleSheet, options.group, options.collection);
    source->add(std::move(records), report, options.read.strict);
    return report.failed() ? nullptr : std::move(source);
}

} // namespace

std::unique_ptr<VectorSource>
VectorSource::loadFile(const std::string& path, const LoadOptions& options, LoadReport& report) {
    return load(options, report,
                [&](const ReadOptions& read) { return Reader::readFile(path, read, report); });
}

std::unique_ptr<VectorSource> VectorSource::loadText(std::string_view text,
                                                     const LoadOptions& options, LoadReport& report,
                                                     const std::string& extension) {
    return load(options, report, [&](const ReadOptions& read) {
        return Reader::readText(text, read, report, extension);
    });
}

const std::shared_ptr<keo::Feature::FeatureGroup>& VectorSource::group() const noexcept {
    return state_->group;
}

const std::shared_ptr<keo::Feature::FeatureCollection>& VectorSource::collection() const noexcept {
    return state_->collection;
}

const std::shared_ptr<const StyleSheet>& VectorSource::styleSheet() const noexcept {
    return state_->sheet;
}

std::size_t VectorSource::size() const noexcept {
    return state_->features.size();
}

std::shared_ptr<keo::Feature::Feature> VectorSource::feature(std::uint64_t id) const {
    const auto found = state_->byId.find(id);
    return found == state_->byId.end() ? nullptr : state_->features[found->second].objects.feature;
}

const ResolvedStyle* VectorSource::resolvedStyle(std::uint64_t id) const {
    const auto found = state_->byId.find(id);
    return found == state_->byId.end() ? nullptr : &state_->features[found->second].resolved;
}

bool VectorSource::setAttribute(std::uint64_t id, const std::string& name,
                                const keo::Feature::AttributeValue& value, LoadReport& report) {
    const auto found = state_->byId.find(id);
    if (found == state_->byId.end()) {
        return false;
    }
    detail::LiveFeature& live = state_->features[found->second];
    // Over many features an edit waits mostly for memory: the row, the style and the feature lie
    // far apart, and asking for all three first lets their loads overlap.
    prefetch(live.row.values.data());
    prefetch(live.objects.style.get());
    prefetch(live.objects.feature.get());
    live.objects.feature->setAttribute(name, value);
    const auto slot = state_->compiled().fields.find(name);
    if (!slot) {
        return true;
    }
    live.row.values[*slot] = Value::fromAttribute(value);
    live.row.present[*slot] = 1;
    state_->restyle(live, *slot, report);
    return true;
}

} // namespace keo::Source
