// Cost of bringing a material's cached property up to date once a frame: an update of a material
// that has not changed (only the highlight-dependent colour is pushed), and one edit through a
// setter followed by an update (the edit's three events, then the refresh of the property).

#include "Feature/CircleWaveMaterial.h"
#include "Feature/ColorMaterial.h"
#include "Feature/ImageMaterial.h"
#include "Feature/LineDashMaterial.h"
#include "Feature/PolygonDynamicMaterial.h"

#include "Common/Color.h"
#include "Data/PolygonGraphics.h"
#include "Data/PolylineGraphics.h"

#include <benchmark/benchmark.h>

namespace {

using keo::Color;

template <typename Kind, typename Graphics>
void BM_UpdateUnchanged(benchmark::State& state) {
    const Kind material;
    Graphics graphics;
    material.update(graphics, false); // creates the property and clears the changed flag
    for (auto _ : state) {
        material.update(graphics, false);
        benchmark::DoNotOptimize(graphics.getMaterial().get());
    }
}

template <typename Kind, typename Graphics>
void BM_SetColorThenUpdate(benchmark::State& state) {
    Kind material;
    Graphics graphics;
    material.update(graphics, false);
    const Color colours[2] = {Color::RED, Color::BLUE};
    unsigned next = 0;
    for (auto _ : state) {
        material.setColor(colours[next]); // always a change: alternates between two colours
        next ^= 1u;
        material.update(graphics, false);
        benchmark::DoNotOptimize(graphics.getMaterial().get());
    }
}

// An owner listening to both events, as a symbol relaying its material's edits does.
void BM_SetColorThenUpdateWithListeners(benchmark::State& state) {
    keo::Feature::ColorMaterial material;
    int heard = 0;
    material._addChangedLockEventListener([&heard](bool) { ++heard; });
    material._addDefinitionChangedEventListener([&heard] { ++heard; });
    keo::PolygonGraphics graphics;
    material.update(graphics, false);
    const Color colours[2] = {Color::RED, Color::BLUE};
    unsigned next = 0;
    for (auto _ : state) {
        material.setColor(colours[next]);
        next ^= 1u;
        material.update(graphics, false);
        benchmark::DoNotOptimize(graphics.getMaterial().get());
    }
    benchmark::DoNotOptimize(heard);
}

using keo::Feature::CircleWaveMaterial;
using keo::Feature::ColorMaterial;
using keo::Feature::ImageMaterial;
using keo::Feature::LineDashMaterial;
using keo::Feature::PolygonDynamicMaterial;

BENCHMARK_TEMPLATE(BM_UpdateUnchanged, ColorMaterial, keo::PolygonGraphics);
BENCHMARK_TEMPLATE(BM_UpdateUnchanged, CircleWaveMaterial, keo::PolygonGraphics);
BENCHMARK_TEMPLATE(BM_UpdateUnchanged, ImageMaterial, keo::PolygonGraphics);
BENCHMARK_TEMPLATE(BM_UpdateUnchanged, LineDashMaterial, keo::PolylineGraphics);
BENCHMARK_TEMPLATE(BM_UpdateUnchanged, PolygonDynamicMaterial, keo::PolygonGraphics);

BENCHMARK_TEMPLATE(BM_SetColorThenUpdate, ColorMaterial, keo::PolygonGraphics);
BENCHMARK_TEMPLATE(BM_SetColorThenUpdate, CircleWaveMaterial, keo::PolygonGraphics);
BENCHMARK_TEMPLATE(BM_SetColorThenUpdate, ImageMaterial, keo::PolygonGraphics);
BENCHMARK_TEMPLATE(BM_SetColorThenUpdate, LineDashMaterial, keo::PolylineGraphics);
BENCHMARK_TEMPLATE(BM_SetColorThenUpdate, PolygonDynamicMaterial, keo::PolygonGraphics);
BENCHMARK(BM_SetColorThenUpdateWithListeners);

} // namespace
