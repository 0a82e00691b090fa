#include "ColorText.h"

#include "NumberText.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace keo::Source::detail {

namespace {

constexpr float BYTE_MAX = 255.0f;

struct NamedColor {
    const char* name;
    std::uint32_t rgb;
};

// The seventeen colour names of CSS 2.1.
constexpr std::array<NamedColor, 17> NAMED_COLORS{{
    {"black", 0x000000},
    {"silver", 0xc0c0c0},
    {"gray", 0x808080},
    {"white", 0xffffff},
    {"maroon", 0x800000},
    {"red", 0xff0000},
    {"purple", 0x800080},
    {"fuchsia", 0xff00ff},
    {"green", 0x008000},
    {"lime", 0x00ff00},
    {"olive", 0x808000},
    {"yellow", 0xffff00},
    {"navy", 0x000080},
    {"blue", 0x0000ff},
    {"teal", 0x008080},
    {"aqua", 0x00ffff},
    {"orange", 0xffa500},
}};

std::string lowerCase(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return lower;
}

std::optional<keo::Color> namedColor(const std::string& name) {
    if (name == "transparent") {
        return keo::Color::TRANSPARENT;
    }
    for (const NamedColor& named : NAMED_COLORS) {
        if (name == named.name) {
            return keo::Color::fromBytes(static_cast<std::uint8_t>(named.rgb >> 16),
                                         static_cast<std::uint8_t>(named.rgb >> 8),
                                         static_cast<std::uint8_t>(named.rgb));
        }
    }
    return std::nullopt;
}

// The comma-separated numbers between the parentheses of "name(...)"; empty on any other form.
std::optional<std::vector<double>> functionArguments(const std::string& text,
                                                     const std::string& name) {
    if (text.size() < name.size() + 2 || text.compare(0, name.size() + 1, name + "(") != 0 ||
        text.back() != ')') {
        return std::nullopt;
    }
    std::vector<double> numbers;
    std::size_t start = name.size() + 1;
    while (start < text.size()) {
        const std::size_t end = text.find_first_of(",)", start);
        if (text[end] == ')' && end + 1 != text.size()) {
            return std::nullopt;
        }
        const auto number = parseNumber(std::string_view(text).substr(start, end - start));
        if (!number || !std::isfinite(*number)) {
            return std::nullopt;
        }
        numbers.push_back(*number);
        start = end + 1;
    }
    return numbers;
}

std::optional<keo::Color> functionalColor(const std::string& text) {
    auto numbers = functionArguments(text, "rgb");
    const bool alpha = !numbers;
    if (alpha) {
        numbers = functionArguments(text, "rgba");
    }
    if (!numbers || numbers->size() != (alpha ? 4U : 3U)) {
        return std::nullopt;
    }
    for (std::size_t i = 0; i < 3; ++i) {
        if ((*numbers)[i] < 0.0 || (*numbers)[i] > 255.0) {
            return std::nullopt;
        }
    }
    const double a = alpha ? (*numbers)[3] : 1.0;
    if (a < 0.0 || a > 1.0) {
        return std::nullopt;
    }
    return keo::Color(static_cast<float>((*numbers)[0]) / BYTE_MAX,
                      static_cast<float>((*numbers)[1]) / BYTE_MAX,
                      static_cast<float>((*numbers)[2]) / BYTE_MAX, static_cast<float>(a));
}

int toByte(float component) {
    const float clamped = std::isnan(component) ? 0.0f : std::clamp(component, 0.0f, 1.0f);
    return static_cast<int>(std::lround(clamped * BYTE_MAX));
}

} // namespace

std::optional<keo::Color> parseColor(std::string_view text) {
    if (!text.empty() && text.front() == '#') {
        return keo::Color::fromCssHex(text);
    }
    std::string lower = lowerCase(text);
    lower.erase(std::remove_if(lower.begin(), lower.end(),
                               [](unsigned char c) { return std::isspace(c) != 0; }),
                lower.end());
    if (auto named = namedColor(lower)) {
        return named;
    }
    return functionalColor(lower);
}

std::string colorText(const keo::Color& color) {
    return "rgba(" + std::to_string(toByte(color.r)) + "," + std::to_string(toByte(color.g)) + "," +
           std::to_string(toByte(color.b)) + "," + shortestFloatText(color.a) + ")";
}

} // namespace keo::Source::detail
