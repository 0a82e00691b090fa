// Cost per feature of the collection's and the group's bulk operations: adding a million features
// to a collection inside one suspend/resume pair, removing features one by one from a collection
// and from a group (in the order they were added, and shuffled), and one notification carrying a
// hundred thousand changed features. Each counter "per_feature" is the time of the timed part
// divided by the number of features it handled.
//
// The features are made once, as an application makes them: a fresh random id, a name, a point
// geometry of its own and one shared style. Every benchmark runs on two heaps (the argument
// "scattered"):
// - 0, in a row: the features are made one after the other, as a program that loads a data set
//   makes them;
// - 1, scattered: other objects of many sizes are made alongside and later freed in random order.
//   So the features lie apart from each other, and what the collection allocates for them lands
//   in scattered holes, as in a program that has been running for a while. The allocator's own
//   bookkeeping of those holes then takes a large part of the time.
// Setting up and tearing down the collections and groups is not timed; the listeners walk every
// batch they receive. The benchmarks with a fixed number of iterations first run one round that
// is not timed (a warm-up): the first use of memory the process has not used before costs far more
// than later use on a virtual machine, whose host backs each page when it is first touched, and
// that first use would otherwise land in the first iteration.

#include "Common/Cartographic.h"
#include "Feature/Feature.h"
#include "Feature/FeatureCollection.h"
#include "Feature/FeatureGroup.h"
#include "Feature/LabelSymbol.h"
#include "Feature/PointGeometry.h"
#include "Feature/PointStyle.h"
#include "Feature/PointSymbol.h"
#include "FlatIdMap.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <list>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <tuple>
#include <unordered_map>
#include <vector>

namespace {

using keo::Cartographic;
using keo::Feature::Feature;
using keo::Feature::FeatureCollection;
using keo::Feature::FeatureGroup;
using keo::Feature::LabelSymbol;
using keo::Feature::PointGeometry;
using keo::Feature::PointStyle;
using keo::Feature::PointSymbol;

using Features = std::vector<std::shared_ptr<Feature>>;

constexpr std::size_t MOST_FEATURES = 1'000'000;

std::shared_ptr<PointStyle> makeStyle() {
    auto style = std::make_shared<PointStyle>();
    auto point = std::make_shared<PointSymbol>();
    point->setPixelSize(8.0f);
    style->setPointSymbol(std::move(point));
    style->setLabelSymbol(std::make_shared<LabelSymbol>());
    return style;
}

// MOST_FEATURES named point features with fresh ids on a grid of 0.001 degree, drawn with one
// style. When @p scattered, between two features the "application" makes 0 to 3 objects of 16 to
// 400 bytes, which are freed in random order once every feature is made: the holes they leave are
// where later allocations land.
Features makeWorld(bool scattered) {
    std::mt19937 random(7);
    std::uniform_int_distribution<std::size_t> otherCount(0, 3);
    std::uniform_int_distribution<std::size_t> otherSize(16, 400);
    std::vector<std::unique_ptr<char[]>> others;
    const auto style = makeStyle();
    Features features;
    features.reserve(MOST_FEATURES);
    for (std::size_t i = 0; i < MOST_FEATURES; ++i) {
        auto feature = std::make_shared<Feature>();
        feature->setName("point " + std::to_string(i));
        const double column = static_cast<double>(i % 1000);
        const double row = static_cast<double>(i / 1000);
        feature->setGeometry(std::make_shared<PointGeometry>(
            Cartographic::fromDegrees(100.0 + column * 0.001, 30.0 + row * 0.001, 10.0)));
        feature->setStyle(style);
        features.push_back(std::move(feature));
        for (std::size_t n = scattered ? otherCount(random) : 0; n > 0; --n) {
            others.push_back(std::make_unique<char[]>(otherSize(random)));
            benchmark::DoNotOptimize(others.back().get());
        }
    }
    std::shuffle(others.begin(), others.end(), random);
    others.clear();
    return features;
}

// The first state.range(0) features of the world that state.range(1) names (in a row or
// scattered), made on first use and kept for every run.
const Features& featuresOf(const benchmark::State& state) {
    const std::int64_t count = state.range(0);
    const bool scattered = state.range(1) != 0;
    static std::vector<Features> worlds(2);
    Features& world = worlds[scattered ? 1 : 0];
    if (world.empty()) {
        world = makeWorld(scattered);
    }
    static std::vector<std::tuple<std::int64_t, bool, Features>> made;
    for (const auto& entry : made) {
        if (std::get<0>(entry) == count && std::get<1>(entry) == scattered) {
            return std::get<2>(entry);
        }
    }
    const auto end = world.begin() + static_cast<std::ptrdiff_t>(count);
    made.emplace_back(count, scattered, Features(world.begin(), end));
    return std::get<2>(made.back());
}

// The order in which to remove @p features: as they were added (the third argument 0), or in a
// fixed shuffled order (1), where each removal touches memory far from the previous one.
Features removalOrder(const Features& features, const benchmark::State& state) {
    Features order = features;
    if (state.range(2) != 0) {
        std::shuffle(order.begin(), order.end(), std::mt19937(42));
    }
    return order;
}

// The collection's notifications and the features they carried, counted by walking each batch
// as a listener that uses them does.
struct NotificationCount {
    std::int64_t notifications = 0;
    std::size_t carried = 0;
};

template <typename List>
std::size_t walk(const List& list) {
    std::size_t count = 0;
    for (const auto& feature : list) {
        benchmark::DoNotOptimize(&feature);
        ++count;
    }
    return count;
}

// Counts into @p count every notification of @p collection.
void countNotifications(FeatureCollection& collection, NotificationCount& count) {
    collection.getCollectionChanged()->addEventListener(
        [&count](FeatureCollection*, const FeatureCollection::FeatureList& added,
                 const FeatureCollection::FeatureList& removed,
                 const FeatureCollection::ChangedList& changed) {
            ++count.notifications;
            count.carried += walk(added) + walk(removed) + walk(changed);
        });
}

// A collection holding @p features, their addition already notified.
std::unique_ptr<FeatureCollection> collectionOf(const Features& features) {
    auto collection = std::make_unique<FeatureCollection>();
    collection->suspendEvents();
    for (const auto& feature : features) {
        collection->add(feature);
    }
    collection->resumeEvents();
    return collection;
}

// Lets the allocator finish, untimed, the work that the untimed teardown left it: glibc keeps
// small freed blocks aside and merges them all at the next large request, which would otherwise
// land in the next timed part (the index growing during the adds, say).
void settleHeap() {
    // A request above the small sizes makes glibc merge the blocks it keeps aside and sort its
    // free lists; unlike malloc_trim it hands no memory back to the system, so the next timed
    // part reuses mapped memory as a long-running program does, instead of faulting it in again.
    void* block = std::malloc(64 * 1024);
    benchmark::DoNotOptimize(block);
    std::free(block);
}

void addPerFeatureCounter(benchmark::State& state) {
    state.counters["per_feature"] = benchmark::Counter(
        static_cast<double>(state.range(0)),
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void requireOneNotification(const NotificationCount& count, std::int64_t features) {
    if (count.notifications != 1 || count.carried != static_cast<std::size_t>(features)) {
        throw std::logic_error("expected one notification carrying every feature");
    }
}

// Adds @p features to a new collection inside one suspend/resume pair and checks that this made
// one notification carrying every feature. With @p state, only the adding and the notification
// are timed; without, it is the warm-up, which runs before the timed loop.
void addSuspended(const Features& features, benchmark::State* state) {
    auto collection = std::make_unique<FeatureCollection>();
    NotificationCount count;
    countNotifications(*collection, count);
    if (state != nullptr) {
        state->ResumeTiming();
    }

    collection->suspendEvents();
    for (const auto& feature : features) {
        collection->add(feature);
    }
    collection->resumeEvents();

    if (state != nullptr) {
        state->PauseTiming();
    }
    requireOneNotification(count, static_cast<std::int64_t>(features.size()));
    collection.reset(); // unsubscribes from every feature, untimed
    settleHeap();
}

void BM_CollectionAddSuspended(benchmark::State& state) {
    const Features& features = featuresOf(state);
    addSuspended(features, nullptr);
    for (auto _ : state) {
        state.PauseTiming();
        addSuspended(features, &state);
        state.ResumeTiming();
    }
    addPerFeatureCounter(state);
}

void BM_CollectionRemoveOneByOne(benchmark::State& state) {
    const Features& features = featuresOf(state);
    const Features order = removalOrder(features, state);
    for (auto _ : state) {
        state.PauseTiming();
        auto collection = collectionOf(features);
        NotificationCount count;
        countNotifications(*collection, count);
        state.ResumeTiming();

        // Each removal notifies at once, with one removed feature.
        for (const auto& feature : order) {
            collection->removeById(feature->getId());
        }

        state.PauseTiming();
        if (count.notifications != state.range(0) ||
            count.carried != static_cast<std::size_t>(state.range(0))) {
            throw std::logic_error("expected one notification per removal");
        }
        collection.reset();
        settleHeap();
        state.ResumeTiming();
    }
    addPerFeatureCounter(state);
}

void BM_GroupRemoveFromMemoryOneByOne(benchmark::State& state) {
    const Features& features = featuresOf(state);
    const Features order = removalOrder(features, state);
    for (auto _ : state) {
        state.PauseTiming();
        auto group = std::make_shared<FeatureGroup>();
        for (const auto& feature : features) {
            group->add(feature);
        }
        std::size_t removed = 0;
        group->_addFeatureAddedOrRemovedEventListener(
            [&removed](const auto& added, const auto& leaving) {
                removed += walk(added) + walk(leaving);
            });
        state.ResumeTiming();

        for (const auto& feature : order) {
            group->removeFromMemory(feature);
        }

        state.PauseTiming();
        if (removed != static_cast<std::size_t>(state.range(0)) || !group->getFeatures().empty()) {
            throw std::logic_error("expected one event per removal");
        }
        group.reset();
        settleHeap();
        state.ResumeTiming();
    }
    addPerFeatureCounter(state);
}

// One notification carrying every member as changed. With @p timeRecording the members report
// their changes through their definition-changed events (as an edit does) inside the timed part,
// while notifications are suspended, and the resume delivers them; without it only that resume,
// the delivery, is timed. Every round starts a new frame (untimed), so each member reports again,
// as the members of a collection that is edited and drawn frame after frame do.
void changedNotification(benchmark::State& state, bool timeRecording) {
    const Features& features = featuresOf(state);
    for (const auto& feature : features) {
        feature->_updateEntityInCull(false); // the first frame builds the entities
        benchmark::DoNotOptimize(feature->_takeAddedEntities());
    }
    const auto collection = collectionOf(features);
    NotificationCount count;
    countNotifications(*collection, count);
    const auto record = [&] {
        collection->suspendEvents();
        for (const auto& feature : features) {
            feature->_raiseDefinitionChangedEvent();
        }
    };
    for (auto _ : state) {
        state.PauseTiming();
        for (const auto& feature : features) {
            feature->_updateEntityInCull(false); // a new frame: each feature may report again
        }
        count = {};
        if (!timeRecording) {
            record();
        }
        state.ResumeTiming();

        if (timeRecording) {
            record();
        }
        collection->resumeEvents();

        state.PauseTiming();
        requireOneNotification(count, state.range(0));
        state.ResumeTiming();
    }
    addPerFeatureCounter(state);
}

void BM_CollectionChangedNotification(benchmark::State& state) {
    changedNotification(state, true);
}

void BM_CollectionChangedDelivery(benchmark::State& state) {
    changedNotification(state, false);
}

// For reference, the least that adding a member takes in any design that keeps the members as a
// list in insertion order plus a hash index from id to list position: one index insertion and one
// list append per feature, nothing else (no subscription, no batch). Argument "index": 0 the
// collection's flat index, 1 std::unordered_map.
template <typename Index>
void insertIntoIndexAndList(const Features& features) {
    Index index;
    std::list<std::shared_ptr<Feature>> list;
    for (const auto& feature : features) {
        list.push_back(feature);
        index[feature->getId()] = std::prev(list.end());
    }
    benchmark::DoNotOptimize(index.size());
    benchmark::ClobberMemory();
}

using ListPosition = std::list<std::shared_ptr<Feature>>::iterator;

// A FlatIdMap with the subscript access the template above uses.
struct FlatIndex {
    keo::detail::FlatIdMap<ListPosition> map;
    ListPosition& operator[](std::uint64_t id) { return *map.tryEmplace(id).first; }
    std::size_t size() const { return map.size(); }
};

void BM_ReferenceIndexAndListInsert(benchmark::State& state) {
    const Features& features = featuresOf(state);
    const auto insert = [&] {
        if (state.range(2) == 0) {
            insertIntoIndexAndList<FlatIndex>(features);
        } else {
            insertIntoIndexAndList<std::unordered_map<std::uint64_t, ListPosition>>(features);
        }
    };
    insert(); // the warm-up, before the timed loop
    settleHeap();
    for (auto _ : state) {
        insert();
        state.PauseTiming();
        settleHeap();
        state.ResumeTiming();
    }
    addPerFeatureCounter(state);
}

} // namespace

BENCHMARK(BM_CollectionAddSuspended)
    ->Args({1'000'000, 0})
    ->Args({1'000'000, 1})
    ->ArgNames({"features", "scattered"})
    ->Iterations(5)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CollectionRemoveOneByOne)
    ->ArgsProduct({{100'000}, {0, 1}, {0, 1}})
    ->ArgNames({"features", "scattered", "shuffled"})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_GroupRemoveFromMemoryOneByOne)
    ->ArgsProduct({{100'000}, {0, 1}, {0, 1}})
    ->ArgNames({"features", "scattered", "shuffled"})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CollectionChangedNotification)
    ->ArgsProduct({{100'000}, {0, 1}})
    ->ArgNames({"features", "scattered"})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CollectionChangedDelivery)
    ->ArgsProduct({{100'000}, {0, 1}})
    ->ArgNames({"features", "scattered"})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ReferenceIndexAndListInsert)
    ->ArgsProduct({{1'000'000}, {0}, {0, 1}})
    ->ArgNames({"features", "scattered", "index"})
    ->Iterations(5)
    ->Unit(benchmark::kMillisecond);
