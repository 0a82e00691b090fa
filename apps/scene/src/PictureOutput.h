#pragma once

#include "Options.h"

#include <cstdint>
#include <optional>
#include <string>

namespace keo::scene {

class RendererSide;

/**
 * @brief The pictures a run writes: the last frame's to --picture FILE, or with --picture-every N
 * a numbered picture of every N-th frame (FILE with "-" and the frame number, zero-padded to the
 * width of the frame count, before the extension).
 */
class PictureOutput final {
public:
    /** @brief The pictures @p options ask for, in a run of @p frames frames titled @p title. */
    PictureOutput(const Options& options, std::uint32_t frames, std::string title);

    /** @brief Whether any picture is asked for. */
    bool wanted() const noexcept { return !options_.picturePath.empty(); }
    /** @brief The file of the first picture the run will write; empty when it writes none. */
    std::string firstPath() const;
    /** @brief Whether the picture of frame @p frame is due after it is played. */
    bool isDue(std::uint32_t frame) const noexcept;
    /**
     * @brief Writes the picture of frame @p frame at @p seconds of scene time from the live set of
     * @p renderer; returns the line that reports it (without a newline). Throws
     * Picture::PictureError when the file cannot be written.
     */
    std::string write(std::uint32_t frame, double seconds, const RendererSide& renderer) const;

private:
    std::string pathFor(std::uint32_t frame) const;

    Options options_;
    std::uint32_t frames_;
    std::string title_;
};

} // namespace keo::scene
