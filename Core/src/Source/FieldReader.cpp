#include "FieldReader.h"

#include <any>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <string_view>
#include <system_error>

namespace keo::Source::detail {

namespace {

constexpr int TIME_ZONE_UTC = 100;
constexpr int MINUTES_PER_ZONE_STEP = 15;
constexpr int MINUTES_PER_HOUR = 60;
constexpr double INT64_LIMIT = 9.2233720368547758e18;

std::int32_t tagOf(AttributeType type) {
    return static_cast<std::int32_t>(type);
}

// Two digits of a clock value, with milliseconds when the seconds have a fraction.
std::string timeText(int hour, int minute, float second) {
    char text[32];
    const double seconds = static_cast<double>(second);
    if (seconds == std::floor(seconds)) {
        std::snprintf(text, sizeof text, "%02d:%02d:%02d", hour, minute, static_cast<int>(seconds));
    } else {
        std::snprintf(text, sizeof text, "%02d:%02d:%06.3f", hour, minute, seconds);
    }
    return text;
}

std::string zoneText(int zone) {
    if (zone == TIME_ZONE_UTC) {
        return "Z";
    }
    if (zone <= 1) {
        return {}; // unknown or local time
    }
    const int minutes = (zone - TIME_ZONE_UTC) * MINUTES_PER_ZONE_STEP;
    const int magnitude = minutes < 0 ? -minutes : minutes;
    char text[16];
    std::snprintf(text, sizeof text, "%c%02d:%02d", minutes < 0 ? '-' : '+',
                  magnitude / MINUTES_PER_HOUR, magnitude % MINUTES_PER_HOUR);
    return text;
}

std::string isoText(OGRFeature& feature, int index, AttributeType type) {
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, zone = 0;
    float second = 0.0f;
    feature.GetFieldAsDateTime(index, &year, &month, &day, &hour, &minute, &second, &zone);
    char date[32];
    std::snprintf(date, sizeof date, "%04d-%02d-%02d", year, month, day);
    if (type == AttributeType::Date) {
        return date;
    }
    if (type == AttributeType::Time) {
        return timeText(hour, minute, second);
    }
    return std::string(date) + "T" + timeText(hour, minute, second) + zoneText(zone);
}

std::any valueOf(OGRFeature& feature, int index, AttributeType type) {
    switch (type) {
    case AttributeType::Integer:
        return static_cast<std::int64_t>(feature.GetFieldAsInteger64(index));
    case AttributeType::Real:
        return feature.GetFieldAsDouble(index);
    case AttributeType::Boolean:
        return feature.GetFieldAsInteger(index) != 0;
    case AttributeType::Date:
    case AttributeType::Time:
    case AttributeType::DateTime:
        return isoText(feature, index, type);
    case AttributeType::String:
        break;
    }
    return std::string(feature.GetFieldAsString(index));
}

std::optional<std::int64_t> wholeNumber(OGRFeature& feature, int index) {
    const OGRFieldType type = feature.GetFieldDefnRef(index)->GetType();
    if (type == OFTInteger || type == OFTInteger64) {
        return static_cast<std::int64_t>(feature.GetFieldAsInteger64(index));
    }
    if (type == OFTReal) {
        const double value = feature.GetFieldAsDouble(index);
        if (std::floor(value) == value && std::fabs(value) < INT64_LIMIT) {
            return static_cast<std::int64_t>(value);
        }
        return std::nullopt;
    }
    const std::string_view text = feature.GetFieldAsString(index);
    std::int64_t value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec != std::errc() || result.ptr != text.data() + text.size()) {
        return std::nullopt;
    }
    return value;
}

} // namespace

AttributeType attributeTypeOf(const OGRFieldDefn& definition) noexcept {
    switch (definition.GetType()) {
    case OFTInteger:
    case OFTInteger64:
        return definition.GetSubType() == OFSTBoolean ? AttributeType::Boolean
                                                      : AttributeType::Integer;
    case OFTReal:
        return AttributeType::Real;
    case OFTDate:
        return AttributeType::Date;
    case OFTTime:
        return AttributeType::Time;
    case OFTDateTime:
        return AttributeType::DateTime;
    default:
        return AttributeType::String;
    }
}

std::vector<Field> fieldsOf(const OGRFeatureDefn& definition) {
    std::vector<Field> fields;
    for (int i = 0; i < definition.GetFieldCount(); ++i) {
        const OGRFieldDefn* field = definition.GetFieldDefn(i);
        fields.push_back({field->GetNameRef(), attributeTypeOf(*field)});
    }
    return fields;
}

void readAttributes(OGRFeature& feature, const std::vector<Field>& fields,
                    keo::Feature::Feature::AttributeMap& attributes) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const int index = static_cast<int>(i);
        if (!feature.IsFieldSet(index)) {
            continue;
        }
        const Field& field = fields[i];
        if (feature.IsFieldNull(index)) {
            attributes[field.name] = {tagOf(field.type), {}};
        } else {
            attributes[field.name] = {tagOf(field.type), valueOf(feature, index, field.type)};
        }
    }
}

std::optional<std::int64_t> readId(OGRFeature& feature, int idIndex) {
    if (idIndex < 0) {
        const GIntBig fid = feature.GetFID();
        return fid == OGRNullFID ? std::nullopt : std::optional<std::int64_t>(fid);
    }
    if (!feature.IsFieldSetAndNotNull(idIndex)) {
        return std::nullopt;
    }
    return wholeNumber(feature, idIndex);
}

std::string readName(OGRFeature& feature, int nameIndex) {
    if (nameIndex < 0 || !feature.IsFieldSetAndNotNull(nameIndex)) {
        return {};
    }
    return feature.GetFieldAsString(nameIndex);
}

} // namespace keo::Source::detail
