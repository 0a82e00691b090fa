#pragma once

#include "Feature/FeatureBase.h"
#include "Feature/FeatureExport.h"
#include "Feature/FunctionWrapper.h"
#include "Feature/Publisher.h"
#include "Feature/detail/ListenerCheck.h"

#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace keo {
class Layer;
} // namespace keo

namespace keo::Feature {

class Feature;

/**
 * @brief An interior node of the feature tree: an ordered list of children (features and
 * groups), their parent links, the data-side layer at the root of a tree, visibility passed down
 * to the subtree, and an event that reports the leaf features entering or leaving the subtree
 * and climbs to the root group.
 *
 * Groups are always held by std::shared_ptr. Removal comes in two forms: soft (`remove`,
 * `removeAll`: the nodes are hidden and marked Removed, for the layer's owner to commit) and
 * hard (`removeFromMemory`, `removeAllFromMemory`: the nodes leave the tree).
 *
 * A group takes no lock: a tree is edited, and walked by the frame update, on one thread at a
 * time (the caller orders them). The added-or-removed event is raised synchronously by the call
 * that changed the tree.
 */
class KEO_FEATURE_API FeatureGroup final : public FeatureBase,
                                           public std::enable_shared_from_this<FeatureGroup> {
public:
    /** @brief The signature of the added-or-removed event's listeners: (added, removed). */
    using AddedOrRemovedSignature = void(const std::vector<std::shared_ptr<Feature>>&,
                                         const std::vector<std::shared_ptr<Feature>>&);
    /** @brief The listener type of the added-or-removed event: (features added, removed). */
    using AddedOrRemovedCallback = std::function<AddedOrRemovedSignature>;

    /** @brief An empty group with the id @p id (a fresh random id when empty). */
    explicit FeatureGroup(std::optional<std::uint64_t> id = std::nullopt);
    /**
     * @brief A deep copy with a fresh id: name, description and show, and a clone of every child
     * added in order (own parent links and subscriptions). The layer is not copied, so each
     * cloned node joins as from another layer: it gets the status Added, and a copy with children
     * starts with the status Modified and the change type ContentChanged.
     */
    FeatureGroup(const FeatureGroup& other);
    FeatureGroup& operator=(const FeatureGroup&) = delete;
    /**
     * @brief Disconnects the subscriptions to the child groups and clears the parent link of the
     * children that others still hold (no event is raised).
     */
    ~FeatureGroup() override;

    /** @brief A group made by the copy constructor. */
    std::unique_ptr<FeatureBase> clone() const override;
    /** @brief True. */
    bool isGroup() const override;
    /**
     * @brief Shows or hides the group. An equal value changes nothing. When the showing state
     * changes, every feature below that is not hidden by its own flag (or a group's) raises its
     * definition-changed event; ShowChanged is recorded.
     */
    void setShow(bool show) override;

    /**
     * @brief Appends @p node (a node of another group is moved: that group removes it from
     * memory first, with its event; a child of this group is moved to the end, reported removed
     * and then added). A node that does not come from a tree of this group's layer (also when
     * neither has a layer) gets the status Added (its whole subtree for a group) and this group
     * records ContentChanged. Raises the added-or-removed event with the leaf features that
     * arrive. False (and nothing changes) for null, for this group itself and for one of its
     * ancestors, which would make a cycle.
     */
    bool add(std::shared_ptr<FeatureBase> node);
    /**
     * @brief As add, but places @p node before the child at @p position (the number of children
     * appends). False for null, a position past the end, this group or one of its ancestors. The
     * position is checked before, and taken after, the node leaves its old place: moving a child
     * of this group to a position that its removal put past the end appends it.
     */
    bool insert(std::uint64_t position, std::shared_ptr<FeatureBase> node);
    /**
     * @brief Soft removal: hides @p node and marks it Removed (its whole subtree for a group) and
     * records ContentChanged here; the node stays in its group and no added-or-removed event is
     * raised. False for null or a node without parent. Its parent is not checked to be this
     * group: this is intended, so that removeFromMemory can hand a node of another group to it.
     */
    bool remove(const std::shared_ptr<FeatureBase>& node);
    /**
     * @brief Soft removal of every child and its subtree; ORs ContentChanged into this group's
     * change type and sets its status to Modified whatever it was (not by the change rule).
     */
    void removeAll();
    /**
     * @brief Hard removal: takes @p node out of this group, clears its parent link and raises the
     * added-or-removed event with the leaf features that leave. When @p node is the child of
     * another group, that group's soft removal (remove) is done instead and its result returned:
     * the node stays in that group, hidden and marked Removed, and no event is raised. This is
     * intended: a group takes only its own children out of the tree. False for null, a node
     * without parent, or a node that is not a child of this group.
     */
    bool removeFromMemory(const std::shared_ptr<FeatureBase>& node);
    /**
     * @brief Hard removal of every child, with one added-or-removed event carrying every leaf
     * feature below. The event is raised before the children leave: its listeners still find them
     * in getFeatures, with their parent links.
     */
    void removeAllFromMemory();

    /**
     * @brief The first feature below this group with @p id, depth first in list order; null when
     * none. Groups are not matched by id, neither this one nor a subgroup: this is intended, ids
     * name features.
     */
    std::shared_ptr<FeatureBase> getById(std::uint64_t id) const;
    /** @brief The children in order. */
    const std::list<std::shared_ptr<FeatureBase>>& getFeatures() const noexcept {
        return children_;
    }

    /** @brief Sets the layer of the tree (only the root group's layer counts). */
    void _setLayer(std::weak_ptr<Layer> layer) noexcept { layer_ = std::move(layer); }
    /** @brief This group's own layer, or null when none or gone. */
    std::shared_ptr<Layer> _getSelfLayer() noexcept { return layer_.lock(); }
    /**
     * @brief This group's own layer, or null when none or gone (non-owning: valid while the
     * layer's owners keep it).
     */
    const Layer* _getSelfLayer() const noexcept { return layer_.lock().get(); }

    /**
     * @brief Adds a listener to the added-or-removed event; returns its handle. The event reports
     * the leaf features that entered and left this group's subtree: raised by this group and
     * relayed from every subgroup, so the root group hears the whole tree. A listener is called
     * as (added, removed), one of the two lists empty.
     */
    std::weak_ptr<FunctionWrapper>
    _addFeatureAddedOrRemovedEventListener(AddedOrRemovedCallback&& callback);
    /**
     * @brief Adds any other callable of the listener signature (a lambda, a function pointer, a
     * std::function lvalue), wrapped in an AddedOrRemovedCallback, as the overload above does. A
     * callable of the wrong signature does not compile: one static_assert says so.
     */
    template <typename Function>
    std::weak_ptr<FunctionWrapper> _addFeatureAddedOrRemovedEventListener(Function&& callback) {
        if constexpr (!detail::IS_LISTENER<AddedOrRemovedSignature, Function>) {
            detail::refuseListener<AddedOrRemovedSignature, Function>();
            return {};
        } else {
            return _addFeatureAddedOrRemovedEventListener(
                AddedOrRemovedCallback(std::forward<Function>(callback)));
        }
    }
    /** @brief Raises the added-or-removed event with @p added and @p removed. */
    void _raiseFeatureAddedOrRemovedEvent(const std::vector<std::shared_ptr<Feature>>& added,
                                          const std::vector<std::shared_ptr<Feature>>& removed);

private:
    using ChildList = std::list<std::shared_ptr<FeatureBase>>;

    // What the group keeps on each child, found by the child's address (private to the sources).
    struct ChildIndex;

    static std::uint64_t keyOf(const FeatureBase& node) noexcept;
    bool place(std::optional<std::uint64_t> position, std::shared_ptr<FeatureBase> node);
    void disconnectChildren() noexcept;

    ChildList children_;
    std::unique_ptr<Publisher<AddedOrRemovedCallback>> featureAddedOrRemoved_;
    std::weak_ptr<Layer> layer_;
    std::unique_ptr<ChildIndex> childIndex_;
};

} // namespace keo::Feature
