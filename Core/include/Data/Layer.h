#pragma once

#include "Data/DataExport.h"

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
 * entities in the order they were added, each at most once. It has no lock: it is edited on the
 * thread that updates the scene.
 */
class KEO_DATA_API Layer final {
public:
    /** @brief A shown layer with an empty name and no entities. */
    Layer() = default;
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
    /** @brief Removes @p entity; returns false when the layer does not hold it. */
    bool removeEntity(const Entity* entity);
    /** @brief Whether the layer holds @p entity as one of its root entities. */
    bool containsEntity(const Entity* entity) const noexcept;
    /** @brief Removes every entity. */
    void removeAllEntities() noexcept;
    /** @brief The root entities in the order they were added. */
    const std::vector<std::shared_ptr<Entity>>& getEntities() const noexcept { return entities_; }

private:
    std::string name_;
    bool show_ = true;
    std::vector<std::shared_ptr<Entity>> entities_;
};

} // namespace keo
