#pragma once

#include <utility>

// Keeps a function out of its callers (a hint the compilers that know it take).
#if defined(__GNUC__)
#define KEO_FEATURE_NOINLINE __attribute__((noinline))
#else
#define KEO_FEATURE_NOINLINE
#endif

namespace keo::Feature::detail {

/**
 * @brief Raises an owner's changed-lock event with true on construction and with false on
 * destruction, so the pair is raised on every path (an exception while storing included) and
 * the feature that listens never stays locked.
 */
template <typename Owner>
class ChangedLockScope final {
public:
    explicit ChangedLockScope(Owner& owner)
        : owner_(owner) {
        owner_._raiseChangedLockEvent(true);
    }
    ~ChangedLockScope() { owner_._raiseChangedLockEvent(false); }
    ChangedLockScope(const ChangedLockScope&) = delete;
    ChangedLockScope& operator=(const ChangedLockScope&) = delete;

private:
    Owner& owner_;
};

// The changing half of applyEdit, kept out of line: a setter given the value it holds then only
// compares, without first saving the registers that raising the events needs.
template <typename Owner, typename T, typename U, typename OnStore>
KEO_FEATURE_NOINLINE void storeAndRaise(Owner& owner, T& field, U&& value, OnStore& onStore) {
    {
        const ChangedLockScope<Owner> scope(owner);
        field = std::forward<U>(value);
        onStore();
    }
    owner._raiseDefinitionChangedEvent();
}

/**
 * @brief The edit rule of every setter: nothing when @p value equals @p field (operator==, so a
 * NaN always counts as a change); otherwise changed-lock true, store (then @p onStore, e.g. to
 * set a changed flag), changed-lock false, definition-changed. Returns whether it stored.
 */
template <typename Owner, typename T, typename U, typename OnStore>
bool applyEdit(Owner& owner, T& field, U&& value, OnStore&& onStore) {
    if (field == value) {
        return false;
    }
    storeAndRaise(owner, field, std::forward<U>(value), onStore);
    return true;
}

/** @brief applyEdit without an extra step on store. */
template <typename Owner, typename T, typename U>
bool applyEdit(Owner& owner, T& field, U&& value) {
    return applyEdit(owner, field, std::forward<U>(value), [] {});
}

} // namespace keo::Feature::detail
