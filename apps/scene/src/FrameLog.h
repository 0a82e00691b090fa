#pragma once

#include "CollectionWatch.h"
#include "RendererSide.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace keo::scene {

class Scene;

/** @brief Everything the program notes about one frame. */
struct FrameRecord {
    /** @brief The frame number, from 1. */
    std::uint32_t frame = 0;
    /** @brief The scene time of the frame, seconds. */
    double time = 0.0;
    /** @brief The edits applied just before the frame, as described by the script. */
    std::vector<std::string> edits;
    /** @brief What the renderer side did. */
    FrameCounts counts;
    /** @brief What the collection notified since the previous frame. */
    CollectionCounts collection;
    /** @brief The kit's log records since the previous frame (see LogCapture::takeLines). */
    std::vector<std::string> logs;
};

/** @brief Seconds of scene time from one frame to the next. */
inline constexpr double FRAME_SECONDS = 0.5;

/** @brief The scene time of frame @p frame (from 1), seconds: the first frame is at 0. */
inline double frameTime(std::uint32_t frame) noexcept {
    return FRAME_SECONDS * static_cast<double>(frame - 1);
}

/**
 * @brief The lines the text output prints for @p record: one per edit ("edit ..."), one per
 * model that finished loading ("load ..."), one per distinct log record ("log ..."), then the
 * frame line, each ending in a newline.
 */
std::string formatFrame(const FrameRecord& record);

/**
 * @brief The JSON report: the mode, the per-frame log and, for every feature of @p scene in tree
 * order, its id, name, group and entity tree (keo::SceneDump::toJson at scene time @p time).
 */
std::string frameLogJson(const std::string& mode, const std::vector<FrameRecord>& frames,
                         const Scene& scene, double time);

/**
 * @brief The entity trees of the features of @p scene in tree order, each under a heading line
 * with its id, name and group (keo::SceneDump::toText at scene time @p time).
 */
std::string entityTreesText(const Scene& scene, double time);

} // namespace keo::scene
