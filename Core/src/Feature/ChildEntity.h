#pragma once

#include "Data/Entity.h"
#include "Data/GeometryGraphics.h"
#include "Feature/Feature.h"

#include <memory>
#include <string>
#include <string_view>

namespace keo::Feature::detail {

/**
 * @brief The named child @p name of @p parent; when there is none, a new entity is attached to
 * @p parent, named, and reported to @p feature as added (then @p created, if given, is set).
 */
std::shared_ptr<Entity> findOrCreateChild(Entity& parent, std::string_view name,
                                          const Feature& feature, bool* created = nullptr);
/** @brief As above, for a name made on the spot: a new child takes it over instead of a copy. */
std::shared_ptr<Entity> findOrCreateChild(Entity& parent, std::string&& name,
                                          const Feature& feature, bool* created = nullptr);

/**
 * @brief Detaches the named child @p name of @p parent, if there is one, and reports it to
 * @p feature as removed. Returns whether a child was removed.
 */
bool removeChild(Entity& parent, std::string_view name, const Feature& feature);

/** @brief Detaches @p child from its parent and reports it to @p feature as removed. */
void removeEntity(const std::shared_ptr<Entity>& child, const Feature& feature);

/**
 * @brief The graphics of @p entity as @p Graphics; when it has none or graphics of another kind,
 * new graphics made by @p make() are set first.
 */
template <typename Graphics, typename Make>
Graphics& ensureGraphics(Entity& entity, Make&& make) {
    if (const auto& graphics = entity.getGeometryGraphics()) {
        if (auto* typed = graphics->template as<Graphics>()) {
            return *typed;
        }
    }
    std::shared_ptr<Graphics> graphics = make();
    Graphics& result = *graphics;
    entity.setGeometryGraphics(std::move(graphics));
    return result;
}

/**
 * @brief The graphics of @p entity as @p Graphics; when it has none or graphics of another kind,
 * new graphics of the default options are set first.
 */
template <typename Graphics>
Graphics& ensureGraphics(Entity& entity) {
    return ensureGraphics<Graphics>(entity, [] { return std::make_shared<Graphics>(); });
}

} // namespace keo::Feature::detail
