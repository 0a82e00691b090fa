#include "ChildEntity.h"

namespace keo::Feature::detail {

std::shared_ptr<Entity> findOrCreateChild(Entity& parent, std::string_view name,
                                          const Feature& feature, bool* created) {
    if (auto child = parent.getChildByName(name)) {
        return child;
    }
    auto child = std::make_shared<Entity>();
    child->setParent(parent.shared_from_this());
    child->setName(std::string(name));
    feature._addEntity(child);
    if (created != nullptr) {
        *created = true;
    }
    return child;
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
