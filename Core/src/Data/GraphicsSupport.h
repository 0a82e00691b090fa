#pragma once

// Shared helpers of the graphics kinds, private to the library: the rules their setters apply to
// incoming values, and the JSON literals their describe() writes.

#include "Common/Color.h"
#include "Common/GlobeRectangle.h"
#include "Common/Matrix4.h"
#include "Common/Radian.h"
#include "Common/Vector2.h"
#include "Common/Vector3.h"
#include "Common/Vector4.h"
#include "Data/DistanceDisplayCondition.h"
#include "Data/FieldList.h"
#include "Data/Image.h"
#include "Data/ImageSource.h"
#include "Data/ParticleBurst.h"
#include "Data/PolygonHierarchy.h"
#include "Data/Resource.h"

#include <cmath>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

namespace keo::detail {

// ---- Setter rules -------------------------------------------------------------------------

inline bool isNan(double value) noexcept {
    return std::isnan(value);
}
inline bool isNan(float value) noexcept {
    return std::isnan(value);
}
inline bool isNan(Radian value) noexcept {
    return std::isnan(value.value());
}
template <typename T>
bool isNan(const Vector2<T>& v) noexcept {
    return isNan(v.x) || isNan(v.y);
}
template <typename T>
bool isNan(const Vector3<T>& v) noexcept {
    return isNan(v.x) || isNan(v.y) || isNan(v.z);
}
template <typename T>
bool isNan(const Vector4<T>& v) noexcept {
    return isNan(v.x) || isNan(v.y) || isNan(v.z) || isNan(v.w);
}

/** A signed quantity (an offset, an angle, a height): a value with a NaN is ignored. */
template <typename T>
void assignUnlessNan(T& target, const T& value) noexcept {
    if (!isNan(value)) {
        target = value;
    }
}

inline float clampNegative(float value) noexcept {
    return value < 0.0f ? 0.0f : value;
}
inline double clampNegative(double value) noexcept {
    return value < 0.0 ? 0.0 : value;
}

/**
 * A size, width, scale, count, speed or duration: a value with a NaN is ignored (the old value
 * stays), a negative value, or a negative component of a vector, becomes 0.
 */
template <typename T>
void assignNonNegative(T& target, T value) noexcept {
    if (!isNan(value)) {
        target = clampNegative(value);
    }
}
template <typename T>
void assignNonNegative(Vector2<T>& target, const Vector2<T>& value) noexcept {
    if (!isNan(value)) {
        target = {clampNegative(value.x), clampNegative(value.y)};
    }
}
template <typename T>
void assignNonNegative(Vector3<T>& target, const Vector3<T>& value) noexcept {
    if (!isNan(value)) {
        target = {clampNegative(value.x), clampNegative(value.y), clampNegative(value.z)};
    }
}
template <typename T>
void assignNonNegative(Vector4<T>& target, const Vector4<T>& value) noexcept {
    if (!isNan(value)) {
        target = {clampNegative(value.x), clampNegative(value.y), clampNegative(value.z),
                  clampNegative(value.w)};
    }
}
/** An optional size: empty is stored; a present value follows assignNonNegative. */
template <typename T>
void assignNonNegative(std::optional<T>& target, const std::optional<T>& value) noexcept {
    if (!value) {
        target.reset();
    } else if (!isNan(*value)) {
        target = clampNegative(*value);
    }
}

/** A value that must be strictly positive (a granularity): NaN, 0 and negatives are ignored. */
template <typename T>
void assignPositive(T& target, T value) noexcept {
    if (value > T(0)) {
        target = value;
    }
}

/** An enumeration: a value outside its named values is ignored. */
template <typename E>
void assignIfValid(E& target, E value) noexcept {
    if (isValid(value)) {
        target = value;
    }
}

// ---- JSON literals ------------------------------------------------------------------------

inline std::string toJson(bool value) {
    return value ? "true" : "false";
}
inline std::string toJson(double value) {
    return FieldList::number(value);
}
inline std::string toJson(float value) {
    return FieldList::number(value);
}
inline std::string toJson(Radian value) {
    return FieldList::number(value.value());
}
inline std::string toJson(std::string_view value) {
    return FieldList::quote(value);
}
inline std::string toJson(const std::string& value) {
    return FieldList::quote(value);
}
inline std::string toJson(const char* value) {
    return FieldList::quote(value);
}
inline std::string toJson(const Color& value) {
    return FieldList::quote(value.toCssHex());
}

template <typename E, std::enable_if_t<std::is_enum_v<E>, int> = 0>
std::string toJson(E value) {
    return std::to_string(static_cast<int>(value));
}

/** A JSON object of @p fields' entries, in order, on one line. */
inline std::string toJsonObject(const FieldList& fields) {
    std::string out = "{";
    for (const auto& entry : fields.entries()) {
        if (out.size() > 1) {
            out += ", ";
        }
        out += FieldList::quote(entry.name);
        out += ": ";
        out += entry.json;
    }
    out += '}';
    return out;
}

/**
 * A JSON object describing a polymorphic part (a material or an emitter): its class name as
 * "type", then the fields it writes itself; null for a null pointer.
 */
template <typename T>
std::string describeObject(const T* object) {
    if (object == nullptr) {
        return "null";
    }
    FieldList fields;
    fields.add("type", object->getTypeName());
    object->describe(fields);
    return toJsonObject(fields);
}

inline std::string toJson(const DistanceDisplayCondition& value) {
    return "{\"near\": " + toJson(value.getNear()) + ", \"far\": " + toJson(value.getFar()) + "}";
}
inline std::string toJson(const ParticleBurst& value) {
    return "{\"time\": " + toJson(value.getTime()) +
           ", \"minimum\": " + toJson(value.getMinimum()) +
           ", \"maximum\": " + toJson(value.getMaximum()) + "}";
}
inline std::string toJson(const std::shared_ptr<Image>& image) {
    if (!image) {
        return "null";
    }
    return "{\"width\": " + std::to_string(image->getWidth()) +
           ", \"height\": " + std::to_string(image->getHeight()) + "}";
}
inline std::string toJson(const ImageSource& image) {
    if (const auto* uri = std::get_if<std::string>(&image)) {
        return toJson(*uri);
    }
    if (const auto* decoded = std::get_if<std::shared_ptr<Image>>(&image)) {
        return toJson(*decoded);
    }
    return "null";
}
inline std::string toJson(const std::shared_ptr<Resource>& resource) {
    return resource ? toJson(resource->getUri()) : "null";
}
inline std::string toJson(const GlobeRectangle& value) {
    return "{\"west\": " + toJson(value.getWest()) + ", \"south\": " + toJson(value.getSouth()) +
           ", \"east\": " + toJson(value.getEast()) + ", \"north\": " + toJson(value.getNorth()) +
           "}";
}

template <typename T>
std::string toJson(const Vector2<T>& v);
template <typename T>
std::string toJson(const Vector3<T>& v);
template <typename T>
std::string toJson(const Vector4<T>& v);
template <typename T>
std::string toJson(const std::optional<T>& value);
template <typename T>
std::string toJson(const std::vector<T>& values);

/** A JSON array of the literals of @p count values taken from @p at(i). */
template <typename At>
std::string toJsonArray(std::size_t count, At at) {
    std::string out = "[";
    for (std::size_t i = 0; i < count; ++i) {
        if (i > 0) {
            out += ", ";
        }
        out += toJson(at(i));
    }
    out += ']';
    return out;
}

template <typename T>
std::string toJson(const Vector2<T>& v) {
    const T values[] = {v.x, v.y};
    return toJsonArray(2, [&](std::size_t i) { return values[i]; });
}
template <typename T>
std::string toJson(const Vector3<T>& v) {
    const T values[] = {v.x, v.y, v.z};
    return toJsonArray(3, [&](std::size_t i) { return values[i]; });
}
template <typename T>
std::string toJson(const Vector4<T>& v) {
    const T values[] = {v.x, v.y, v.z, v.w};
    return toJsonArray(4, [&](std::size_t i) { return values[i]; });
}
template <typename T>
std::string toJson(const std::optional<T>& value) {
    return value ? toJson(*value) : "null";
}
template <typename T>
std::string toJson(const std::vector<T>& values) {
    return toJsonArray(values.size(), [&](std::size_t i) -> const T& { return values[i]; });
}

inline std::string toJson(const Matrix4& value) {
    return toJsonArray(16, [&](std::size_t i) { return value.values()[i]; });
}
inline std::string toJson(const PolygonHierarchy& value) {
    std::string out = "{\"positions\": " + toJson(value.positions) + ", \"holes\": [";
    for (std::size_t i = 0; i < value.holes.size(); ++i) {
        out += i > 0 ? ", " : "";
        out += toJson(value.holes[i]);
    }
    return out + "]}";
}

template <typename T>
struct IsOptionalEnum : std::false_type {};
template <typename E>
struct IsOptionalEnum<std::optional<E>> : std::is_enum<E> {};

/**
 * Adds @p value under @p name: an enumeration (or an optional one) as its number with the name
 * of its value, anything else as its JSON literal.
 */
template <typename T>
void addField(FieldList& fields, std::string_view name, const T& value) {
    if constexpr (std::is_enum_v<T>) {
        fields.addEnum(name, static_cast<int>(value), toString(value));
    } else if constexpr (IsOptionalEnum<T>::value) {
        if (value) {
            fields.addEnum(name, static_cast<int>(*value), toString(*value));
        } else {
            fields.addNull(name);
        }
    } else {
        fields.addJson(name, toJson(value));
    }
}

} // namespace keo::detail
