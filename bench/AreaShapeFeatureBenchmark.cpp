// Cost of ellipse and rectangle features end to end: building 100,000 named ellipses and
// 100,000 named, rotated rectangles, each with its own style (a fill material and a label),
// through their first frame update (time and heap bytes per feature, counted by
// HeapCounter.cpp).

#include "Common/Cartographic.h"
#include "Common/Color.h"
#include "Common/GlobeRectangle.h"
#include "Common/Math.h"
#include "Common/Radian.h"
#include "Feature/ColorMaterial.h"
#include "Feature/EllipseGeometry.h"
#include "Feature/EllipseStyle.h"
#include "Feature/EllipseSymbol.h"
#include "Feature/Feature.h"
#include "Feature/LabelSymbol.h"
#include "Feature/PolygonStyle.h"
#include "Feature/PolygonSymbol.h"
#include "Feature/RectangleGeometry.h"

#include "BuildMany.h"
#include "CountedLog.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace {

using keo::Color;
using keo::Feature::ColorMaterial;
using keo::Feature::Feature;

constexpr std::size_t FEATURES = 100000;

double eastOf(std::size_t index) {
    return 100.0 + static_cast<double>(index % 1000) * 0.01;
}

double northOf(std::size_t index) {
    return 30.0 + static_cast<double>(index / 1000) * 0.01;
}

template <typename Geometry, typename Style>
std::shared_ptr<Feature> buildFeature(std::size_t index, std::shared_ptr<Geometry> geometry,
                                      std::shared_ptr<Style> style) {
    auto feature = std::make_shared<Feature>(std::uint64_t{index + 1});
    feature->setName("area " + std::to_string(index));
    feature->setGeometry(std::move(geometry));
    feature->setStyle(std::move(style));
    feature->_updateEntityInCull(false);
    keo::bench::takeEntities(*feature);
    return feature;
}

std::shared_ptr<keo::Feature::EllipseStyle> ellipseStyle() {
    auto style = std::make_shared<keo::Feature::EllipseStyle>();
    style->setEllipseSymbol(std::make_shared<keo::Feature::EllipseSymbol>(
        std::make_shared<ColorMaterial>(Color::YELLOW)));
    style->setLabelSymbol(std::make_shared<keo::Feature::LabelSymbol>());
    return style;
}

std::shared_ptr<keo::Feature::PolygonStyle> rectangleStyle() {
    auto style = std::make_shared<keo::Feature::PolygonStyle>();
    style->setPolygonSymbol(std::make_shared<keo::Feature::PolygonSymbol>(
        std::make_shared<ColorMaterial>(Color::GREEN)));
    style->setLabelSymbol(std::make_shared<keo::Feature::LabelSymbol>());
    return style;
}

void BM_BuildEllipseFeaturesWithOwnStyles(benchmark::State& state) {
    const keo::bench::CountedLog log; // the style mismatch every such feature logs
    keo::bench::buildMany(state, FEATURES, [](std::size_t i) {
        return buildFeature(
            i,
            std::make_shared<keo::Feature::EllipseGeometry>(
                keo::Cartographic::fromDegrees(eastOf(i), northOf(i), 0.0), 300.0, 200.0),
            ellipseStyle());
    });
}
BENCHMARK(BM_BuildEllipseFeaturesWithOwnStyles)->Unit(benchmark::kMillisecond)->MinTime(2.0);

void BM_BuildRectangleFeaturesWithOwnStyles(benchmark::State& state) {
    keo::bench::buildMany(state, FEATURES, [](std::size_t i) {
        const double west = keo::Math::toRadians(eastOf(i));
        const double south = keo::Math::toRadians(northOf(i));
        auto rectangle = std::make_shared<keo::Feature::RectangleGeometry>(
            keo::GlobeRectangle(west, south, west + 1e-4, south + 5e-5));
        rectangle->setRotate(keo::Radian(0.3));
        return buildFeature(i, std::move(rectangle), rectangleStyle());
    });
}
BENCHMARK(BM_BuildRectangleFeaturesWithOwnStyles)->Unit(benchmark::kMillisecond)->MinTime(2.0);

} // namespace
