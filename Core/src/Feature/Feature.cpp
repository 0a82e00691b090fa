#include "Feature/Feature.h"

#include "ChildEntity.h"
#include "Data/Entity.h"
#include "Feature/Geometry.h"
#include "Feature/MultiGeometry.h"
#include "Feature/Style.h"
#include "FeatureLog.h"
#include "FixedSites.h"

#include <utility>

namespace keo::Feature {

namespace {

constexpr std::size_t INITIAL_ATTRIBUTE_BUCKETS = 8;

// The geometry kinds a style kind can draw: point with point, polyline with polyline, polygon
// and rectangle with polygon. Ellipse and multi geometries have no row and always mismatch.
bool kindsMatch(Geometry::Type geometry, Style::Type style) noexcept {
    switch (geometry) {
    case Geometry::Type::Point:
        return style == Style::Type::Point;
    case Geometry::Type::Polyline:
        return style == Style::Type::Polyline;
    case Geometry::Type::Polygon:
    case Geometry::Type::Rectangle:
        return style == Style::Type::Polygon;
    default:
        return false;
    }
}

// What the feature does when its geometry or its style reports a change or an edit's lock.
void onChangedLock(void* feature, bool locked) {
    static_cast<Feature*>(feature)->_onChangedLock(locked);
}

constexpr detail::RelayThunks GEOMETRY_RELAY{
    [](void* feature) { static_cast<Feature*>(feature)->_onGeometryDefinitionChanged(); },
    onChangedLock};

void onStyleDefinitionChanged(void* feature) {
    auto* const self = static_cast<Feature*>(feature);
    self->_onStyleDefinitionChanged(self->getStyle());
}

constexpr detail::RelayThunks STYLE_RELAY{onStyleDefinitionChanged, onChangedLock};

void checkKinds(const Geometry* geometry, const Style* style, const detail::SourceSite& site) {
    if (geometry != nullptr && style != nullptr &&
        !kindsMatch(geometry->getType(), style->getType())) {
        detail::logWarning(site, "风格和几何体不匹配，风格不起作用。");
    }
}

// Whether a feature must throw its old graphics away when its geometry changes from @p before to
// @p after: when either is missing or their kinds differ; two multi geometries differ when their
// components do (an empty one counts as kind Base).
bool geometryKindChanged(const Geometry* before, const Geometry* after) noexcept {
    if (before == nullptr || after == nullptr || before->getType() != after->getType()) {
        return true;
    }
    if (before->getType() != Geometry::Type::Multi) {
        return false;
    }
    const auto* const multiBefore = dynamic_cast<const MultiGeometry*>(before);
    const auto* const multiAfter = dynamic_cast<const MultiGeometry*>(after);
    return multiBefore == nullptr || multiAfter == nullptr ||
           multiBefore->getComponentType() != multiAfter->getComponentType();
}

// Visits @p root and its descendants, depth first (pre-order), without recursion.
template <typename Visit>
void forEachEntity(const std::shared_ptr<Entity>& root, Visit&& visit) {
    if (!root) {
        return;
    }
    std::vector<const std::shared_ptr<Entity>*> stack{&root};
    while (!stack.empty()) {
        const std::shared_ptr<Entity>& entity = *stack.back();
        stack.pop_back();
        visit(entity);
        const auto& children = entity->getChildren();
        for (auto it = children.rbegin(); it != children.rend(); ++it) {
            stack.push_back(&*it);
        }
    }
}

} // namespace

Feature::Feature(std::optional<std::uint64_t> id)
    : FeatureBase(id)
    , attributes_(INITIAL_ATTRIBUTE_BUCKETS)
    , mutex_(std::make_unique<std::recursive_mutex>()) {
    attributes_.max_load_factor(1.0f);
}

Feature::Feature(const Feature& other)
    : FeatureBase(other)
    , attributes_(INITIAL_ATTRIBUTE_BUCKETS)
    , mutex_(std::make_unique<std::recursive_mutex>()) {
    attributes_.max_load_factor(1.0f);
    copyContentFrom(other);
}

Feature& Feature::operator=(const Feature& other) {
    if (this == &other) {
        return *this;
    }
    {
        const Lock lock(*mutex_);
        FeatureBase::operator=(other);
        highlight_ = false;
        highlightStyle_.reset();
    }
    copyContentFrom(other);
    return *this;
}

Feature::~Feature() = default;

void Feature::copyContentFrom(const Feature& other) {
    {
        const Lock lock(*mutex_);
        attributes_ = other.attributes_;
        userDefinedAttribute_ = other.userDefinedAttribute_;
        attachmentFiles_ = other.attachmentFiles_;
        originDataSource_ = other.originDataSource_;
        labelText_ = other.labelText_;
        asynchronous_ = other.asynchronous_;
        distanceDisplayCondition_ = other.distanceDisplayCondition_;
    }
    setGeometry(other.geometry_ ? other.geometry_->clone() : nullptr);
    setStyle(other.style_ ? other.style_->clone() : nullptr);
}

std::unique_ptr<FeatureBase> Feature::clone() const {
    return std::make_unique<Feature>(*this);
}

void Feature::setName(const std::string& name) {
    if (getName() == name) {
        return;
    }
    {
        const Lock lock(*mutex_);
        FeatureBase::setName(name);
    }
    _onStyleDefinitionChanged(style_.get());
}

void Feature::setDescription(const std::string& description) {
    if (getDescription() == description) {
        return;
    }
    {
        const Lock lock(*mutex_);
        FeatureBase::setDescription(description);
    }
    _onStyleDefinitionChanged(style_.get());
}

void Feature::setShow(bool show) {
    if (isShow() == show) {
        return;
    }
    const bool wasShowing = isShowing();
    {
        const Lock lock(*mutex_);
        storeShow(show);
    }
    if (isShowing() != wasShowing) {
        _raiseDefinitionChangedEvent();
    }
    markChanged(ShowChanged);
}

void Feature::setGeometry(std::shared_ptr<Geometry> geometry) {
    if (geometry == geometry_) {
        return;
    }
    checkKinds(geometry.get(), style_.get(), detail::site::FEATURE_SET_GEOMETRY);
    geometrySubscription_.disconnect();
    {
        const Lock lock(*mutex_);
        if (geometryKindChanged(geometry_.get(), geometry.get())) {
            geometryKindChanged_ = true;
        }
        geometry_ = std::move(geometry);
        globeRectangleDirty_ = true;
    }
    _onGeometryDefinitionChanged();
    if (geometry_) {
        geometrySubscription_.connect(*geometry_, this, GEOMETRY_RELAY);
    }
}

void Feature::setStyle(std::shared_ptr<Style> style) {
    if (style == style_) {
        return;
    }
    checkKinds(geometry_.get(), style.get(), detail::site::FEATURE_SET_STYLE);
    styleSubscription_.disconnect();
    {
        const Lock lock(*mutex_);
        style_ = std::move(style);
    }
    _onStyleDefinitionChanged(style_.get());
    if (style_) {
        styleSubscription_.connect(*style_, this, STYLE_RELAY);
    }
}

void Feature::markAttributeChanged() noexcept {
    markChangedAlways(AttributeChanged);
}

void Feature::setAttributes(AttributeMap attributes) {
    attributes_ = std::move(attributes);
    markAttributeChanged();
}

void Feature::setAttribute(const std::string& key, const AttributeValue& value) {
    attributes_[key] = value;
    markAttributeChanged();
}

void Feature::setAttributeNull(const std::string& key) {
    attributes_[key].value.reset();
    markAttributeChanged();
}

bool Feature::removeAttribute(const std::string& key) {
    return attributes_.erase(key) != 0;
}

bool Feature::renameAttribute(const std::string& oldKey, const std::string& newKey) {
    const auto found = attributes_.find(oldKey);
    if (found == attributes_.end()) {
        return false;
    }
    if (oldKey == newKey) {
        return true;
    }
    AttributeValue value = std::move(found->second);
    attributes_.erase(found);
    attributes_[newKey] = std::move(value);
    return true;
}

void Feature::setHighlight(bool highlight) {
    if (highlight_ == highlight) {
        return;
    }
    {
        const Lock lock(*mutex_);
        highlight_ = highlight;
        if (highlight && style_) {
            highlightStyle_ = style_->clone();
        } else if (!highlight) {
            highlightStyle_.reset();
        }
    }
    _onStyleDefinitionChanged(style_.get());
}

void Feature::setUserDefinedAttribute(const std::string& value) {
    userDefinedAttribute_ = value;
    markChanged(ContentChanged);
}

void Feature::setLabelText(const std::string& text) {
    if (labelText_ == text) {
        return;
    }
    {
        const Lock lock(*mutex_);
        labelText_ = text;
    }
    _onStyleDefinitionChanged(style_.get());
}

void Feature::setDistanceDisplayCondition(
    const std::optional<DistanceDisplayCondition>& condition) {
    // optional's == compares the engaged values with float ==, so a NaN is never equal.
    if (distanceDisplayCondition_ == condition) {
        return;
    }
    {
        const Lock lock(*mutex_);
        distanceDisplayCondition_ = condition;
    }
    _onStyleDefinitionChanged(style_.get());
}

void Feature::_setAsynchronous(bool asynchronous) {
    if (asynchronous_ == asynchronous) {
        return;
    }
    {
        const Lock lock(*mutex_);
        asynchronous_ = asynchronous;
        forEachEntity(implHandle_, [asynchronous](const auto& entity) {
            entity->_setAsynchronous(asynchronous);
        });
    }
    _raiseDefinitionChangedEvent();
}

const std::optional<GlobeRectangle>& Feature::_getGlobeRectangle() {
    const Lock lock(*mutex_);
    if (globeRectangle_ && !globeRectangleDirty_) {
        return globeRectangle_;
    }
    if (!geometry_) {
        static const std::optional<GlobeRectangle> none;
        return none;
    }
    // Only line and area kinds give an extent from their vertices; the cache of other kinds is
    // left as it was.
    if (const auto* positions = geometry_->_getCartographicPositions()) {
        globeRectangle_ = GlobeRectangle::fromCartographicArray(*positions);
    }
    globeRectangleDirty_ = false;
    return globeRectangle_;
}

void Feature::_setBoundingSphere(const BoundingSphere& sphere) {
    const Lock lock(*mutex_);
    boundingSphere_ = std::make_unique<BoundingSphere>(sphere);
}

bool Feature::_isEntityReady() const {
    const Lock lock(*mutex_);
    if (!isShowing()) {
        return true;
    }
    return !geometryDirty_ && !styleDirty_;
}

std::vector<std::shared_ptr<Entity>> Feature::_getAllEntities() const {
    const Lock lock(*mutex_);
    std::vector<std::shared_ptr<Entity>> entities;
    forEachEntity(implHandle_, [&entities](const auto& entity) { entities.push_back(entity); });
    return entities;
}

void Feature::_addEntity(const std::shared_ptr<Entity>& entity) const {
    const Lock lock(*mutex_);
    entity->_setAsynchronous(asynchronous_);
    addedEntities_.push_back(entity);
}

void Feature::_removeEntity(const std::shared_ptr<Entity>& entity) const {
    const Lock lock(*mutex_);
    removedEntities_.push_back(entity);
}

std::vector<std::shared_ptr<Entity>> Feature::_takeAddedEntities() {
    const Lock lock(*mutex_);
    return std::exchange(addedEntities_, {});
}

std::vector<std::shared_ptr<Entity>> Feature::_takeRemovedEntities() {
    const Lock lock(*mutex_);
    return std::exchange(removedEntities_, {});
}

void Feature::tearDownChildren() {
    // Every entity below the root is reported dropped, then the root keeps nothing.
    for (const auto& child : implHandle_->getChildren()) {
        forEachEntity(child, [this](const auto& entity) { _removeEntity(entity); });
    }
    implHandle_->removeAllChildren();
    implHandle_->setGeometryGraphics(nullptr);
}

void Feature::_updateEntityInCull(bool addAgain) {
    const Lock lock(*mutex_);
    updateLocked(addAgain);
}

bool Feature::_updateEntityInCull(bool addAgain, std::vector<std::shared_ptr<Entity>>& added,
                                  std::vector<std::shared_ptr<Entity>>& removed) {
    const Lock lock(*mutex_);
    const bool rebuilt = updateLocked(addAgain);
    added.swap(addedEntities_);
    removed.swap(removedEntities_);
    return rebuilt;
}

bool Feature::updateLocked(bool addAgain) {
    changeRaised_ = false;

    if (!implHandle_) {
        implHandle_ = std::make_shared<Entity>();
        _addEntity(implHandle_);
    } else if (addAgain) {
        forEachEntity(implHandle_, [this](const auto& entity) { _addEntity(entity); });
    }

    if (!isShowing()) {
        implHandle_->setShow(false);
        return false;
    }
    implHandle_->_setAsynchronous(asynchronous_);
    implHandle_->setShow(true);

    if (!geometryDirty_ && !styleDirty_) {
        return false;
    }

    if (geometryKindChanged_) {
        implHandle_->setGeometryGraphics(nullptr);
        // Detaching changes the list of children, so it is walked over a copy.
        const std::vector<std::shared_ptr<Entity>> children = implHandle_->getChildren();
        for (const auto& child : children) {
            detail::removeEntity(child, *this);
        }
        geometryKindChanged_ = false;
    }

    if (geometry_) {
        bool ok = true;
        if (geometryDirty_) {
            ok = geometry_->_updateGeometry(*implHandle_, style_.get());
        }
        const bool styled = geometry_->_updateStyle(*implHandle_, *this, style_.get());
        if (!ok || !styled) {
            tearDownChildren();
        }
    }
    geometryDirty_ = false;
    styleDirty_ = false;
    return true;
}

std::weak_ptr<FunctionWrapper>
Feature::_addDefinitionChangedEventListener(std::function<void(Feature*)>&& callback) {
    return definitionChanged_.addEventListener(std::move(callback));
}

void Feature::_raiseDefinitionChangedEvent() {
    const Lock lock(*mutex_);
    if (changeRaised_) {
        return;
    }
    definitionChanged_.raiseEvent(this);
    changeRaised_ = true;
}

void Feature::_onGeometryDefinitionChanged() {
    {
        const Lock lock(*mutex_);
        geometryDirty_ = true;
        boundingSphere_.reset();
        globeRectangleDirty_ = true;
    }
    _raiseDefinitionChangedEvent();
    markChanged(ContentChanged);
}

void Feature::_onStyleDefinitionChanged(const Style* /*style*/) {
    {
        const Lock lock(*mutex_);
        styleDirty_ = true;
    }
    _raiseDefinitionChangedEvent();
    markChanged(ContentChanged);
}

void Feature::_onChangedLock(bool locked) {
    if (locked) {
        mutex_->lock();
    } else {
        mutex_->unlock();
    }
}

} // namespace keo::Feature
