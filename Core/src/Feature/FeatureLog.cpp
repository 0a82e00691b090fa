#include "FeatureLog.h"

#include "Common/Log.h"
#include "Common/LogLevel.h"

namespace keo::Feature::detail {

void logWarning(const SourceSite& site, const std::string& message) noexcept {
    try {
        keo::Log::getInstance().log(
            SourceLocation{std::string(site.file), site.line, std::string(site.function)},
            LogLevel::Warning, message);
    } catch (...) {
        // Building the location ran out of memory: the record is lost, the caller goes on.
    }
}

bool checkAssignKind(bool sameKind, const SourceSite& site) noexcept {
    if (!sameKind) {
        logWarning(site, "类型不同无法赋值！");
    }
    return sameKind;
}

} // namespace keo::Feature::detail
