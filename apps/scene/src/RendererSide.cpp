#include "RendererSide.h"

#include "Sample.h"

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

} // namespace

RendererSide::RendererSide(std::shared_ptr<Feature::FeatureGroup> root)
    : driver_(std::move(root)) {}

RendererSide::~RendererSide() = default;

void RendererSide::track(const Feature::FrameChanges& changes) {
    for (const auto& entity : changes.removed) {
        models_.erase(entity);
    }
    for (const auto& entity : changes.added) {
        if (modelOf(*entity) != nullptr) {
            models_.emplace(entity, 0);
        }
    }
}

void RendererSide::loadDueModels(std::uint32_t frame, FrameCounts& counts) {
    for (auto& [entity, due] : models_) {
        ModelGraphics* model = modelOf(*entity);
        if (due == 0 || due > frame || model == nullptr || !model->getUri()) {
            continue;
        }
        const std::string& uri = model->getUri()->getUri();
        model->setBoundingBox(sampleModelBox(uri));
        model->setReady(true);
        due = 0;
        const auto owner = driver_.pick(*entity);
        counts.loaded.push_back(
            uri + " of feature " +
            (owner ? std::to_string(owner->getId()) + " \"" + owner->getName() + "\""
                   : std::string("(none)")) +
            " is ready");
    }
    std::sort(counts.loaded.begin(), counts.loaded.end());
}

void RendererSide::scheduleModelLoads(std::uint32_t frame) {
    // A model not ready and not loading (new, or its file changed) starts loading now.
    for (auto& [entity, due] : models_) {
        const ModelGraphics* model = modelOf(*entity);
        if (due == 0 && model != nullptr && model->getUri() && !model->isReady()) {
            due = frame + MODEL_LOAD_FRAMES;
        }
    }
}

FrameCounts RendererSide::runFrame(std::uint32_t frame) {
    FrameCounts counts;
    loadDueModels(frame, counts);
    const Feature::FrameChanges changes = driver_.frame();
    track(changes);
    scheduleModelLoads(frame);
    counts.features = changes.features;
    counts.updated = changes.updated;
    counts.reportedAdded = changes.reportedAdded;
    counts.reportedRemoved = changes.reportedRemoved;
    counts.added = changes.added.size();
    counts.removed = changes.removed.size();
    counts.live = driver_.getLiveCount();
    driver_.forEachLive([&counts](const std::shared_ptr<Entity>& entity) {
        if (entity->isShowing()) {
            ++counts.shown;
        }
    });
    return counts;
}

} // namespace keo::scene
