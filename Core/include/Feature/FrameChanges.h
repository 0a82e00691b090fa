#pragma once

#include <cstddef>
#include <memory>
#include <vector>

namespace keo {
class Entity;
} // namespace keo

namespace keo::Feature {

/**
 * @brief What one frame of a FrameDriver changed: the entities a renderer must start and stop
 * drawing, and how many features the frame visited and rebuilt.
 */
struct FrameChanges {
    /** @brief Features in the tree, all visited by the frame (hidden ones included). */
    std::size_t features = 0;
    /** @brief Features whose entities were out of date and were rebuilt. */
    std::size_t updated = 0;
    /**
     * @brief Entities that entered the live set, feature by feature in tree order, each
     * feature's in the order it reported them (a parent before its children).
     */
    std::vector<std::shared_ptr<Entity>> added;
    /**
     * @brief Entities that left the live set: those the features dropped (each with everything
     * below it) and all those of features that left the tree since the previous frame.
     */
    std::vector<std::shared_ptr<Entity>> removed;
    /** @brief Entries of the features' added lists taken this frame (diagnostics). */
    std::size_t reportedAdded = 0;
    /** @brief Entries of the features' removed lists taken this frame (diagnostics). */
    std::size_t reportedRemoved = 0;
};

} // namespace keo::Feature
