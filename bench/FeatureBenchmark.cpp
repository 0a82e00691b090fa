// The feature's per-frame and per-edit costs: the frame update of a feature with nothing to
// rebuild, an edit of a label symbol field travelling up to the feature, and the heap bytes of a
// default feature and of a label symbol.

#include "Feature/Feature.h"
#include "Feature/LabelSymbol.h"
#include "Feature/Style.h"
#include "HeapCounter.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <memory>
#include <vector>

namespace {

using keo::Feature::Feature;
using keo::Feature::LabelSymbol;
using keo::Feature::Style;

// A style kind with nothing beyond the base, to hold the label symbol.
class LabelOnlyStyle final : public Style {
public:
    LabelOnlyStyle()
        : Style(Type::Point) {}
    LabelOnlyStyle(const LabelOnlyStyle&) = default;
    std::shared_ptr<Style> clone() const override {
        return std::make_shared<LabelOnlyStyle>(*this);
    }
};

constexpr std::size_t FEATURES = 1000000;

// _updateEntityInCull on features whose entities are up to date, one feature per iteration,
// walking a million features so that the caches see what a renderer's cull loop sees.
void BM_UpdateEntityInCullClean(benchmark::State& state) {
    std::vector<std::unique_ptr<Feature>> features;
    features.reserve(FEATURES);
    for (std::size_t i = 0; i < FEATURES; ++i) {
        features.push_back(std::make_unique<Feature>(i));
        features.back()->_updateEntityInCull(false);
        features.back()->_takeAddedEntities();
    }
    std::size_t next = 0;
    for (auto _ : state) {
        features[next]->_updateEntityInCull(false);
        if (++next == FEATURES) {
            next = 0;
        }
    }
    state.counters["ns_per_feature"] =
        benchmark::Counter(static_cast<double>(state.iterations()),
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_UpdateEntityInCullClean);

struct LabelledFeature {
    LabelledFeature() {
        style->setLabelSymbol(label);
        feature.setStyle(style);
        feature._addDefinitionChangedEventListener([this](Feature*) { ++notified; });
        feature._updateEntityInCull(false);
    }
    Feature feature{std::uint64_t{1}};
    std::shared_ptr<LabelOnlyStyle> style = std::make_shared<LabelOnlyStyle>();
    std::shared_ptr<LabelSymbol> label = std::make_shared<LabelSymbol>();
    std::size_t notified = 0;
};

// One label edit in a cycle that has already told its listeners: changed-lock true (the feature
// locks), store, changed-lock false (unlocks), the relay through the style to the feature, which
// marks its style dirty.
void BM_LabelEdit(benchmark::State& state) {
    LabelledFeature f;
    float size = 12.0f;
    for (auto _ : state) {
        size = size == 12.0f ? 13.0f : 12.0f;
        f.label->setSize(size);
    }
    benchmark::DoNotOptimize(f.notified);
}
BENCHMARK(BM_LabelEdit);

// The same edit as the first of its cycle, so that the feature's definition-changed event reaches
// its listener, followed by the frame update that starts the next cycle (the feature has no
// geometry, so the update only clears the dirty flags).
void BM_LabelEditFirstInCycleThenUpdate(benchmark::State& state) {
    LabelledFeature f;
    float size = 12.0f;
    for (auto _ : state) {
        size = size == 12.0f ? 13.0f : 12.0f;
        f.label->setSize(size);
        f.feature._updateEntityInCull(false);
    }
    if (f.notified < static_cast<std::size_t>(state.iterations())) {
        state.SkipWithError("the listener did not hear every cycle");
    }
}
BENCHMARK(BM_LabelEditFirstInCycleThenUpdate);

template <typename Make>
void reportHeapBytes(benchmark::State& state, Make&& make) {
    std::size_t bytes = 0;
    for (auto _ : state) {
        const std::size_t before = keo::bench::allocatedBytes();
        auto object = make();
        bytes = keo::bench::allocatedBytes() - before;
        benchmark::DoNotOptimize(object);
    }
    keo::bench::reportBytes(state, "heap_bytes", static_cast<double>(bytes));
}

// A default feature (no geometry, no style) made with std::make_shared, as groups hold them.
void BM_HeapBytesOfDefaultFeature(benchmark::State& state) {
    reportHeapBytes(state, [] { return std::make_shared<Feature>(std::uint64_t{1}); });
}
BENCHMARK(BM_HeapBytesOfDefaultFeature);

// A default label symbol made with std::make_shared, as styles hold it.
void BM_HeapBytesOfLabelSymbol(benchmark::State& state) {
    reportHeapBytes(state, [] { return std::make_shared<LabelSymbol>(); });
}
BENCHMARK(BM_HeapBytesOfLabelSymbol);

} // namespace
