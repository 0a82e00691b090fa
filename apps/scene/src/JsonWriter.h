#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace keo::scene {

/**
 * @brief Builds a JSON text with two spaces per level, one member or element per line.
 *
 * Calls must nest properly (every begin has its end; inside an object every value is preceded by
 * key()); the writer does not check this. Strings are escaped as JSON requires (quote, backslash
 * and control characters; other UTF-8 bytes pass through). Numbers are written in their shortest
 * form that reads back as the same double; NaN and infinities, which JSON cannot hold, as null.
 */
class JsonWriter final {
public:
    /** @brief Opens an object, as a value. */
    void beginObject();
    /** @brief Closes the innermost object. */
    void endObject();
    /** @brief Opens an array, as a value. */
    void beginArray();
    /** @brief Closes the innermost array. */
    void endArray();
    /** @brief The name of the next member of the innermost object. */
    void key(std::string_view name);
    /** @brief A string value. */
    void value(std::string_view text);
    /** @brief A string value (keeps string literals away from the bool overload). */
    void value(const char* text) { value(std::string_view(text)); }
    /** @brief A number value. */
    void value(double number);
    /** @brief An unsigned integer value, written exactly. */
    void value(std::uint64_t number);
    /** @brief A boolean value. */
    void value(bool flag);
    /**
     * @brief A value that is already JSON text, laid out with two spaces per level from column 0
     * (as keo::SceneDump::toJson writes it); it is re-indented to sit at the current level.
     */
    void rawValue(std::string_view json);
    /** @brief The text written so far, with a final newline once the outermost value is closed. */
    const std::string& text() const noexcept { return text_; }

private:
    void beforeValue();
    void newline();
    void close(char bracket);

    std::string text_;
    // For each open object or array: whether it has a member or element yet.
    std::vector<bool> hasItems_;
    bool afterKey_ = false;
};

/** @brief @p text as a quoted, escaped JSON string. */
std::string jsonQuote(std::string_view text);

} // namespace keo::scene
