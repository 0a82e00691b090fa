#pragma once

// What the point-feature benchmarks build: places on a grid and the style of a dot and a label.

#include "Common/Cartographic.h"
#include "Common/Color.h"
#include "Feature/Feature.h"
#include "Feature/FeatureGroup.h"
#include "Feature/LabelSymbol.h"
#include "Feature/PointGeometry.h"
#include "Feature/PointStyle.h"
#include "Feature/PointSymbol.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace keo::bench {

/**
 * @brief Place @p index of a grid of 1,000 columns, 0.001 degree apart, 10 m up, moved east by
 * @p shift degrees.
 */
inline Cartographic gridPlace(std::size_t index, double shift = 0.0) {
    const double column = static_cast<double>(index % 1000);
    const double row = static_cast<double>(index / 1000);
    return Cartographic::fromDegrees(100.0 + column * 0.001 + shift, 30.0 + row * 0.001, 10.0);
}

/** @brief A style of a red dot of 8 pixels and a label of the default look. */
inline std::shared_ptr<keo::Feature::PointStyle> makeDotAndLabelStyle() {
    auto style = std::make_shared<keo::Feature::PointStyle>();
    auto dot = std::make_shared<keo::Feature::PointSymbol>();
    dot->setPixelSize(8.0f);
    dot->setColor(keo::Color::RED);
    style->setPointSymbol(std::move(dot));
    style->setLabelSymbol(std::make_shared<keo::Feature::LabelSymbol>());
    return style;
}

/**
 * @brief Feature @p index of the grid: id index + 1, named "point <index>", a point geometry at
 * gridPlace(index), drawn by @p style; not updated yet.
 */
inline std::shared_ptr<keo::Feature::Feature>
namedGridPoint(std::size_t index, std::shared_ptr<keo::Feature::PointStyle> style) {
    auto feature = std::make_shared<keo::Feature::Feature>(std::uint64_t{index + 1});
    feature->setName("point " + std::to_string(index));
    feature->setGeometry(std::make_shared<keo::Feature::PointGeometry>(gridPlace(index)));
    feature->setStyle(std::move(style));
    return feature;
}

/** @brief @p count new groups added under @p root, with the ids @p firstId, @p firstId + 1, ... */
inline std::vector<std::shared_ptr<keo::Feature::FeatureGroup>>
addGroups(keo::Feature::FeatureGroup& root, std::size_t count, std::uint64_t firstId) {
    std::vector<std::shared_ptr<keo::Feature::FeatureGroup>> groups;
    groups.reserve(count);
    for (std::size_t g = 0; g < count; ++g) {
        auto group = std::make_shared<keo::Feature::FeatureGroup>(firstId + g);
        root.add(group);
        groups.push_back(std::move(group));
    }
    return groups;
}

} // namespace keo::bench
