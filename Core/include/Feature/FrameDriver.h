#pragma once

#include "Feature/FeatureExport.h"
#include "Feature/FrameChanges.h"
#include "Feature/ScopedListener.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace keo {
class Entity;
} // namespace keo

namespace keo::Feature {

class Feature;
class FeatureBase;
class FeatureGroup;

/**
 * @brief The renderer's side of a feature tree: once a frame it brings every feature's entities
 * up to date and keeps the set of live entities, those a renderer draws, from what the features
 * report.
 *
 * A frame loop is a few lines:
 * @code
 * keo::Feature::FrameDriver driver(root);          // the root FeatureGroup of the tree
 * for (;;) {
 *     const keo::Feature::FrameChanges changes = driver.frame();
 *     for (const auto& entity : changes.removed) renderer.forget(*entity);
 *     for (const auto& entity : changes.added) renderer.track(entity);
 *     renderer.draw();                              // the live entities
 * }
 * @endcode
 *
 * The rules of a frame:
 * - Every feature of the tree is visited, depth first in list order, and brought up to date
 *   (`Feature::_updateEntityInCull`). Hidden features are visited too: their update is what hides
 *   their root entity.
 * - A feature's removed entities are taken first: each leaves the live set with everything below
 *   it (a label's hint line goes with the label). Then its added entities: an entity joins the
 *   live set only while it hangs under the feature's root entity, so one made and dropped within
 *   the update never shows up.
 * - A feature that left the tree since the previous frame (removed from memory, or taken out)
 *   has all its live entities dropped at once, and what it reported meanwhile is discarded; when
 *   it comes back it reports all its entities again.
 * - When the root group carries a keo::Layer, the layer holds the root entities of the live set
 *   (in the order they joined).
 *
 * Each feature keeps a pointer to its record here, so a frame reaches every record in constant
 * time without a look-up; a frame over an unchanged tree touches no record and allocates
 * nothing. The driver listens to the root group's added-or-removed event to learn that the
 * tree changed, and then finds the features that left it.
 *
 * Threads: frame() and the tree's structure (adding, removing and moving nodes) belong to one
 * thread, the one that renders; edits of features (geometry, style, show, highlight, attributes)
 * may come from any thread, as each feature locks itself while it updates. A feature is drawn by
 * one driver at a time: the entity lists it keeps are taken by whoever updates it.
 */
class KEO_FEATURE_API FrameDriver final {
public:
    /** @brief Drives the tree under @p root (held; null is an empty tree). */
    explicit FrameDriver(std::shared_ptr<FeatureGroup> root);
    /** @brief Lets go of the features and their entities (the layer's roots included). */
    ~FrameDriver();
    FrameDriver(const FrameDriver&) = delete;
    FrameDriver& operator=(const FrameDriver&) = delete;

    /** @brief The root group. */
    const std::shared_ptr<FeatureGroup>& getRoot() const noexcept { return root_; }

    /** @brief Plays one frame: updates every feature of the tree and returns what changed. */
    FrameChanges frame();

    /** @brief The number of frames played. */
    std::uint64_t getFrameCount() const noexcept { return frame_; }
    /** @brief The number of live entities. */
    std::size_t getLiveCount() const noexcept { return live_; }
    /** @brief Whether @p entity is live. */
    bool isLive(const Entity& entity) const;
    /**
     * @brief Calls @p visit with every live entity: feature by feature in tree order, each
     * feature's entities depth first from its root entity.
     */
    void forEachLive(const std::function<void(const std::shared_ptr<Entity>&)>& visit) const;
    /** @brief The live entities in the order forEachLive visits them. */
    std::vector<const Entity*> getLiveEntities() const;

    /**
     * @brief The feature whose entity tree holds @p entity (any entity of it: root, child,
     * grandchild), for picking; null for an entity of no feature of the tree.
     */
    std::shared_ptr<Feature> pick(const Entity& entity) const;

    /**
     * @brief Compares the live set with the union of the entity trees of the features in the
     * tree. Empty when they are equal; otherwise one line that says how they differ, with up to
     * three examples of each side (entity name and feature).
     */
    std::string verify() const;

private:
    struct Record;

    void update(const std::shared_ptr<FeatureBase>& node, bool stamp, FrameChanges& changes);
    Record& recordOf(const std::shared_ptr<FeatureBase>& node);
    Record* findRecord(const Feature& feature) const;
    void join(Record& record, const std::shared_ptr<Entity>& entity, FrameChanges& changes);
    void drop(Record& record, const std::shared_ptr<Entity>& entity, FrameChanges& changes);
    void sweep(FrameChanges& changes);
    void release(Record& record) noexcept;
    void file(Record& record);
    const Record* recordOfEntity(const Entity& entity) const;
    template <typename Visit>
    void forEachFeature(Visit&& visit) const;

    std::shared_ptr<FeatureGroup> root_;
    // One per feature met, densely in blocks that never move (a feature keeps its record's
    // address), in no particular order.
    struct Records;
    std::unique_ptr<Records> records_;
    // Records of features whose pointer is held by another driver.
    std::unordered_map<const Feature*, Record*> foreign_;
    std::uint64_t frame_ = 0;
    std::size_t visited_ = 0;
    // Set when the tree gained or lost features: the next frame stamps the records it visits
    // and drops those it did not.
    std::atomic<bool> treeChanged_{true};
    ScopedListener treeListener_;
    std::size_t live_ = 0;
    // The lists a feature hands over, kept between features so that their room is reused.
    std::vector<std::shared_ptr<Entity>> added_;
    std::vector<std::shared_ptr<Entity>> removed_;
    // Root entity to record (a flat hash index), made when pick needs it after the set of roots
    // changed.
    struct RootIndex;
    std::unique_ptr<RootIndex> roots_;
    mutable bool rootsStale_ = true;
};

} // namespace keo::Feature
