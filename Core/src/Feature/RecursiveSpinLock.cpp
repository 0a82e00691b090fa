#include "Feature/detail/RecursiveSpinLock.h"

namespace keo::Feature::detail {

std::uint32_t RecursiveSpinLock::currentThreadToken() noexcept {
    static std::atomic<std::uint32_t> next{1};
    // Drawn once per thread. 0 means "no holder", so it is skipped when the count wraps (after
    // four billion threads; the threads holding the low numbers are long gone by then).
    thread_local const std::uint32_t token = [] {
        std::uint32_t drawn = next.fetch_add(1, std::memory_order_relaxed);
        while (drawn == NO_THREAD) {
            drawn = next.fetch_add(1, std::memory_order_relaxed);
        }
        return drawn;
    }();
    return token;
}

} // namespace keo::Feature::detail
