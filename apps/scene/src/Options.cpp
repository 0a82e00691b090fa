#include "Options.h"

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

} // namespace

ParseResult parseArguments(const std::vector<std::string>& arguments) {
    Options options;
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

        const bool isFlag = name == "--quiet" || name == "--verify" || name == "--help";
        const bool takesValue = name == "--frames" || name == "--features" || name == "--json";
        if (!isFlag && !takesValue) {
            return failure("unknown option '" + name + "'");
        }
        if (isFlag) {
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

        if (name == "--json") {
            if (value.empty()) {
                return failure("option '--json' needs a file name");
            }
            options.jsonPath = value;
        } else if (name == "--frames") {
            const auto count = parseCount(value, MAX_FRAMES);
            if (!count) {
                return failure(countError(name, value, MAX_FRAMES));
            }
            options.frames = *count;
        } else {
            const auto count = parseCount(value, MAX_FEATURES);
            if (!count) {
                return failure(countError(name, value, MAX_FEATURES));
            }
            options.features = *count;
        }
    }
    return ParseResult{options, std::string()};
}

std::string usageText() {
    return "Usage: keo-scene [--frames N] [--features N] [--json FILE] [--quiet] [--verify]\n"
           "\n"
           "Builds a sample scene of features, plays it frame by frame as a renderer would and\n"
           "prints what the features become: one line per frame, then every feature's entity "
           "tree.\n"
           "\n"
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
           "  -h, --help     print this text\n"
           "\n"
           "Exit status: 0 on success, 1 when --verify finds a difference or the JSON report\n"
           "cannot be written, 2 for a wrong command line or a --json file that cannot be "
           "opened.\n";
}

} // namespace keo::scene
