#pragma once

#include <string>
#include <string_view>

namespace keo::Feature::detail {

/**
 * @brief Where a record, report or exception of the feature module comes from: the source path
 * without extension, rooted at the project (for example "Core/src/Feature/PolylineGeometry"),
 * the line, and the qualified function name.
 */
struct SourceSite {
    std::string_view file;
    int line = 0;
    std::string_view function;
};

/**
 * @brief @p file (a compiler's __FILE__) as the kit's records name a source: from its last
 * "Core/" on, without the extension. A path without "Core/" is kept whole, less its extension.
 */
constexpr std::string_view sourcePath(std::string_view file) noexcept {
    const std::size_t root = file.rfind("Core/");
    if (root != std::string_view::npos) {
        file.remove_prefix(root);
    }
    const std::size_t dot = file.rfind('.');
    const std::size_t slash = file.rfind('/');
    if (dot != std::string_view::npos && (slash == std::string_view::npos || dot > slash)) {
        file.remove_suffix(file.size() - dot);
    }
    return file;
}

/** @brief Logs @p message at level 3 (warning) through the process log, with @p site. */
void logWarning(const SourceSite& site, const std::string& message) noexcept;

/**
 * @brief The kind check of every assign: true when @p sameKind; otherwise logs
 * "类型不同无法赋值！" at level 3 with @p site and returns false (the caller then changes nothing).
 */
bool checkAssignKind(bool sameKind, const SourceSite& site) noexcept;

} // namespace keo::Feature::detail

/**
 * @brief The site of the line where it is written, in the function @p function of the namespace
 * keo::Feature (a string literal such as "PolylineGeometry::getSpacePoint"). Sites whose line the
 * kit's records must keep whatever the code around them does are named in FixedSites.h instead.
 */
#define KEO_FEATURE_SITE(function)                                                                 \
    (::keo::Feature::detail::SourceSite{::keo::Feature::detail::sourcePath(__FILE__), __LINE__,    \
                                        "keo::Feature::" function})
