// Cost of the line and area styles: making a polyline style with a dashed line and a label (time
// and heap bytes per style, counted by HeapCounter.cpp), and an edit deep inside a style (the
// colour of the dash material of its line symbol) delivered to a listener on the style.

#include "Common/Color.h"
#include "Feature/LabelSymbol.h"
#include "Feature/LineDashMaterial.h"
#include "Feature/LineSymbol.h"
#include "Feature/PolylineStyle.h"
#include "Feature/Style.h"

#include "MakeMany.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <memory>

namespace {

using keo::Feature::LabelSymbol;
using keo::Feature::LineDashMaterial;
using keo::Feature::LineSymbol;
using keo::Feature::PolylineStyle;

std::shared_ptr<PolylineStyle> makeDashedStyleWithLabel() {
    auto style = std::make_shared<PolylineStyle>();
    auto line = std::make_shared<LineSymbol>();
    line->setMaterial(std::make_shared<LineDashMaterial>());
    style->setLineSymbol(std::move(line));
    style->setLabelSymbol(std::make_shared<LabelSymbol>());
    return style;
}

void BM_MakePolylineStyleWithDashedLineAndLabel(benchmark::State& state) {
    keo::bench::makeMany(state, makeDashedStyleWithLabel);
}
BENCHMARK(BM_MakePolylineStyleWithDashedLineAndLabel)->Unit(benchmark::kMillisecond);

// The colour of the dash material of a style's line symbol changes: the change climbs through
// the line symbol to the style, whose one listener hears it.
void BM_RecolourDashOfLineSymbolHeardByStyle(benchmark::State& state) {
    const auto style = makeDashedStyleWithLabel();
    auto& dash = static_cast<LineDashMaterial&>(*style->getLineSymbol()->getMaterial());
    std::size_t heard = 0;
    style->_addDefinitionChangedEventListener([&heard](const keo::Feature::Style*) { ++heard; });
    const keo::Color colors[2] = {keo::Color::RED, keo::Color::GREEN};
    std::size_t i = 0;
    for (auto _ : state) {
        dash.setColor(colors[++i & 1u]);
    }
    if (heard != static_cast<std::size_t>(state.iterations())) {
        state.SkipWithError("the style did not hear every edit once");
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_RecolourDashOfLineSymbolHeardByStyle);

} // namespace
