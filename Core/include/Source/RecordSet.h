#pragma once

#include "Source/Field.h"
#include "Source/Record.h"

#include <vector>

namespace keo::Source {

/** @brief What a reader gives: the layer's fields in source order and its records in order. */
struct RecordSet final {
    /** @brief The attribute columns, in source order (a computed area field comes last). */
    std::vector<Field> fields;
    /** @brief The records, in source order. */
    std::vector<Record> records;
};

} // namespace keo::Source
