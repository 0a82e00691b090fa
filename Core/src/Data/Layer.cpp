#include "Data/Layer.h"

#include "Data/Entity.h"

#include <algorithm>
#include <utility>

namespace keo {

Layer::Layer(std::string name)
    : name_(std::move(name)) {}

Layer::~Layer() = default;

void Layer::setName(std::string name) {
    name_ = std::move(name);
}

bool Layer::addEntity(std::shared_ptr<Entity> entity) {
    if (!entity || containsEntity(entity.get())) {
        return false;
    }
    entities_.push_back(std::move(entity));
    return true;
}

bool Layer::removeEntity(const Entity* entity) {
    const auto it = std::find_if(entities_.begin(), entities_.end(),
                                 [entity](const auto& held) { return held.get() == entity; });
    if (entity == nullptr || it == entities_.end()) {
        return false;
    }
    entities_.erase(it);
    return true;
}

bool Layer::containsEntity(const Entity* entity) const noexcept {
    return entity != nullptr &&
           std::any_of(entities_.begin(), entities_.end(),
                       [entity](const auto& held) { return held.get() == entity; });
}

void Layer::removeAllEntities() noexcept {
    entities_.clear();
}

} // namespace keo
