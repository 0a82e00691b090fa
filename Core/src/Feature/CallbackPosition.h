#pragma once

#include "Data/CallbackPositionProperty.h"
#include "Data/Entity.h"

#include <memory>

namespace keo::Feature {

/**
 * @brief A position that follows the entity @p model (which carries keo::ModelGraphics): at each
 * time, the model entity's position (Cartesian ECEF, metres) raised, once the model is loaded and
 * has a bounding box, by the height of the top of its scaled box above its origin, so that what
 * takes this position sits on top of the model. Before that, or where the height cannot be
 * applied, the model entity's own position; empty where it has none. The model entity is kept
 * alive by the property.
 */
std::shared_ptr<CallbackPositionProperty> getCallbackPositonProperty(std::shared_ptr<Entity> model);

} // namespace keo::Feature
