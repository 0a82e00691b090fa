#include "Data/Layer.h"

#include "Data/Entity.h"

#include <utility>

namespace keo {

Layer::Layer(std::string name)
    : name_(std::move(name)) {}

Layer::~Layer() = default;

void Layer::setName(std::string name) {
    name_ = std::move(name);
}

bool Layer::addEntity(std::shared_ptr<Entity> entity) {
    if (!entity || !places_.emplace(entity.get(), entities_.size()).second) {
        return false;
    }
    entities_.push_back(std::move(entity));
    return true;
}

bool Layer::removeEntity(const Entity* entity) {
    const auto found = places_.find(entity);
    if (found == places_.end()) {
        return false;
    }
    entities_[found->second].reset();
    places_.erase(found);
    // Gaps are closed once they are as many as the entities left: each compaction walks a list at
    // most twice as long as the entities it keeps, so removals stay constant-time on average.
    if (entities_.size() >= 2 * places_.size()) {
        compact();
    }
    return true;
}

bool Layer::containsEntity(const Entity* entity) const noexcept {
    return entity != nullptr && places_.count(entity) != 0;
}

void Layer::removeAllEntities() noexcept {
    entities_.clear();
    places_.clear();
}

const std::vector<std::shared_ptr<Entity>>& Layer::getEntities() const {
    if (entities_.size() != places_.size()) {
        compact();
    }
    return entities_;
}

void Layer::compact() const {
    std::size_t kept = 0;
    for (auto& entity : entities_) {
        if (entity) {
            places_[entity.get()] = kept;
            entities_[kept++] = std::move(entity);
        }
    }
    entities_.resize(kept);
}

} // namespace keo
