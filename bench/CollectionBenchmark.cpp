// Cost per feature of the collection's and the group's bulk operations: adding a million features
// to a collection inside one suspend/resume pair, removing features one by one from a collection
// and from a group (in the order they were added, and shuffled), and one notification carrying a
// hundred thousand changed features. The features (ids 1 to N) are made once, outside the timed
// parts; each counter "per_feature" is the time of the timed part divided by the number of
// features it handled.

#include "Feature/Feature.h"
#include "Feature/FeatureCollection.h"
#include "Feature/FeatureGroup.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <random>
#include <stdexcept>
#include <vector>

namespace {

using keo::Feature::Feature;
using keo::Feature::FeatureCollection;
using keo::Feature::FeatureGroup;

using Features = std::vector<std::shared_ptr<Feature>>;

// Features with the ids 1..count, made once per size and kept for every run.
const Features& featuresOf(std::int64_t count) {
    static std::vector<std::pair<std::int64_t, Features>> made;
    for (const auto& entry : made) {
        if (entry.first == count) {
            return entry.second;
        }
    }
    Features features;
    features.reserve(static_cast<std::size_t>(count));
    for (std::int64_t id = 1; id <= count; ++id) {
        features.push_back(std::make_shared<Feature>(static_cast<std::uint64_t>(id)));
    }
    made.emplace_back(count, std::move(features));
    return made.back().second;
}

// The order in which to remove @p features: as they were added (the second argument 0), or in a
// fixed shuffled order (1), where each removal touches memory far from the previous one.
Features removalOrder(const Features& features, const benchmark::State& state) {
    Features order = features;
    if (state.range(1) != 0) {
        std::shuffle(order.begin(), order.end(), std::mt19937(42));
    }
    return order;
}

// The collection's notifications and the features they carried.
struct NotificationCount {
    std::int64_t notifications = 0;
    std::size_t carried = 0;
};

// Counts into @p count every notification of @p collection.
void countNotifications(FeatureCollection& collection, NotificationCount& count) {
    collection.getCollectionChanged()->addEventListener(
        [&count](FeatureCollection*, const FeatureCollection::FeatureList& added,
                 const FeatureCollection::FeatureList& removed,
                 const FeatureCollection::ChangedList& changed) {
            ++count.notifications;
            count.carried += added.size() + removed.size() + changed.size();
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

void BM_CollectionAddSuspended(benchmark::State& state) {
    const Features& features = featuresOf(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        auto collection = std::make_unique<FeatureCollection>();
        NotificationCount count;
        countNotifications(*collection, count);
        state.ResumeTiming();

        collection->suspendEvents();
        for (const auto& feature : features) {
            collection->add(feature);
        }
        collection->resumeEvents();

        state.PauseTiming();
        requireOneNotification(count, state.range(0));
        collection.reset(); // unsubscribes from every feature, untimed
        state.ResumeTiming();
    }
    addPerFeatureCounter(state);
}

void BM_CollectionRemoveOneByOne(benchmark::State& state) {
    const Features& features = featuresOf(state.range(0));
    const Features order = removalOrder(features, state);
    for (auto _ : state) {
        state.PauseTiming();
        const auto collection = collectionOf(features);
        NotificationCount count;
        countNotifications(*collection, count);
        state.ResumeTiming();

        // Each removal notifies at once, with one removed feature.
        for (const auto& feature : order) {
            collection->removeById(feature->getId());
        }

        state.PauseTiming();
        if (count.notifications != state.range(0)) {
            throw std::logic_error("expected one notification per removal");
        }
        state.ResumeTiming();
    }
    addPerFeatureCounter(state);
}

void BM_GroupRemoveFromMemoryOneByOne(benchmark::State& state) {
    const Features& features = featuresOf(state.range(0));
    const Features order = removalOrder(features, state);
    for (auto _ : state) {
        state.PauseTiming();
        const auto group = std::make_shared<FeatureGroup>();
        for (const auto& feature : features) {
            group->add(feature);
        }
        std::int64_t events = 0;
        group->_addFeatureAddedOrRemovedEventListener(
            [&events](const auto&, const auto&) { ++events; });
        state.ResumeTiming();

        for (const auto& feature : order) {
            group->removeFromMemory(feature);
        }

        state.PauseTiming();
        if (events != state.range(0) || !group->getFeatures().empty()) {
            throw std::logic_error("expected one event per removal");
        }
        state.ResumeTiming();
    }
    addPerFeatureCounter(state);
}

// One notification carrying every member as changed. With @p timeRecording the members report
// their changes through their definition-changed events (as an edit does) inside the timed part,
// while notifications are suspended, and the resume delivers them; without it only that resume,
// the delivery, is timed.
void changedNotification(benchmark::State& state, bool timeRecording) {
    const Features& features = featuresOf(state.range(0));
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

} // namespace

BENCHMARK(BM_CollectionAddSuspended)->Arg(1'000'000)->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CollectionRemoveOneByOne)
    ->Args({100'000, 0})
    ->Args({100'000, 1})
    ->ArgNames({"features", "shuffled"})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_GroupRemoveFromMemoryOneByOne)
    ->Args({100'000, 0})
    ->Args({100'000, 1})
    ->ArgNames({"features", "shuffled"})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CollectionChangedNotification)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CollectionChangedDelivery)->Arg(100'000)->Unit(benchmark::kMillisecond);
