#include "Data/FieldList.h"

#include <charconv>
#include <cmath>
#include <cstdio>

namespace keo {

namespace {

template <typename T>
std::string shortest(T value) {
    if (std::isnan(value)) {
        return "\"NaN\"";
    }
    if (std::isinf(value)) {
        return value > 0 ? "\"Infinity\"" : "\"-Infinity\"";
    }
    char buffer[64];
    // to_chars without a format gives the shortest text that reads back as the same value.
    const auto result = std::to_chars(buffer, buffer + sizeof(buffer), value);
    return std::string(buffer, result.ptr);
}

// Length of the valid UTF-8 sequence starting at text[i], or 0 if the bytes there are not one.
std::size_t utf8SequenceLength(std::string_view text, std::size_t i) noexcept {
    const auto byte = [&](std::size_t k) { return static_cast<unsigned char>(text[k]); };
    const unsigned char lead = byte(i);
    std::size_t length = 0;
    unsigned minimum = 0;
    unsigned code = 0;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2, minimum = 0x80, code = lead & 0x1Fu;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3, minimum = 0x800, code = lead & 0x0Fu;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4, minimum = 0x10000, code = lead & 0x07u;
    } else {
        return 0;
    }
    if (i + length > text.size()) {
        return 0;
    }
    for (std::size_t k = 1; k < length; ++k) {
        if ((byte(i + k) & 0xC0u) != 0x80u) {
            return 0;
        }
        code = (code << 6) | (byte(i + k) & 0x3Fu);
    }
    // Overlong forms, surrogates and code points past U+10FFFF are not valid UTF-8.
    if (code < minimum || (code >= 0xD800 && code <= 0xDFFF) || code > 0x10FFFF) {
        return 0;
    }
    return length;
}

} // namespace

std::string FieldList::number(double value) {
    return shortest(value);
}

std::string FieldList::number(float value) {
    return shortest(value);
}

std::string FieldList::quote(std::string_view text) {
    std::string out = "\"";
    for (std::size_t i = 0; i < text.size();) {
        const auto c = static_cast<unsigned char>(text[i]);
        if (c >= 0x80) {
            const std::size_t length = utf8SequenceLength(text, i);
            if (length > 0) {
                out.append(text.substr(i, length));
                i += length;
                continue;
            }
        }
        switch (c) {
        case '"':
            out += "\\\"";
            break;
        case '\\':
            out += "\\\\";
            break;
        case '\n':
            out += "\\n";
            break;
        case '\r':
            out += "\\r";
            break;
        case '\t':
            out += "\\t";
            break;
        default:
            if (c < 0x20 || c >= 0x80) {
                char escape[8];
                std::snprintf(escape, sizeof(escape), "\\u%04x", static_cast<unsigned>(c));
                out += escape;
            } else {
                out += static_cast<char>(c);
            }
        }
        ++i;
    }
    out += '"';
    return out;
}

void FieldList::add(std::string_view name, bool value) {
    addJson(name, value ? "true" : "false");
}

void FieldList::add(std::string_view name, std::int64_t value) {
    addJson(name, std::to_string(value));
}

void FieldList::add(std::string_view name, std::uint64_t value) {
    addJson(name, std::to_string(value));
}

void FieldList::add(std::string_view name, double value) {
    addJson(name, number(value));
}

void FieldList::add(std::string_view name, float value) {
    addJson(name, number(value));
}

void FieldList::add(std::string_view name, std::string_view value) {
    addJson(name, quote(value));
}

void FieldList::add(std::string_view name, const Color& value) {
    addJson(name, quote(value.toCssHex()));
}

void FieldList::add(std::string_view name, const Vector2<float>& value) {
    addJson(name, "[" + number(value.x) + ", " + number(value.y) + "]");
}

void FieldList::add(std::string_view name, const Vector2<double>& value) {
    addJson(name, "[" + number(value.x) + ", " + number(value.y) + "]");
}

void FieldList::add(std::string_view name, const Vector3<double>& value) {
    addJson(name, "[" + number(value.x) + ", " + number(value.y) + ", " + number(value.z) + "]");
}

void FieldList::add(std::string_view name, const Vector4<float>& value) {
    addJson(name, "[" + number(value.x) + ", " + number(value.y) + ", " + number(value.z) + ", " +
                      number(value.w) + "]");
}

void FieldList::addNull(std::string_view name) {
    addJson(name, "null");
}

void FieldList::addEnum(std::string_view name, int value, const char* word) {
    entries_.push_back(
        Entry{std::string(name), std::to_string(value), word != nullptr ? word : std::string()});
}

void FieldList::addJson(std::string_view name, std::string json) {
    entries_.push_back(Entry{std::string(name), std::move(json), std::string()});
}

} // namespace keo
