#pragma once

#include "Common/BoundingSphere.h"
#include "Common/GlobeRectangle.h"
#include "Data/DistanceDisplayCondition.h"
#include "Feature/AttributeValue.h"
#include "Feature/FeatureBase.h"
#include "Feature/FeatureExport.h"
#include "Feature/FunctionWrapper.h"
#include "Feature/Publisher.h"
#include "Feature/detail/RecursiveSpinLock.h"
#include "Feature/detail/SubscriptionPair.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace keo {
class DataSource;
class Entity;
} // namespace keo

namespace keo::Feature {

class Geometry;
class Style;

/**
 * @brief A leaf of the feature tree: one geometry drawn with one style, a table of attributes,
 * display options (highlight, label text, distance display condition), and the bookkeeping of
 * the data-library entities that render it.
 *
 * The rendering side calls `_updateEntityInCull` once a frame: it creates the root entity on the
 * first call, has the geometry rebuild the graphics when the geometry or the style changed, and
 * records the entities that were created and dropped, which the rendering side takes with
 * `_takeAddedEntities` and `_takeRemovedEntities`.
 *
 * Locking: each feature owns a recursive lock (8 bytes: it spins briefly, then yields the thread
 * and at last sleeps while another thread holds it). Setters that touch rendering state hold it
 * around the change and release it before raising events; an edit of the geometry or the style (or
 * anything they hold) holds it for the length of the edit through their changed-lock events; and
 * `_updateEntityInCull` holds it while it rebuilds. So edits on one thread and the frame update on
 * another never interleave. The attribute operations, setUserDefinedAttribute and
 * setAttachmentFiles take no lock: call them only while no other thread uses the feature (the
 * label step reads the attributes during an update).
 *
 * Events: the definition-changed event tells listeners (a collection, the rendering side) that
 * the feature needs an update; it is raised at most once between two `_updateEntityInCull` calls,
 * however many edits come in, and its listeners run with the feature's lock held (so the lock
 * order is the feature's, then whatever a listener takes).
 */
class KEO_FEATURE_API Feature final : public FeatureBase {
public:
    /** @brief The attribute table: attribute name to tagged value. */
    using AttributeMap = std::unordered_map<std::string, AttributeValue>;

    /** @brief A feature with the id @p id (a fresh random id when empty), no geometry, no style. */
    explicit Feature(std::optional<std::uint64_t> id = std::nullopt);
    /**
     * @brief A copy with a fresh id: name, description, show, attributes, user-defined attribute,
     * attachment files, origin data source, label text, asynchronous flag and distance display
     * condition are copied; the geometry and the style are cloned and subscribed to anew. The
     * copy has no entities, no listeners, and is not highlighted. Installing a cloned geometry or
     * style records a change, so such a copy starts with the status Modified and the change type
     * ContentChanged (a copy without either starts with None and 0).
     */
    Feature(const Feature& other);
    /**
     * @brief Copies what the copy constructor copies into this feature (the id, parent, status,
     * entities and listeners stay; highlight is switched off), recording the change as setName
     * does even when every value is equal. The geometry and the style are replaced by clones of
     * @p other's (or removed when @p other has none), so the next update rebuilds the entities.
     * Assigning a feature to itself does nothing.
     */
    Feature& operator=(const Feature& other);
    /** @brief Releases the subscriptions to the geometry and the style. */
    ~Feature() override;

    /** @brief A copy made by the copy constructor. */
    std::unique_ptr<FeatureBase> clone() const override;
    /**
     * @brief Sets the name (the label shows it when no label text is set). An equal name changes
     * nothing; otherwise it is stored under the lock, recorded as FeatureBase::setName records
     * it, and the feature is marked for a style update (raising its definition-changed event).
     */
    void setName(const std::string& name) override;
    /**
     * @brief Sets the description, as setName does: it too marks the feature for a style update
     * although the description is not drawn.
     */
    void setDescription(const std::string& description) override;
    /**
     * @brief Shows or hides the feature. An equal value changes nothing; otherwise the flag is
     * stored, the definition-changed event is raised when the showing state (this flag and the
     * parent chain) changed, and ShowChanged is recorded.
     */
    void setShow(bool show) override;

    /** @brief The geometry, or null. */
    const std::shared_ptr<Geometry>& getGeometry() noexcept { return geometry_; }
    /** @brief The geometry, or null. */
    const Geometry* getGeometry() const noexcept { return geometry_.get(); }
    /**
     * @brief Sets the geometry (null removes it); the held pointer changes nothing. When both a
     * geometry and a style are present and their kinds do not match, the warning
     * "风格和几何体不匹配，风格不起作用。" is logged and the geometry is stored all the same. The
     * matching pairs are point with PointStyle, polyline with PolylineStyle, polygon and
     * rectangle with PolygonStyle; an ellipse geometry (even with an EllipseStyle) and every
     * multi geometry always log it, and are drawn with the style regardless. This is intended:
     * the check has no pair for them, and for them the warning is harmless.
     *
     * The feature stops hearing the old geometry, subscribes to the new one's events, marks the
     * geometry dirty (raising its definition-changed event and recording ContentChanged); the
     * next update rebuilds the entities, dropping every child entity first when the kind changed
     * (for multi geometries: the kind of their components).
     */
    void setGeometry(std::shared_ptr<Geometry> geometry);
    /** @brief The style, or null. */
    const Style* getStyle() const noexcept { return style_.get(); }
    /**
     * @brief Sets the style (null removes it), with the same kind check as setGeometry; the held
     * pointer changes nothing. The feature stops hearing the old style, marks the style dirty
     * (raising its definition-changed event and recording ContentChanged) and hears the new one.
     */
    void setStyle(std::shared_ptr<Style> style);

    /** @brief The attributes. */
    const AttributeMap& getAttributes() const noexcept { return attributes_; }
    /**
     * @brief Replaces the whole table (a table moved in is taken over without a copy); records
     * AttributeChanged whatever the status (ORed in; the status becomes Modified when it was
     * None). No lock, no event, and the feature is not marked for an update: a label or an
     * extrusion height taken from an attribute shows the new value at the next update that
     * rebuilds the style (after setLabelText or a style edit, say). This is intended: attributes
     * are data of the application, edited without the renderer's lock.
     */
    void setAttributes(AttributeMap attributes);
    /** @brief Inserts or overwrites one attribute; recorded as setAttributes records it. */
    void setAttribute(const std::string& key, const AttributeValue& value);
    /**
     * @brief Makes @p key a null attribute: inserted if absent (with type tag 0), its value
     * emptied, its tag kept; recorded as setAttributes records it.
     */
    void setAttributeNull(const std::string& key);
    /**
     * @brief Erases @p key; false when absent. No lock, no event, and no change recorded: this is
     * intended, removing and renaming are not reported as attribute changes.
     */
    bool removeAttribute(const std::string& key);
    /**
     * @brief Moves the attribute @p oldKey to @p newKey, overwriting an entry under @p newKey;
     * false when @p oldKey is absent. Renaming a key to itself keeps it. As removeAttribute, it
     * records no change.
     */
    bool renameAttribute(const std::string& oldKey, const std::string& newKey);

    /** @brief The highlight flag (default false). */
    bool isHighlight() const noexcept { return highlight_; }
    /**
     * @brief Highlights the feature (an equal value changes nothing): from the next update on its
     * symbols, materials and label show Color::HIGHLIGHTCOLOR in place of their own colours
     * (particle systems keep theirs), without the symbols or materials being changed. The feature
     * is marked for a style update.
     */
    void setHighlight(bool highlight);

    /** @brief Free text for the application's own use. */
    const std::string& getUserDefinedAttribute() const noexcept;
    /** @brief Sets the free text; records ContentChanged by the change rule. No lock, no event. */
    void setUserDefinedAttribute(const std::string& value);

    /** @brief Paths of files attached to the feature. */
    const std::vector<std::string>& getAttachmentFiles() const noexcept;
    /** @brief Replaces the attached files; no event, no change recorded. */
    void setAttachmentFiles(const std::vector<std::string>& files);
    /** @brief Replaces the attached files; no event, no change recorded. */
    void setAttachmentFiles(std::vector<std::string>&& files);

    /** @brief The text of the label; empty: the label shows the name. */
    const std::string& getLabelText() const noexcept;
    /**
     * @brief Sets the label text; an equal text changes nothing, another is stored under the lock
     * and the feature is marked for a style update.
     */
    void setLabelText(const std::string& text);

    /** @brief The camera distances at which the feature is shown; empty: at every distance. */
    const std::optional<DistanceDisplayCondition>& getDistanceDisplayCondition() const noexcept {
        return distanceDisplayCondition_;
    }
    /**
     * @brief Sets the distance display condition. Equal (both empty, or equal near and far)
     * changes nothing, so a NaN always counts as a change; otherwise it is stored under the lock
     * and the feature is marked for a style update. The symbols are drawn within the intersection
     * of this condition and the geometry's, the label within this one and its symbol's.
     */
    void setDistanceDisplayCondition(const std::optional<DistanceDisplayCondition>& condition);

    /** @brief The data source the feature was read from, or null (non-owning). */
    const DataSource* _getOriginDataSource() const noexcept;
    /** @brief Records the data source the feature was read from (non-owning). */
    void _setOriginDataSource(const DataSource* source);

    /** @brief Whether the entities are drawn once ready rather than within a frame (default). */
    bool _isAsynchronous() const noexcept { return asynchronous_; }
    /**
     * @brief Sets the asynchronous flag on the feature and on all its entities (an equal value
     * changes nothing), then raises the definition-changed event.
     */
    void _setAsynchronous(bool asynchronous);

    /**
     * @brief The extent of the geometry (radians), computed from the vertices of a polyline or
     * polygon and cached until the geometry changes. Empty without a geometry. For the other kinds
     * the cache is left as it was: empty, or the extent of a line or area geometry held before.
     * The reference is to the cache: read it under the same rules as the feature's other state.
     */
    const std::optional<GlobeRectangle>& _getGlobeRectangle();
    /** @brief The bounding sphere stored by the rendering side, or null. */
    const BoundingSphere* _getBoundingSphere() const noexcept;
    /** @brief Stores a copy of @p sphere (ECEF metres); dropped when the geometry changes. */
    void _setBoundingSphere(const BoundingSphere& sphere);

    /** @brief The root entity, or null before the first update. */
    const std::shared_ptr<Entity>& _getImplHandle() noexcept { return implHandle_; }
    /** @brief The root entity, or null before the first update. */
    const Entity* _getImplHandle() const noexcept { return implHandle_.get(); }
    /**
     * @brief Whether the entities are up to date: true when the feature is not showing (nothing
     * to draw), else when neither the geometry nor the style waits for an update.
     */
    bool _isEntityReady() const;
    /** @brief The root entity (if any) followed by its descendants, depth first. */
    std::vector<std::shared_ptr<Entity>> _getAllEntities() const;
    /**
     * @brief Records @p entity as added (the rendering side takes it) and gives it the feature's
     * asynchronous flag. No duplicate check: an entity may stand in both lists.
     */
    void _addEntity(const std::shared_ptr<Entity>& entity) const;
    /** @brief Records @p entity as dropped. No duplicate check. */
    void _removeEntity(const std::shared_ptr<Entity>& entity) const;
    /** @brief The entities added since the last call, in order; the list is left empty. */
    std::vector<std::shared_ptr<Entity>> _takeAddedEntities();
    /** @brief The entities dropped since the last call, in order; the list is left empty. */
    std::vector<std::shared_ptr<Entity>> _takeRemovedEntities();
    /**
     * @brief Brings the entities up to date; the rendering side calls it once a frame, under the
     * feature's lock. The first call makes the root entity and reports it added. A feature that
     * is not showing only hides its root. Otherwise the root is shown and, when the geometry or
     * the style changed since the last update, the geometry rebuilds the graphics (its
     * `_updateGeometry` only after a geometry change, its `_updateStyle` always); a kind change
     * drops every child entity first. Without a geometry nothing is drawn.
     *
     * When either step returns false, every entity under the root is reported dropped and the
     * root keeps no children and no graphics; the feature is clean all the same, so nothing is
     * retried until the next change (a point with nothing to draw ends this way, without its
     * default dot: see PointGeometry::_updateStyle). An exception from a step (an empty
     * rectangle) leaves the feature dirty and propagates, so the next call tries again.
     * @param addAgain when true and the root entity exists, the root and all its descendants are
     *        reported as added again (for a rendering side that dropped them).
     */
    void _updateEntityInCull(bool addAgain);
    /**
     * @brief `_updateEntityInCull(addAgain)`, with the entities it adds and drops appended to
     * @p added and @p removed (after any recorded before and not taken yet) instead of kept by
     * the feature, all under one lock. Returns whether the update rebuilt the entities (they were
     * not ready, see `_isEntityReady`).
     */
    bool _updateEntityInCull(bool addAgain, std::vector<std::shared_ptr<Entity>>& added,
                             std::vector<std::shared_ptr<Entity>>& removed);

    /** @brief The frame driver whose record the feature holds, or null (the driver's own use). */
    const void* _getFrameOwner() const noexcept { return frameOwner_; }
    /** @brief The record the owning frame driver keeps of this feature (the driver's own use). */
    void* _getFrameRecord() const noexcept { return frameRecord_; }
    /** @brief Stores @p owner's @p record of this feature; null, null clears it. */
    void _setFrameRecord(const void* owner, void* record) noexcept {
        frameOwner_ = owner;
        frameRecord_ = record;
    }

    /** @brief Adds a listener to the definition-changed event; returns its handle. */
    std::weak_ptr<FunctionWrapper>
    _addDefinitionChangedEventListener(std::function<void(Feature*)>&& callback);
    /**
     * @brief Adds the callable @p callback, stored as it is (no std::function around it), to the
     * definition-changed event; returns its handle. A callable that cannot be called as
     * void(Feature*) does not compile: one static_assert says so.
     */
    template <typename Function>
    std::weak_ptr<FunctionWrapper> _addDefinitionChangedEventListener(Function&& callback) {
        return definitionChanged_.addEventListener(std::forward<Function>(callback));
    }
    /**
     * @brief Raises the definition-changed event with this feature, unless it was already raised
     * since the last `_updateEntityInCull`.
     */
    void _raiseDefinitionChangedEvent();
    /**
     * @brief The geometry changed: marks it dirty, drops the cached extent and sphere, raises the
     * definition-changed event and records ContentChanged.
     */
    void _onGeometryDefinitionChanged();
    /**
     * @brief The style (or the label options) changed: marks the style dirty, raises the
     * definition-changed event and records ContentChanged. @p style is not used.
     */
    void _onStyleDefinitionChanged(const Style* style);
    /**
     * @brief Locks (true) or unlocks (false) the feature's lock around an edit; each true must be
     * followed by a false on the same thread.
     */
    void _onChangedLock(bool locked);

private:
    using Lock = std::lock_guard<detail::RecursiveSpinLock>;

    // What few features carry (free text, attachments, the origin, the highlight's copy of the
    // style, the extents the rendering side asks for): held apart and made on first use, so
    // that the many features that never use them do not pay for them.
    struct Extras;

    Extras& extras();

    void markAttributeChanged() noexcept;
    void copyContentFrom(const Feature& other);
    void tearDownChildren();
    // The update itself, under the lock; returns whether it rebuilt the entities.
    bool updateLocked(bool addAgain);

    // The flags first: they fill the padding at the end of the base.
    bool highlight_ = false;
    bool globeRectangleDirty_ = true;
    bool geometryDirty_ = true;
    bool geometryKindChanged_ = false;
    bool styleDirty_ = true;
    bool asynchronous_ = true;
    bool changeRaised_ = false;
    // Then the members of 4-byte alignment, before the pointers.
    std::optional<DistanceDisplayCondition> distanceDisplayCondition_;
    mutable detail::RecursiveSpinLock lock_;
    std::shared_ptr<Geometry> geometry_;
    std::shared_ptr<Style> style_;
    AttributeMap attributes_;
    // Made when a label text is first set: most labels show the name.
    std::unique_ptr<std::string> labelText_;
    std::unique_ptr<Extras> extras_;
    std::shared_ptr<Entity> implHandle_;
    // Where the entities added and dropped are recorded (by the geometry, through the const
    // feature it is given while it updates): the caller's lists while an update hands them over
    // at once, else the feature's own, made on first use and dropped once taken.
    using EntityList = std::vector<std::shared_ptr<Entity>>;
    struct EntityLists;
    EntityLists& entityLists() const;
    // Takes the own list @p taken; drops the own lists when @p other is empty too.
    EntityList takeOwnList(EntityList EntityLists::*taken, EntityList EntityLists::*other);
    // Deletes the feature's own lists, and only them.
    struct EntityListsDeleter {
        void operator()(EntityLists* lists) const noexcept;
    };
    mutable std::unique_ptr<EntityLists, EntityListsDeleter> entityLists_;
    Publisher<std::function<void(Feature*)>> definitionChanged_;
    detail::SubscriptionPair geometrySubscription_;
    detail::SubscriptionPair styleSubscription_;
    // Kept by the frame driver that draws the feature; not copied.
    const void* frameOwner_ = nullptr;
    void* frameRecord_ = nullptr;
};

} // namespace keo::Feature
