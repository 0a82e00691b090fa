#pragma once

#include "Feature/FeatureExport.h"
#include "Feature/Geometry.h"
#include "Feature/detail/SubscriptionPair.h"

#include <cstddef>
#include <deque>
#include <memory>
#include <vector>

namespace keo {
class Entity;
} // namespace keo

namespace keo::Feature {

class Feature;
class Style;

/**
 * @brief Several geometries under one feature (a fleet of points, a river with its branches,
 * islands): each component is drawn into its own child entity of the feature's root entity, the
 * child at the component's position among the root's children (children are not named), all
 * with the feature's one style.
 *
 * The multi geometry relays its components' change events as its own, so an edit of a component
 * reaches the feature as an edit of its geometry. Components are usually of one kind (the
 * feature tells multi geometries apart by getComponentType); nothing stops a component from being
 * null (it is skipped) or held twice.
 *
 * A distance display condition of the multi geometry limits every component: for drawing, each
 * component is given the intersection with its own (through its setter) and gets its own back
 * afterwards. The component's listeners hear both edits; the multi geometry does not relay them,
 * as drawing changes nothing that it holds.
 *
 * A multi geometry cannot hold itself, directly or through the multi geometries it holds: such
 * a component is refused with a warning.
 *
 * The root entity itself draws nothing and has no label: each component draws its own label on
 * its child. A component that cannot be drawn (its styling step returns false) leaves its child
 * as it was; the others are drawn and the multi geometry's steps still return true. A Feature
 * logs every style on a multi geometry as not matching (see Feature::setGeometry) and draws it
 * all the same.
 */
class KEO_FEATURE_API MultiGeometry final : public Geometry {
public:
    /** @brief No components. */
    MultiGeometry();
    /** @brief The components @p components, each added as add does, in order. */
    explicit MultiGeometry(std::vector<std::shared_ptr<Geometry>> components);
    /**
     * @brief Copies the distance display condition (not the anchor), then adds a clone of each
     * of @p other's components (a null one stays null); fresh, empty events.
     */
    MultiGeometry(const MultiGeometry& other);
    /** @brief Stops relaying every component. */
    ~MultiGeometry() override;

    /**
     * @brief Copies a multi geometry: its components are dropped (one change when there were
     * any), the distance display condition copied, then a clone of each of @p other's components
     * added. A geometry of another kind is not copied: a warning is logged and nothing changes.
     */
    void assign(const Geometry& other) override;
    /** @brief A copy made by the copy constructor. */
    std::unique_ptr<Geometry> clone() const override;
    /** @brief Type::Multi. */
    Type getType() const override;

    /**
     * @brief Appends @p component (changed-lock true, store, changed-lock false,
     * definition-changed) and relays its events as this geometry's. Returns @p component's
     * pointer; null (with a warning, nothing raised) when it is refused because this geometry
     * would hold itself.
     */
    Geometry* add(std::shared_ptr<Geometry> component);
    /**
     * @brief Removes the first occurrence of @p component (changed-lock true, erase, changed-lock
     * false, definition-changed) and stops relaying it. Returns false, with nothing raised, when
     * it is not a component. The components after it move up one place, and so do the child
     * entities they are drawn into at the next update.
     */
    bool remove(const Geometry* component);
    /** @brief Removes every component (one change, none when there were none). */
    void clear();
    /** @brief The components in the order they were added. */
    const std::vector<std::shared_ptr<Geometry>>& getComponents() const noexcept {
        return components_;
    }
    /** @brief The number of components. */
    std::size_t getNumComponents() const noexcept { return components_.size(); }
    /**
     * @brief The kind of the components: that of the first component, looking through multi
     * geometries to their first component; Type::Base when there is none (or it is null).
     */
    Type getComponentType() const noexcept;

    /**
     * @brief Runs each component's geometry step on its child (components whose child is not made
     * yet are skipped). Returns true.
     */
    bool _updateGeometry(Entity& entity, const Style* style) override;
    /**
     * @brief Makes the missing children, runs each component's styling step on its child (with
     * the multi geometry's distance display condition intersected into the component's for the
     * call), drops the children beyond the components and applies the shadows. Returns true.
     */
    bool _updateStyle(Entity& entity, const Feature& feature, const Style* style) override;

private:
    class ConditionLoan;

    // Whether holding @p component would make this geometry hold itself.
    bool wouldHoldItself(const Geometry& component) const noexcept;
    // The relays of the components: a component's edit is this geometry's, but for the edits
    // that drawing makes and undoes.
    static void relayDefinitionChanged(void* multi);
    static void relayChangedLock(void* multi, bool locked);
    static const detail::RelayThunks COMPONENT_RELAY;

    std::vector<std::shared_ptr<Geometry>> components_;
    // One relay per component, in the same order; a deque, as the links must not move.
    std::deque<detail::SubscriptionPair> subscriptions_;
    // Set while a component is drawn under this geometry's distance display condition.
    bool drawing_ = false;
};

} // namespace keo::Feature
