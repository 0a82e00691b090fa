#include "JsonWriter.h"

#include <charconv>
#include <cmath>
#include <cstdio>

namespace keo::scene {

std::string jsonQuote(std::string_view text) {
    std::string quoted = "\"";
    for (const char c : text) {
        switch (c) {
        case '"':
            quoted += "\\\"";
            break;
        case '\\':
            quoted += "\\\\";
            break;
        case '\n':
            quoted += "\\n";
            break;
        case '\r':
            quoted += "\\r";
            break;
        case '\t':
            quoted += "\\t";
            break;
        default:
            if (static_cast<unsigned char>(c) < 0x20) {
                char escaped[8];
                std::snprintf(escaped, sizeof escaped, "\\u%04x", static_cast<unsigned>(c));
                quoted += escaped;
            } else {
                quoted += c;
            }
        }
    }
    quoted += '"';
    return quoted;
}

void JsonWriter::newline() {
    text_ += '\n';
    text_.append(2 * hasItems_.size(), ' ');
}

void JsonWriter::beforeValue() {
    if (afterKey_) {
        afterKey_ = false;
        return;
    }
    if (!hasItems_.empty()) {
        if (hasItems_.back()) {
            text_ += ',';
        }
        hasItems_.back() = true;
        newline();
    }
}

void JsonWriter::beginObject() {
    beforeValue();
    text_ += '{';
    hasItems_.push_back(false);
}

void JsonWriter::beginArray() {
    beforeValue();
    text_ += '[';
    hasItems_.push_back(false);
}

void JsonWriter::close(char bracket) {
    const bool hadItems = hasItems_.back();
    hasItems_.pop_back();
    if (hadItems) {
        newline();
    }
    text_ += bracket;
    if (hasItems_.empty()) {
        text_ += '\n';
    }
}

void JsonWriter::endObject() {
    close('}');
}

void JsonWriter::endArray() {
    close(']');
}

void JsonWriter::key(std::string_view name) {
    beforeValue();
    text_ += jsonQuote(name);
    text_ += ": ";
    afterKey_ = true;
}

void JsonWriter::value(std::string_view text) {
    beforeValue();
    text_ += jsonQuote(text);
}

void JsonWriter::value(double number) {
    beforeValue();
    if (!std::isfinite(number)) {
        text_ += "null";
        return;
    }
    // Shortest round-trip form, independent of the locale.
    char digits[32];
    const auto result = std::to_chars(digits, digits + sizeof digits, number);
    text_.append(digits, result.ptr);
}

void JsonWriter::value(std::uint64_t number) {
    beforeValue();
    text_ += std::to_string(number);
}

void JsonWriter::value(bool flag) {
    beforeValue();
    text_ += flag ? "true" : "false";
}

void JsonWriter::rawValue(std::string_view json) {
    beforeValue();
    // Drop the final newline, then indent every following line by the current depth.
    while (!json.empty() && json.back() == '\n') {
        json.remove_suffix(1);
    }
    const std::string indent(2 * hasItems_.size(), ' ');
    for (const char c : json) {
        text_ += c;
        if (c == '\n') {
            text_ += indent;
        }
    }
}

} // namespace keo::scene
