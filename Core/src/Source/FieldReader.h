#pragma once

#include "Source/Field.h"

#include "Feature/Feature.h"

#include <ogrsf_frmts.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace keo::Source::detail {

/**
 * @brief The type tag of a field: integers (32 or 64 bits) Integer, booleans Boolean, reals Real,
 * dates, times and date-times their own tags, texts and every other type (lists, binary) String.
 */
AttributeType attributeTypeOf(const OGRFieldDefn& definition) noexcept;

/** @brief The fields of @p definition, in order, typed by attributeTypeOf. */
std::vector<Field> fieldsOf(const OGRFeatureDefn& definition);

/**
 * @brief Puts the fields of @p feature that it sets into @p attributes, under their names and
 * tags (@p fields, from fieldsOf): a null field as a null value; dates and times as ISO 8601 text;
 * lists and binary as GDAL writes them as text.
 */
void readAttributes(OGRFeature& feature, const std::vector<Field>& fields,
                    keo::Feature::Feature::AttributeMap& attributes);

/**
 * @brief The id of @p feature: the whole-number value of the field at @p idIndex (a number, or a
 * text that spells one) when the index is not negative, else the feature id; empty when there is
 * none.
 */
std::optional<std::int64_t> readId(OGRFeature& feature, int idIndex);

/** @brief The field at @p nameIndex as text; empty for a negative index, an unset or null value. */
std::string readName(OGRFeature& feature, int nameIndex);

} // namespace keo::Source::detail
