#pragma once

#include "CollectionWatch.h"
#include "RendererSide.h"

#include <cstddef>
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

/** @brief One measured phase of the scale run (build, clean frames, edits). */
struct ScalePhase {
    /** @brief The phase's name as printed. */
    const char* name = "";
    /** @brief Features handled: built, visited or edited (each frame counts every feature). */
    std::size_t features = 0;
    /** @brief Live entities summed over the phase's frames. */
    std::size_t entities = 0;
    /** @brief Wall time of the phase, seconds. */
    double seconds = 0.0;

    /** @brief Features per second; 0 for a phase too short to time. */
    double featureRate() const noexcept { return rate(features); }
    /** @brief Entities per second; 0 for a phase too short to time. */
    double entityRate() const noexcept { return rate(entities); }

private:
    double rate(std::size_t count) const noexcept {
        return seconds > 0.0 ? static_cast<double>(count) / seconds : 0.0;
    }
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
 * @brief The JSON report: the mode, the per-frame log, the scale run's @p phases with their rates
 * (left out when empty), the number of log records @p logRecords and, for every feature of
 * @p scene in tree order, its id, name, group and entity tree (keo::SceneDump::toJson at scene
 * time @p time).
 */
std::string frameLogJson(const std::string& mode, const std::vector<FrameRecord>& frames,
                         const std::vector<ScalePhase>& phases, std::size_t logRecords,
                         const Scene& scene, double time);

/**
 * @brief The entity trees of the features of @p scene in tree order, each under a heading line
 * with its id, name and group (keo::SceneDump::toText at scene time @p time).
 */
std::string entityTreesText(const Scene& scene, double time);

} // namespace keo::scene
