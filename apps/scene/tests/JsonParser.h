#pragma once

// A small JSON reader for the tests: enough of the grammar to read the program's report back
// (objects, arrays, strings with the escapes the writer uses, numbers, true, false, null).

#include <cstddef>
#include <cstdlib>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace keo::scene::test {

/** A parsed JSON value. Object members keep their last value per key. */
struct JsonValue {
    enum class Kind { Null, Bool, Number, String, Array, Object };
    Kind kind = Kind::Null;
    bool boolean = false;
    double number = 0.0;
    std::string string;
    std::vector<JsonValue> array;
    std::map<std::string, JsonValue> object;

    /** The member @p key of an object; throws when absent or not an object. */
    const JsonValue& operator[](const std::string& key) const {
        if (kind != Kind::Object || object.count(key) == 0) {
            throw std::runtime_error("no member '" + key + "'");
        }
        return object.at(key);
    }
};

/** Parses @p text as one JSON value; throws std::runtime_error on malformed input. */
class JsonParser {
public:
    static JsonValue parse(const std::string& text) {
        JsonParser parser(text);
        JsonValue value = parser.parseValue();
        parser.skipSpace();
        if (parser.at_ != text.size()) {
            throw std::runtime_error("text after the value");
        }
        return value;
    }

private:
    explicit JsonParser(const std::string& text)
        : text_(text) {}

    void skipSpace() {
        while (at_ < text_.size() && (text_[at_] == ' ' || text_[at_] == '\n' ||
                                      text_[at_] == '\r' || text_[at_] == '\t')) {
            ++at_;
        }
    }

    char peek() {
        skipSpace();
        if (at_ >= text_.size()) {
            throw std::runtime_error("unexpected end");
        }
        return text_[at_];
    }

    void expect(char c) {
        if (peek() != c) {
            throw std::runtime_error(std::string("expected '") + c + "' at " + std::to_string(at_));
        }
        ++at_;
    }

    bool consumeWord(const char* word) {
        const std::string w(word);
        if (text_.compare(at_, w.size(), w) == 0) {
            at_ += w.size();
            return true;
        }
        return false;
    }

    JsonValue parseValue() {
        JsonValue value;
        const char c = peek();
        if (c == '{') {
            value.kind = JsonValue::Kind::Object;
            ++at_;
            if (peek() == '}') {
                ++at_;
                return value;
            }
            do {
                const std::string key = parseString();
                expect(':');
                value.object[key] = parseValue();
            } while (peek() == ',' && ++at_ != 0);
            expect('}');
        } else if (c == '[') {
            value.kind = JsonValue::Kind::Array;
            ++at_;
            if (peek() == ']') {
                ++at_;
                return value;
            }
            do {
                value.array.push_back(parseValue());
            } while (peek() == ',' && ++at_ != 0);
            expect(']');
        } else if (c == '"') {
            value.kind = JsonValue::Kind::String;
            value.string = parseString();
        } else if (consumeWord("true") || consumeWord("false")) {
            value.kind = JsonValue::Kind::Bool;
            value.boolean = text_[at_ - 1] == 'e' && text_[at_ - 2] == 'u';
        } else if (consumeWord("null")) {
            value.kind = JsonValue::Kind::Null;
        } else {
            value.kind = JsonValue::Kind::Number;
            const char* begin = text_.c_str() + at_;
            char* end = nullptr;
            value.number = std::strtod(begin, &end);
            if (end == begin) {
                throw std::runtime_error("bad value at " + std::to_string(at_));
            }
            at_ += static_cast<std::size_t>(end - begin);
        }
        return value;
    }

    std::string parseString() {
        expect('"');
        std::string result;
        while (at_ < text_.size() && text_[at_] != '"') {
            char c = text_[at_++];
            if (c == '\\') {
                const char e = text_.at(at_++);
                switch (e) {
                case 'n':
                    c = '\n';
                    break;
                case 't':
                    c = '\t';
                    break;
                case 'r':
                    c = '\r';
                    break;
                case 'u':
                    c = static_cast<char>(std::stoi(text_.substr(at_, 4), nullptr, 16));
                    at_ += 4;
                    break;
                default:
                    c = e;
                }
            }
            result += c;
        }
        expect('"');
        return result;
    }

    const std::string& text_;
    std::size_t at_ = 0;
};

} // namespace keo::scene::test
