#pragma once

#include <any>
#include <cstdint>

namespace keo::Feature {

/**
 * @brief The value of one feature attribute: a type tag chosen by the caller (this library never
 * interprets it) and the value itself. An empty value is a null attribute of the given type.
 */
struct AttributeValue {
    /** @brief The caller's type tag. */
    std::int32_t type = 0;
    /** @brief The value; empty for a null attribute. */
    std::any value;

    /** @brief Whether the attribute is null (holds no value). */
    bool isNull() const noexcept { return !value.has_value(); }
};

} // namespace keo::Feature
