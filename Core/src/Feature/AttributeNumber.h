#pragma once

#include <any>
#include <cstdint>
#include <optional>

namespace keo::Feature::detail {

/**
 * @brief The number an attribute value holds: a floating or integer value as a double; empty for
 * a null value and for every other type (text, bool, ...).
 */
inline std::optional<double> attributeNumber(const std::any& value) {
    std::optional<double> number;
    const auto take = [&value, &number](auto typed) {
        using T = decltype(typed);
        if (!number && value.type() == typeid(T)) {
            number = static_cast<double>(std::any_cast<T>(value));
        }
    };
    take(double());
    take(float());
    take(int());
    take(long());
    take(static_cast<long long>(0));
    take(static_cast<unsigned>(0));
    take(static_cast<unsigned long>(0));
    take(static_cast<unsigned long long>(0));
    take(static_cast<short>(0));
    take(static_cast<unsigned short>(0));
    take(static_cast<std::int8_t>(0));
    take(static_cast<std::uint8_t>(0));
    return number;
}

} // namespace keo::Feature::detail
