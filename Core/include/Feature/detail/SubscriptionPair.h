#pragma once

// Not part of the API: the relay by which the kit's objects forward the change events of the
// objects they hold. A member type of the kit's own classes, installed only because their headers
// hold it. It may change without notice.

#include "Feature/FeatureExport.h"

#include <atomic>

namespace keo::Feature::detail {

class SubscriptionPair;

/** @brief What a relay calls on its holder: a definition change, a changed-lock with its flag. */
struct RelayThunks {
    void (*definitionChanged)(void* holder);
    void (*changedLock)(void* holder, bool locked);
};

/**
 * @brief The holders of an object that forward its two change events as their own: each is
 * linked in by the SubscriptionPair it keeps on the object and called, in the order linked, when
 * the object raises an event, before the object's ordinary listeners.
 *
 * Relays cost the object one pointer and nothing on the heap: the links live in the holders.
 * Linking, unlinking and raising may run on several threads; a relay is never called while the
 * chain's lock is held. A holder linked in while the object raises is first called by the next
 * raising; one unlinked meanwhile (even by a holder called in that raising, or by itself) is not
 * called again. A holder may be destroyed while it is being called on its own thread, but not
 * while a raising on another thread may call it: the kit's holders are destroyed by the thread
 * that edits them.
 */
class KEO_FEATURE_API RelayChain final {
public:
    RelayChain() noexcept = default;
    RelayChain(const RelayChain&) = delete;
    RelayChain& operator=(const RelayChain&) = delete;
    /** @brief Detaches the holders still linked (a holder normally unlinks first). */
    ~RelayChain();

    /** @brief Calls every holder's definition-changed relay. */
    void raiseDefinitionChanged() {
        if (head_.load(std::memory_order_acquire) != nullptr) {
            raise(nullptr);
        }
    }
    /** @brief Calls every holder's changed-lock relay with @p locked. */
    void raiseChangedLock(bool locked) {
        if (head_.load(std::memory_order_acquire) != nullptr) {
            raise(&locked);
        }
    }

private:
    friend class SubscriptionPair;

    // @p locked is null for a definition change.
    void raise(const bool* locked);

    // The first holder of a circular list; its `previous_` is the last one.
    std::atomic<SubscriptionPair*> head_{nullptr};
};

/**
 * @brief A holder's subscription to the two change events of one object it holds: its link in
 * the object's RelayChain. Disconnects on destruction; a copy starts unlinked (an owner's copy
 * subscribes to its own objects). The object must outlive the link: a holder unlinks before it
 * lets go of what it holds.
 */
class KEO_FEATURE_API SubscriptionPair final {
public:
    SubscriptionPair() noexcept = default;
    SubscriptionPair(const SubscriptionPair& /*other*/) noexcept {}
    SubscriptionPair& operator=(const SubscriptionPair& /*other*/) noexcept { return *this; }
    ~SubscriptionPair() { disconnect(); }

    /**
     * @brief Links in @p holder to @p source's events: a definition change of the source calls
     * thunks.definitionChanged(holder), a changed-lock thunks.changedLock(holder, locked). A link
     * held before is unlinked first. @p thunks must outlive the link (a static table).
     */
    template <typename Source>
    void connect(Source& source, void* holder, const RelayThunks& thunks) {
        disconnect();
        link(source._getRelayChain(), holder, thunks);
    }

    /**
     * @brief Relays @p source's events as @p owner's own: a definition change of the source
     * raises the owner's definition-changed event, a changed-lock of the source the owner's
     * changed-lock event with the same flag.
     */
    template <typename Source, typename Owner>
    void relay(Source& source, Owner& owner) {
        connect(source, &owner, RELAY_TO<Owner>);
    }

    /** @brief Unlinks (if linked); the source's events no longer reach the holder. */
    void disconnect() noexcept {
        if (chain_ != nullptr) {
            unlink();
        }
    }

    /** @brief Whether the link is in a chain. */
    bool isConnected() const noexcept { return chain_ != nullptr; }

private:
    friend class RelayChain;

    template <typename Owner>
    static constexpr RelayThunks RELAY_TO{
        [](void* owner) { static_cast<Owner*>(owner)->_raiseDefinitionChangedEvent(); },
        [](void* owner, bool locked) {
            static_cast<Owner*>(owner)->_raiseChangedLockEvent(locked);
        }};

    void link(RelayChain& chain, void* holder, const RelayThunks& thunks);
    void unlink() noexcept;

    RelayChain* chain_ = nullptr;
    SubscriptionPair* next_ = nullptr;
    SubscriptionPair* previous_ = nullptr;
    void* holder_ = nullptr;
    const RelayThunks* thunks_ = nullptr;
};

} // namespace keo::Feature::detail
