#include "FrameLog.h"

#include "JsonWriter.h"
#include "Scene.h"

#include "Data/Entity.h"
#include "Data/SceneDump.h"
#include "Data/TimePoint.h"
#include "Feature/Feature.h"

#include <cstdio>

namespace keo::scene {

std::string formatFrame(const FrameRecord& record) {
    std::string text;
    for (const auto& edit : record.edits) {
        text += "edit    " + edit + "\n";
    }
    for (const auto& loaded : record.counts.loaded) {
        text += "load    " + loaded + "\n";
    }
    for (const auto& log : record.logs) {
        text += log + "\n";
    }
    const FrameCounts& c = record.counts;
    const CollectionCounts& n = record.collection;
    char line[256];
    std::snprintf(line, sizeof line,
                  "frame %2u  t=%4.1f s  updated %zu/%zu  entities +%zu -%zu  live %zu  shown %zu"
                  "  collection %zu notice%s +%zu -%zu ~%zu\n",
                  record.frame, record.time, c.updated, c.features, c.added, c.removed, c.live,
                  c.shown, n.notifications, n.notifications == 1 ? "" : "s", n.added, n.removed,
                  n.changed);
    return text + line;
}

namespace {

void writeCounts(JsonWriter& json, const FrameRecord& record) {
    const FrameCounts& c = record.counts;
    const std::pair<const char*, std::size_t> fields[] = {
        {"features", c.features},
        {"updated", c.updated},
        {"reportedAdded", c.reportedAdded},
        {"reportedRemoved", c.reportedRemoved},
        {"added", c.added},
        {"removed", c.removed},
        {"live", c.live},
        {"shown", c.shown},
    };
    for (const auto& [name, value] : fields) {
        json.key(name);
        json.value(static_cast<std::uint64_t>(value));
    }
    const CollectionCounts& n = record.collection;
    json.key("collection");
    json.beginObject();
    const std::pair<const char*, std::size_t> notices[] = {
        {"notifications", n.notifications},
        {"added", n.added},
        {"removed", n.removed},
        {"changed", n.changed},
    };
    for (const auto& [name, value] : notices) {
        json.key(name);
        json.value(static_cast<std::uint64_t>(value));
    }
    json.endObject();
}

// How the dumps name the feature an entity tree belongs to.
EntityOwner ownerOf(const Feature::FeatureBase& feature) {
    return EntityOwner{"feature", feature.getId(), feature.getName()};
}

void writeStrings(JsonWriter& json, const char* name, const std::vector<std::string>& texts) {
    json.key(name);
    json.beginArray();
    for (const auto& text : texts) {
        json.value(text);
    }
    json.endArray();
}

} // namespace

std::string frameLogJson(const std::string& mode, const std::vector<FrameRecord>& frames,
                         const std::vector<ScalePhase>& phases, std::size_t logRecords,
                         const Scene& scene, double time) {
    JsonWriter json;
    json.beginObject();
    json.key("program");
    json.value("keo-scene");
    json.key("mode");
    json.value(mode);
    json.key("frameSeconds");
    json.value(FRAME_SECONDS);
    json.key("frames");
    json.beginArray();
    for (const FrameRecord& record : frames) {
        json.beginObject();
        json.key("frame");
        json.value(std::uint64_t{record.frame});
        json.key("time");
        json.value(record.time);
        writeStrings(json, "edits", record.edits);
        writeStrings(json, "loaded", record.counts.loaded);
        writeStrings(json, "log", record.logs);
        writeCounts(json, record);
        json.endObject();
    }
    json.endArray();
    if (!phases.empty()) {
        json.key("phases");
        json.beginArray();
        for (const ScalePhase& phase : phases) {
            json.beginObject();
            json.key("name");
            json.value(phase.name);
            json.key("features");
            json.value(static_cast<std::uint64_t>(phase.features));
            json.key("entities");
            json.value(static_cast<std::uint64_t>(phase.entities));
            json.key("seconds");
            json.value(phase.seconds);
            json.key("featuresPerSecond");
            json.value(phase.featureRate());
            json.key("entitiesPerSecond");
            json.value(phase.entityRate());
            json.endObject();
        }
        json.endArray();
    }
    json.key("logRecords");
    json.value(static_cast<std::uint64_t>(logRecords));
    json.key("time");
    json.value(time);
    json.key("features");
    json.beginArray();
    for (const auto& feature : scene.features()) {
        json.beginObject();
        json.key("id");
        json.value(feature->getId());
        json.key("name");
        json.value(feature->getName());
        json.key("group");
        json.value(scene.groupNameOf(*feature));
        json.key("entities");
        if (const Entity* root = static_cast<const Feature::Feature&>(*feature)._getImplHandle()) {
            json.rawValue(
                SceneDump::toJson(*root, TimePoint::fromSeconds(time), ownerOf(*feature)));
        } else {
            json.rawValue("null");
        }
        json.endObject();
    }
    json.endArray();
    json.endObject();
    return json.text();
}

std::string entityTreesText(const Scene& scene, double time) {
    std::string text;
    for (const auto& feature : scene.features()) {
        text += "\nfeature " + std::to_string(feature->getId()) + " \"" + feature->getName() +
                "\" in group \"" + scene.groupNameOf(*feature) + "\"\n";
        if (const Entity* root = static_cast<const Feature::Feature&>(*feature)._getImplHandle()) {
            text += SceneDump::toText(*root, TimePoint::fromSeconds(time), ownerOf(*feature));
        } else {
            text += "no entities yet\n";
        }
    }
    return text;
}

} // namespace keo::scene
