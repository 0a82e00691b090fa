#include "Feature/Feature.h"

#include "ChildEntity.h"
#include "Data/Entity.h"
#include "Feature/Geometry.h"
#include "Feature/MultiGeometry.h"
#include "Feature/Style.h"
#include "FeatureLog.h"
#include "FixedSites.h"
#include "LazyText.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace keo::Feature {

namespace {

constexpr std::size_t INITIAL_ATTRIBUTE_BUCKETS = 8;
// Room made in a feature's own list of added entities when it starts recording: enough for the
// entities of most features' first update.
constexpr std::size_t ADDED_ENTITIES_EXPECTED = 8;

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

struct Feature::Extras {
    std::string userDefinedAttribute;
    std::vector<std::string> attachmentFiles;
    const DataSource* originDataSource = nullptr;
    // The copy of the style taken when the feature is highlighted.
    std::shared_ptr<Style> highlightStyle;
    std::optional<BoundingSphere> boundingSphere;
    std::optional<GlobeRectangle> globeRectangle;
};

Feature::Extras& Feature::extras() {
    if (!extras_) {
        extras_ = std::make_unique<Extras>();
    }
    return *extras_;
}

Feature::Feature(std::optional<std::uint64_t> id)
    : FeatureBase(id)
    , attributes_(INITIAL_ATTRIBUTE_BUCKETS) {
    attributes_.max_load_factor(1.0f);
}

Feature::Feature(const Feature& other)
    : FeatureBase(other)
    , attributes_(INITIAL_ATTRIBUTE_BUCKETS) {
    attributes_.max_load_factor(1.0f);
    copyContentFrom(other);
}

Feature& Feature::operator=(const Feature& other) {
    if (this == &other) {
        return *this;
    }
    {
        const Lock lock(lock_);
        FeatureBase::operator=(other);
        highlight_ = false;
        if (extras_) {
            extras_->highlightStyle.reset();
        }
    }
    copyContentFrom(other);
    return *this;
}

Feature::~Feature() = default;

void Feature::copyContentFrom(const Feature& other) {
    {
        const Lock lock(lock_);
        attributes_ = other.attributes_;
        if (other.extras_) {
            Extras& mine = extras();
            mine.userDefinedAttribute = other.extras_->userDefinedAttribute;
            mine.attachmentFiles = other.extras_->attachmentFiles;
            mine.originDataSource = other.extras_->originDataSource;
        } else if (extras_) {
            extras_->userDefinedAttribute.clear();
            extras_->attachmentFiles.clear();
            extras_->originDataSource = nullptr;
        }
        detail::storeText(labelText_, other.getLabelText());
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
        const Lock lock(lock_);
        FeatureBase::setName(name);
    }
    _onStyleDefinitionChanged(style_.get());
}

void Feature::setDescription(const std::string& description) {
    if (getDescription() == description) {
        return;
    }
    {
        const Lock lock(lock_);
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
        const Lock lock(lock_);
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
        const Lock lock(lock_);
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
        const Lock lock(lock_);
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
        const Lock lock(lock_);
        highlight_ = highlight;
        if (highlight && style_) {
            extras().highlightStyle = style_->clone();
        } else if (!highlight && extras_) {
            extras_->highlightStyle.reset();
        }
    }
    _onStyleDefinitionChanged(style_.get());
}

const std::string& Feature::getUserDefinedAttribute() const noexcept {
    static const std::string none;
    return extras_ ? extras_->userDefinedAttribute : none;
}

void Feature::setUserDefinedAttribute(const std::string& value) {
    if (extras_ || !value.empty()) {
        extras().userDefinedAttribute = value;
    }
    markChanged(ContentChanged);
}

const std::vector<std::string>& Feature::getAttachmentFiles() const noexcept {
    static const std::vector<std::string> none;
    return extras_ ? extras_->attachmentFiles : none;
}

void Feature::setAttachmentFiles(const std::vector<std::string>& files) {
    if (extras_ || !files.empty()) {
        extras().attachmentFiles = files;
    }
}

void Feature::setAttachmentFiles(std::vector<std::string>&& files) {
    if (extras_ || !files.empty()) {
        extras().attachmentFiles = std::move(files);
    }
}

const DataSource* Feature::_getOriginDataSource() const noexcept {
    return extras_ ? extras_->originDataSource : nullptr;
}

void Feature::_setOriginDataSource(const DataSource* source) {
    if (extras_ || source != nullptr) {
        extras().originDataSource = source;
    }
}

const std::string& Feature::getLabelText() const noexcept {
    return detail::textIn(labelText_);
}

void Feature::setLabelText(const std::string& text) {
    if (getLabelText() == text) {
        return;
    }
    {
        const Lock lock(lock_);
        detail::storeText(labelText_, text);
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
        const Lock lock(lock_);
        distanceDisplayCondition_ = condition;
    }
    _onStyleDefinitionChanged(style_.get());
}

void Feature::_setAsynchronous(bool asynchronous) {
    if (asynchronous_ == asynchronous) {
        return;
    }
    {
        const Lock lock(lock_);
        asynchronous_ = asynchronous;
        forEachEntity(implHandle_, [asynchronous](const auto& entity) {
            entity->_setAsynchronous(asynchronous);
        });
    }
    _raiseDefinitionChangedEvent();
}

const std::optional<GlobeRectangle>& Feature::_getGlobeRectangle() {
    static const std::optional<GlobeRectangle> none;
    const Lock lock(lock_);
    if (extras_ && extras_->globeRectangle && !globeRectangleDirty_) {
        return extras_->globeRectangle;
    }
    if (!geometry_) {
        return none;
    }
    // Only line and area kinds give an extent from their vertices; the cache of other kinds is
    // left as it was.
    if (const auto* positions = geometry_->_getCartographicPositions()) {
        extras().globeRectangle = GlobeRectangle::fromCartographicArray(*positions);
    }
    globeRectangleDirty_ = false;
    return extras_ ? extras_->globeRectangle : none;
}

const BoundingSphere* Feature::_getBoundingSphere() const noexcept {
    return extras_ && extras_->boundingSphere ? &*extras_->boundingSphere : nullptr;
}

void Feature::_setBoundingSphere(const BoundingSphere& sphere) {
    const Lock lock(lock_);
    extras().boundingSphere = sphere;
}

bool Feature::_isEntityReady() const {
    const Lock lock(lock_);
    if (!isShowing()) {
        return true;
    }
    return !geometryDirty_ && !styleDirty_;
}

std::vector<std::shared_ptr<Entity>> Feature::_getAllEntities() const {
    const Lock lock(lock_);
    std::vector<std::shared_ptr<Entity>> entities;
    forEachEntity(implHandle_, [&entities](const auto& entity) { entities.push_back(entity); });
    return entities;
}

struct Feature::EntityLists {
    EntityList* added;
    EntityList* removed;
    // The feature's own lists, pointed to by the two above when nobody hands lists over.
    EntityList ownAdded;
    EntityList ownRemoved;
    // False for the caller's lists, lent for the length of an update.
    bool owned = false;
};

void Feature::EntityListsDeleter::operator()(EntityLists* lists) const noexcept {
    if (lists->owned) {
        delete lists;
    }
}

Feature::EntityLists& Feature::entityLists() const {
    if (!entityLists_) {
        entityLists_.reset(new EntityLists);
        entityLists_->added = &entityLists_->ownAdded;
        entityLists_->removed = &entityLists_->ownRemoved;
        entityLists_->owned = true;
    }
    return *entityLists_;
}

void Feature::_addEntity(const std::shared_ptr<Entity>& entity) const {
    const Lock lock(lock_);
    entity->_setAsynchronous(asynchronous_);
    std::vector<std::shared_ptr<Entity>>& added = *entityLists().added;
    if (added.capacity() == 0) {
        // A first update adds a root and a few children: the list is made once, not grown
        // through one size after another.
        added.reserve(ADDED_ENTITIES_EXPECTED);
    }
    added.push_back(entity);
}

void Feature::_removeEntity(const std::shared_ptr<Entity>& entity) const {
    const Lock lock(lock_);
    entityLists().removed->push_back(entity);
}

std::vector<std::shared_ptr<Entity>> Feature::_takeAddedEntities() {
    return takeOwnList(&EntityLists::ownAdded, &EntityLists::ownRemoved);
}

std::vector<std::shared_ptr<Entity>> Feature::_takeRemovedEntities() {
    return takeOwnList(&EntityLists::ownRemoved, &EntityLists::ownAdded);
}

std::vector<std::shared_ptr<Entity>> Feature::takeOwnList(EntityList EntityLists::*taken,
                                                          EntityList EntityLists::*other) {
    const Lock lock(lock_);
    if (!entityLists_ || !entityLists_->owned) {
        return {};
    }
    auto list = std::exchange((*entityLists_).*taken, {});
    // Both lists taken: the feature holds nothing for them until it records again.
    if (((*entityLists_).*other).empty()) {
        entityLists_.reset();
    }
    return list;
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
    const Lock lock(lock_);
    updateLocked(addAgain);
}

bool Feature::_updateEntityInCull(bool addAgain, std::vector<std::shared_ptr<Entity>>& added,
                                  std::vector<std::shared_ptr<Entity>>& removed) {
    const Lock lock(lock_);
    if (entityLists_) {
        // Recorded outside an update and not taken yet: they come first.
        std::move(entityLists_->ownAdded.begin(), entityLists_->ownAdded.end(),
                  std::back_inserter(added));
        std::move(entityLists_->ownRemoved.begin(), entityLists_->ownRemoved.end(),
                  std::back_inserter(removed));
        entityLists_.reset();
    }
    // The caller's lists are lent for the update: what it records goes straight to them.
    EntityLists lent{&added, &removed, {}, {}, false};
    entityLists_.reset(&lent);
    struct GiveBack {
        std::unique_ptr<EntityLists, EntityListsDeleter>& slot;
        ~GiveBack() { slot.reset(); }
    } giveBack{entityLists_};
    return updateLocked(addAgain);
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
    const Lock lock(lock_);
    if (changeRaised_) {
        return;
    }
    definitionChanged_.raiseEvent(this);
    changeRaised_ = true;
}

void Feature::_onGeometryDefinitionChanged() {
    {
        const Lock lock(lock_);
        geometryDirty_ = true;
        if (extras_) {
            extras_->boundingSphere.reset();
        }
        globeRectangleDirty_ = true;
    }
    _raiseDefinitionChangedEvent();
    markChanged(ContentChanged);
}

void Feature::_onStyleDefinitionChanged(const Style* /*style*/) {
    {
        const Lock lock(lock_);
        styleDirty_ = true;
    }
    _raiseDefinitionChangedEvent();
    markChanged(ContentChanged);
}

void Feature::_onChangedLock(bool locked) {
    if (locked) {
        lock_.lock();
    } else {
        lock_.unlock();
    }
}

} // namespace keo::Feature
