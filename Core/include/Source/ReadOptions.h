#pragma once

#include <string>

namespace keo::Source {

/** @brief What to read from a vector source, and how strictly. */
struct ReadOptions final {
    /** @brief The layer to read; empty: the first layer. */
    std::string layer;
    /**
     * @brief The field whose integer value is a record's id; empty: the source's feature id. A
     * value that is null, or not a whole number, gives no id.
     */
    std::string idField;
    /** @brief The field whose value, as text, is a record's name; empty: no name. */
    std::string nameField;
    /**
     * @brief The name of a real field to add to every record: a polygon's area on the Earth in
     * square kilometres (null for other kinds); empty: none. It replaces a source field of the
     * same name.
     */
    std::string areaField;
    /** @brief Whether the first problem (a geometry part dropped or skipped) stops the read. */
    bool strict = false;
};

} // namespace keo::Source
