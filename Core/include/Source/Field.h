#pragma once

#include "Source/AttributeType.h"

#include <string>

namespace keo::Source {

/** @brief One attribute column of a layer: its name (UTF-8) and the type of its values. */
struct Field final {
    /** @brief The name, as the source spells it. */
    std::string name;
    /** @brief The type tag its values carry. */
    AttributeType type = AttributeType::String;

    /** @brief Equality of name and type. */
    bool operator==(const Field& o) const { return name == o.name && type == o.type; }
    /** @brief Negation of operator==. */
    bool operator!=(const Field& o) const { return !(*this == o); }
};

} // namespace keo::Source
