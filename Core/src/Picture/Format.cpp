#include "Picture/Format.h"

#include <cctype>
#include <string>

namespace keo::Picture {

std::optional<Format> formatFromPath(std::string_view path) noexcept {
    const std::size_t dot = path.rfind('.');
    const std::size_t slash = path.rfind('/');
    if (dot == std::string_view::npos || (slash != std::string_view::npos && dot < slash)) {
        return std::nullopt;
    }
    const std::string_view extension = path.substr(dot + 1);
    const auto is = [extension](std::string_view name) {
        if (extension.size() != name.size()) {
            return false;
        }
        for (std::size_t i = 0; i < name.size(); ++i) {
            if (std::tolower(static_cast<unsigned char>(extension[i])) != name[i]) {
                return false;
            }
        }
        return true;
    };
    if (is("png")) {
        return Format::Png;
    }
    if (is("svg")) {
        return Format::Svg;
    }
    if (is("pdf")) {
        return Format::Pdf;
    }
    return std::nullopt;
}

const char* formatName(Format format) noexcept {
    switch (format) {
    case Format::Png:
        return "png";
    case Format::Svg:
        return "svg";
    case Format::Pdf:
        return "pdf";
    }
    return "unknown";
}

} // namespace keo::Picture
