#pragma once

#include "FeatureLog.h"

#include <cstdio>
#include <cstdlib>
#include <string>

#if defined(__GLIBC__)
// The C library's own assertion report. <assert.h> declares it only while NDEBUG is undefined;
// these checks stay active in every build type, so it is declared here as the C library does.
extern "C" void __assert_fail(const char* assertion, const char* file, unsigned int line,
                              const char* function) noexcept __attribute__((__noreturn__));
#endif

namespace keo::Feature::detail {

/**
 * @brief Stops the process with the platform's standard assertion report: "<program>: <file>:
 * <line>: <function>: Assertion `<expression>' failed." on standard error, then abort().
 */
[[noreturn]] inline void failCheck(const char* expression, const SourceSite& site,
                                   const char* function) noexcept {
    // The site's path is a view: it is copied to be handed on as a terminated string.
    const std::string file(site.file);
    const auto line = static_cast<unsigned int>(site.line);
#if defined(__GLIBC__)
    __assert_fail(expression, file.c_str(), line, function);
#else
    std::fprintf(stderr, "%s:%u: %s: Assertion `%s' failed.\n", file.c_str(), line, function,
                 expression);
    std::abort();
#endif
}

} // namespace keo::Feature::detail

/**
 * @brief A parameter check that stops the process when @p expression is false, in every build
 * type (unlike assert, NDEBUG does not turn it off). The report carries the expression as written
 * at the call, the file and line of @p site (a fixed site of FixedSites.h, which stays put however
 * the code around it moves, rather than __FILE__ and __LINE__) and the enclosing function.
 */
#define KEO_FEATURE_CHECK(expression, site)                                                        \
    (static_cast<bool>(expression)                                                                 \
         ? static_cast<void>(0)                                                                    \
         : ::keo::Feature::detail::failCheck(#expression, site, __PRETTY_FUNCTION__))
