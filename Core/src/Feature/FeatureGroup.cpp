#include "Feature/FeatureGroup.h"

#include "Feature/Feature.h"
#include "Feature/ScopedListener.h"
#include "FlatIdMap.h"

#include <cstdint>
#include <iterator>

namespace keo::Feature {

namespace {

using FeatureList = std::vector<std::shared_ptr<Feature>>;

// Visits every node below @p group (not the group itself), depth first in list order.
template <typename Visit>
void forEachDescendant(const FeatureGroup& group, Visit&& visit) {
    for (const auto& child : group.getFeatures()) {
        visit(child);
        if (child->isGroup()) {
            forEachDescendant(static_cast<const FeatureGroup&>(*child), visit);
        }
    }
}

// The leaf features of @p node: the node itself when it is a feature, else every feature below
// it, depth first in list order.
FeatureList leafFeatures(const std::shared_ptr<FeatureBase>& node) {
    FeatureList features;
    const auto addLeaf = [&features](const std::shared_ptr<FeatureBase>& n) {
        if (!n->isGroup()) {
            features.push_back(std::static_pointer_cast<Feature>(n));
        }
    };
    addLeaf(node);
    if (node->isGroup()) {
        forEachDescendant(static_cast<const FeatureGroup&>(*node), addLeaf);
    }
    return features;
}

// Hides @p node and marks it Removed, with its whole subtree when it is a group.
void markRemoved(const std::shared_ptr<FeatureBase>& node) {
    const auto hide = [](const std::shared_ptr<FeatureBase>& n) {
        n->setShow(false);
        n->setFeatureStatus(FeatureStatus::Removed);
    };
    hide(node);
    if (node->isGroup()) {
        forEachDescendant(static_cast<const FeatureGroup&>(*node), hide);
    }
}

// Tells every feature below @p group that its showing state changed; a child hidden by its own
// flag keeps its subtree out of it.
void raiseShowingChanged(const FeatureGroup& group) {
    for (const auto& child : group.getFeatures()) {
        if (!child->isShow()) {
            continue;
        }
        if (child->isGroup()) {
            raiseShowingChanged(static_cast<const FeatureGroup&>(*child));
        } else {
            static_cast<Feature&>(*child)._raiseDefinitionChangedEvent();
        }
    }
}

} // namespace

// What the group keeps on each child: where it stands in children_ (so that hard removal finds it
// without a search) and, for a child group, the subscription that relays its added-or-removed
// event. Keyed by the node itself (keyOf): ids need not be unique in a tree, and a subscription
// filed under a shared id could outlive its removal and call a group that is gone. The flat index
// keeps the entries in one array, so that finding one costs no walk over nodes scattered on the
// heap.
struct FeatureGroup::ChildIndex {
    struct Entry {
        ChildList::iterator position;
        std::weak_ptr<FunctionWrapper> subscription;
    };
    keo::detail::FlatIdMap<Entry> entries;
};

FeatureGroup::FeatureGroup(std::optional<std::uint64_t> id)
    : FeatureBase(id)
    , featureAddedOrRemoved_(std::make_unique<Publisher<AddedOrRemovedCallback>>())
    , childIndex_(std::make_unique<ChildIndex>()) {}

FeatureGroup::FeatureGroup(const FeatureGroup& other)
    : FeatureBase(other)
    , std::enable_shared_from_this<FeatureGroup>()
    , featureAddedOrRemoved_(std::make_unique<Publisher<AddedOrRemovedCallback>>())
    , childIndex_(std::make_unique<ChildIndex>()) {
    for (const auto& child : other.children_) {
        add(std::shared_ptr<FeatureBase>(child->clone()));
    }
}

FeatureGroup::~FeatureGroup() {
    disconnectChildren();
    // Children that others still hold must not point at a group that is gone. Each child is let
    // go as soon as it is told: a group of a million children is then walked once, not twice, and
    // each child is still in the cache when it is released.
    while (!children_.empty()) {
        FeatureBase& child = *children_.front();
        if (child.getParent() == this) {
            child._setParent(nullptr);
        }
        children_.pop_front();
    }
}

std::unique_ptr<FeatureBase> FeatureGroup::clone() const {
    return std::make_unique<FeatureGroup>(*this);
}

bool FeatureGroup::isGroup() const {
    return true;
}

void FeatureGroup::setShow(bool show) {
    if (isShow() == show) {
        return;
    }
    const bool wasShowing = isShowing();
    storeShow(show);
    if (isShowing() != wasShowing) {
        raiseShowingChanged(*this);
    }
    markChanged(ShowChanged);
}

std::uint64_t FeatureGroup::keyOf(const FeatureBase& node) noexcept {
    return keo::detail::addressKey(&node);
}

bool FeatureGroup::add(std::shared_ptr<FeatureBase> node) {
    if (!node) {
        return false;
    }
    return place(std::nullopt, std::move(node));
}

bool FeatureGroup::insert(std::uint64_t position, std::shared_ptr<FeatureBase> node) {
    if (!node || position > children_.size()) {
        return false;
    }
    return place(position, std::move(node));
}

bool FeatureGroup::place(std::optional<std::uint64_t> position, std::shared_ptr<FeatureBase> node) {
    // A group cannot hold itself or one of its ancestors: the tree would become a cycle.
    for (const FeatureBase* ancestor = this; ancestor != nullptr;
         ancestor = ancestor->getParent()) {
        if (ancestor == node.get()) {
            return false;
        }
    }
    const std::shared_ptr<Layer> nodeLayer = node->getLayer();
    const bool sameLayer = nodeLayer && nodeLayer == getLayer();
    if (FeatureGroup* oldParent = node->getParent()) {
        oldParent->removeFromMemory(node);
    }
    if (!sameLayer) {
        node->setFeatureStatus(FeatureStatus::Added);
        markChanged(ContentChanged);
    }
    // The position is taken after the node left its old place (possibly this very group); a
    // position that the removal moved past the end appends.
    auto before = children_.end();
    if (position && *position < children_.size()) {
        before = std::next(children_.begin(), static_cast<std::ptrdiff_t>(*position));
    }
    ChildIndex::Entry& entry = *childIndex_->entries.tryEmplace(keyOf(*node)).first;
    entry.position = children_.insert(before, node);
    node->_setParent(this);

    const FeatureList arrived = leafFeatures(node);
    if (node->isGroup()) {
        auto& group = static_cast<FeatureGroup&>(*node);
        if (!sameLayer) {
            forEachDescendant(group, [](const std::shared_ptr<FeatureBase>& n) {
                n->setFeatureStatus(FeatureStatus::Added);
            });
        }
        entry.subscription = group._addFeatureAddedOrRemovedEventListener(
            [this](const FeatureList& added, const FeatureList& removed) {
                _raiseFeatureAddedOrRemovedEvent(added, removed);
            });
    }
    _raiseFeatureAddedOrRemovedEvent(arrived, {});
    return true;
}

bool FeatureGroup::remove(const std::shared_ptr<FeatureBase>& node) {
    if (!node || node->getParent() == nullptr) {
        return false;
    }
    markRemoved(node);
    markChanged(ContentChanged);
    return true;
}

void FeatureGroup::removeAll() {
    addChangeType(ContentChanged);
    setFeatureStatus(FeatureStatus::Modified);
    for (const auto& child : children_) {
        markRemoved(child);
    }
}

bool FeatureGroup::removeFromMemory(const std::shared_ptr<FeatureBase>& node) {
    if (!node || node->getParent() == nullptr) {
        return false;
    }
    if (node->getParent() != this) {
        // A node of another group is only removed softly there.
        return node->getParent()->remove(node);
    }
    ChildIndex::Entry entry;
    if (!childIndex_->entries.take(keyOf(*node), entry)) {
        return false;
    }
    children_.erase(entry.position);
    removeListener(entry.subscription);
    node->_setParent(nullptr);
    _raiseFeatureAddedOrRemovedEvent({}, leafFeatures(node));
    return true;
}

void FeatureGroup::removeAllFromMemory() {
    FeatureList leaving;
    for (const auto& child : children_) {
        const FeatureList features = leafFeatures(child);
        leaving.insert(leaving.end(), features.begin(), features.end());
    }
    disconnectChildren();
    childIndex_->entries.clear();
    _raiseFeatureAddedOrRemovedEvent({}, leaving);
    for (const auto& child : children_) {
        if (child->getParent() == this) {
            child->_setParent(nullptr);
        }
    }
    children_.clear();
}

void FeatureGroup::disconnectChildren() noexcept {
    childIndex_->entries.forEach(
        [](std::uint64_t, const ChildIndex::Entry& entry) { removeListener(entry.subscription); });
}

std::shared_ptr<FeatureBase> FeatureGroup::getById(std::uint64_t id) const {
    for (const auto& child : children_) {
        if (child->isGroup()) {
            if (auto found = static_cast<const FeatureGroup&>(*child).getById(id)) {
                return found;
            }
        } else if (child->getId() == id) {
            return child;
        }
    }
    return nullptr;
}

std::weak_ptr<FunctionWrapper>
FeatureGroup::_addFeatureAddedOrRemovedEventListener(AddedOrRemovedCallback&& callback) {
    return featureAddedOrRemoved_->addEventListener(std::move(callback));
}

void FeatureGroup::_raiseFeatureAddedOrRemovedEvent(const FeatureList& added,
                                                    const FeatureList& removed) {
    featureAddedOrRemoved_->raiseEvent(added, removed);
}

} // namespace keo::Feature
