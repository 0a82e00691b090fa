#include "Feature/FrameDriver.h"

#include "Data/Entity.h"
#include "Data/Layer.h"
#include "Feature/Feature.h"
#include "Feature/FeatureGroup.h"

#include "BlockArray.h"
#include "FlatIdMap.h"

#include <algorithm>
#include <list>
#include <unordered_set>
#include <utility>

namespace keo::Feature {

struct FrameDriver::Record {
    std::shared_ptr<Feature> feature;
    // The feature's live entities, in the order they joined.
    std::vector<std::shared_ptr<Entity>> live;
    // The last frame that stamped the feature as visited (frames after a tree change stamp).
    std::uint64_t visited = 0;
};

struct FrameDriver::Records {
    keo::detail::BlockArray<Record> entries;
};

struct FrameDriver::RootIndex {
    keo::detail::FlatIdMap<const Record*> records;
};

namespace {

// How an entity is named in messages: its name and the feature it belongs to.
std::string describe(const Entity& entity, const Feature& owner) {
    const std::string name = entity.getName().empty() ? "(root)" : entity.getName();
    return "\"" + name + "\" of feature " + std::to_string(owner.getId()) + " \"" +
           owner.getName() + "\"";
}

// Up to three examples (sorted, so that the text does not depend on hash order), then how many
// more there are.
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

bool contains(const std::vector<std::shared_ptr<Entity>>& entities, const Entity* entity) {
    return std::any_of(entities.begin(), entities.end(),
                       [entity](const auto& held) { return held.get() == entity; });
}

} // namespace

FrameDriver::FrameDriver(std::shared_ptr<FeatureGroup> root)
    : root_(std::move(root))
    , records_(std::make_unique<Records>())
    , roots_(std::make_unique<RootIndex>()) {
    if (root_) {
        treeListener_ = ScopedListener(root_->_addFeatureAddedOrRemovedEventListener(
            [this](const std::vector<std::shared_ptr<Feature>>& /*added*/,
                   const std::vector<std::shared_ptr<Feature>>& /*removed*/) {
                treeChanged_.store(true, std::memory_order_relaxed);
            }));
    }
}

FrameDriver::~FrameDriver() {
    // Each record goes as soon as its feature is told, while the feature is still in the cache.
    auto& records = records_->entries;
    while (records.size() > 0) {
        release(records.back());
        records.popBack();
    }
}

template <typename Visit>
void FrameDriver::forEachFeature(Visit&& visit) const {
    if (!root_) {
        return;
    }
    // Depth first in list order, without recursion.
    using Iterator = std::list<std::shared_ptr<FeatureBase>>::const_iterator;
    std::vector<std::pair<Iterator, Iterator>> stack{
        {root_->getFeatures().begin(), root_->getFeatures().end()}};
    while (!stack.empty()) {
        auto& [it, end] = stack.back();
        if (it == end) {
            stack.pop_back();
            continue;
        }
        const std::shared_ptr<FeatureBase>& node = *it++;
        if (node->isGroup()) {
            const auto& children = static_cast<const FeatureGroup&>(*node).getFeatures();
            stack.emplace_back(children.begin(), children.end());
        } else {
            visit(node);
        }
    }
}

FrameChanges FrameDriver::frame() {
    ++frame_;
    visited_ = 0;
    bool stamp = treeChanged_.exchange(false, std::memory_order_relaxed);
    FrameChanges changes;
    forEachFeature([this, stamp, &changes](const auto& node) { update(node, stamp, changes); });
    changes.features = visited_;
    if (!stamp && visited_ != records_->entries.size()) {
        // Features left the tree unannounced (the event was not raised): stamp them all now.
        forEachFeature([this](const auto& node) { recordOf(node).visited = frame_; });
        stamp = true;
    }
    if (stamp) {
        sweep(changes);
    }
    return changes;
}

FrameDriver::Record* FrameDriver::findRecord(const Feature& feature) const {
    if (feature._getFrameOwner() == this) {
        return static_cast<Record*>(feature._getFrameRecord());
    }
    if (feature._getFrameOwner() == nullptr) {
        return nullptr;
    }
    const auto found = foreign_.find(&feature);
    return found != foreign_.end() ? found->second : nullptr;
}

FrameDriver::Record& FrameDriver::recordOf(const std::shared_ptr<FeatureBase>& node) {
    auto& feature = static_cast<Feature&>(*node);
    if (Record* held = findRecord(feature)) {
        return *held;
    }
    auto& records = records_->entries;
    Record& record = records.emplaceBack();
    record.feature = std::static_pointer_cast<Feature>(node);
    record.visited = frame_;
    try {
        file(record);
    } catch (...) {
        // The foreign index could not grow: the feature stays without a record.
        records.popBack();
        throw;
    }
    return record;
}

void FrameDriver::file(Record& record) {
    Feature& feature = *record.feature;
    const void* owner = feature._getFrameOwner();
    if (owner == nullptr || owner == this) {
        feature._setFrameRecord(this, &record);
    } else {
        foreign_[&feature] = &record;
    }
}

void FrameDriver::update(const std::shared_ptr<FeatureBase>& node, bool stamp,
                         FrameChanges& changes) {
    auto& feature = static_cast<Feature&>(*node);
    // The common case reads only the feature: its record is not touched on a clean frame.
    Record* record = feature._getFrameOwner() == this
                         ? static_cast<Record*>(feature._getFrameRecord())
                         : nullptr;
    bool entered = false;
    if (record == nullptr) {
        // New to this driver (or back in the tree): it reports every entity again.
        const std::size_t before = records_->entries.size();
        record = &recordOf(node);
        entered = records_->entries.size() != before;
    }
    if (stamp) {
        record->visited = frame_;
    }
    ++visited_;
    if (feature._updateEntityInCull(entered, added_, removed_)) {
        ++changes.updated;
    }
    if (!removed_.empty()) {
        changes.reportedRemoved += removed_.size();
        for (const auto& entity : removed_) {
            drop(*record, entity, changes);
        }
        removed_.clear();
    }
    if (!added_.empty()) {
        changes.reportedAdded += added_.size();
        // A first update hands over the whole tree: the live list is sized once for it. Later
        // additions grow it as push_back does (reserving for each would reallocate every time).
        if (record->live.empty()) {
            record->live.reserve(added_.size());
        }
        for (const auto& entity : added_) {
            join(*record, entity, changes);
        }
        added_.clear();
    }
}

void FrameDriver::join(Record& record, const std::shared_ptr<Entity>& entity,
                       FrameChanges& changes) {
    const Entity* root = record.feature->_getImplHandle().get();
    const bool inTree =
        entity.get() == root || (root != nullptr && root->isAncestorOf(entity.get()));
    if (!inTree || contains(record.live, entity.get())) {
        return;
    }
    record.live.push_back(entity);
    changes.added.push_back(entity);
    ++live_;
    if (entity.get() == root) {
        rootsStale_ = true;
        if (const auto layer = root_->_getSelfLayer()) {
            layer->addEntity(entity);
        }
    }
}

void FrameDriver::drop(Record& record, const std::shared_ptr<Entity>& entity,
                       FrameChanges& changes) {
    const auto found = std::find(record.live.begin(), record.live.end(), entity);
    if (found != record.live.end()) {
        // The order of the rest is kept: it is the order in which they joined.
        record.live.erase(found);
        changes.removed.push_back(entity);
        --live_;
        if (entity == record.feature->_getImplHandle()) {
            rootsStale_ = true;
            if (const auto layer = root_->_getSelfLayer()) {
                layer->removeEntity(entity.get());
            }
        }
    }
    for (const auto& child : entity->getChildren()) {
        drop(record, child, changes);
    }
}

void FrameDriver::sweep(FrameChanges& changes) {
    auto& records = records_->entries;
    for (std::size_t i = 0; i < records.size();) {
        Record& record = records[i];
        if (record.visited == frame_) {
            ++i;
            continue;
        }
        // Left the tree: its entities go at once, and what it reported meanwhile is void (it
        // reports everything again if it comes back).
        if (const auto layer = root_->_getSelfLayer()) {
            layer->removeEntity(std::as_const(*record.feature)._getImplHandle());
        }
        for (auto& entity : record.live) {
            changes.removed.push_back(std::move(entity));
        }
        live_ -= record.live.size();
        record.feature->_takeAddedEntities();
        record.feature->_takeRemovedEntities();
        release(record);
        rootsStale_ = true;
        // The last record fills the gap, and its feature learns the new address.
        if (i + 1 != records.size()) {
            record = std::move(records.back());
            file(record);
        }
        records.popBack();
    }
}

void FrameDriver::release(Record& record) noexcept {
    Feature& feature = *record.feature;
    if (feature._getFrameOwner() == this) {
        feature._setFrameRecord(nullptr, nullptr);
    } else {
        foreign_.erase(&feature);
    }
}

bool FrameDriver::isLive(const Entity& entity) const {
    const Record* record = recordOfEntity(entity);
    return record != nullptr && contains(record->live, &entity);
}

void FrameDriver::forEachLive(
    const std::function<void(const std::shared_ptr<Entity>&)>& visit) const {
    // Depth first from each root entity; one stack of pointers serves every feature.
    std::vector<const std::shared_ptr<Entity>*> pending;
    forEachFeature([this, &visit, &pending](const std::shared_ptr<FeatureBase>& node) {
        const Record* record = findRecord(static_cast<const Feature&>(*node));
        if (record == nullptr || record->live.empty()) {
            return;
        }
        pending.push_back(&record->feature->_getImplHandle());
        while (!pending.empty()) {
            const std::shared_ptr<Entity>& entity = *pending.back();
            pending.pop_back();
            if (!entity) {
                continue;
            }
            if (contains(record->live, entity.get())) {
                visit(entity);
            }
            const auto& children = entity->getChildren();
            for (auto it = children.rbegin(); it != children.rend(); ++it) {
                pending.push_back(&*it);
            }
        }
    });
}

std::vector<const Entity*> FrameDriver::getLiveEntities() const {
    std::vector<const Entity*> entities;
    entities.reserve(live_);
    forEachLive(
        [&entities](const std::shared_ptr<Entity>& entity) { entities.push_back(entity.get()); });
    return entities;
}

const FrameDriver::Record* FrameDriver::recordOfEntity(const Entity& entity) const {
    const Entity* top = &entity;
    while (top->getParent() != nullptr) {
        top = top->getParent();
    }
    if (rootsStale_) {
        roots_->records.clear();
        const auto& records = records_->entries;
        for (std::size_t i = 0; i < records.size(); ++i) {
            const Record& record = records[i];
            if (const Entity* root = std::as_const(*record.feature)._getImplHandle()) {
                *roots_->records.tryEmplace(keo::detail::addressKey(root)).first = &record;
            }
        }
        rootsStale_ = false;
    }
    const Record* const* found = roots_->records.find(keo::detail::addressKey(top));
    return found != nullptr ? *found : nullptr;
}

std::shared_ptr<Feature> FrameDriver::pick(const Entity& entity) const {
    const Record* record = recordOfEntity(entity);
    return record != nullptr ? record->feature : nullptr;
}

std::string FrameDriver::verify() const {
    std::unordered_map<const Entity*, const Feature*> expected;
    forEachFeature([&expected](const std::shared_ptr<FeatureBase>& node) {
        const auto& feature = static_cast<const Feature&>(*node);
        for (const auto& entity : feature._getAllEntities()) {
            expected.emplace(entity.get(), &feature);
        }
    });
    std::vector<std::string> extra;
    std::unordered_set<const Entity*> live;
    const auto& records = records_->entries;
    for (std::size_t i = 0; i < records.size(); ++i) {
        for (const auto& entity : records[i].live) {
            live.insert(entity.get());
            if (expected.count(entity.get()) == 0) {
                extra.push_back(describe(*entity, *records[i].feature));
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

} // namespace keo::Feature
