#pragma once

#include "Feature/ScopedListener.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>
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
 * @brief The program's stand-in for a renderer: it drives the features of a tree frame by frame
 * and keeps the set of live entities (those it would draw) from what the features report.
 *
 * The rules it follows:
 * - Each frame visits every feature of the tree, depth first in list order, and calls its
 *   `_updateEntityInCull`. Hidden features are visited too: their update is what hides their
 *   root entity. The argument is true on the first update after the feature entered the scene,
 *   so a feature that comes back reports all its entities again.
 * - After a feature's update it takes the removed list first: each entity leaves the live set
 *   with everything below it (a label's hint line goes with the label). Then the added list:
 *   an entity enters the live set only while it hangs under the feature's root entity. So an
 *   entity that stands in both lists of one frame was made and dropped within the update (not
 *   live), or dropped and put back (live, as it is in the tree again).
 * - A feature that leaves the scene (hard removal, reported by the root group's added-or-removed
 *   event) has all its entities dropped at once and its pending lists discarded.
 * - Models load two frames after their entity first shows up not ready: the loader reports them
 *   ready and gives their bounding box (see sampleModelBox), as a real loader would.
 *
 * Shown entities are counted with keo::Entity::isShowing.
 */
class RendererSide final {
public:
    /** @brief Frames between a model entity showing up and its model being ready. */
    static constexpr std::uint32_t MODEL_LOAD_FRAMES = 2;

    /**
     * @brief Watches the tree under @p root (which must outlive this object): the features
     * already in it and those its added-or-removed event reports.
     */
    explicit RendererSide(Feature::FeatureGroup& root);
    /** @brief Stops watching the tree; the entities are released. */
    ~RendererSide();
    RendererSide(const RendererSide&) = delete;
    RendererSide& operator=(const RendererSide&) = delete;

    /** @brief Plays frame @p frame (from 1): loads due models, updates every feature, counts. */
    FrameCounts runFrame(std::uint32_t frame);

    /**
     * @brief Compares the live set with the union of the entity trees of the features now in the
     * tree. Empty when they are equal; otherwise a one-line description of the difference with
     * up to three examples of each side.
     */
    std::string verify() const;

    /** @brief The number of live entities. */
    std::size_t liveCount() const noexcept { return live_; }
    /** @brief Whether @p entity is live. */
    bool isLive(const std::shared_ptr<Entity>& entity) const;

    /**
     * @brief The live entities in a fixed order: feature by feature in tree order, each feature's
     * entities depth first from its root entity (what a picture of the frame draws). The
     * pointers stay valid until the next frame or edit.
     */
    std::vector<const Entity*> liveEntities() const;

private:
    struct Record {
        std::shared_ptr<Feature::Feature> feature;
        std::unordered_set<std::shared_ptr<Entity>> live;
        bool entered = true;
    };

    void onTreeChanged(const std::vector<std::shared_ptr<Feature::Feature>>& added,
                       const std::vector<std::shared_ptr<Feature::Feature>>& removed);
    Record& recordOf(const std::shared_ptr<Feature::Feature>& feature);
    void updateFeature(const std::shared_ptr<Feature::Feature>& feature, FrameCounts& counts);
    std::size_t drop(Record& record, const std::shared_ptr<Entity>& entity);
    void loadDueModels(std::uint32_t frame, FrameCounts& counts);
    void scheduleModelLoads(std::uint32_t frame);

    Feature::FeatureGroup& root_;
    std::unordered_map<const Feature::Feature*, Record> records_;
    std::size_t live_ = 0;
    // Entities dropped with departed features since the last frame (counted by the next frame).
    std::size_t dropped_ = 0;
    // A live entity that draws a model: the frame its load completes (0: not loading) and the
    // feature it belongs to, for the load report.
    struct ModelLoad {
        std::uint32_t due = 0;
        const Feature::Feature* owner = nullptr;
    };
    std::unordered_map<std::shared_ptr<Entity>, ModelLoad> models_;
    Feature::ScopedListener treeListener_;
};

} // namespace keo::scene
