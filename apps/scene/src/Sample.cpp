#include "Sample.h"

#include "SampleKinds.h"

#include "Common/Cartographic.h"
#include "Common/Color.h"
#include "Common/Ellipsoid.h"
#include "Common/Math.h"
#include "Common/Radian.h"
#include "Common/Vector2.h"
#include "Common/Vector3.h"
#include "Data/CallbackPositionProperty.h"
#include "Data/DistanceDisplayCondition.h"
#include "Data/HeightReference.h"
#include "Data/Image.h"
#include "Data/ParticleBurst.h"
#include "Data/Resource.h"
#include "Data/TimePoint.h"
#include "Feature/BillboardSymbol.h"
#include "Feature/ColorMaterial.h"
#include "Feature/Feature.h"
#include "Feature/FeatureCollection.h"
#include "Feature/LabelSymbol.h"
#include "Feature/LineSymbol.h"
#include "Feature/ModelSymbol.h"
#include "Feature/ParticleEmitter.h"
#include "Feature/ParticleSystemSymbol.h"
#include "Feature/PointGeometry.h"
#include "Feature/PointStyle.h"
#include "Feature/PointSymbol.h"

#include <cmath>
#include <cstdint>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace keo::scene {

namespace {

using Feature::BillboardSymbol;
using Feature::LabelSymbol;
using Feature::ModelSymbol;
using Feature::ParticleSystemSymbol;
using Feature::PointGeometry;
using Feature::PointStyle;
using Feature::PointSymbol;

// The sample sits around one place; each kind has its own spot nearby (degrees, metres).
Cartographic spot(double eastDegrees, double northDegrees, double height) {
    return samplePlace(eastDegrees, northDegrees, height);
}

// A small checkerboard, RGBA, made here so that the sample needs no file.
std::shared_ptr<Image> checkerImage(std::uint32_t size, const Color& color) {
    std::vector<std::uint8_t> rgba;
    rgba.reserve(std::size_t{size} * size * 4);
    for (std::uint32_t y = 0; y < size; ++y) {
        for (std::uint32_t x = 0; x < size; ++x) {
            const bool on = (x + y) % 2 == 0;
            for (const float channel : {color.r, color.g, color.b}) {
                rgba.push_back(on ? static_cast<std::uint8_t>(std::lround(channel * 255.0f)) : 0);
            }
            rgba.push_back(255);
        }
    }
    return std::make_shared<Image>(size, size, std::move(rgba));
}

std::shared_ptr<LabelSymbol> makeLabel() {
    auto label = std::make_shared<LabelSymbol>();
    label->setFont("sans-serif");
    label->setSize(14.0f);
    label->setPixelOffset(Vector2<float>(0.0f, -24.0f));
    return label;
}

std::shared_ptr<LabelSymbol> makeLabelWithHintLine() {
    auto label = makeLabel();
    label->setPixelOffset(Vector2<float>(30.0f, -60.0f));
    label->setShowHintLine(true);
    label->setHintLineMode(LabelSymbol::HintLineMode::Elbow);
    auto line = std::make_shared<Feature::LineSymbol>();
    line->setWidth(2.0f);
    line->setMaterial(std::make_shared<Feature::ColorMaterial>(Color::YELLOW));
    label->setHintLineSymbol(std::move(line));
    return label;
}

SceneFeature makePin(std::uint64_t id, const std::string& name) {
    auto feature =
        assemble(id, name, std::make_shared<PointGeometry>(spot(0.01, 0.0, 0.0)), makePinStyle());
    feature.feature->setLabelText(name + " (label text)");
    // Shown only from nearer than 50 km; the label takes the same limit.
    feature.feature->setDistanceDisplayCondition(keo::DistanceDisplayCondition(0.0f, 50000.0f));
    return feature;
}

std::shared_ptr<ModelSymbol> makeModelSymbol(const char* uri, double scale) {
    auto model = std::make_shared<ModelSymbol>();
    model->setModelUri(std::make_shared<Resource>(uri));
    model->setScale(Vector3<double>(scale, scale, scale));
    return model;
}

SceneFeature makeTower(std::uint64_t id, const std::string& name) {
    auto style = std::make_shared<PointStyle>();
    style->setModelSymbol(makeModelSymbol("models/tower.glb", 2.0));
    style->setLabelSymbol(makeLabel());
    auto geometry = std::make_shared<PointGeometry>(spot(0.0, 0.01, 0.0));
    // The geometry's own visibility range; the model shows between 10 m and 20 km.
    geometry->setDistanceDisplayCondition(keo::DistanceDisplayCondition(10.0f, 20000.0f));
    return assemble(id, name, std::move(geometry), std::move(style));
}

// A particle system of the given emitter at its own spot, with a looping burst.
SceneFeature makeParticles(std::uint64_t id, const std::string& name,
                           std::shared_ptr<Feature::ParticleEmitter> emitter, double east) {
    auto particles = std::make_shared<ParticleSystemSymbol>();
    particles->setEmitter(std::move(emitter));
    particles->setImage(checkerImage(2, Color::WHITE));
    particles->setStartColor(Color::YELLOW);
    particles->setEndColor(Color::RED);
    particles->setEmissionRate(20.0f);
    particles->setBursts({keo::ParticleBurst(1.0f, 10.0f, 20.0f)});
    auto style = std::make_shared<PointStyle>();
    style->setParticleSystemSymbol(std::move(particles));
    return assemble(id, name, std::make_shared<PointGeometry>(spot(east, -0.01, 5.0)),
                    std::move(style));
}

SceneFeature makeBoxParticles(std::uint64_t id, const std::string& name) {
    return makeParticles(
        id, name, std::make_shared<Feature::BoxEmitter>(Vector3<double>(10.0, 10.0, 2.0)), 0.0);
}

SceneFeature makeCircleParticles(std::uint64_t id, const std::string& name) {
    return makeParticles(id, name, std::make_shared<Feature::CircleEmitter>(3.0), 0.005);
}

SceneFeature makeConeParticles(std::uint64_t id, const std::string& name) {
    return makeParticles(id, name, std::make_shared<Feature::ConeEmitter>(Radian(0.3)), 0.01);
}

SceneFeature makeSphereParticles(std::uint64_t id, const std::string& name) {
    return makeParticles(id, name, std::make_shared<Feature::SphereEmitter>(5.0), 0.015);
}

// The drone circles its centre at 120 m above the ellipsoid: radius 200 m, one turn a minute.
// The position is a function of the scene clock that the frame loop passes in, so every run
// gives the same positions. East and north offsets become longitude and latitude steps on a
// sphere of the equatorial radius (ample for a 200 m circle).
std::optional<Vector3<double>> dronePosition(const TimePoint& time) {
    constexpr double RADIUS = 200.0;
    constexpr double EARTH_RADIUS = 6378137.0;
    constexpr double TURNS_PER_SECOND = 1.0 / 60.0;
    const Cartographic centre = spot(-0.01, 0.0, 120.0);
    const double angle = Math::TWO_PI * TURNS_PER_SECOND * time.seconds();
    const double east = RADIUS * std::cos(angle);
    const double north = RADIUS * std::sin(angle);
    const Cartographic place(Radian(centre.longitude.value() +
                                    east / (EARTH_RADIUS * std::cos(centre.latitude.value()))),
                             Radian(centre.latitude.value() + north / EARTH_RADIUS), centre.height);
    return Ellipsoid::WGS84.cartographicToCartesian(place);
}

SceneFeature makeDrone(std::uint64_t id, const std::string& name) {
    auto geometry = std::make_shared<PointGeometry>(false);
    geometry->setPosition(std::make_shared<keo::CallbackPositionProperty>(&dronePosition));
    auto style = std::make_shared<PointStyle>();
    style->setModelSymbol(makeModelSymbol("models/drone.glb", 1.0));
    auto dot = std::make_shared<PointSymbol>();
    dot->setPixelSize(6.0f);
    dot->setColor(Color::BLUE);
    style->setPointSymbol(std::move(dot));
    style->setLabelSymbol(makeLabelWithHintLine());
    return assemble(id, name, std::move(geometry), std::move(style));
}

} // namespace

SceneFeature assemble(std::uint64_t id, const std::string& name,
                      std::shared_ptr<Feature::Geometry> geometry,
                      std::shared_ptr<Feature::Style> style) {
    auto feature = std::make_shared<Feature::Feature>(id);
    feature->setName(name);
    feature->setGeometry(std::move(geometry));
    feature->setStyle(style);
    return SceneFeature{std::move(feature), std::move(style)};
}

SceneFeature makeMarker(std::uint64_t id, const std::string& name) {
    auto style = std::make_shared<PointStyle>();
    auto dot = std::make_shared<PointSymbol>();
    dot->setPixelSize(10.0f);
    dot->setColor(Color::RED);
    style->setPointSymbol(std::move(dot));
    auto label = makeLabel();
    label->setDistanceDisplayCondition(keo::DistanceDisplayCondition(0.0f, 100000.0f));
    style->setLabelSymbol(std::move(label));
    style->setHeightReference(HeightReference::ClampToGround);
    return assemble(id, name, std::make_shared<PointGeometry>(spot(0.0, 0.0, 0.0)),
                    std::move(style));
}

std::shared_ptr<Feature::Style> makePinStyle() {
    auto style = std::make_shared<PointStyle>();
    auto billboard = std::make_shared<BillboardSymbol>();
    billboard->setImage(checkerImage(4, Color::GREEN));
    billboard->setVerticalOrigin(VerticalOrigin::Bottom);
    style->setBillboardSymbol(std::move(billboard));
    style->setLabelSymbol(makeLabelWithHintLine());
    style->setHeightReference(HeightReference::RelativeToGround);
    return style;
}

ModelGraphics::BoundingBox sampleModelBox(const std::string& uri) {
    if (uri == "models/tower.glb") {
        // 12 m wide, 30 m tall, standing on its origin.
        return {Vector3<double>(0.0, 0.0, 15.0), Vector3<double>(6.0, 6.0, 15.0)};
    }
    if (uri == "models/drone.glb") {
        return {Vector3<double>(0.0, 0.0, 0.25), Vector3<double>(0.8, 0.8, 0.25)};
    }
    return {Vector3<double>(0.0, 0.0, 1.0), Vector3<double>(1.0, 1.0, 1.0)};
}

const std::vector<SampleEntry>& sampleEntries() {
    static const std::vector<SampleEntry> entries = {
        {"markers", "Marker", &makeMarker},
        {"markers", "Pin", &makePin},
        {"models", "Tower", &makeTower},
        {"particles", "Box smoke", &makeBoxParticles},
        {"particles", "Circle fountain", &makeCircleParticles},
        {"particles", "Cone fire", &makeConeParticles},
        {"particles", "Sphere spray", &makeSphereParticles},
        {"moving", "Drone", &makeDrone},
        {"lines", "Road", &makeRoad},
        {"lines", "Patrol", &makePatrol},
        {"lines", "Fence", &makeFence},
        {"lines", "Pipe", &makePipe},
        {"lines", "Canal", &makeCanal},
        {"areas", "Park", &makePark},
        {"areas", "District", &makeDistrict},
        {"areas", "Building", &makeBuilding},
        {"areas", "Tower block", &makeTowerBlock},
        {"areas", "Plaza", &makePlaza},
        {"areas", "Field", &makeField},
        {"shapes", "Stadium", &makeStadium},
        {"shapes", "Search area", &makeSearchArea},
        {"multi", "Fleet", &makeFleet},
        {"multi", "River", &makeRiver},
        {"multi", "Islands", &makeIslands},
    };
    return entries;
}

void populateSample(Scene& scene, std::size_t count, std::size_t first) {
    const auto& entries = sampleEntries();
    scene.collection().suspendEvents();
    for (std::size_t i = first; i < first + count; ++i) {
        const SampleEntry& entry = entries[i % entries.size()];
        scene.add(entry.group, entry.make(FIRST_FEATURE_ID + i, entry.name));
    }
    scene.collection().resumeEvents();
}

void populateKind(Scene& scene, const SampleEntry& entry, std::size_t count) {
    scene.collection().suspendEvents();
    for (std::size_t i = 0; i < count; ++i) {
        scene.add(entry.group, entry.make(FIRST_FEATURE_ID + i, entry.name));
    }
    scene.collection().resumeEvents();
}

} // namespace keo::scene
