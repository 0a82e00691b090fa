#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace keo::scene {

class Scene;

/** @brief One edit of the sample's script, applied between two frames. */
struct ScriptedEdit {
    /** @brief The edit runs just before this frame (from 2). */
    std::uint32_t beforeFrame;
    /** @brief What the edit does, as the frame log prints it. */
    const char* description;
    /** @brief Applies the edit to the sample scene. */
    void (*apply)(Scene& scene);
};

/** @brief The sample's edits, in the order they run. */
const std::vector<ScriptedEdit>& editScript();

/**
 * @brief Applies the edits due before @p frame to @p scene, in script order, and returns their
 * descriptions. The scene must hold the sample (made by populateSample with the full table).
 */
std::vector<std::string> applyEditsBefore(std::uint32_t frame, Scene& scene);

/** @brief The id of the feature that the script adds in place of a removed one. */
inline constexpr std::uint64_t BEACON_ID = 2001;

} // namespace keo::scene
