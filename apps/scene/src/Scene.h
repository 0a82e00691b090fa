#pragma once

#include "Feature/FeatureCollection.h"

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace keo {
class Layer;
} // namespace keo

namespace keo::Feature {
class Feature;
class FeatureGroup;
class Style;
} // namespace keo::Feature

namespace keo::scene {

/**
 * @brief What the application keeps of one feature it made: the feature and the style it gave it
 * (a feature hands its style out read-only, so the application keeps its own handle to edit it).
 */
struct SceneFeature {
    /** @brief The feature. */
    std::shared_ptr<Feature::Feature> feature;
    /** @brief The feature's style, shared with the feature; may be null. */
    std::shared_ptr<Feature::Style> style;
};

/**
 * @brief The application's side of a scene: a keo::Layer carrying a root FeatureGroup with named
 * subgroups, and a FeatureCollection that watches the same features.
 *
 * Every feature is added to one subgroup and to the collection; removal takes it out of both.
 * Subgroups are made on first use, in that order, under the root. The ids of the root and the
 * subgroups are fixed (1, 2, 3, ...) so that nothing random reaches the output.
 */
class Scene final {
public:
    /** @brief An empty scene whose layer is named @p layerName. */
    explicit Scene(std::string layerName);
    ~Scene();
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;

    /** @brief The layer the tree is attached to. */
    const std::shared_ptr<Layer>& layer() const noexcept { return layer_; }
    /** @brief The root group (carries the layer). */
    Feature::FeatureGroup& root() const noexcept { return *root_; }
    /** @brief The root group, shared (what a frame driver draws). */
    const std::shared_ptr<Feature::FeatureGroup>& sharedRoot() const noexcept { return root_; }
    /** @brief The subgroup named @p name, made under the root when it does not exist yet. */
    Feature::FeatureGroup& group(const std::string& name);
    /** @brief The collection watching the scene's features. */
    Feature::FeatureCollection& collection() noexcept { return collection_; }

    /**
     * @brief Adds @p feature to the subgroup @p groupName and to the collection, and keeps its
     * style handle. The collection throws for a null feature or an id already held.
     */
    void add(const std::string& groupName, SceneFeature feature);
    /**
     * @brief Takes the feature with @p id out of its group (hard removal, reported by the group's
     * added-or-removed event) and out of the collection. False when no feature has the id.
     */
    bool remove(std::uint64_t id);
    /** @brief The feature with @p id, or null. */
    std::shared_ptr<Feature::Feature> feature(std::uint64_t id) const;
    /** @brief The application's handle on the style of the feature with @p id, or null. */
    std::shared_ptr<Feature::Style> style(std::uint64_t id) const;
    /** @brief Gives the feature with @p id the style @p style and keeps the new handle. */
    void setStyle(std::uint64_t id, std::shared_ptr<Feature::Style> style);
    /** @brief The features of the tree, depth first in list order (the order frames visit). */
    std::vector<std::shared_ptr<Feature::Feature>> features() const;
    /** @brief The name of the subgroup that holds @p feature, or empty. */
    std::string groupNameOf(const Feature::Feature& feature) const;

private:
    std::shared_ptr<Layer> layer_;
    std::shared_ptr<Feature::FeatureGroup> root_;
    std::vector<std::shared_ptr<Feature::FeatureGroup>> groups_;
    Feature::FeatureCollection collection_;
    std::unordered_map<std::uint64_t, std::shared_ptr<Feature::Style>> styles_;
};

/** @brief The leaf features under @p group, depth first in list order. */
std::vector<std::shared_ptr<Feature::Feature>> leafFeatures(const Feature::FeatureGroup& group);

} // namespace keo::scene
