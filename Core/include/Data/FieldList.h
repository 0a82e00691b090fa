#pragma once

#include "Common/Color.h"
#include "Common/Vector2.h"
#include "Common/Vector3.h"
#include "Common/Vector4.h"
#include "Data/DataExport.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace keo {

/**
 * @brief An ordered list of named values, each already written as a JSON literal: what a
 * graphics component, a material property or an emitter tells a scene dump about itself.
 *
 * Numbers are written in their shortest form that reads back as the same value (NaN and
 * infinities, which JSON lacks, as the strings "NaN", "Infinity" and "-Infinity"); strings are
 * quoted and escaped (bytes that are not valid UTF-8 are written as \u00XX escapes of the byte
 * values); colours are CSS hex strings; vectors are arrays.
 */
class KEO_DATA_API FieldList final {
public:
    /**
     * @brief One entry: the name, the JSON literal of the value and, for an enumeration, the
     * name of its value (empty otherwise), which dumps write beside the number.
     */
    struct Entry {
        std::string name;
        std::string json;
        std::string word = std::string();

        /** @brief Entries are equal when their name, literal and value name are. */
        friend bool operator==(const Entry& a, const Entry& b) {
            return a.name == b.name && a.json == b.json && a.word == b.word;
        }
    };

    /** @brief Adds a boolean. */
    void add(std::string_view name, bool value);
    /** @brief Adds a signed integer. */
    void add(std::string_view name, std::int64_t value);
    /** @brief Adds an unsigned integer. */
    void add(std::string_view name, std::uint64_t value);
    /** @brief Adds an int (convenience for enumerations and codes). */
    void add(std::string_view name, int value) { add(name, static_cast<std::int64_t>(value)); }
    /** @brief Adds an unsigned int. */
    void add(std::string_view name, unsigned value) {
        add(name, static_cast<std::uint64_t>(value));
    }
    /** @brief Adds a double in its shortest exact form. */
    void add(std::string_view name, double value);
    /** @brief Adds a float in its shortest exact form (as a float, not widened to double). */
    void add(std::string_view name, float value);
    /** @brief Adds a text as a JSON string. */
    void add(std::string_view name, std::string_view value);
    /** @brief Adds a text as a JSON string. */
    void add(std::string_view name, const char* value) { add(name, std::string_view(value)); }
    /** @brief Adds a colour as its CSS hex text. */
    void add(std::string_view name, const Color& value);
    /** @brief Adds a vector as an array of two numbers. */
    void add(std::string_view name, const Vector2<float>& value);
    /** @brief Adds a vector as an array of two numbers. */
    void add(std::string_view name, const Vector2<double>& value);
    /** @brief Adds a vector as an array of three numbers. */
    void add(std::string_view name, const Vector3<double>& value);
    /** @brief Adds a vector as an array of four numbers. */
    void add(std::string_view name, const Vector4<float>& value);
    /**
     * @brief Adds an enumeration: its number @p value and the name @p word of that value (null
     * for a value without a name: then only the number).
     */
    void addEnum(std::string_view name, int value, const char* word);
    /** @brief Adds a JSON null (an absent optional value). */
    void addNull(std::string_view name);
    /** @brief Adds a value already written as a JSON literal (not checked). */
    void addJson(std::string_view name, std::string json);

    /** @brief The entries in the order they were added. */
    const std::vector<Entry>& entries() const noexcept { return entries_; }

    /** @brief The JSON literal of a double (shortest exact form; NaN and infinities as strings). */
    static std::string number(double value);
    /** @brief The JSON literal of a float (shortest exact form as a float). */
    static std::string number(float value);
    /** @brief The JSON string literal of a text (quoted and escaped). */
    static std::string quote(std::string_view text);

private:
    std::vector<Entry> entries_;
};

} // namespace keo
