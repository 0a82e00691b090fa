#include "Feature/FeatureCollection.h"

#include "Common/InvalidParametersException.h"
#include "Feature/Feature.h"
#include "Feature/ScopedListener.h"
#include "FixedSites.h"
#include "FreshId.h"
#include "OrderedIdMap.h"

#include <string>
#include <utility>
#include <vector>

namespace keo::Feature {

namespace {

constexpr int INVALID_PARAMETERS = 2;

// List nodes a batch keeps for reuse (the changed batch: beyond the number of members, which it
// never exceeds): enough for the single additions and removals that follow one another.
constexpr std::size_t SPARE_NODES_BEYOND_MEMBERS = 64;

[[noreturn]] void throwInvalid(const std::string& message, const detail::SourceSite& site) {
    throw InvalidParametersException(INVALID_PARAMETERS, message, std::string(site.function),
                                     std::string(site.file), site.line);
}

// Removes the collection's listener from the event of every member of @p members. Done under the
// collection's lock: a feature's event takes its own lock only to link or unlink a listener and
// never holds it while calling out, so no lock-order cycle can arise.
template <typename Members>
void disconnectMembers(Members& members) {
    members.forEachExtra(
        [](const auto&, auto& subscription) { removeListener(subscription.handle); });
}

// Sets a flag for the length of a scope and clears it on every exit (a listener may throw).
class FlagScope final {
public:
    explicit FlagScope(bool& flag) noexcept
        : flag_(flag) {
        flag_ = true;
    }
    ~FlagScope() { flag_ = false; }
    FlagScope(const FlagScope&) = delete;
    FlagScope& operator=(const FlagScope&) = delete;

private:
    bool& flag_;
};

} // namespace

// The collection's listener on one member's definition-changed event. The serial tells the
// subscription of the current membership from an earlier one that a raising begun before its
// disconnection may still call.
struct FeatureCollection::MemberSubscription {
    std::weak_ptr<FunctionWrapper> handle;
    std::uint64_t serial = 0;
};

struct FeatureCollection::Batches {
    // The members, each with its subscription: one look-up finds both.
    detail::OrderedIdMap<std::shared_ptr<Feature>, MemberSubscription> features;
    detail::OrderedIdMap<std::shared_ptr<Feature>> added;
    detail::OrderedIdMap<std::shared_ptr<Feature>> removed;
    detail::OrderedIdMap<Feature*> changed;
};

FeatureCollection::FeatureCollection()
    : id_(detail::freshId())
    , batches_(std::make_unique<Batches>())
    , collectionChanged_(std::make_unique<Publisher<CollectionChangedCallback>>()) {}

FeatureCollection::~FeatureCollection() {
    const Lock lock(mutex_);
    disconnectMembers(batches_->features);
    batches_->features.clear();
}

FeatureCollection::MemberSubscription FeatureCollection::subscribe(Feature& feature) {
    MemberSubscription subscription;
    subscription.serial = nextSerial_++;
    const std::uint64_t serial = subscription.serial;
    subscription.handle = feature._addDefinitionChangedEventListener(
        [this, serial](Feature* changed) { onMemberDefinitionChanged(changed, serial); });
    return subscription;
}

void FeatureCollection::onMemberDefinitionChanged(Feature* feature, std::uint64_t serial) {
    const Lock lock(mutex_);
    // A listener whose membership ended (or was replaced by a later one) may still be called by
    // a raising that began before it was disconnected: it records nothing.
    const MemberSubscription* current = batches_->features.findExtra(feature->getId());
    if (current != nullptr && current->serial == serial) {
        _onFeatureDefinitionChanged(feature);
    }
}

std::shared_ptr<Feature> FeatureCollection::add(std::shared_ptr<Feature> feature) {
    if (!feature) {
        throwInvalid("feature is required.", detail::site::COLLECTION_ADD_NULL);
    }
    const std::uint64_t id = feature->getId();
    {
        const Lock lock(mutex_);
        // What the member look-up reads first is rarely in the cache when a collection is
        // large: it is fetched while the subscription is made and the added batch is joined,
        // which touch only the feature and fresh memory. Subscribing under the collection's lock
        // is safe: the feature's event takes its own lock only to link the listener, and never
        // holds it while calling out.
        batches_->features.prefetch(id);
        MemberSubscription subscription = subscribe(*feature);
        // A new member is in no batch yet (every member of the added batch is a member): it
        // joins the added batch without a look-up there, unless it returns from the removed
        // batch. A duplicate can be in neither batch, so for one this is undone below.
        bool joined = false;
        // Takes back what was done for a feature that does not become a member.
        const auto withdraw = [&] {
            if (joined) {
                batches_->added.dropLastUnindexed();
            }
            removeListener(subscription.handle);
        };
        MemberSubscription* stored = nullptr;
        try {
            if (!batches_->removed.erase(id)) {
                batches_->added.appendUnindexed(feature);
                joined = true;
            }
            stored = batches_->features.insert(feature);
        } catch (...) {
            withdraw();
            throw;
        }
        if (stored != nullptr) {
            *stored = std::move(subscription);
            fireChangedEvent();
            return feature;
        }
        withdraw();
    }
    throwInvalid("An feature with id " + std::to_string(id) + " already exists in this collection.",
                 detail::site::COLLECTION_ADD_DUPLICATE);
}

const FeatureCollection::FeatureList& FeatureCollection::getValues() const noexcept {
    return batches_->features.values();
}

bool FeatureCollection::remove(Feature& feature) {
    return removeById(feature.getId());
}

bool FeatureCollection::removeById(std::uint64_t id) {
    if (id == 0) {
        return false;
    }
    const Lock lock(mutex_);
    MemberSubscription subscription;
    std::shared_ptr<Feature> feature = batches_->features.extract(id, &subscription);
    if (!feature) {
        return false;
    }
    removeListener(subscription.handle);
    if (!batches_->added.erase(id)) {
        batches_->removed.insert(std::move(feature));
        batches_->changed.erase(id);
    }
    fireChangedEvent();
    return true;
}

void FeatureCollection::removeAll() {
    const Lock lock(mutex_);
    disconnectMembers(batches_->features);
    for (const auto& feature : batches_->features.values()) {
        if (!batches_->added.contains(feature->getId())) {
            batches_->removed.insert(feature);
        }
    }
    batches_->features.clear();
    batches_->added.clear();
    batches_->changed.clear();
    fireChangedEvent();
}

bool FeatureCollection::contains(const std::shared_ptr<Feature>& feature) const {
    if (!feature) {
        throwInvalid("feature is required", detail::site::COLLECTION_CONTAINS_NULL);
    }
    const Lock lock(mutex_);
    return batches_->features.contains(feature->getId());
}

std::shared_ptr<Feature> FeatureCollection::getById(std::uint64_t id) const {
    const Lock lock(mutex_);
    return batches_->features.find(id);
}

void FeatureCollection::suspendEvents() {
    const Lock lock(mutex_);
    ++suspendCount_;
}

void FeatureCollection::resumeEvents() {
    const Lock lock(mutex_);
    if (suspendCount_ == 0) {
        throwInvalid("resumeEvents can not be called before suspendEvents.",
                     detail::site::COLLECTION_RESUME_WITHOUT_SUSPEND);
    }
    --suspendCount_;
    fireChangedEvent();
}

std::uint32_t FeatureCollection::getSuspendCount() const {
    return readLocked(suspendCount_);
}

void FeatureCollection::fireChangedEvent() {
    const Lock lock(mutex_);
    if (firing_) {
        refire_ = true;
        return;
    }
    if (suspendCount_ != 0) {
        return;
    }
    if (batches_->added.empty() && batches_->removed.empty() && batches_->changed.empty()) {
        return;
    }
    const FlagScope firing(firing_);
    do {
        refire_ = false;
        // The batches are moved out first, so what the listeners record goes into new batches,
        // which the next round delivers.
        FeatureList added = batches_->added.takeValues();
        FeatureList removed = batches_->removed.takeValues();
        ChangedList changed = batches_->changed.takeValues();
        collectionChanged_->raiseEvent(this, added, removed, changed);
        recycleBatches(added, removed, changed);
    } while (refire_);
}

void FeatureCollection::recycleBatches(FeatureList& added, FeatureList& removed,
                                       ChangedList& changed) noexcept {
    // Only the changed batch keeps as many nodes as there are members: it is the one that a
    // collection edited frame after frame fills with many features again and again, whereas large
    // added and removed batches come from one-off bulk edits.
    batches_->added.recycle(added, SPARE_NODES_BEYOND_MEMBERS);
    batches_->removed.recycle(removed, SPARE_NODES_BEYOND_MEMBERS);
    batches_->changed.recycle(changed, batches_->features.size() + SPARE_NODES_BEYOND_MEMBERS);
}

bool FeatureCollection::isFiring() const {
    return readLocked(firing_);
}

void FeatureCollection::setFiring(bool firing) {
    writeLocked(firing_, firing);
}

bool FeatureCollection::isRefire() const {
    return readLocked(refire_);
}

void FeatureCollection::setRefire(bool refire) {
    writeLocked(refire_, refire);
}

bool FeatureCollection::isShow() const {
    return readLocked(show_);
}

void FeatureCollection::setShow(bool show) {
    std::vector<std::pair<std::shared_ptr<Feature>, bool>> members;
    {
        const Lock lock(mutex_);
        if (show_ == show) {
            return;
        }
        ++suspendCount_;
        members.reserve(batches_->features.size());
        for (const auto& feature : batches_->features.values()) {
            members.emplace_back(feature, feature->isShowing());
        }
        show_ = show;
    }
    // Raising a feature's event takes the feature's lock, which comes before the collection's:
    // the members are re-raised with the collection's lock released. Notifications stay
    // suspended meanwhile, so what they record is delivered by the resume below.
    try {
        for (const auto& member : members) {
            if (member.first->isShowing() != member.second) {
                member.first->_raiseDefinitionChangedEvent();
            }
        }
    } catch (...) {
        resumeEvents();
        throw;
    }
    resumeEvents();
}

void FeatureCollection::_onFeatureDefinitionChanged(Feature* feature) {
    if (feature == nullptr) {
        return;
    }
    const Lock lock(mutex_);
    if (batches_->added.contains(feature->getId())) {
        return;
    }
    batches_->changed.insert(feature);
    fireChangedEvent();
}

} // namespace keo::Feature
