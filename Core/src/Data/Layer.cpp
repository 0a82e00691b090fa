#include "Data/Layer.h"

#include "Data/Entity.h"

#include "FlatIdMap.h"

#include <utility>

namespace keo {

struct Layer::Places {
    keo::detail::FlatIdMap<std::size_t> index;
};

using keo::detail::addressKey;

Layer::Layer()
    : places_(std::make_unique<Places>()) {}

Layer::Layer(std::string name)
    : name_(std::move(name))
    , places_(std::make_unique<Places>()) {}

Layer::~Layer() = default;

void Layer::setName(std::string name) {
    name_ = std::move(name);
}

bool Layer::addEntity(std::shared_ptr<Entity> entity) {
    if (!entity) {
        return false;
    }
    // The list grows first (doubling, as push_back would), so that a failure to grow leaves the
    // index without the entity.
    if (entities_.size() == entities_.capacity()) {
        constexpr std::size_t FIRST_CAPACITY = 16;
        entities_.reserve(entities_.empty() ? FIRST_CAPACITY : 2 * entities_.size());
    }
    const auto [place, made] = places_->index.tryEmplace(addressKey(entity.get()));
    if (!made) {
        return false;
    }
    *place = entities_.size();
    entities_.push_back(std::move(entity));
    return true;
}

bool Layer::removeEntity(const Entity* entity) {
    std::size_t place = 0;
    if (!places_->index.take(addressKey(entity), place)) {
        return false;
    }
    entities_[place].reset();
    // Gaps are closed once they are as many as the entities left: each compaction walks a list at
    // most twice as long as the entities it keeps, so removals stay constant-time on average.
    if (entities_.size() >= 2 * places_->index.size()) {
        compact();
    }
    return true;
}

bool Layer::containsEntity(const Entity* entity) const noexcept {
    return entity != nullptr && places_->index.contains(addressKey(entity));
}

void Layer::removeAllEntities() noexcept {
    entities_.clear();
    places_->index.clear();
}

std::size_t Layer::getEntityCount() const noexcept {
    return places_->index.size();
}

const std::vector<std::shared_ptr<Entity>>& Layer::getEntities() const {
    if (entities_.size() != getEntityCount()) {
        compact();
    }
    return entities_;
}

void Layer::compact() const {
    std::size_t kept = 0;
    for (auto& entity : entities_) {
        if (entity) {
            // Every entity in the list is in the index.
            if (std::size_t* const place = places_->index.find(addressKey(entity.get()))) {
                *place = kept;
            }
            entities_[kept++] = std::move(entity);
        }
    }
    entities_.resize(kept);
}

} // namespace keo
