#include "Data/Entity.h"

#include "Data/GeometryGraphics.h"
#include "Data/OrientationProperty.h"
#include "Data/PositionProperty.h"

#include <algorithm>
#include <utility>

namespace keo {

Entity::Entity() = default;

Entity::Entity(std::string name)
    : name_(std::move(name)) {}

Entity::~Entity() {
    // Children held elsewhere survive as roots. Children held only by this entity die here; their
    // own children are moved to the work list first, so a deep tree is released level by level in
    // this loop instead of through one nested destructor call per level.
    std::vector<std::shared_ptr<Entity>> pending = std::move(children_);
    while (!pending.empty()) {
        std::shared_ptr<Entity> child = std::move(pending.back());
        pending.pop_back();
        child->parent_ = nullptr;
        if (child.use_count() == 1) {
            for (auto& grandchild : child->children_) {
                pending.push_back(std::move(grandchild));
            }
            child->children_.clear();
        }
    }
}

void Entity::setName(std::string name) {
    name_ = std::move(name);
}

bool Entity::isShowing() const noexcept {
    for (const Entity* e = this; e != nullptr; e = e->parent_) {
        if (!e->show_) {
            return false;
        }
    }
    return true;
}

bool Entity::isAncestorOf(const Entity* entity) const noexcept {
    for (const Entity* e = entity != nullptr ? entity->parent_ : nullptr; e != nullptr;
         e = e->parent_) {
        if (e == this) {
            return true;
        }
    }
    return false;
}

bool Entity::setParent(const std::shared_ptr<Entity>& parent) {
    if (parent.get() == parent_) {
        return true;
    }
    // An entity without children has no descendants, so only the walk up from a parent of an
    // entity that has children can find a cycle.
    if (parent && (parent.get() == this || (!children_.empty() && isAncestorOf(parent.get())))) {
        return false;
    }
    std::shared_ptr<Entity> self = weak_from_this().lock();
    if (!self) {
        return false;
    }
    detachFromParent();
    if (parent) {
        parent->children_.push_back(std::move(self));
        parent_ = parent.get();
    }
    return true;
}

void Entity::detachFromParent() noexcept {
    if (parent_ == nullptr) {
        return;
    }
    auto& siblings = parent_->children_;
    const auto it = std::find_if(siblings.begin(), siblings.end(),
                                 [this](const auto& sibling) { return sibling.get() == this; });
    parent_ = nullptr;
    if (it != siblings.end()) {
        // The caller holds its own reference, so erasing ours does not destroy this entity.
        siblings.erase(it);
    }
}

std::shared_ptr<Entity> Entity::getChildByName(std::string_view name) const noexcept {
    const auto it = std::find_if(children_.begin(), children_.end(),
                                 [name](const auto& child) { return child->name_ == name; });
    return it != children_.end() ? *it : nullptr;
}

void Entity::removeAllChildren() noexcept {
    std::vector<std::shared_ptr<Entity>> children = std::move(children_);
    children_.clear();
    for (const auto& child : children) {
        child->parent_ = nullptr;
    }
}

void Entity::setPosition(std::shared_ptr<PositionProperty> position) noexcept {
    position_ = std::move(position);
}

const std::shared_ptr<OrientationProperty>& Entity::getOrientation() const noexcept {
    static const std::shared_ptr<OrientationProperty> none;
    return orientation_ ? *orientation_ : none;
}

void Entity::setOrientation(std::shared_ptr<OrientationProperty> orientation) {
    if (orientation_) {
        *orientation_ = std::move(orientation);
    } else if (orientation) {
        orientation_ =
            std::make_unique<std::shared_ptr<OrientationProperty>>(std::move(orientation));
    }
}

void Entity::setGeometryGraphics(std::shared_ptr<GeometryGraphics> graphics) noexcept {
    graphics_ = std::move(graphics);
}

} // namespace keo
