#pragma once

// What the point-feature benchmarks build: places on a grid and the style of a dot and a label.

#include "Common/Cartographic.h"
#include "Common/Color.h"
#include "Feature/LabelSymbol.h"
#include "Feature/PointStyle.h"
#include "Feature/PointSymbol.h"

#include <cstddef>
#include <memory>

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

} // namespace keo::bench
