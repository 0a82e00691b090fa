#pragma once

#include "Feature/FeatureChangeType.h"
#include "Feature/FeatureExport.h"
#include "Feature/FeatureStatus.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace keo {
class Layer;
} // namespace keo

namespace keo::Feature {

class FeatureGroup;

/**
 * @brief A node of the feature tree (a Feature leaf or a FeatureGroup): identity, name,
 * description, visibility, a non-owning link to the parent group, and the status and change-type
 * bookkeeping that callers read to find out what changed.
 *
 * The change rule: a change with flag F is recorded only while the status is None: the change
 * type gets F and the status becomes Modified. Later changes record nothing until the status is
 * set back to None (see Feature for the attribute operations, which always record their flag).
 */
class KEO_FEATURE_API FeatureBase {
public:
    virtual ~FeatureBase();

    /** @brief A deep copy of the node (a feature, or a group with its subtree), with a new id. */
    virtual std::unique_ptr<FeatureBase> clone() const = 0;
    /** @brief Whether the node is a FeatureGroup. */
    virtual bool isGroup() const;
    /**
     * @brief Sets the name. An equal name changes nothing; otherwise, while the status is None,
     * the status becomes Modified and the change type is set to ContentChanged alone (assigned,
     * not OR-ed in, so bits recorded before are dropped). This is intended: a new name (or
     * description, or a whole assignment) replaces what was recorded, where other changes add
     * to it.
     */
    virtual void setName(const std::string& name);
    /** @brief Sets the description, recorded like setName. */
    virtual void setDescription(const std::string& description);
    /**
     * @brief Shows or hides the node (and, for a group, its subtree). An equal value changes
     * nothing; otherwise ShowChanged is recorded by the change rule.
     */
    virtual void setShow(bool show);

    /** @brief The id, fixed at construction. */
    std::uint64_t getId() const noexcept { return id_; }
    /** @brief The name (UTF-8, empty by default). */
    const std::string& getName() const noexcept { return name_; }
    /** @brief The description (UTF-8, empty by default). */
    const std::string& getDescription() const noexcept { return description_; }
    /** @brief The node's own show flag (default true); see isShowing for the effective state. */
    bool isShow() const noexcept { return show_; }
    /** @brief Whether the node is shown: its show flag and that of every ancestor group. */
    bool isShowing() const noexcept;

    /** @brief The parent group, or null (non-owning). */
    FeatureGroup* getParent() noexcept { return parent_; }
    /** @brief The parent group, or null (non-owning). */
    const FeatureGroup* getParent() const noexcept { return parent_; }
    /** @brief Sets the parent link (kept by FeatureGroup; non-owning). */
    void _setParent(FeatureGroup* parent) noexcept { parent_ = parent; }

    /**
     * @brief The layer of the tree: the layer set on the root group above this node (this node
     * itself when it is a group). Null without a parent group, when the root has no layer or its
     * layer is gone. Layers set on inner groups are ignored.
     */
    std::shared_ptr<Layer> getLayer();
    /** @brief The layer of the tree (see the non-const form), or null. */
    const Layer* getLayer() const;

    /** @brief The status (None by default). */
    FeatureStatus getFeatureStatus() const noexcept { return status_; }
    /** @brief Sets the status (callers reset it to None once they have seen the changes). */
    void setFeatureStatus(FeatureStatus status) noexcept { status_ = status; }
    /** @brief The change type: the OR of the FeatureChangeType bits recorded (0 by default). */
    int getFeatureChangeType() const noexcept { return changeType_; }
    /** @brief ORs @p type into the change type. */
    void addChangeType(FeatureChangeType type) noexcept { changeType_ |= type; }
    /** @brief Sets the change type to @p type (it assigns: resetChangeType(0) clears it). */
    void resetChangeType(FeatureChangeType type) noexcept { changeType_ = type; }

protected:
    /** @brief A node with the id @p id, or a fresh random id when empty. */
    explicit FeatureBase(std::optional<std::uint64_t> id);
    /**
     * @brief Copies name, description and show; the copy gets a fresh id, no parent, status None
     * and change type 0.
     */
    FeatureBase(const FeatureBase& other);
    /**
     * @brief Copies name, description and show (the id, parent and status stay), then records the
     * change as setName does, even when every value is equal or @p other is this node.
     */
    FeatureBase& operator=(const FeatureBase& other);

    /** @brief The change rule: while the status is None, ORs @p type in and sets Modified. */
    void markChanged(FeatureChangeType type) noexcept;
    /** @brief ORs @p type in whatever the status, and sets Modified when it is None. */
    void markChangedAlways(FeatureChangeType type) noexcept;
    /** @brief While the status is None: status Modified, change type set to ContentChanged. */
    void markContentReplaced() noexcept;
    /** @brief Stores the name without recording a change. */
    void storeName(const std::string& name) { name_ = name; }
    /** @brief Stores the description without recording a change. */
    void storeDescription(const std::string& description) { description_ = description; }
    /** @brief Stores the show flag without recording a change. */
    void storeShow(bool show) noexcept { show_ = show; }

private:
    std::uint64_t id_;
    std::string name_;
    std::string description_;
    bool show_ = true;
    FeatureGroup* parent_ = nullptr;
    FeatureStatus status_ = FeatureStatus::None;
    int changeType_ = 0;
};

} // namespace keo::Feature
