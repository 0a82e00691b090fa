#pragma once

#include "Data/DistanceDisplayCondition.h"
#include "Data/HeightReference.h"

#include <optional>

namespace keo::Feature {

class Feature;

/**
 * @brief What a symbol is drawn with besides its own fields: the geometry that draws a symbol
 * decides which child entity it goes to and hands this to the symbol's `_fill`, which writes the
 * symbol into the graphics component.
 */
struct SymbolContext {
    /** @brief The feature drawn (its attributes, label text and name give label texts). */
    const Feature& feature;
    /**
     * @brief The camera distances at which the drawing shows, as the geometry settled them (the
     * intersection of the feature's and the geometry's conditions; the label step passes the
     * feature's alone; a symbol with a condition of its own intersects it further); empty: at
     * every distance.
     */
    std::optional<DistanceDisplayCondition> distanceDisplayCondition;
    /**
     * @brief The style's height reference (how the drawing's heights are measured); kinds drawn
     * without a style pass their own (ClampToTerrain for lines and areas).
     */
    HeightReference heightReference = HeightReference::Absolute;
    /**
     * @brief Whether the feature is highlighted: the colours that follow highlighting show
     * keo::Color::HIGHLIGHTCOLOR (see shownColor).
     */
    bool highlight = false;
};

} // namespace keo::Feature
