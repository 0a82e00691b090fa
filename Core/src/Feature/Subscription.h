#pragma once

#include "EditRule.h"
#include "Feature/detail/SubscriptionPair.h"

#include <memory>
#include <utility>

namespace keo::Feature::detail {

/**
 * @brief The setter of an owned sub-object (a symbol, material, emitter, ...): nothing when
 * @p value is the held pointer; otherwise unsubscribe from the old object, changed-lock true,
 * store, changed-lock false, definition-changed, then @p onInstalled with the new object (if
 * any; a step of the owner's own, such as a value it imposes on what it holds), then relay the
 * new object's events (if any) as @p owner's own. Returns whether it stored.
 */
template <typename Owner, typename T, typename OnInstalled>
bool replaceOwned(Owner& owner, std::shared_ptr<T>& slot, std::shared_ptr<T> value,
                  SubscriptionPair& subscription, OnInstalled&& onInstalled) {
    if (slot == value) {
        return false;
    }
    subscription.disconnect();
    {
        const ChangedLockScope<Owner> scope(owner);
        slot = std::move(value);
    }
    owner._raiseDefinitionChangedEvent();
    if (slot) {
        onInstalled(*slot);
        subscription.relay(*slot, owner);
    }
    return true;
}

/** @brief replaceOwned without a step of the owner's own. */
template <typename Owner, typename T>
bool replaceOwned(Owner& owner, std::shared_ptr<T>& slot, std::shared_ptr<T> value,
                  SubscriptionPair& subscription) {
    return replaceOwned(owner, slot, std::move(value), subscription, [](T&) {});
}

/** @brief A deep copy of @p object as its own static type (clone() returns the family's base). */
template <typename T>
std::shared_ptr<T> cloneAs(const T& object) {
    return std::static_pointer_cast<T>(object.clone());
}

/** @brief A predicate of assignOwned that takes any two held objects for the same kind. */
struct AnyKind {
    template <typename T>
    bool operator()(const T& /*held*/, const T& /*source*/) const noexcept {
        return true;
    }
};

/** @brief A predicate of assignOwned: the two objects report the same getType(). */
struct SameType {
    template <typename T>
    bool operator()(const T& held, const T& source) const {
        return held.getType() == source.getType();
    }
};

/**
 * @brief The in-place assign step of an owned slot: when both @p slot and @p source hold an
 * object and @p sameKind says they are alike, the held object is assigned from the source's in
 * place (its listeners stay attached); otherwise the slot's setter (@p set) runs with a clone of
 * the source's object, or with null.
 */
template <typename T, typename Set, typename SameKind = AnyKind>
void assignOwnedInPlace(const std::shared_ptr<T>& slot, const std::shared_ptr<T>& source, Set&& set,
                        SameKind&& sameKind = {}) {
    if (slot && source && sameKind(*slot, *source)) {
        slot->assign(*source);
    } else {
        set(source ? cloneAs(*source) : nullptr);
    }
}

/** @brief assignOwnedInPlace through replaceOwned, for a slot without a setter step of its own. */
template <typename Owner, typename T, typename SameKind = AnyKind>
void assignOwned(Owner& owner, std::shared_ptr<T>& slot, const std::shared_ptr<T>& source,
                 SubscriptionPair& subscription, SameKind&& sameKind = {}) {
    assignOwnedInPlace(
        slot, source,
        [&](std::shared_ptr<T> value) {
            replaceOwned(owner, slot, std::move(value), subscription);
        },
        std::forward<SameKind>(sameKind));
}

/**
 * @brief Installs a copy of the source's object (a new object of its kind, subscribed anew)
 * through the slot's setter, so a held one is released with its subscription; an empty source
 * empties the slot. The copy constructors use it on empty slots, and the assigns that copy rather
 * than assign in place.
 */
template <typename Owner, typename T>
void copyOwned(Owner& owner, std::shared_ptr<T>& slot, const std::shared_ptr<T>& source,
               SubscriptionPair& subscription) {
    replaceOwned(owner, slot, source ? cloneAs(*source) : nullptr, subscription);
}

} // namespace keo::Feature::detail
