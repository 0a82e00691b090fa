#pragma once

#include <cstdint>

namespace keo::Source {

/**
 * @brief The type tags that this library puts in keo::Feature::AttributeValue::type, with the
 * C++ type each one holds in the value.
 *
 * A null attribute keeps the tag of its field and holds no value.
 */
enum class AttributeType : std::int32_t {
    Integer = 1,  ///< std::int64_t
    Real = 2,     ///< double
    String = 3,   ///< std::string, UTF-8
    Boolean = 4,  ///< bool
    Date = 5,     ///< std::string, ISO 8601 "YYYY-MM-DD"
    Time = 6,     ///< std::string, ISO 8601 "hh:mm:ss" or "hh:mm:ss.sss"
    DateTime = 7, ///< std::string, ISO 8601 date and time, with the zone when the source has one
};

} // namespace keo::Source
