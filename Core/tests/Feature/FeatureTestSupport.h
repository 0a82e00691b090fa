#pragma once

#include "Common/Log.h"
#include "Common/MemoryLogSink.h"
#include "Feature/Feature.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace keo::Feature::test {

/**
 * Records the change events of one object (symbol, style, geometry, material, emitter) as
 * letters: L changed-lock true, U changed-lock false, D definition changed.
 */
struct EventRecorder {
    template <typename Owner>
    explicit EventRecorder(Owner& owner) {
        owner._addChangedLockEventListener([this](bool locked) { events += locked ? 'L' : 'U'; });
        owner._addDefinitionChangedEventListener([this](auto&&...) { events += 'D'; });
    }
    EventRecorder(const EventRecorder&) = delete;
    EventRecorder& operator=(const EventRecorder&) = delete;
    std::string events;
};

/** Ids of nodes, in order. */
using Ids = std::vector<std::uint64_t>;

/** The ids of @p nodes (features or groups, owned or not), in order. */
template <typename List>
Ids idsOf(const List& nodes) {
    Ids ids;
    for (const auto& node : nodes) {
        ids.push_back(node->getId());
    }
    return ids;
}

/** A feature with the id @p id, held as the collections and groups hold it. */
inline std::shared_ptr<Feature> makeFeature(std::uint64_t id) {
    return std::make_shared<Feature>(id);
}

/** Counts the definition-changed events of a feature and keeps the feature last reported. */
struct ChangeCounter {
    explicit ChangeCounter(Feature& feature) {
        feature._addDefinitionChangedEventListener([this](Feature* f) {
            ++count;
            last = f;
        });
    }
    ChangeCounter(const ChangeCounter&) = delete;
    ChangeCounter& operator=(const ChangeCounter&) = delete;
    int count = 0;
    Feature* last = nullptr;
};

/** Routes the process log into memory for the lifetime of the object, then restores the sinks. */
class CapturedLog {
public:
    CapturedLog() {
        saved_ = Log::getInstance().getSinks();
        Log::getInstance().clearSinks();
        Log::getInstance().addSink(sink_);
    }
    ~CapturedLog() {
        Log::getInstance().clearSinks();
        for (const auto& s : saved_) {
            Log::getInstance().addSink(s);
        }
    }
    CapturedLog(const CapturedLog&) = delete;
    CapturedLog& operator=(const CapturedLog&) = delete;
    std::vector<LogRecord> records() const { return sink_->getRecords(); }

private:
    std::shared_ptr<MemoryLogSink> sink_ = std::make_shared<MemoryLogSink>();
    std::vector<std::shared_ptr<LogSink>> saved_;
};

/** The message that every assign between different kinds logs. */
inline const std::string kAssignKindMessage = "类型不同无法赋值！";

} // namespace keo::Feature::test
