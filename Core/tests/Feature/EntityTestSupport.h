#pragma once

// What the geometry tests read off the entities a feature builds: Cartesian points, a child's
// graphics of one kind, the children's names, an entity's position.

#include "Common/Cartographic.h"
#include "Common/Ellipsoid.h"
#include "Common/Vector3.h"
#include "Data/Entity.h"
#include "Data/GeometryGraphics.h"
#include "Data/PositionProperty.h"
#include "Data/TimePoint.h"

#include <algorithm>
#include <optional>
#include <string>
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

} // namespace keo::Feature::test
