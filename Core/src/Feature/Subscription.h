#pragma once

#include "EditRule.h"
#include "Feature/detail/SubscriptionPair.h"

#include <memory>
#include <utility>

namespace keo::Feature::detail {

/**
 * @brief The setter of an owned sub-object (a symbol, material, emitter, ...): nothing when
 * @p value is the held pointer; otherwise unsubscribe from the old object, changed-lock true,
 * store, changed-lock false, definition-changed, then relay the new object's events (if any) as
 * @p owner's own. Returns whether it stored.
 */
template <typename Owner, typename T>
bool replaceOwned(Owner& owner, std::shared_ptr<T>& slot, std::shared_ptr<T> value,
                  SubscriptionPair& subscription) {
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
        subscription.relay(*slot, owner);
    }
    return true;
}

/** @brief A deep copy of @p object as its own static type (clone() returns the family's base). */
template <typename T>
std::shared_ptr<T> cloneAs(const T& object) {
    return std::static_pointer_cast<T>(object.clone());
}

/**
 * @brief The assign step of an owned slot: when both @p slot and @p source hold an object, the
 * held object is assigned from the source's in place (its listeners stay attached); otherwise the
 * slot's setter runs with a clone of the source's object, or with null.
 */
template <typename Owner, typename T>
void assignOwned(Owner& owner, std::shared_ptr<T>& slot, const std::shared_ptr<T>& source,
                 SubscriptionPair& subscription) {
    if (slot && source) {
        slot->assign(*source);
    } else {
        replaceOwned(owner, slot, source ? cloneAs(*source) : nullptr, subscription);
    }
}

/** @brief Installs a clone of @p source (if any) into an empty slot, subscribed anew. */
template <typename Owner, typename T>
void copyOwned(Owner& owner, std::shared_ptr<T>& slot, const std::shared_ptr<T>& source,
               SubscriptionPair& subscription) {
    if (source) {
        replaceOwned(owner, slot, cloneAs(*source), subscription);
    }
}

} // namespace keo::Feature::detail
