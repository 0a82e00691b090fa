// Cost of polygon features end to end: building 100,000 named polygons (a 20-vertex outer ring
// with one 5-vertex hole, a fill material, an outline and a label), each with its own style,
// through their first frame update, flat and extruded (time and heap bytes per feature, counted
// by HeapCounter.cpp); the label point of a 100,000-vertex ring; and a frame over 100,000 clean
// polygons.

#include "Common/Cartographic.h"
#include "Common/Color.h"
#include "Common/Math.h"
#include "Feature/ColorMaterial.h"
#include "Feature/ExtrusionSymbol.h"
#include "Feature/Feature.h"
#include "Feature/LabelSymbol.h"
#include "Feature/LineSymbol.h"
#include "Feature/PolygonGeometry.h"
#include "Feature/PolygonStyle.h"
#include "Feature/PolygonSymbol.h"

#include "BuildMany.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace {

using keo::Cartographic;
using keo::Color;
using keo::Feature::ColorMaterial;
using keo::Feature::ExtrusionSymbol;
using keo::Feature::Feature;
using keo::Feature::PolygonGeometry;
using keo::Feature::PolygonStyle;
using keo::Feature::PolygonSymbol;

constexpr std::size_t FEATURES = 100000;

std::shared_ptr<keo::Feature::LineSymbol> outline() {
    auto line = std::make_shared<keo::Feature::LineSymbol>();
    line->setMaterial(std::make_shared<ColorMaterial>(Color::BLACK));
    return line;
}

std::shared_ptr<PolygonStyle> makeStyle(bool extruded) {
    auto style = std::make_shared<PolygonStyle>();
    auto area = std::make_shared<PolygonSymbol>(std::make_shared<ColorMaterial>(Color::GREEN));
    area->setOutLineSymbol(outline());
    style->setPolygonSymbol(std::move(area));
    style->setLabelSymbol(std::make_shared<keo::Feature::LabelSymbol>());
    if (extruded) {
        auto extrusion = std::make_shared<ExtrusionSymbol>();
        extrusion->setHeight(30.0);
        auto roof = std::make_shared<PolygonSymbol>(std::make_shared<ColorMaterial>(Color::RED));
        roof->setOutLineSymbol(outline());
        extrusion->setBodySymbol(
            std::make_shared<PolygonSymbol>(std::make_shared<ColorMaterial>(Color::WHITE)));
        extrusion->setTailSymbol(std::move(roof));
        style->setExtrusionSymbol(std::move(extrusion));
    }
    return style;
}

// A ring of @p vertices on a circle of @p radius degrees around (@p east, @p north).
std::vector<Cartographic> circle(double east, double north, double radius, int vertices) {
    std::vector<Cartographic> ring;
    ring.reserve(static_cast<std::size_t>(vertices));
    for (int i = 0; i < vertices; ++i) {
        const double angle = keo::Math::TWO_PI * i / vertices;
        ring.push_back(Cartographic::fromDegrees(east + radius * std::cos(angle),
                                                 north + radius * std::sin(angle), 10.0));
    }
    return ring;
}

PolygonGeometry::Hierarchy areaAt(std::size_t index) {
    const double east = 100.0 + static_cast<double>(index % 1000) * 0.01;
    const double north = 30.0 + static_cast<double>(index / 1000) * 0.01;
    PolygonGeometry::Hierarchy hierarchy;
    hierarchy.positions = circle(east, north, 0.004, 20);
    PolygonGeometry::Hierarchy hole;
    hole.positions = circle(east, north, 0.001, 5);
    hierarchy.holes.push_back(std::move(hole));
    return hierarchy;
}

// The areas, made once: the benchmarks time what the kit does with an application's data.
const PolygonGeometry::Hierarchy& area(std::size_t index) {
    static const std::vector<PolygonGeometry::Hierarchy> areas = [] {
        std::vector<PolygonGeometry::Hierarchy> made;
        made.reserve(FEATURES);
        for (std::size_t i = 0; i < FEATURES; ++i) {
            made.push_back(areaAt(i));
        }
        return made;
    }();
    return areas[index % areas.size()];
}

std::shared_ptr<Feature> buildFeature(std::size_t index, std::shared_ptr<PolygonStyle> style) {
    auto feature = std::make_shared<Feature>(std::uint64_t{index + 1});
    feature->setName("area " + std::to_string(index));
    feature->setGeometry(std::make_shared<PolygonGeometry>(area(index)));
    feature->setStyle(std::move(style));
    feature->_updateEntityInCull(false);
    keo::bench::takeEntities(*feature);
    return feature;
}

void BM_BuildPolygonFeaturesWithOwnStyles(benchmark::State& state) {
    keo::bench::buildMany(state, FEATURES,
                          [](std::size_t i) { return buildFeature(i, makeStyle(false)); });
}
BENCHMARK(BM_BuildPolygonFeaturesWithOwnStyles)->Unit(benchmark::kMillisecond)->MinTime(2.0);

void BM_BuildExtrudedPolygonFeatures(benchmark::State& state) {
    keo::bench::buildMany(state, FEATURES,
                          [](std::size_t i) { return buildFeature(i, makeStyle(true)); });
}
BENCHMARK(BM_BuildExtrudedPolygonFeatures)->Unit(benchmark::kMillisecond)->MinTime(2.0);

// The label point of a ring of 100,000 vertices (a circle).
void BM_LabelPositionOfALongRing(benchmark::State& state) {
    const auto ring = circle(10.0, 20.0, 1.0, 100000);
    for (auto _ : state) {
        benchmark::DoNotOptimize(PolygonGeometry::_computeLabelPosition(ring));
    }
}
BENCHMARK(BM_LabelPositionOfALongRing)->Unit(benchmark::kMillisecond);

void BM_CleanFrameOverPolygons(benchmark::State& state) {
    keo::bench::cleanFramesOver(state, FEATURES,
                                [](std::size_t i) { return buildFeature(i, makeStyle(false)); });
}
BENCHMARK(BM_CleanFrameOverPolygons)->Unit(benchmark::kMillisecond);

} // namespace
