#pragma once

#include "Feature/FeatureExport.h"
#include "Feature/FunctionWrapper.h"
#include "Feature/Publisher.h"

#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <mutex>

namespace keo::Feature {

class Feature;

/**
 * @brief A flat set of features keyed by id, which batches what happens to its members into
 * change notifications: the features added, the features removed and the features whose
 * definition changed since the last notification.
 *
 * Notifications: after each operation that records something, the collection notifies the
 * listeners of getCollectionChanged() with the three batches (each in the order the features
 * entered it) and empties them. Within one batch a feature added and then removed is forgotten;
 * one removed and then added again is reported neither as removed nor as added; a feature
 * reported as added is not reported as changed as well. suspendEvents/resumeEvents pairs (which
 * nest) hold notifications back so that bulk edits produce one. A change recorded while
 * listeners are being notified (by a listener, say) is delivered by a further notification
 * before the notifying call returns.
 *
 * Threads: every operation takes the collection's recursive mutex, and listeners are notified
 * with it held (they may call the collection again). A feature reports its changes while holding
 * its own lock, so the lock order is feature, then collection: the collection never takes a
 * feature's lock while holding its own, except when a listener notified under the collection's
 * lock edits a feature. Adding and removing a member link and unlink the collection's listener
 * on the feature's event under the collection's lock; the event's own lock is held only for that
 * and never while anything is called, so it closes no cycle.
 *
 * Misuse throws keo::InvalidParametersException with error code 2.
 */
class KEO_FEATURE_API FeatureCollection final {
public:
    /** @brief The features of one batch. */
    using FeatureList = std::list<std::shared_ptr<Feature>>;
    /** @brief The changed features of one batch (members of the collection, not owned). */
    using ChangedList = std::list<Feature*>;
    /** @brief The listener type of the notification: (collection, added, removed, changed). */
    using CollectionChangedCallback = std::function<void(FeatureCollection*, const FeatureList&,
                                                         const FeatureList&, const ChangedList&)>;

    /** @brief An empty, shown collection with a fresh random id. */
    FeatureCollection();
    /** @brief Drops the subscriptions to the members' events. */
    ~FeatureCollection();
    FeatureCollection(const FeatureCollection&) = delete;
    FeatureCollection& operator=(const FeatureCollection&) = delete;

    /**
     * @brief Adds @p feature: it becomes a member, is recorded as added (or, when it was removed
     * since the last notification, drops out of the removed batch instead), and its changes are
     * recorded from now on; then notifies. Returns @p feature.
     * @throws keo::InvalidParametersException (code 2) for a null feature ("feature is
     *         required."), or when a member with the same id is held already, even another object
     *         ("An feature with id <id> already exists in this collection."); nothing changes
     *         then. The messages are kept word for word, "An feature" included: this is intended,
     *         callers match on them.
     */
    std::shared_ptr<Feature> add(std::shared_ptr<Feature> feature);
    /** @brief removeById with the id of @p feature. */
    bool remove(Feature& feature);
    /**
     * @brief Removes the member with @p id: recorded as removed (or, when it was added since the
     * last notification, simply forgotten), its changes no longer recorded; then notifies.
     * False, without taking the lock, for id 0; false when no member has the id.
     */
    bool removeById(std::uint64_t id);
    /** @brief Removes every member as removeById does, then notifies once. */
    void removeAll();

    /**
     * @brief Whether a member has the id of @p feature (the member may be another object).
     * @throws keo::InvalidParametersException (code 2) for a null feature ("feature is
     *         required", without the full stop of add's message: this is intended).
     */
    bool contains(const std::shared_ptr<Feature>& feature) const;
    /** @brief The member with @p id, or null. */
    std::shared_ptr<Feature> getById(std::uint64_t id) const;
    /**
     * @brief The members in the order they were added. Not guarded: read it only while no other
     * thread changes the collection.
     */
    const FeatureList& getValues() const noexcept;
    /** @brief The id, drawn at construction. */
    std::uint64_t getId() const noexcept { return id_; }

    /** @brief Holds notifications back until the matching resumeEvents (pairs nest). */
    void suspendEvents();
    /**
     * @brief Ends one suspendEvents; when it was the outermost, notifies what was recorded.
     * @throws keo::InvalidParametersException (code 2, "resumeEvents can not be called before
     *         suspendEvents.") without a matching suspendEvents; nothing changes then.
     */
    void resumeEvents();
    /** @brief The depth of suspendEvents calls not yet resumed. */
    std::uint32_t getSuspendCount() const;
    /**
     * @brief Notifies the listeners of what was recorded, unless notifications are suspended or
     * nothing was recorded. Called while the listeners are being notified, it asks for one more
     * notification after the current one, which the running call delivers even if nothing new
     * was recorded meanwhile.
     */
    void fireChangedEvent();
    /** @brief Whether listeners are being notified. */
    bool isFiring() const;
    /** @brief Sets the notifying flag (fireChangedEvent sets and clears it itself). */
    void setFiring(bool firing);
    /** @brief Whether one more notification was asked for while notifying. */
    bool isRefire() const;
    /** @brief Sets the flag that asks the running notification for one more round. */
    void setRefire(bool refire);

    /** @brief The collection's show flag (default true), kept for callers. */
    bool isShow() const;
    /**
     * @brief Stores the show flag. A new value also re-raises the definition-changed event of
     * every member whose showing state changed meanwhile (with notifications suspended, so what
     * that records comes as one notification); the collection's flag is not part of a feature's
     * showing state, so this normally re-raises nothing. This is intended: the flag is kept for
     * callers and hides nothing by itself.
     */
    void setShow(bool show);

    /** @brief The notification event (never null; owned by the collection). */
    Publisher<CollectionChangedCallback>* getCollectionChanged() const noexcept {
        return collectionChanged_.get();
    }

    /**
     * @brief Records that the definition of @p feature changed: nothing while it waits in the
     * added batch; otherwise it joins the changed batch (once) and the collection notifies.
     * Members call it through their definition-changed event; null does nothing. It does not
     * check membership: any feature given is recorded.
     */
    void _onFeatureDefinitionChanged(Feature* feature);

private:
    using Lock = std::lock_guard<std::recursive_mutex>;

    // The members and the three batches (private to the sources): id-keyed containers that keep
    // insertion order.
    struct Batches;
    struct MemberSubscription;

    // A field read or written under the collection's lock.
    template <typename T>
    T readLocked(const T& field) const {
        const Lock lock(mutex_);
        return field;
    }
    template <typename T>
    void writeLocked(T& field, T value) {
        const Lock lock(mutex_);
        field = value;
    }

    MemberSubscription subscribe(Feature& feature);
    void onMemberDefinitionChanged(Feature* feature, std::uint64_t serial);
    void recycleBatches(FeatureList& added, FeatureList& removed, ChangedList& changed) noexcept;

    std::uint32_t suspendCount_ = 0;
    bool show_ = true;
    bool firing_ = false;
    bool refire_ = false;
    std::uint64_t id_;
    // The members, each with the subscription to its definition-changed event, and the added,
    // removed and changed batches.
    std::unique_ptr<Batches> batches_;
    std::unique_ptr<Publisher<CollectionChangedCallback>> collectionChanged_;
    mutable std::recursive_mutex mutex_;
    std::uint64_t nextSerial_ = 0; // guarded by the mutex
};

} // namespace keo::Feature
