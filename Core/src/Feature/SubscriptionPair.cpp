#include "Feature/detail/SubscriptionPair.h"

#include "Feature/detail/SingleThread.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <thread>

namespace keo::Feature::detail {

namespace {

// A raising in progress over a chain of more than one holder: the holders it has still to call,
// `next` up to `last` along the chain (next null when none is left). Unlinking keeps the two ends
// right, so the raising calls no holder that was unlinked meanwhile and none linked in after it
// began.
struct Walk {
    const RelayChain* chain;
    SubscriptionPair* next;
    SubscriptionPair* last;
    Walk* outer;
};

// Chains share a few locks, picked by the chain's address: an object pays no memory for a lock,
// and links, unlinks and the few instructions of a raising step are all a lock guards.
struct Stripe {
    std::atomic<bool> taken{false};
    Walk* walks = nullptr; // the raisings in progress over the stripe's chains
};

constexpr std::size_t STRIPES = 64;
constexpr unsigned SPINS_BEFORE_YIELD = 64;

Stripe& stripeOf(const RelayChain* chain) noexcept {
    static std::array<Stripe, STRIPES> stripes;
    const auto address = reinterpret_cast<std::uintptr_t>(chain);
    return stripes[(address >> 4) % STRIPES];
}

class StripeLock final {
public:
    explicit StripeLock(Stripe& stripe) noexcept
        : stripe_(stripe) {
        if (noOtherThread()) {
            // No thread can hold or wait for it (see noOtherThread): a plain store takes it.
            stripe_.taken.store(true, std::memory_order_relaxed);
            return;
        }
        for (unsigned spins = 0; stripe_.taken.exchange(true, std::memory_order_acquire); ++spins) {
            if (spins >= SPINS_BEFORE_YIELD) {
                std::this_thread::yield();
            }
        }
    }
    ~StripeLock() { stripe_.taken.store(false, std::memory_order_release); }
    StripeLock(const StripeLock&) = delete;
    StripeLock& operator=(const StripeLock&) = delete;

private:
    Stripe& stripe_;
};

// Takes a walk off its stripe's list when the raising ends, also when a relay throws.
class WalkScope final {
public:
    WalkScope(Stripe& stripe, Walk& walk) noexcept
        : stripe_(stripe)
        , walk_(walk) {}
    ~WalkScope() {
        const StripeLock lock(stripe_);
        for (Walk** it = &stripe_.walks; *it != nullptr; it = &(*it)->outer) {
            if (*it == &walk_) {
                *it = walk_.outer;
                break;
            }
        }
    }
    WalkScope(const WalkScope&) = delete;
    WalkScope& operator=(const WalkScope&) = delete;

private:
    Stripe& stripe_;
    Walk& walk_;
};

void call(void* holder, const RelayThunks& thunks, const bool* locked) {
    if (locked != nullptr) {
        thunks.changedLock(holder, *locked);
    } else {
        thunks.definitionChanged(holder);
    }
}

} // namespace

RelayChain::~RelayChain() {
    // The usual end: every holder unlinked before letting go. A raising still walking an empty
    // chain has nothing left to call (unlinking keeps its next link linked or null), so there is
    // neither a link nor a walk to detach, and no lock to take.
    if (head_.load(std::memory_order_acquire) == nullptr) {
        return;
    }
    Stripe& stripe = stripeOf(this);
    const StripeLock lock(stripe);
    SubscriptionPair* const first = head_.load(std::memory_order_relaxed);
    for (SubscriptionPair* it = first; it != nullptr;) {
        SubscriptionPair* const following = it->next_ != first ? it->next_ : nullptr;
        it->chain_ = nullptr;
        it->next_ = nullptr;
        it->previous_ = nullptr;
        it = following;
    }
    head_.store(nullptr, std::memory_order_relaxed);
    for (Walk* walk = stripe.walks; walk != nullptr; walk = walk->outer) {
        if (walk->chain == this) {
            walk->next = nullptr;
        }
    }
}

void RelayChain::raise(const bool* locked) {
    Stripe& stripe = stripeOf(this);
    Walk walk{this, nullptr, nullptr, nullptr};
    void* holder = nullptr;
    const RelayThunks* thunks = nullptr;
    {
        const StripeLock lock(stripe);
        SubscriptionPair* const first = head_.load(std::memory_order_relaxed);
        if (first == nullptr) {
            return;
        }
        holder = first->holder_;
        thunks = first->thunks_;
        if (first->next_ == first) {
            // The only holder: nothing is left to track while it runs.
            walk.chain = nullptr;
        } else {
            walk.next = first->next_;
            walk.last = first->previous_;
            walk.outer = stripe.walks;
            stripe.walks = &walk;
        }
    }
    if (walk.chain == nullptr) {
        call(holder, *thunks, locked);
        return;
    }
    const WalkScope scope(stripe, walk);
    for (;;) {
        call(holder, *thunks, locked);
        const StripeLock lock(stripe);
        SubscriptionPair* const link = walk.next;
        if (link == nullptr) {
            return;
        }
        walk.next = link != walk.last ? link->next_ : nullptr;
        holder = link->holder_;
        thunks = link->thunks_;
    }
}

void SubscriptionPair::link(RelayChain& chain, void* holder, const RelayThunks& thunks) {
    const StripeLock lock(stripeOf(&chain));
    chain_ = &chain;
    holder_ = holder;
    thunks_ = &thunks;
    SubscriptionPair* const first = chain.head_.load(std::memory_order_relaxed);
    if (first == nullptr) {
        next_ = this;
        previous_ = this;
        chain.head_.store(this, std::memory_order_release);
        return;
    }
    SubscriptionPair* const lastLink = first->previous_;
    previous_ = lastLink;
    next_ = first;
    lastLink->next_ = this;
    first->previous_ = this;
}

void SubscriptionPair::unlink() noexcept {
    Stripe& stripe = stripeOf(chain_);
    const StripeLock lock(stripe);
    RelayChain& chain = *chain_;
    for (Walk* walk = stripe.walks; walk != nullptr; walk = walk->outer) {
        if (walk->chain != &chain) {
            continue;
        }
        if (walk->next == this) {
            walk->next = this != walk->last ? next_ : nullptr;
        } else if (walk->last == this) {
            walk->last = previous_;
        }
    }
    if (next_ == this) {
        chain.head_.store(nullptr, std::memory_order_release);
    } else {
        previous_->next_ = next_;
        next_->previous_ = previous_;
        if (chain.head_.load(std::memory_order_relaxed) == this) {
            chain.head_.store(next_, std::memory_order_release);
        }
    }
    chain_ = nullptr;
    next_ = nullptr;
    previous_ = nullptr;
}

} // namespace keo::Feature::detail
