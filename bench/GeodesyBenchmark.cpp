// Geodesy of keoCommon against GeographicLib, the independent reference, on the same inputs in the
// same binary: geodetic to ECEF, ECEF to geodetic, and the geodesic distance.
//
// Each benchmark cycles through the same INPUT_COUNT pre-generated, seeded inputs, so the two sides
// of a pair see exactly the same values in the same order.

#include "Common/Cartographic.h"
#include "Common/Ellipsoid.h"
#include "Common/Math.h"
#include "Common/Vector3.h"

#include <GeographicLib/Geocentric.hpp>
#include <GeographicLib/Geodesic.hpp>
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstddef>
#include <random>
#include <vector>

namespace {

constexpr std::size_t INPUT_COUNT = 4096; // a power of two: the index wraps with a mask
constexpr std::size_t INDEX_MASK = INPUT_COUNT - 1;

/** One input: a geodetic position (radians and degrees), its ECEF position, and a second one. */
struct Input {
    keo::Cartographic position;
    double latitudeDegrees;
    double longitudeDegrees;
    keo::Vector3<double> cartesian;
    keo::Cartographic other;
    double otherLatitudeDegrees;
    double otherLongitudeDegrees;
};

/**
 * Positions uniform on the sphere of directions (latitude = asin of a uniform value), longitudes
 * uniform in [-180, 180), heights from -10 km to 40,000 km with more of them near the surface;
 * the pairs for the distance are independent positions, so about one in a few thousand is nearly
 * antipodal, as in real use.
 */
std::vector<Input> makeInputs() {
    std::mt19937_64 random(20240611);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    const auto latitude = [&] {
        return std::asin(2.0 * unit(random) - 1.0) * keo::Math::DEGREES_PER_RADIAN;
    };
    const auto longitude = [&] { return 360.0 * unit(random) - 180.0; };
    const GeographicLib::Geocentric& geocentric = GeographicLib::Geocentric::WGS84();
    std::vector<Input> inputs(INPUT_COUNT);
    for (Input& input : inputs) {
        const double u = unit(random);
        const double height = -10000.0 + 40010000.0 * u * u;
        input.latitudeDegrees = latitude();
        input.longitudeDegrees = longitude();
        input.position =
            keo::Cartographic::fromDegrees(input.longitudeDegrees, input.latitudeDegrees, height);
        geocentric.Forward(input.latitudeDegrees, input.longitudeDegrees, height, input.cartesian.x,
                           input.cartesian.y, input.cartesian.z);
        input.otherLatitudeDegrees = latitude();
        input.otherLongitudeDegrees = longitude();
        input.other =
            keo::Cartographic::fromDegrees(input.otherLongitudeDegrees, input.otherLatitudeDegrees);
    }
    return inputs;
}

const std::vector<Input>& inputs() {
    static const std::vector<Input> values = makeInputs();
    return values;
}

void keoCartographicToCartesian(benchmark::State& state) {
    const std::vector<Input>& in = inputs();
    const keo::Ellipsoid& ellipsoid = keo::Ellipsoid::WGS84;
    std::size_t i = 0;
    for (auto _ : state) {
        keo::Vector3<double> result =
            ellipsoid.cartographicToCartesian(in[i++ & INDEX_MASK].position);
        benchmark::DoNotOptimize(result);
    }
}

void geographicLibForward(benchmark::State& state) {
    const std::vector<Input>& in = inputs();
    const GeographicLib::Geocentric& geocentric = GeographicLib::Geocentric::WGS84();
    std::size_t i = 0;
    for (auto _ : state) {
        const Input& input = in[i++ & INDEX_MASK];
        double x;
        double y;
        double z;
        geocentric.Forward(input.latitudeDegrees, input.longitudeDegrees, input.position.height, x,
                           y, z);
        benchmark::DoNotOptimize(x);
        benchmark::DoNotOptimize(y);
        benchmark::DoNotOptimize(z);
    }
}

void keoCartesianToCartographic(benchmark::State& state) {
    const std::vector<Input>& in = inputs();
    const keo::Ellipsoid& ellipsoid = keo::Ellipsoid::WGS84;
    std::size_t i = 0;
    for (auto _ : state) {
        auto result = ellipsoid.cartesianToCartographic(in[i++ & INDEX_MASK].cartesian);
        benchmark::DoNotOptimize(result);
    }
}

void geographicLibReverse(benchmark::State& state) {
    const std::vector<Input>& in = inputs();
    const GeographicLib::Geocentric& geocentric = GeographicLib::Geocentric::WGS84();
    std::size_t i = 0;
    for (auto _ : state) {
        const keo::Vector3<double>& p = in[i++ & INDEX_MASK].cartesian;
        double latitude;
        double longitude;
        double height;
        geocentric.Reverse(p.x, p.y, p.z, latitude, longitude, height);
        benchmark::DoNotOptimize(latitude);
        benchmark::DoNotOptimize(longitude);
        benchmark::DoNotOptimize(height);
    }
}

void keoVincentyDistance(benchmark::State& state) {
    const std::vector<Input>& in = inputs();
    std::size_t i = 0;
    for (auto _ : state) {
        const Input& input = in[i++ & INDEX_MASK];
        double distance = keo::Math::computeVincentyDistR(input.position, input.other);
        benchmark::DoNotOptimize(distance);
    }
}

void geographicLibInverse(benchmark::State& state) {
    const std::vector<Input>& in = inputs();
    const GeographicLib::Geodesic& geodesic = GeographicLib::Geodesic::WGS84();
    std::size_t i = 0;
    for (auto _ : state) {
        const Input& input = in[i++ & INDEX_MASK];
        double distance;
        geodesic.Inverse(input.latitudeDegrees, input.longitudeDegrees, input.otherLatitudeDegrees,
                         input.otherLongitudeDegrees, distance);
        benchmark::DoNotOptimize(distance);
    }
}

} // namespace

BENCHMARK(keoCartographicToCartesian);
BENCHMARK(geographicLibForward);
BENCHMARK(keoCartesianToCartographic);
BENCHMARK(geographicLibReverse);
BENCHMARK(keoVincentyDistance);
BENCHMARK(geographicLibInverse);
