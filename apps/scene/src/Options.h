#pragma once

#include "Picture/View.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace keo::scene {

/** @brief What the command line asks the program to do. */
struct Options {
    /** @brief Frames to play (1 to MAX_FRAMES). */
    std::uint32_t frames = 12;
    /** @brief Scale mode: the number of features to build (1 to MAX_FEATURES); empty: sample. */
    std::optional<std::uint32_t> features;
    /** @brief Data mode: the vector file to load, style and play; empty: the sample. */
    std::string dataPath;
    /** @brief The layer of the data file to read; empty: its first. */
    std::string layer;
    /** @brief The JSON style sheet for the data; empty: the default sheet. */
    std::string stylePath;
    /** @brief File to write the JSON report to; empty: no JSON. */
    std::string jsonPath;
    /** @brief Print only the closing summary (errors still go to standard error). */
    bool quiet = false;
    /** @brief Check the renderer-side set against the features' entity trees after every frame. */
    bool verify = false;
    /** @brief Print the usage text and stop. */
    bool help = false;
    /**
     * @brief File the picture of the last frame is written to (PNG, SVG or PDF by its
     * extension); with pictureEvery, the name the numbered pictures are made from. Empty: none.
     */
    std::string picturePath;
    /** @brief The picture's view. */
    Picture::View pictureView = Picture::View::Map;
    /** @brief The picture's width, pixels (points for SVG and PDF). */
    std::uint32_t pictureWidth = 1024;
    /** @brief The picture's height, pixels (points for SVG and PDF). */
    std::uint32_t pictureHeight = 768;
    /** @brief Write a numbered picture of every N-th frame instead of the last; empty: the last. */
    std::optional<std::uint32_t> pictureEvery;
};

/** @brief The largest accepted --frames value. */
inline constexpr std::uint32_t MAX_FRAMES = 100000;
/** @brief The largest accepted --features value. */
inline constexpr std::uint32_t MAX_FEATURES = 1000000;

/** @brief The result of parsing: the options, or the text that says what was wrong. */
struct ParseResult {
    /** @brief The options; empty when the command line was wrong. */
    std::optional<Options> options;
    /** @brief What was wrong (one line, without the program name); empty on success. */
    std::string error;
};

/**
 * @brief Parses the arguments after the program name. Options take their value as the next
 * argument or after '=' (`--frames 5`, `--frames=5`). Numbers are plain decimal digits within
 * their range; a picture file must end in .png, .svg or .pdf, a view is "map" or "oblique", a
 * size is WIDTHxHEIGHT (each 1 to 16384); --view, --size and --picture-every need --picture;
 * --layer and --style need --data, which does not go with --features; file names are not empty.
 * Anything else, an unknown option, a missing value or a stray argument gives an error and no
 * options. Never throws for any input.
 */
ParseResult parseArguments(const std::vector<std::string>& arguments);

/** @brief The usage text printed by --help (several lines, ending in a newline). */
std::string usageText();

} // namespace keo::scene
