#pragma once

#include "Feature/FrameDriver.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace keo {
class Entity;
} // namespace keo

namespace keo::Feature {
class Feature;
class FeatureGroup;
} // namespace keo::Feature

namespace keo::scene {

/** @brief What one frame did on the renderer side. */
struct FrameCounts {
    /** @brief Features in the scene (visited by the frame). */
    std::size_t features = 0;
    /** @brief Features whose entities were out of date before their update (rebuilt). */
    std::size_t updated = 0;
    /** @brief Entries of the added lists taken from the features. */
    std::size_t reportedAdded = 0;
    /** @brief Entries of the removed lists taken from the features. */
    std::size_t reportedRemoved = 0;
    /** @brief Entities that entered the live set. */
    std::size_t added = 0;
    /** @brief Entities that left the live set, those of features that left the scene included. */
    std::size_t removed = 0;
    /** @brief Entities live after the frame. */
    std::size_t live = 0;
    /** @brief Live entities that are showing (they and all their ancestors are shown). */
    std::size_t shown = 0;
    /** @brief One line per model that finished loading at the start of the frame. */
    std::vector<std::string> loaded;
};

/**
 * @brief The program's stand-in for a renderer: a keo::Feature::FrameDriver plays the frames and
 * keeps the live entities; on top of it, this counts what each frame did and loads models as a
 * real renderer's loader would: two frames after a model's entity first shows up not ready, the
 * loader reports it ready and gives its bounding box (see sampleModelBox).
 *
 * Shown entities are counted with keo::Entity::isShowing.
 */
class RendererSide final {
public:
    /** @brief Frames between a model entity showing up and its model being ready. */
    static constexpr std::uint32_t MODEL_LOAD_FRAMES = 2;

    /** @brief Draws the tree under @p root. */
    explicit RendererSide(std::shared_ptr<Feature::FeatureGroup> root);
    ~RendererSide();
    RendererSide(const RendererSide&) = delete;
    RendererSide& operator=(const RendererSide&) = delete;

    /** @brief Plays frame @p frame (from 1): loads due models, plays the frame, counts. */
    FrameCounts runFrame(std::uint32_t frame);

    /** @brief The frame driver (live set, picking, verification). */
    const Feature::FrameDriver& driver() const noexcept { return driver_; }
    /** @brief See keo::Feature::FrameDriver::verify. */
    std::string verify() const { return driver_.verify(); }
    /** @brief The number of live entities. */
    std::size_t liveCount() const noexcept { return driver_.getLiveCount(); }
    /** @brief The live entities in tree order (what a picture of the frame draws). */
    std::vector<const Entity*> liveEntities() const { return driver_.getLiveEntities(); }

private:
    void track(const Feature::FrameChanges& changes);
    void loadDueModels(std::uint32_t frame, FrameCounts& counts);
    void scheduleModelLoads(std::uint32_t frame);

    Feature::FrameDriver driver_;
    // A live entity that draws a model: the frame its load completes (0: not loading).
    std::unordered_map<std::shared_ptr<Entity>, std::uint32_t> models_;
};

} // namespace keo::scene
