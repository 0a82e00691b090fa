#include "Scene.h"

#include "Data/Layer.h"
#include "Feature/Feature.h"
#include "Feature/FeatureGroup.h"
#include "Feature/Style.h"

#include <utility>

namespace keo::scene {

namespace {

constexpr std::uint64_t ROOT_GROUP_ID = 1;

void collectLeaves(const Feature::FeatureGroup& group,
                   std::vector<std::shared_ptr<Feature::Feature>>& leaves) {
    for (const auto& node : group.getFeatures()) {
        if (node->isGroup()) {
            collectLeaves(static_cast<const Feature::FeatureGroup&>(*node), leaves);
        } else {
            leaves.push_back(std::static_pointer_cast<Feature::Feature>(node));
        }
    }
}

} // namespace

std::vector<std::shared_ptr<Feature::Feature>> leafFeatures(const Feature::FeatureGroup& group) {
    std::vector<std::shared_ptr<Feature::Feature>> leaves;
    collectLeaves(group, leaves);
    return leaves;
}

Scene::Scene(std::string layerName)
    : layer_(std::make_shared<Layer>(std::move(layerName)))
    , root_(std::make_shared<Feature::FeatureGroup>(ROOT_GROUP_ID)) {
    root_->setName(layer_->getName());
    root_->_setLayer(layer_);
}

Scene::~Scene() = default;

Feature::FeatureGroup& Scene::group(const std::string& name) {
    for (const auto& group : groups_) {
        if (group->getName() == name) {
            return *group;
        }
    }
    auto group = std::make_shared<Feature::FeatureGroup>(ROOT_GROUP_ID + 1 + groups_.size());
    group->setName(name);
    root_->add(group);
    groups_.push_back(group);
    return *group;
}

void Scene::add(const std::string& groupName, SceneFeature feature) {
    collection_.add(feature.feature);
    styles_[feature.feature->getId()] = std::move(feature.style);
    group(groupName).add(std::move(feature.feature));
}

bool Scene::remove(std::uint64_t id) {
    const auto feature = collection_.getById(id);
    if (!feature) {
        return false;
    }
    if (auto* parent = feature->getParent()) {
        parent->removeFromMemory(feature);
    }
    collection_.removeById(id);
    styles_.erase(id);
    return true;
}

std::shared_ptr<Feature::Feature> Scene::feature(std::uint64_t id) const {
    return collection_.getById(id);
}

std::shared_ptr<Feature::Style> Scene::style(std::uint64_t id) const {
    const auto it = styles_.find(id);
    return it != styles_.end() ? it->second : nullptr;
}

void Scene::setStyle(std::uint64_t id, std::shared_ptr<Feature::Style> style) {
    if (const auto target = feature(id)) {
        target->setStyle(style);
        styles_[id] = std::move(style);
    }
}

std::vector<std::shared_ptr<Feature::Feature>> Scene::features() const {
    return leafFeatures(*root_);
}

std::string Scene::groupNameOf(const Feature::Feature& feature) const {
    const auto* parent = feature.getParent();
    return parent != nullptr ? parent->getName() : std::string();
}

} // namespace keo::scene
