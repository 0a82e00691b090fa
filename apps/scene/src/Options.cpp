#include "Options.h"

#include "Picture/Format.h"
#include "Picture/Options.h"

#include <utility>

namespace keo::scene {

namespace {

// A whole number in [1, max] written as plain decimal digits (no sign, no spaces, no exponent).
// Digits are accumulated with an early stop so that long inputs cannot overflow.
std::optional<std::uint32_t> parseCount(const std::string& text, std::uint32_t max) {
    if (text.empty() || text.size() > 10) {
        return std::nullopt;
    }
    std::uint64_t value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') {
            return std::nullopt;
        }
        value = value * 10 + static_cast<std::uint64_t>(c - '0');
    }
    if (value < 1 || value > max) {
        return std::nullopt;
    }
    return static_cast<std::uint32_t>(value);
}

std::string countError(const std::string& option, const std::string& value, std::uint32_t max) {
    return "option '" + option + "' needs a whole number from 1 to " + std::to_string(max) +
           ", got '" + value + "'";
}

ParseResult failure(std::string error) {
    return ParseResult{std::nullopt, std::move(error)};
}

bool isFlagOption(const std::string& name) {
    return name == "--quiet" || name == "--verify" || name == "--help";
}

bool isValueOption(const std::string& name) {
    for (const char* known : {"--frames", "--features", "--json", "--picture", "--view", "--size",
                              "--picture-every", "--data", "--layer", "--style"}) {
        if (name == known) {
            return true;
        }
    }
    return false;
}

// WIDTHxHEIGHT, each a whole number from 1 to the largest picture side.
bool parseSize(const std::string& text, Options& options) {
    const std::size_t x = text.find('x');
    if (x == std::string::npos) {
        return false;
    }
    const auto width = parseCount(text.substr(0, x), Picture::Options::MAX_SIZE);
    const auto height = parseCount(text.substr(x + 1), Picture::Options::MAX_SIZE);
    if (!width || !height) {
        return false;
    }
    options.pictureWidth = *width;
    options.pictureHeight = *height;
    return true;
}

// Applies the picture options' values; the error, or empty.
std::string applyPictureValue(const std::string& name, const std::string& value, Options& options) {
    if (name == "--picture") {
        if (!Picture::formatFromPath(value)) {
            return "option '--picture' needs a file name ending in .png, .svg or .pdf, got '" +
                   value + "'";
        }
        options.picturePath = value;
    } else if (name == "--view") {
        if (value != "map" && value != "oblique") {
            return "option '--view' needs 'map' or 'oblique', got '" + value + "'";
        }
        options.pictureView = value == "map" ? Picture::View::Map : Picture::View::Oblique;
    } else if (name == "--size") {
        if (!parseSize(value, options)) {
            return "option '--size' needs WIDTHxHEIGHT, each from 1 to " +
                   std::to_string(Picture::Options::MAX_SIZE) + ", got '" + value + "'";
        }
    } else {
        const auto count = parseCount(value, MAX_FRAMES);
        if (!count) {
            return countError(name, value, MAX_FRAMES);
        }
        options.pictureEvery = *count;
    }
    return std::string();
}

// Applies the value of option @p name; the error, or empty.
std::string applyValue(const std::string& name, const std::string& value, Options& options) {
    for (auto [option, field] :
         {std::pair{"--json", &options.jsonPath}, std::pair{"--data", &options.dataPath},
          std::pair{"--layer", &options.layer}, std::pair{"--style", &options.stylePath}}) {
        if (name == option) {
            if (value.empty()) {
                return "option '" + name + "' needs " +
                       (name == "--layer" ? "a layer name" : "a file name");
            }
            *field = value;
            return std::string();
        }
    }
    if (name == "--frames" || name == "--features") {
        const std::uint32_t max = name == "--frames" ? MAX_FRAMES : MAX_FEATURES;
        const auto count = parseCount(value, max);
        if (!count) {
            return countError(name, value, max);
        }
        (name == "--frames" ? options.frames : options.features.emplace()) = *count;
        return std::string();
    }
    return applyPictureValue(name, value, options);
}

// The picture options other than --picture are only meaningful with it, and the data options
// other than --data with --data, which plays its file rather than a scale run.
std::string checkDependentOptions(const std::vector<std::string>& given, const Options& options) {
    for (const std::string& name : given) {
        if (options.picturePath.empty() &&
            (name == "--view" || name == "--size" || name == "--picture-every")) {
            return "option '" + name + "' needs --picture FILE";
        }
        if (options.dataPath.empty() && (name == "--layer" || name == "--style")) {
            return "option '" + name + "' needs --data FILE";
        }
    }
    if (!options.dataPath.empty() && options.features) {
        return "option '--data' does not go with '--features'";
    }
    return std::string();
}

} // namespace

ParseResult parseArguments(const std::vector<std::string>& arguments) {
    Options options;
    std::vector<std::string> given;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (argument.rfind("--", 0) != 0 || argument == "--") {
            if (argument == "-h") {
                options.help = true;
                continue;
            }
            if (!argument.empty() && argument[0] == '-' && argument != "-") {
                return failure("unknown option '" + argument + "'");
            }
            return failure("unexpected argument '" + argument + "'");
        }
        const std::size_t equals = argument.find('=');
        const std::string name = argument.substr(0, equals);
        std::optional<std::string> inlineValue;
        if (equals != std::string::npos) {
            inlineValue = argument.substr(equals + 1);
        }
        if (!isFlagOption(name) && !isValueOption(name)) {
            return failure("unknown option '" + name + "'");
        }
        given.push_back(name);
        if (isFlagOption(name)) {
            if (inlineValue) {
                return failure("option '" + name + "' takes no value");
            }
            (name == "--quiet"    ? options.quiet
             : name == "--verify" ? options.verify
                                  : options.help) = true;
            continue;
        }

        // The value: after '=', or the next argument unless that is another option.
        std::string value;
        if (inlineValue) {
            value = *inlineValue;
        } else if (i + 1 < arguments.size() && arguments[i + 1].rfind("--", 0) != 0) {
            value = arguments[++i];
        } else {
            return failure("option '" + name + "' needs a value");
        }
        if (std::string error = applyValue(name, value, options); !error.empty()) {
            return failure(std::move(error));
        }
    }
    if (std::string error = checkDependentOptions(given, options); !error.empty()) {
        return failure(std::move(error));
    }
    return ParseResult{options, std::string()};
}

std::string usageText() {
    return "Usage: keo-scene [--frames N] [--features N] [--json FILE] [--quiet] [--verify]\n"
           "                 [--picture FILE [--view map|oblique] [--size WxH] [--picture-every "
           "N]]\n"
           "                 [--data FILE [--layer NAME] [--style FILE]]\n"
           "\n"
           "Builds a sample scene of features, plays it frame by frame as a renderer would and\n"
           "prints what the features become: one line per frame, then every feature's entity "
           "tree.\n"
           "\n"
           "  --data FILE    play the features of a vector file instead (any format GDAL reads),\n"
           "                 print the load report first and one line per feature at the end\n"
           "  --layer NAME   the layer of the --data file to read (default: its first)\n"
           "  --style FILE   the JSON style sheet for the --data file (default: every kind in\n"
           "                 the default style)\n"
           "  --frames N     frames to play, 1 to " +
           std::to_string(MAX_FRAMES) +
           " (default 12; one frame is 0.5 s of scene time)\n"
           "  --features N   scale mode: build N features (1 to " +
           std::to_string(MAX_FEATURES) +
           ") from the sample's kinds in\n"
           "                 turn, play as many clean frames and edit rounds as --frames says,\n"
           "                 and print features and entities per second for build, clean\n"
           "                 frames and edits (progress bar on a terminal's standard error)\n"
           "  --json FILE    also write the per-frame log and the final entity trees as JSON\n"
           "  --quiet        print only the closing summary\n"
           "  --verify       after every frame, check that the renderer-side set of live\n"
           "                 entities equals the entity trees of the features in the scene\n"
           "  --picture FILE draw the live entities of the last frame into FILE, a .png, .svg\n"
           "                 or .pdf picture (the format follows the extension)\n"
           "  --view V       the picture's view: 'map' (default; top-down, with a scale bar\n"
           "                 and a north arrow) or 'oblique' (perspective, solids shaded)\n"
           "  --size WxH     the picture's size in pixels (points for SVG and PDF), each\n"
           "                 side 1 to " +
           std::to_string(Picture::Options::MAX_SIZE) +
           " (default 1024x768)\n"
           "  --picture-every N  instead, draw every N-th frame into numbered files: FILE with\n"
           "                 the frame number before the extension (scene-04.png, ...)\n"
           "  -h, --help     print this text\n"
           "\n"
           "Exit status: 0 on success, 1 when --verify finds a difference, the JSON report\n"
           "or a picture cannot be written, or the --data or --style file cannot be loaded,\n"
           "2 for a wrong command line, a --json, --picture, --data or --style file that\n"
           "cannot be opened, or a --layer the data does not have.\n";
}

} // namespace keo::scene
