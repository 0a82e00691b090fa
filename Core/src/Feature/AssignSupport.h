#pragma once

#include "FeatureLog.h"

#include <type_traits>

namespace keo::Feature {

class Material;

namespace detail {

/**
 * @brief Whether a family assigns its base part after the kind's own fields: materials do (their
 * breathing values come last); every other family assigns its base part first.
 */
template <typename Base>
inline constexpr bool ASSIGNS_BASE_LAST = std::is_same_v<Base, Material>;

/**
 * @brief The assign of every kind. @p other must be a @p Kind, checked by its dynamic type, so
 * that no other class claiming the kind's code is ever read as one; otherwise
 * "类型不同无法赋值！" is logged at @p site and nothing changes. Then the base part
 * (`Base::assign`) and copyFields(other as Kind), which copies the kind's own fields through its
 * setters, in the family's order (ASSIGNS_BASE_LAST).
 */
template <typename Kind, typename Base, typename CopyFields>
void assignKind(Kind& self, const Base& other, const SourceSite& site, CopyFields&& copyFields) {
    const auto* const source = dynamic_cast<const Kind*>(&other);
    if (!checkAssignKind(source != nullptr, site)) {
        return;
    }
    if constexpr (ASSIGNS_BASE_LAST<Base>) {
        copyFields(*source);
        self.Base::assign(other);
    } else {
        self.Base::assign(other);
        copyFields(*source);
    }
}

} // namespace detail

} // namespace keo::Feature
