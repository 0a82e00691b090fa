#include "FeatureLog.h"

#include "Common/Log.h"

namespace keo::Feature::detail {

namespace {

constexpr int WARNING_LEVEL = 3;

} // namespace

void logWarning(const LogSite& site, const std::string& message) noexcept {
    try {
        keo::Log::getInstance().log(SourceLocation{site.file, site.line, site.function},
                                    WARNING_LEVEL, message);
    } catch (...) {
        // Building the location ran out of memory: the record is lost, the caller goes on.
    }
}

bool checkAssignKind(bool sameKind, const LogSite& site) noexcept {
    if (!sameKind) {
        logWarning(site, "类型不同无法赋值！");
    }
    return sameKind;
}

} // namespace keo::Feature::detail
