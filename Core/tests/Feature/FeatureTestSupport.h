#pragma once

#include "Common/Log.h"
#include "Common/MemoryLogSink.h"
#include "Feature/Feature.h"
#include "Feature/ScopedListener.h"

#include <cstdint>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

namespace keo::Feature::test {

/**
 * Records the change events of one object (symbol, style, geometry, material, emitter) as
 * letters: L changed-lock true, U changed-lock false, D definition changed. Stops listening when
 * it goes out of scope.
 */
struct EventRecorder {
    template <typename Owner>
    explicit EventRecorder(Owner& owner)
        : lock_(owner._addChangedLockEventListener(
              [this](bool locked) { events += locked ? 'L' : 'U'; }))
        , definition_(
              owner._addDefinitionChangedEventListener([this](auto&&...) { events += 'D'; })) {}
    EventRecorder(const EventRecorder&) = delete;
    EventRecorder& operator=(const EventRecorder&) = delete;
    std::string events;

private:
    ScopedListener lock_;
    ScopedListener definition_;
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
inline const std::string ASSIGN_KIND_MESSAGE = "类型不同无法赋值！";

/**
 * The line of the kit's source @p sourcePath (without extension, e.g.
 * "Core/src/Feature/PointSymbol") at which the log site of @p function (qualified, e.g.
 * "keo::Feature::PointSymbol::assign") is written, or 0 when the file or the site is not found.
 * Used to check that a log record carries the real line of its call.
 */
inline int logSiteLine(const std::string& sourcePath, const std::string& function) {
    const std::string thisFile = __FILE__;
    const std::string root = thisFile.substr(0, thisFile.rfind("Core/tests/Feature/"));
    const std::string prefix = "keo::Feature::";
    const std::string needle = "KEO_FEATURE_SITE(\"" + function.substr(prefix.size()) + "\")";
    std::ifstream in(root + sourcePath + ".cpp");
    std::string line;
    for (int number = 1; std::getline(in, line); ++number) {
        if (line.find(needle) != std::string::npos) {
            return number;
        }
    }
    return 0;
}

} // namespace keo::Feature::test
