#pragma once

#include "Common/Vector3.h"
#include "Data/Entity.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace keo::Feature {

class Feature;
class LengthLabelSymbol;
struct SymbolContext;

namespace detail {

/** @brief A constant position (Earth-fixed) at @p point, for a child entity. */
std::shared_ptr<PositionProperty> positionAt(const Vector3<double>& point);

/**
 * @brief Draws the length label child @p name of @p entity at @p point with @p text, filled from
 * @p symbol: the child and its label graphics are made (and reported to the context's feature)
 * when missing. Returns whether the child was made.
 */
bool drawLengthLabel(Entity& entity, std::string_view name, const Vector3<double>& point,
                     std::string text, const LengthLabelSymbol& symbol,
                     const SymbolContext& context);

/**
 * @brief The index of a segment label's name: "length-label-segment-" followed by decimal digits
 * only; empty for any other name.
 */
std::optional<std::size_t> segmentIndex(std::string_view name) noexcept;

/**
 * @brief Moves each segment label child of @p entity to midpointOf(its index), an optional point
 * (a label whose index gives none stays where it is). Only the children there are visited, so a
 * long line without labels costs nothing.
 */
template <typename MidpointOf>
void placeSegmentLabels(Entity& entity, MidpointOf&& midpointOf) {
    for (const auto& child : entity.getChildren()) {
        if (const std::optional<std::size_t> index = segmentIndex(child->getName())) {
            if (const std::optional<Vector3<double>> point = midpointOf(*index)) {
                child->setPosition(positionAt(*point));
            }
        }
    }
}

/**
 * @brief Removes (and reports to @p feature) the segment label children of @p entity whose index
 * is @p count or more. Returns whether one was removed.
 */
bool removeSegmentLabelsFrom(Entity& entity, std::size_t count, const Feature& feature);

} // namespace detail

} // namespace keo::Feature
