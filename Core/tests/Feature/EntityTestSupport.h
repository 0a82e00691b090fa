#pragma once

// What the geometry tests read off the entities a feature builds: Cartesian points, a child's
// graphics of one kind, the children's names, an entity's position; and the scene they build
// them in.

#include "Common/Cartographic.h"
#include "Common/Ellipsoid.h"
#include "Common/Vector3.h"
#include "Data/Entity.h"
#include "Data/GeometryGraphics.h"
#include "Data/PositionProperty.h"
#include "Data/TimePoint.h"
#include "Feature/Feature.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace keo::Feature::test {

/** @brief @p c on WGS84, as the kit converts it (ECEF metres). */
inline Vector3<double> cartesian(const Cartographic& c) {
    return Ellipsoid::WGS84.cartographicToCartesian(c);
}

/** @brief The graphics of @p entity when they are of kind Graphics, else null. */
template <typename Graphics>
const Graphics* graphicsOf(const Entity& entity) {
    const auto& graphics = entity.getGeometryGraphics();
    return graphics ? graphics->as<Graphics>() : nullptr;
}

/** @brief The names of @p entity's children, in their order. */
inline std::vector<std::string> childNames(const Entity& entity) {
    std::vector<std::string> names;
    for (const auto& child : entity.getChildren()) {
        names.push_back(child->getName());
    }
    return names;
}

/** @brief The names of @p entity's children, sorted. */
inline std::vector<std::string> sortedChildNames(const Entity& entity) {
    std::vector<std::string> names = childNames(entity);
    std::sort(names.begin(), names.end());
    return names;
}

/** @brief Whether @p entity has a child named @p name. */
inline bool hasChild(const Entity& entity, const std::string& name) {
    return static_cast<bool>(entity.getChildByName(name));
}

/** @brief @p entity's position at time zero, or nothing without a position. */
inline std::optional<Vector3<double>> positionOf(const Entity& entity) {
    return entity.getPosition() ? entity.getPosition()->getValue(TimePoint()) : std::nullopt;
}

/**
 * @brief A geometry, a named feature and a root entity, updated step by step as the feature
 * updates them.
 */
template <typename GeometryType, typename StyleType>
struct GeometryScene {
    /** @brief The feature named @p name; the geometry made from @p geometryArguments. */
    template <typename... Arguments>
    explicit GeometryScene(const std::string& name, Arguments&&... geometryArguments)
        : geometry(std::forward<Arguments>(geometryArguments)...) {
        feature.setName(name);
    }

    bool updateGeometry() { return geometry._updateGeometry(*root, &style); }
    bool updateStyle() { return geometry._updateStyle(*root, feature, &style); }
    /** @brief Both steps, as a feature runs them; true if both succeed. */
    bool updateBoth() {
        const bool ok = updateGeometry();
        return updateStyle() && ok;
    }
    std::shared_ptr<Entity> child(const std::string& name) const {
        return root->getChildByName(name);
    }

    std::shared_ptr<Entity> root = std::make_shared<Entity>();
    Feature feature{std::uint64_t{1}};
    GeometryType geometry;
    StyleType style;
};

} // namespace keo::Feature::test
