#pragma once

#include "Common/Color.h"
#include "Feature/AttributeValue.h"
#include "Source/SourceExport.h"

#include <cstdint>
#include <string>
#include <utility>
#include <variant>

namespace keo::Source {

/**
 * @brief A value of the style language: null, a boolean, a number (double), a text (UTF-8) or a
 * colour.
 *
 * A plain value. Equality holds between values of the same type with equal contents (numbers
 * compare as doubles, so NaN equals nothing); values of different types are never equal.
 */
class KEO_SOURCE_API Value final {
public:
    /** @brief The types a value can have. */
    enum class Type : std::uint8_t { Null, Boolean, Number, String, Color };

    /** @brief Null. */
    Value() noexcept = default;
    /** @brief A boolean. */
    Value(bool value) noexcept
        : data_(value) {}
    /** @brief A number. */
    Value(double value) noexcept
        : data_(value) {}
    /** @brief A number. */
    Value(int value) noexcept
        : data_(static_cast<double>(value)) {}
    /** @brief A text. */
    Value(std::string value) noexcept
        : data_(std::move(value)) {}
    /** @brief A text (null @p value gives the empty text). */
    Value(const char* value)
        : data_(std::string(value != nullptr ? value : "")) {}
    /** @brief A colour. */
    Value(const keo::Color& value) noexcept
        : data_(value) {}

    /** @brief The type. */
    Type type() const noexcept { return static_cast<Type>(data_.index()); }
    /** @brief Whether the value is null. */
    bool isNull() const noexcept { return type() == Type::Null; }
    /** @brief The boolean; false for another type. */
    bool asBoolean() const noexcept;
    /** @brief The number; NaN for another type. */
    double asNumber() const noexcept;
    /** @brief The text; the empty text for another type. */
    const std::string& asString() const noexcept;
    /** @brief The colour; opaque white for another type. */
    const keo::Color& asColor() const noexcept;

    /**
     * @brief The value as text, as the language's `to-string` writes it: "" for null, "true" or
     * "false", a number in its shortest exact form (integers without a fraction, exponent form
     * below 1e-6 and from 1e21 on), a text as it is, a colour as "rgba(r,g,b,a)" with bytes 0..255
     * and alpha 0..1.
     */
    std::string toString() const;
    /** @brief The value for a message: texts quoted, others as toString (null as "null"). */
    std::string describe() const;
    /** @brief The lower-case name of @p type ("null", "boolean", "number", "string", "color"). */
    static const char* typeName(Type type) noexcept;

    /**
     * @brief The value of an attribute: a bool as a boolean; any standard integer, float or
     * double as a number (64-bit integers beyond 2^53 lose precision); std::string,
     * std::string_view and const char* as text; keo::Color as a colour; a null attribute, or a
     * value of any other C++ type, as null.
     */
    static Value fromAttribute(const keo::Feature::AttributeValue& attribute);

    /** @brief Same type and equal contents. */
    bool operator==(const Value& o) const noexcept { return data_ == o.data_; }
    /** @brief Negation of operator==. */
    bool operator!=(const Value& o) const noexcept { return !(data_ == o.data_); }

private:
    std::variant<std::monostate, bool, double, std::string, keo::Color> data_;
};

} // namespace keo::Source
