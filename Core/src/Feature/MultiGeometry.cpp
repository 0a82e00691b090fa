#include "Feature/MultiGeometry.h"

#include "ChildEntity.h"
#include "Data/Entity.h"
#include "DisplayCondition.h"
#include "EditRule.h"
#include "Feature/Feature.h"
#include "Feature/Style.h"
#include "FeatureLog.h"
#include "FixedSites.h"

#include <algorithm>
#include <utility>

namespace keo::Feature {

namespace {

// The child of @p entity for component @p index: made (and reported) when the root has fewer.
std::shared_ptr<Entity> componentChild(Entity& entity, std::size_t index, const Feature& feature) {
    if (entity.getChildren().size() > index) {
        return entity.getChildren()[index];
    }
    auto child = std::make_shared<Entity>();
    child->setParent(entity.shared_from_this());
    feature._addEntity(child);
    return child;
}

} // namespace

const detail::RelayThunks MultiGeometry::COMPONENT_RELAY{&MultiGeometry::relayDefinitionChanged,
                                                         &MultiGeometry::relayChangedLock};

void MultiGeometry::relayDefinitionChanged(void* multi) {
    auto* const self = static_cast<MultiGeometry*>(multi);
    if (!self->drawing_) {
        self->_raiseDefinitionChangedEvent();
    }
}

void MultiGeometry::relayChangedLock(void* multi, bool locked) {
    auto* const self = static_cast<MultiGeometry*>(multi);
    if (!self->drawing_) {
        self->_raiseChangedLockEvent(locked);
    }
}

MultiGeometry::MultiGeometry() = default;

MultiGeometry::MultiGeometry(std::vector<std::shared_ptr<Geometry>> components) {
    for (auto& component : components) {
        add(std::move(component));
    }
}

MultiGeometry::MultiGeometry(const MultiGeometry& other)
    : Geometry(other) {
    for (const auto& component : other.components_) {
        add(component ? component->clone() : nullptr);
    }
}

MultiGeometry::~MultiGeometry() = default;

void MultiGeometry::assign(const Geometry& other) {
    // Written out rather than through the common assign: the components go before the base part
    // is copied, and new ones come after it.
    const auto* const source = dynamic_cast<const MultiGeometry*>(&other);
    if (!detail::checkAssignKind(source != nullptr, detail::site::MULTI_GEOMETRY_ASSIGN)) {
        return;
    }
    // The components are held aside until the copy is made: @p other may be this geometry or
    // one of its components.
    const std::vector<std::shared_ptr<Geometry>> dropped = components_;
    const std::vector<std::shared_ptr<Geometry>> incoming = source->components_;
    clear();
    Geometry::assign(other);
    for (const auto& component : incoming) {
        add(component ? component->clone() : nullptr);
    }
}

std::unique_ptr<Geometry> MultiGeometry::clone() const {
    return std::make_unique<MultiGeometry>(*this);
}

Geometry::Type MultiGeometry::getType() const {
    return Type::Multi;
}

void MultiGeometry::clear() {
    subscriptions_.clear();
    if (components_.empty()) {
        return;
    }
    {
        const detail::ChangedLockScope<MultiGeometry> scope(*this);
        components_.clear();
    }
    _raiseDefinitionChangedEvent();
}

bool MultiGeometry::wouldHoldItself(const Geometry& component) const noexcept {
    if (&component == this) {
        return true;
    }
    const auto* const multi = dynamic_cast<const MultiGeometry*>(&component);
    if (multi == nullptr) {
        return false;
    }
    for (const auto& held : multi->components_) {
        if (held && wouldHoldItself(*held)) {
            return true;
        }
    }
    return false;
}

Geometry* MultiGeometry::add(std::shared_ptr<Geometry> component) {
    Geometry* const added = component.get();
    if (added != nullptr && wouldHoldItself(*added)) {
        detail::logWarning(KEO_FEATURE_SITE("MultiGeometry::add"),
                           "a multi geometry cannot hold itself: the component is not added");
        return nullptr;
    }
    {
        const detail::ChangedLockScope<MultiGeometry> scope(*this);
        components_.push_back(std::move(component));
    }
    _raiseDefinitionChangedEvent();
    subscriptions_.emplace_back();
    if (added != nullptr) {
        subscriptions_.back().connect(*added, this, COMPONENT_RELAY);
    }
    return added;
}

bool MultiGeometry::remove(const Geometry* component) {
    const auto found =
        std::find_if(components_.begin(), components_.end(),
                     [component](const auto& held) { return held.get() == component; });
    if (found == components_.end()) {
        return false;
    }
    const auto index = static_cast<std::size_t>(found - components_.begin());
    // The relays are links that cannot move: those from the removed one on are made again.
    for (std::size_t i = index; i < subscriptions_.size(); ++i) {
        subscriptions_[i].disconnect();
    }
    subscriptions_.pop_back();
    std::shared_ptr<Geometry> removed;
    {
        const detail::ChangedLockScope<MultiGeometry> scope(*this);
        removed = std::move(*found);
        components_.erase(found);
    }
    for (std::size_t i = index; i < components_.size(); ++i) {
        if (components_[i]) {
            subscriptions_[i].connect(*components_[i], this, COMPONENT_RELAY);
        }
    }
    _raiseDefinitionChangedEvent();
    return true;
}

Geometry::Type MultiGeometry::getComponentType() const noexcept {
    const MultiGeometry* multi = this;
    for (;;) {
        if (multi->components_.empty() || !multi->components_.front()) {
            return Type::Base;
        }
        const Geometry& first = *multi->components_.front();
        if (first.getType() != Type::Multi) {
            return first.getType();
        }
        multi = dynamic_cast<const MultiGeometry*>(&first);
        if (multi == nullptr) {
            return Type::Multi;
        }
    }
}

bool MultiGeometry::_updateGeometry(Entity& entity, const Style* style) {
    const auto& children = entity.getChildren();
    for (std::size_t i = 0; i < components_.size() && i < children.size(); ++i) {
        if (components_[i]) {
            components_[i]->_updateGeometry(*children[i], style);
        }
    }
    return true;
}

// Lends a component the intersection of its distance display condition with the multi
// geometry's for as long as it lives. The two edits are not relayed.
class MultiGeometry::ConditionLoan final {
public:
    ConditionLoan(MultiGeometry& multi, Geometry& component,
                  const std::optional<DistanceDisplayCondition>& limit)
        : multi_(multi)
        , component_(component)
        , own_(component.getDistanceDisplayCondition()) {
        set(own_ ? detail::intersectDisplayConditions(own_, limit) : limit);
    }
    ConditionLoan(const ConditionLoan&) = delete;
    ConditionLoan& operator=(const ConditionLoan&) = delete;
    ~ConditionLoan() { set(own_); }

private:
    void set(const std::optional<DistanceDisplayCondition>& condition) {
        multi_.drawing_ = true;
        component_.setDistanceDisplayCondition(condition);
        multi_.drawing_ = false;
    }

    MultiGeometry& multi_;
    Geometry& component_;
    const std::optional<DistanceDisplayCondition> own_;
};

bool MultiGeometry::_updateStyle(Entity& entity, const Feature& feature, const Style* style) {
    const auto& limit = getDistanceDisplayCondition();
    for (std::size_t i = 0; i < components_.size(); ++i) {
        const auto child = componentChild(entity, i, feature);
        Geometry* const component = components_[i].get();
        if (component == nullptr) {
            continue;
        }
        if (!limit) {
            component->_updateStyle(*child, feature, style);
            continue;
        }
        // The component is drawn within both conditions, then gets its own back (also when its
        // drawing throws).
        const ConditionLoan loan(*this, *component, limit);
        component->_updateStyle(*child, feature, style);
    }
    while (entity.getChildren().size() > components_.size()) {
        // A copy: detaching the child erases the element of the list that holds it.
        const std::shared_ptr<Entity> last = entity.getChildren().back();
        detail::removeEntity(last, feature);
    }
    applyShadowsToEntity(entity, style != nullptr ? style->getShadows() : 0);
    return true;
}

} // namespace keo::Feature
