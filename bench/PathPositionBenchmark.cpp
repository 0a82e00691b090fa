// Evaluation of a moving point on a path: one getValue is a lock, a binary search in the
// cumulative segment lengths and one interpolation. Each benchmark runs 1e6 evaluations on a
// 10-point looping path, at times that sweep several laps so every segment is visited.

#include "Common/Cartographic.h"
#include "Common/Ellipsoid.h"
#include "Data/PathPositionArrayProperty.h"
#include "Data/TimePoint.h"

#include <benchmark/benchmark.h>

#include <utility>
#include <vector>

namespace {

constexpr int POINT_COUNT = 10;
constexpr int EVALUATIONS = 1000000;

// Ten points 0.01 rad of longitude apart on the equator (about 64 km each), at 300 m/s.
keo::PathPositionArrayProperty& tenPointPath() {
    static keo::PathPositionArrayProperty path = [] {
        std::vector<keo::Vector3<double>> points;
        for (int i = 0; i < POINT_COUNT; ++i) {
            points.push_back(keo::Ellipsoid::WGS84.cartographicToCartesian(
                keo::Cartographic::fromRadians(0.01 * i, 0.0, 100.0)));
        }
        return keo::PathPositionArrayProperty(std::move(points));
    }();
    return path;
}

void pathGetValue(benchmark::State& state) {
    const keo::PathPositionArrayProperty& path = tenPointPath();
    double seconds = 0.0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(path.getValue(keo::TimePoint::fromSeconds(seconds)));
        seconds += 0.37; // about 111 m per step: a lap of 577 km takes about 5200 steps
    }
    state.SetItemsProcessed(state.iterations());
}

void pathGetValues(benchmark::State& state) {
    const keo::PathPositionArrayProperty& path = tenPointPath();
    double seconds = 0.0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(path.getValues(keo::TimePoint::fromSeconds(seconds)));
        seconds += 0.37;
    }
    state.SetItemsProcessed(state.iterations());
}

} // namespace

BENCHMARK(pathGetValue)->Iterations(EVALUATIONS);
BENCHMARK(pathGetValues)->Iterations(EVALUATIONS);
