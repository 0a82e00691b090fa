// Cost of building entity trees shaped like a point feature's: a root with a point and three named
// children (label, billboard, model), each entity with its own constant position. Reports the
// time and the heap bytes per tree; the bytes are counted by the heap counter of the benchmark
// binaries.

#include "Data/BillboardGraphics.h"
#include "Data/ConstantPositionProperty.h"
#include "Data/Entity.h"
#include "Data/LabelGraphics.h"
#include "Data/ModelGraphics.h"
#include "Data/PointGraphics.h"
#include "Data/Resource.h"
#include "HeapCounter.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <new>
#include <string>
#include <vector>

namespace {

constexpr std::size_t TREES = 100000;

std::shared_ptr<keo::PositionProperty> positionOf(std::size_t index, double up) {
    return std::make_shared<keo::ConstantPositionProperty>(
        keo::Vector3<double>(6378137.0 + up, static_cast<double>(index), 0.0));
}

std::shared_ptr<keo::Entity> buildTree(std::size_t index,
                                       const std::shared_ptr<keo::Resource>& model) {
    auto root = std::make_shared<keo::Entity>("feature");
    root->setPosition(positionOf(index, 0.0));
    auto point = std::make_shared<keo::PointGraphics>();
    point->setPixelSize(8.0f);
    root->setGeometryGraphics(std::move(point));

    auto label = std::make_shared<keo::Entity>("label-symbol");
    label->setParent(root);
    label->setPosition(positionOf(index, 10.0));
    keo::LabelGraphics::ConstructorOptions labelOptions;
    labelOptions.text = "P" + std::to_string(index);
    labelOptions.style = keo::LabelStyle::FillAndOutline;
    label->setGeometryGraphics(std::make_shared<keo::LabelGraphics>(labelOptions));

    auto billboard = std::make_shared<keo::Entity>("billboard-symbol");
    billboard->setParent(root);
    billboard->setPosition(positionOf(index, 0.0));
    auto image = std::make_shared<keo::BillboardGraphics>();
    image->setImage(std::string("icons/pin.png"));
    image->setVerticalOrigin(keo::VerticalOrigin::Bottom);
    billboard->setGeometryGraphics(std::move(image));

    auto modelEntity = std::make_shared<keo::Entity>("model-symbol");
    modelEntity->setParent(root);
    modelEntity->setPosition(positionOf(index, 0.0));
    auto modelGraphics = std::make_shared<keo::ModelGraphics>();
    modelGraphics->setUri(model);
    modelEntity->setGeometryGraphics(std::move(modelGraphics));
    return root;
}

void BM_BuildEntityTrees(benchmark::State& state) {
    const auto model = std::make_shared<keo::Resource>("models/tower.glb");
    std::vector<std::shared_ptr<keo::Entity>> trees;
    trees.reserve(TREES);
    std::size_t grossBytes = 0;
    std::size_t liveBytes = 0;
    for (auto _ : state) {
        const std::size_t allocatedBefore = keo::bench::allocatedBytes();
        const std::size_t freedBefore = keo::bench::freedBytes();
        for (std::size_t i = 0; i < TREES; ++i) {
            trees.push_back(buildTree(i, model));
        }
        grossBytes += keo::bench::allocatedBytes() - allocatedBefore;
        liveBytes += (keo::bench::allocatedBytes() - allocatedBefore) -
                     (keo::bench::freedBytes() - freedBefore);
        benchmark::DoNotOptimize(trees.data());
        state.PauseTiming();
        trees.clear();
        state.ResumeTiming();
    }
    const auto built = static_cast<double>(state.iterations()) * static_cast<double>(TREES);
    state.SetItemsProcessed(static_cast<std::int64_t>(built));
    state.counters["time_per_tree"] = benchmark::Counter(
        static_cast<double>(TREES),
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    keo::bench::reportBytes(state, "allocated_bytes_per_tree",
                            static_cast<double>(grossBytes) / built);
    keo::bench::reportBytes(state, "live_bytes_per_tree", static_cast<double>(liveBytes) / built);
}
BENCHMARK(BM_BuildEntityTrees)->Unit(benchmark::kMillisecond);

void BM_DestroyEntityTrees(benchmark::State& state) {
    const auto model = std::make_shared<keo::Resource>("models/tower.glb");
    std::vector<std::shared_ptr<keo::Entity>> trees;
    trees.reserve(TREES);
    for (auto _ : state) {
        state.PauseTiming();
        for (std::size_t i = 0; i < TREES; ++i) {
            trees.push_back(buildTree(i, model));
        }
        state.ResumeTiming();
        trees.clear();
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(TREES));
    state.counters["time_per_tree"] = benchmark::Counter(
        static_cast<double>(TREES),
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_DestroyEntityTrees)->Unit(benchmark::kMillisecond);

} // namespace
