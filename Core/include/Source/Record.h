#pragma once

#include "Feature/Feature.h"
#include "Source/RecordGeometry.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace keo::Source {

/**
 * @brief One source feature read and checked, before it becomes a keo::Feature::Feature: its
 * position in the layer, id, name, geometry and attributes.
 *
 * A geometry collection that mixes kinds gives one record per kind, each with the same index, id,
 * name and attributes.
 */
struct Record final {
    /** @brief The 0-based position of the source feature in its layer. */
    std::size_t index = 0;
    /** @brief The id: the named id field's integer value, else the source's feature id; empty when
     * the source gives none. */
    std::optional<std::int64_t> id;
    /** @brief The named name field's value as text; empty without one. */
    std::string name;
    /** @brief The geometry, in WGS84. */
    RecordGeometry geometry;
    /**
     * @brief The attributes present on this feature, typed by AttributeType tags; a null value
     * is a null attribute, a field the feature does not set is absent.
     */
    keo::Feature::Feature::AttributeMap attributes;
};

} // namespace keo::Source
