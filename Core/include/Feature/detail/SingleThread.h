#pragma once

// Not part of the API: how the kit's locks skip locked instructions while the process has a
// single thread. It may change without notice.

#if defined(__GLIBC__) && __has_include(<sys/single_threaded.h>)
#include <sys/single_threaded.h>
#define KEO_FEATURE_HAS_SINGLE_THREADED 1
#endif

namespace keo::Feature::detail {

/**
 * @brief Whether the process has never started a second thread (the C library keeps the flag;
 * false where it cannot tell). While it holds, no other thread can take a lock, so a lock may be
 * taken with a plain store instead of a locked read-modify-write: the store is still seen by a
 * thread started later (starting a thread publishes it), but it does not wait for the store
 * buffer to drain. Tearing down a million features takes millions of locks, and each locked
 * instruction would wait for every cache miss in flight.
 */
inline bool noOtherThread() noexcept {
#if defined(KEO_FEATURE_HAS_SINGLE_THREADED)
    return __libc_single_threaded != 0;
#else
    return false;
#endif
}

} // namespace keo::Feature::detail
