#pragma once

#include "Data/DataExport.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace keo {

class GeometryGraphics;
class OrientationProperty;
class PositionProperty;

/**
 * @brief A node of the scene: a named object with a position, an orientation, one graphics
 * component and an ordered list of child entities.
 *
 * Entities are always held through std::shared_ptr (make them with std::make_shared). A parent
 * owns its children; the link from a child to its parent is non-owning. A child that is detached
 * from its parent lives on as long as someone else holds it, and when a parent is destroyed the
 * children that others still hold are detached first, so no parent link ever dangles. The tree
 * can never hold a cycle: setParent refuses an entity itself or one of its descendants as parent.
 *
 * An entity tree has no lock of its own: it is built and edited on one thread at a time (the
 * owner of the tree orders its edits with the frame update that reads it).
 */
class KEO_DATA_API Entity final : public std::enable_shared_from_this<Entity> {
public:
    /** @brief A shown, asynchronous entity with an empty name and nothing else. */
    Entity();
    /** @brief A shown, asynchronous entity named @p name. */
    explicit Entity(std::string name);
    /**
     * @brief Detaches the children that others still hold (their parent becomes null) and releases
     * the rest. Deep trees are released without deep recursion.
     */
    ~Entity();

    Entity(const Entity&) = delete;
    Entity& operator=(const Entity&) = delete;

    /** @brief The name (any text, empty by default; several entities may share a name). */
    const std::string& getName() const noexcept { return name_; }
    /** @brief Sets the name. */
    void setName(std::string name);

    /** @brief Whether the entity itself is shown (default true). */
    bool isShow() const noexcept { return show_; }
    /** @brief Shows or hides the entity; a hidden entity hides its whole subtree. */
    void setShow(bool show) noexcept { show_ = show; }
    /** @brief Whether the entity and every one of its ancestors are shown. */
    bool isShowing() const noexcept;

    /**
     * @brief Whether the renderer may build the entity's graphics on a worker thread and show them
     * when ready (true, the default) rather than within the frame that first draws them.
     */
    bool _isAsynchronous() const noexcept { return asynchronous_; }
    /** @brief Sets the asynchronous flag of this entity only (not of its children). */
    void _setAsynchronous(bool asynchronous) noexcept { asynchronous_ = asynchronous; }

    /** @brief The parent, or null for a root entity. Non-owning. */
    Entity* getParent() noexcept { return parent_; }
    /** @brief The parent, or null for a root entity. Non-owning. */
    const Entity* getParent() const noexcept { return parent_; }
    /**
     * @brief Moves this entity under @p parent: it leaves its old parent's children and is
     * appended at the end of the new parent's. A null @p parent detaches it and makes it a root.
     *
     * Returns false and changes nothing when the move would make a cycle (@p parent is this
     * entity or one of its descendants) or when this entity is not held by a std::shared_ptr.
     * Setting the parent it already has changes nothing (the child keeps its place) and returns
     * true.
     */
    bool setParent(const std::shared_ptr<Entity>& parent);
    /**
     * @brief Makes room for @p count children in all, so that a parent that knows how many it
     * will hold grows its list once; the children themselves are unchanged.
     */
    void reserveChildren(std::size_t count) { children_.reserve(count); }
    /** @brief The children in order. */
    const std::vector<std::shared_ptr<Entity>>& getChildren() const noexcept { return children_; }
    /** @brief The first direct child named @p name, or null when there is none. */
    std::shared_ptr<Entity> getChildByName(std::string_view name) const noexcept;
    /** @brief Detaches every child (each becomes a root, alive while others hold it). */
    void removeAllChildren() noexcept;
    /** @brief Whether @p entity is a child, grandchild, ... of this entity. */
    bool isAncestorOf(const Entity* entity) const noexcept;

    /** @brief The position property, or null when the entity has no position. */
    const std::shared_ptr<PositionProperty>& getPosition() const noexcept { return position_; }
    /** @brief Sets the position property; null removes the position. */
    void setPosition(std::shared_ptr<PositionProperty> position) noexcept;
    /** @brief The orientation property, or null when the entity has no orientation. */
    const std::shared_ptr<OrientationProperty>& getOrientation() const noexcept;
    /**
     * @brief Sets the orientation property; null means no orientation (the renderer then uses
     * the local east-north-up frame at the position).
     */
    void setOrientation(std::shared_ptr<OrientationProperty> orientation);

    /** @brief The graphics component, or null when the entity draws nothing itself. */
    const std::shared_ptr<GeometryGraphics>& getGeometryGraphics() const noexcept {
        return graphics_;
    }
    /** @brief Sets the graphics component, replacing the previous one; null clears it. */
    void setGeometryGraphics(std::shared_ptr<GeometryGraphics> graphics) noexcept;

private:
    void detachFromParent() noexcept;

    std::string name_;
    Entity* parent_ = nullptr;
    std::vector<std::shared_ptr<Entity>> children_;
    std::shared_ptr<PositionProperty> position_;
    // Held apart, made when an orientation is first set: only models and particle systems turn.
    std::unique_ptr<std::shared_ptr<OrientationProperty>> orientation_;
    std::shared_ptr<GeometryGraphics> graphics_;
    bool show_ = true;
    bool asynchronous_ = true;
};

} // namespace keo
