#pragma once

#include "Scene.h"

#include "Data/ModelGraphics.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace keo::scene {

/**
 * @brief One kind of feature of the built-in sample: the subgroup it goes into, its name, and the
 * function that makes it. The sample is this table; a new geometry kind joins the sample as one
 * more entry.
 */
struct SampleEntry {
    /** @brief The subgroup of the scene that holds features of this entry. */
    const char* group;
    /** @brief The feature's name (shown by its label when it has no label text). */
    const char* name;
    /** @brief Makes the feature with the id @p id and the entry's name. */
    SceneFeature (*make)(std::uint64_t id, const std::string& name);
};

/** @brief The sample's entries, in the order they are built. */
const std::vector<SampleEntry>& sampleEntries();

/** @brief The id of the first sample feature; the others follow one by one. */
inline constexpr std::uint64_t FIRST_FEATURE_ID = 1001;

/**
 * @brief Adds @p count features to @p scene: feature i (from @p first) is made by entry i modulo
 * the number of entries, with the id FIRST_FEATURE_ID + i. The collection's notifications are
 * suspended meanwhile, so the call gives one notification.
 */
void populateSample(Scene& scene, std::size_t count, std::size_t first = 0);

/**
 * @brief Adds @p count features of @p entry alone to @p scene, with ids from FIRST_FEATURE_ID,
 * under one suspension of the collection's events as populateSample does.
 */
void populateKind(Scene& scene, const SampleEntry& entry, std::size_t count);

/**
 * @brief The bounding box of the sample's model file @p uri, as a model loader would read it from
 * the file: the sample's models have fixed boxes; any other model is a 2 m cube on the ground.
 */
ModelGraphics::BoundingBox sampleModelBox(const std::string& uri);

/** @brief A point feature with a dot and a label from its name (also used by the edit script). */
SceneFeature makeMarker(std::uint64_t id, const std::string& name);

/** @brief A point style of an image with a label from the label text and a hint line. */
std::shared_ptr<Feature::Style> makePinStyle();

} // namespace keo::scene
