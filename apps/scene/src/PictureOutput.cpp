#include "PictureOutput.h"

#include "RendererSide.h"

#include "Data/TimePoint.h"
#include "Picture/Renderer.h"

#include <cstdio>
#include <utility>

namespace keo::scene {

PictureOutput::PictureOutput(const Options& options, std::uint32_t frames, std::string title)
    : options_(options)
    , frames_(frames)
    , title_(std::move(title)) {}

std::string PictureOutput::pathFor(std::uint32_t frame) const {
    if (!options_.pictureEvery) {
        return options_.picturePath;
    }
    const std::string& path = options_.picturePath;
    const std::size_t dot = path.rfind('.');
    const int width = static_cast<int>(std::to_string(frames_).size());
    char number[16];
    std::snprintf(number, sizeof number, "-%0*u", width, frame);
    return path.substr(0, dot) + number + path.substr(dot);
}

std::string PictureOutput::firstPath() const {
    if (!wanted()) {
        return std::string();
    }
    if (!options_.pictureEvery) {
        return pathFor(frames_);
    }
    return *options_.pictureEvery <= frames_ ? pathFor(*options_.pictureEvery) : std::string();
}

bool PictureOutput::isDue(std::uint32_t frame) const noexcept {
    if (!wanted()) {
        return false;
    }
    return options_.pictureEvery ? frame % *options_.pictureEvery == 0 : frame == frames_;
}

std::string PictureOutput::write(std::uint32_t frame, double seconds,
                                 const RendererSide& renderer) const {
    Picture::Options options;
    options.width = options_.pictureWidth;
    options.height = options_.pictureHeight;
    options.view = options_.pictureView;
    options.time = TimePoint::fromSeconds(seconds);
    char time[32];
    std::snprintf(time, sizeof time, "%g", seconds);
    options.title = title_ + ", frame " + std::to_string(frame) + ", t=" + time + " s";
    const std::string path = pathFor(frame);
    const Picture::Report report =
        Picture::Renderer(options).writeFile(path, renderer.liveEntities());
    return "picture frame " + std::to_string(frame) + ": " + path + " (" +
           (options.view == Picture::View::Map ? "map" : "oblique") + " view, " +
           std::to_string(options.width) + "x" + std::to_string(options.height) + "), " +
           std::to_string(report.drawn) + " of " + std::to_string(report.entities) +
           " entities drawn";
}

} // namespace keo::scene
