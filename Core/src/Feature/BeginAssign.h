#pragma once

#include "FeatureLog.h"

namespace keo::Feature::detail {

/**
 * @brief The common start of a kind's assign: the kind check (a mismatch logs
 * "类型不同无法赋值！" at @p site and gives null, and the caller changes nothing), then the base's
 * assign; gives @p other as the caller's own kind.
 */
template <typename Kind, typename Base>
const Kind* beginAssign(Kind& self, const Base& other, const LogSite& site) {
    if (!checkAssignKind(other.getType() == self.getType(), site)) {
        return nullptr;
    }
    self.Base::assign(other);
    return static_cast<const Kind*>(&other);
}

} // namespace keo::Feature::detail
