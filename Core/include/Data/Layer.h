#pragma once

#include "Data/DataExport.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace keo {

class Entity;

/**
 * @brief A named, independently shown set of root entities: what the renderer draws as one
 * layer of the scene, and what a tree of features is attached to.
 *
 * Held through std::shared_ptr (feature trees keep a std::weak_ptr to it). A layer owns its root
 * entities in the order they were added, each at most once. Adding, finding and removing an
 * entity take constant time on average (an index from entity to place beside the ordered list),
 * so a renderer may keep 100,000s of roots in one layer. It has no lock: it is edited and read on
 * the thread that updates the scene.
 */
class KEO_DATA_API Layer final {
public:
    /** @brief A shown layer with an empty name and no entities. */
    Layer();
    /** @brief A shown layer named @p name with no entities. */
    explicit Layer(std::string name);
    ~Layer();

    Layer(const Layer&) = delete;
    Layer& operator=(const Layer&) = delete;

    /** @brief The display name. */
    const std::string& getName() const noexcept { return name_; }
    /** @brief Sets the display name (kept as given). */
    void setName(std::string name);
    /** @brief Whether the layer is shown (default true); a hidden layer hides all its entities. */
    bool isShow() const noexcept { return show_; }
    /** @brief Shows or hides the layer. */
    void setShow(bool show) noexcept { show_ = show; }

    /**
     * @brief Appends @p entity to the layer's root entities. Returns false, and changes nothing,
     * for a null entity or one that the layer already holds.
     */
    bool addEntity(std::shared_ptr<Entity> entity);
    /** @brief Removes @p entity (the others keep their order); false when the layer lacks it. */
    bool removeEntity(const Entity* entity);
    /** @brief Whether the layer holds @p entity as one of its root entities. */
    bool containsEntity(const Entity* entity) const noexcept;
    /** @brief Removes every entity. */
    void removeAllEntities() noexcept;
    /** @brief The number of root entities. */
    std::size_t getEntityCount() const noexcept;
    /**
     * @brief The root entities in the order they were added. The reference stays valid until the
     * layer next changes; the call may close the gaps left by removals, so even concurrent reads
     * need the layer's thread.
     */
    const std::vector<std::shared_ptr<Entity>>& getEntities() const;

private:
    // Root entity (by address) to its place in entities_: a flat hash index, so that neither
    // adding nor tearing down a layer of a million roots allocates or frees a node per root.
    struct Places;

    // Closes the gaps that removals left in entities_ and renumbers the places.
    void compact() const;

    std::string name_;
    bool show_ = true;
    // In the order added; a removal only empties its slot, and the gaps are closed when the list
    // is read or when they make up half of it, so that a removal costs no shifting.
    mutable std::vector<std::shared_ptr<Entity>> entities_;
    std::unique_ptr<Places> places_;
};

} // namespace keo
