// keoPicture: many labelled points drawn into a large PNG, and a scene of the sample's size with
// one entity of each kind it draws, each made directly as entities.
#include "Common/Cartographic.h"
#include "Common/Color.h"
#include "Common/Ellipsoid.h"
#include "Data/BillboardGraphics.h"
#include "Data/ConstantPositionProperty.h"
#include "Data/Entity.h"
#include "Data/Image.h"
#include "Data/LabelGraphics.h"
#include "Data/ModelGraphics.h"
#include "Data/ParticleSystemGraphics.h"
#include "Data/PointGraphics.h"
#include "Data/Resource.h"
#include "Data/SphereEmitter.h"
#include "Picture/Renderer.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace {

using keo::Entity;

// A position @p east, @p north metres from a place near Beijing.
keo::Vector3<double> at(double east, double north, double up = 0.0) {
    constexpr double RADIUS = 6378137.0;
    const double latitude = 39.91 * M_PI / 180.0;
    return keo::Ellipsoid::WGS84.cartographicToCartesian(
        keo::Cartographic::fromRadians(116.39 * M_PI / 180.0 + east / (RADIUS * std::cos(latitude)),
                                       latitude + north / RADIUS, up));
}

std::shared_ptr<Entity> placed(const keo::Vector3<double>& position,
                               std::shared_ptr<keo::GeometryGraphics> graphics) {
    auto entity = std::make_shared<Entity>();
    entity->setPosition(std::make_shared<keo::ConstantPositionProperty>(position));
    entity->setGeometryGraphics(std::move(graphics));
    return entity;
}

// A red dot with a white label under it, as the sample's markers are.
std::shared_ptr<Entity> labelledPoint(const keo::Vector3<double>& position,
                                      const std::string& text) {
    auto dot = std::make_shared<keo::PointGraphics>();
    dot->setPixelSize(6.0f);
    dot->setColor(keo::Color::RED);
    auto root = placed(position, dot);
    auto label = std::make_shared<keo::LabelGraphics>();
    label->setText(text);
    label->setFontSize(12.0f);
    label->setPixelOffset(keo::Vector2<float>(0.0f, -12.0f));
    placed(position, label)->setParent(root);
    return root;
}

void BM_PointsWithLabels(benchmark::State& state) {
    const auto count = static_cast<std::size_t>(state.range(0));
    const auto side = static_cast<std::size_t>(std::ceil(std::sqrt(static_cast<double>(count))));
    std::vector<std::shared_ptr<Entity>> roots;
    for (std::size_t i = 0; i < count; ++i) {
        const double east = static_cast<double>(i % side) * 50.0;
        const double north = static_cast<double>(i / side) * 50.0;
        roots.push_back(labelledPoint(at(east, north), "P" + std::to_string(i)));
    }
    const auto entities = keo::Picture::Renderer::collectTrees(roots);
    keo::Picture::Options options;
    options.width = 2048;
    options.height = 2048;
    const keo::Picture::Renderer picture(options);
    const std::string path = "keo-picture-benchmark.png";
    for (auto _ : state) {
        benchmark::DoNotOptimize(picture.writeFile(path, entities));
    }
    std::remove(path.c_str());
    state.counters["entities/s"] = benchmark::Counter(
        static_cast<double>(entities.size()), benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK(BM_PointsWithLabels)->Arg(100000)->Unit(benchmark::kMillisecond)->Iterations(3);

// About the sample's 22 entities: labelled points, billboards, model boxes and particle systems.
std::vector<std::shared_ptr<Entity>> sampleSizedScene() {
    std::vector<std::shared_ptr<Entity>> roots;
    const auto image = std::make_shared<keo::Image>(
        4, 4, std::vector<std::uint8_t>(4 * 4 * 4, static_cast<std::uint8_t>(200)));
    for (int i = 0; i < 4; ++i) {
        roots.push_back(labelledPoint(at(i * 300.0, 0.0), "Marker " + std::to_string(i)));
        auto billboard = std::make_shared<keo::BillboardGraphics>();
        billboard->setImage(image);
        roots.push_back(placed(at(i * 300.0, 400.0), billboard));
        auto model = std::make_shared<keo::ModelGraphics>();
        model->setUri(std::make_shared<keo::Resource>("models/tower.glb"));
        model->setReady(true);
        model->setBoundingBox(keo::ModelGraphics::BoundingBox{{0.0, 0.0, 15.0}, {6.0, 6.0, 15.0}});
        roots.push_back(placed(at(i * 300.0, 800.0), model));
        auto particles = std::make_shared<keo::ParticleSystemGraphics>();
        particles->setEmitter(std::make_shared<keo::SphereEmitter>(5.0));
        roots.push_back(placed(at(i * 300.0, -400.0), particles));
    }
    return roots;
}

void BM_SampleSizedScene(benchmark::State& state) {
    const auto roots = sampleSizedScene();
    const auto entities = keo::Picture::Renderer::collectTrees(roots);
    keo::Picture::Options options;
    options.view = state.range(0) == 0 ? keo::Picture::View::Map : keo::Picture::View::Oblique;
    const keo::Picture::Renderer picture(options);
    const std::string path = "keo-picture-sample-benchmark.png";
    for (auto _ : state) {
        benchmark::DoNotOptimize(picture.writeFile(path, entities));
    }
    std::remove(path.c_str());
    state.SetLabel((state.range(0) == 0 ? "map view, " : "oblique view, ") +
                   std::to_string(entities.size()) + " entities, 1024x768");
}
BENCHMARK(BM_SampleSizedScene)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

} // namespace
