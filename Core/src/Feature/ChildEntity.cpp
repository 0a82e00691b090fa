#include "ChildEntity.h"

#include <utility>

namespace keo::Feature::detail {

namespace {

// A new child of @p parent named @p name, reported to @p feature as added.
std::shared_ptr<Entity> attachNewChild(Entity& parent, std::string name, const Feature& feature,
                                       bool* created) {
    auto child = std::make_shared<Entity>(std::move(name));
    child->setParent(parent.shared_from_this());
    feature._addEntity(child);
    if (created != nullptr) {
        *created = true;
    }
    return child;
}

} // namespace

std::shared_ptr<Entity> findOrCreateChild(Entity& parent, std::string_view name,
                                          const Feature& feature, bool* created) {
    if (auto child = parent.getChildByName(name)) {
        return child;
    }
    return attachNewChild(parent, std::string(name), feature, created);
}

std::shared_ptr<Entity> findOrCreateChild(Entity& parent, std::string&& name,
                                          const Feature& feature, bool* created) {
    if (auto child = parent.getChildByName(name)) {
        return child;
    }
    return attachNewChild(parent, std::move(name), feature, created);
}

bool removeChild(Entity& parent, std::string_view name, const Feature& feature) {
    auto child = parent.getChildByName(name);
    if (!child) {
        return false;
    }
    removeEntity(child, feature);
    return true;
}

void removeEntity(const std::shared_ptr<Entity>& child, const Feature& feature) {
    child->setParent(nullptr);
    feature._removeEntity(child);
}

} // namespace keo::Feature::detail
