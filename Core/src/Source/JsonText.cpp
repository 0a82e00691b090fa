#include "JsonText.h"

#include <cstddef>

namespace keo::Source::detail {

namespace {

// The line and column (both from 1) of the byte at offset in text.
std::string position(std::string_view text, std::size_t offset) {
    std::size_t line = 1;
    std::size_t column = 1;
    for (std::size_t i = 0; i < offset && i < text.size(); ++i) {
        if (text[i] == '\n') {
            ++line;
            column = 1;
        } else {
            ++column;
        }
    }
    return "line " + std::to_string(line) + ", column " + std::to_string(column);
}

// The parser's own words after its "parse error at line L, column C: " prefix.
std::string reason(const std::string& what) {
    const std::size_t column = what.find("column ");
    const std::size_t colon = what.find(": ", column == std::string::npos ? 0 : column);
    return colon == std::string::npos ? what : what.substr(colon + 2);
}

} // namespace

bool parseJson(std::string_view text, nlohmann::json& document, std::string& error) {
    try {
        document = nlohmann::json::parse(text.begin(), text.end());
        return true;
    } catch (const nlohmann::json::parse_error& e) {
        // e.byte counts from 1 and points at the byte where parsing stopped.
        error = position(text, e.byte > 0 ? e.byte - 1 : 0) + ": " + reason(e.what());
    } catch (const nlohmann::json::exception& e) {
        error = reason(e.what());
    }
    return false;
}

bool parseJson(std::string_view text, const char* what, nlohmann::json& document,
               LoadReport& report) {
    std::string error;
    if (parseJson(text, document, error)) {
        return true;
    }
    report.fail(LoadReport::Issue::StyleSyntax,
                std::string(what) + ": JSON does not parse at " + error);
    return false;
}

} // namespace keo::Source::detail
