#include "RendererSide.h"

#include "Sample.h"
#include "Scene.h"

#include "Data/Entity.h"
#include "Data/GeometryGraphics.h"
#include "Data/ModelGraphics.h"
#include "Data/Resource.h"
#include "Feature/Feature.h"
#include "Feature/FeatureGroup.h"

#include <algorithm>
#include <string>
#include <utility>

namespace keo::scene {

namespace {

ModelGraphics* modelOf(const Entity& entity) {
    const auto& graphics = entity.getGeometryGraphics();
    return graphics ? graphics->as<ModelGraphics>() : nullptr;
}

// How an entity is named in messages: its name and the feature it belongs to.
std::string describe(const Entity& entity, const Feature::Feature& owner) {
    const std::string name = entity.getName().empty() ? "(root)" : entity.getName();
    return "\"" + name + "\" of feature " + std::to_string(owner.getId()) + " \"" +
           owner.getName() + "\"";
}

// Lists up to three examples, then how many more there are.
// Sorted, so that the text does not depend on hash order.
void appendExamples(std::string& text, std::vector<std::string> examples) {
    constexpr std::size_t SHOWN = 3;
    std::sort(examples.begin(), examples.end());
    for (std::size_t i = 0; i < examples.size() && i < SHOWN; ++i) {
        text += (i == 0 ? ": " : ", ") + examples[i];
    }
    if (examples.size() > SHOWN) {
        text += " and " + std::to_string(examples.size() - SHOWN) + " more";
    }
}

} // namespace

RendererSide::RendererSide(Feature::FeatureGroup& root)
    : root_(root) {
    for (const auto& feature : leafFeatures(root_)) {
        recordOf(feature);
    }
    treeListener_ = Feature::ScopedListener(root_._addFeatureAddedOrRemovedEventListener(
        [this](const std::vector<std::shared_ptr<Feature::Feature>>& added,
               const std::vector<std::shared_ptr<Feature::Feature>>& removed) {
            onTreeChanged(added, removed);
        }));
}

RendererSide::~RendererSide() = default;

RendererSide::Record& RendererSide::recordOf(const std::shared_ptr<Feature::Feature>& feature) {
    Record& record = records_[feature.get()];
    if (!record.feature) {
        record.feature = feature;
    }
    return record;
}

void RendererSide::onTreeChanged(const std::vector<std::shared_ptr<Feature::Feature>>& added,
                                 const std::vector<std::shared_ptr<Feature::Feature>>& removed) {
    for (const auto& feature : removed) {
        const auto it = records_.find(feature.get());
        if (it == records_.end()) {
            continue;
        }
        for (const auto& entity : it->second.live) {
            models_.erase(entity);
        }
        dropped_ += it->second.live.size();
        live_ -= it->second.live.size();
        // What the feature reported meanwhile is void: it reports everything again on return.
        feature->_takeAddedEntities();
        feature->_takeRemovedEntities();
        records_.erase(it);
    }
    for (const auto& feature : added) {
        recordOf(feature).entered = true;
    }
}

std::size_t RendererSide::drop(Record& record, const std::shared_ptr<Entity>& entity) {
    std::size_t count = 0;
    if (record.live.erase(entity) != 0) {
        models_.erase(entity);
        ++count;
    }
    for (const auto& child : entity->getChildren()) {
        count += drop(record, child);
    }
    return count;
}

void RendererSide::updateFeature(const std::shared_ptr<Feature::Feature>& feature,
                                 FrameCounts& counts) {
    Record& record = recordOf(feature);
    if (!feature->_isEntityReady()) {
        ++counts.updated;
    }
    feature->_updateEntityInCull(record.entered);
    record.entered = false;

    const auto removed = feature->_takeRemovedEntities();
    const auto added = feature->_takeAddedEntities();
    counts.reportedRemoved += removed.size();
    counts.reportedAdded += added.size();

    std::size_t left = 0;
    for (const auto& entity : removed) {
        left += drop(record, entity);
    }
    const Entity* root = feature->_getImplHandle().get();
    std::size_t entered = 0;
    for (const auto& entity : added) {
        const bool inTree =
            entity.get() == root || (root != nullptr && root->isAncestorOf(entity.get()));
        if (inTree && record.live.insert(entity).second) {
            ++entered;
            if (modelOf(*entity) != nullptr) {
                models_[entity].owner = feature.get();
            }
        }
    }
    counts.removed += left;
    counts.added += entered;
    live_ = live_ - left + entered;
}

void RendererSide::loadDueModels(std::uint32_t frame, FrameCounts& counts) {
    for (auto& [entity, load] : models_) {
        ModelGraphics* model = modelOf(*entity);
        if (load.due == 0 || load.due > frame || model == nullptr || !model->getUri()) {
            continue;
        }
        const std::string& uri = model->getUri()->getUri();
        model->setBoundingBox(sampleModelBox(uri));
        model->setReady(true);
        load.due = 0;
        counts.loaded.push_back(uri + " of feature " + std::to_string(load.owner->getId()) + " \"" +
                                load.owner->getName() + "\" is ready");
    }
}

void RendererSide::scheduleModelLoads(std::uint32_t frame) {
    // A model not ready and not loading (new, or its file changed) starts loading now.
    for (auto& [entity, load] : models_) {
        const ModelGraphics* model = modelOf(*entity);
        if (load.due == 0 && model != nullptr && model->getUri() && !model->isReady()) {
            load.due = frame + MODEL_LOAD_FRAMES;
        }
    }
}

FrameCounts RendererSide::runFrame(std::uint32_t frame) {
    FrameCounts counts;
    counts.removed = dropped_;
    dropped_ = 0;
    loadDueModels(frame, counts);

    const auto features = leafFeatures(root_);
    counts.features = features.size();
    for (const auto& feature : features) {
        updateFeature(feature, counts);
    }
    scheduleModelLoads(frame);
    std::sort(counts.loaded.begin(), counts.loaded.end());

    counts.live = live_;
    for (const auto& [feature, record] : records_) {
        for (const auto& entity : record.live) {
            if (entity->isShowing()) {
                ++counts.shown;
            }
        }
    }
    return counts;
}

bool RendererSide::isLive(const std::shared_ptr<Entity>& entity) const {
    for (const auto& [feature, record] : records_) {
        if (record.live.count(entity) != 0) {
            return true;
        }
    }
    return false;
}

std::vector<const Entity*> RendererSide::liveEntities() const {
    std::vector<const Entity*> entities;
    for (const auto& feature : leafFeatures(root_)) {
        const auto found = records_.find(feature.get());
        const std::shared_ptr<Entity> root = feature->_getImplHandle();
        if (found == records_.end() || !root) {
            continue;
        }
        // Depth first from the root entity; only the entities of the live set are drawn.
        std::vector<std::shared_ptr<Entity>> pending{root};
        while (!pending.empty()) {
            const std::shared_ptr<Entity> entity = pending.back();
            pending.pop_back();
            if (found->second.live.count(entity) != 0) {
                entities.push_back(entity.get());
            }
            const auto& children = entity->getChildren();
            pending.insert(pending.end(), children.rbegin(), children.rend());
        }
    }
    return entities;
}

std::string RendererSide::verify() const {
    std::unordered_map<const Entity*, const Feature::Feature*> expected;
    for (const auto& feature : leafFeatures(root_)) {
        for (const auto& entity : feature->_getAllEntities()) {
            expected.emplace(entity.get(), feature.get());
        }
    }
    std::vector<std::string> extra;
    std::unordered_set<const Entity*> live;
    for (const auto& [feature, record] : records_) {
        for (const auto& entity : record.live) {
            live.insert(entity.get());
            if (expected.count(entity.get()) == 0) {
                extra.push_back(describe(*entity, *record.feature));
            }
        }
    }
    std::vector<std::string> missing;
    for (const auto& [entity, feature] : expected) {
        if (live.count(entity) == 0) {
            missing.push_back(describe(*entity, *feature));
        }
    }
    if (extra.empty() && missing.empty()) {
        return std::string();
    }
    std::string text = "the live set differs from the features' entity trees";
    if (!extra.empty()) {
        text += "; " + std::to_string(extra.size()) + " live but in no feature's tree";
        appendExamples(text, extra);
    }
    if (!missing.empty()) {
        text += "; " + std::to_string(missing.size()) + " in a feature's tree but not live";
        appendExamples(text, missing);
    }
    return text;
}

} // namespace keo::scene
