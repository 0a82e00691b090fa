#include "SampleKinds.h"

#include "Common/Color.h"
#include "Common/GlobeRectangle.h"
#include "Common/Math.h"
#include "Common/Radian.h"
#include "Common/Vector2.h"
#include "Feature/ColorMaterial.h"
#include "Feature/EllipseGeometry.h"
#include "Feature/EllipseStyle.h"
#include "Feature/EllipseSymbol.h"
#include "Feature/ExtrusionSymbol.h"
#include "Feature/Feature.h"
#include "Feature/LabelSymbol.h"
#include "Feature/LineSymbol.h"
#include "Feature/MultiGeometry.h"
#include "Feature/PointGeometry.h"
#include "Feature/PointStyle.h"
#include "Feature/PointSymbol.h"
#include "Feature/PolygonGeometry.h"
#include "Feature/PolygonStyle.h"
#include "Feature/PolygonSymbol.h"
#include "Feature/PolylineGeometry.h"
#include "Feature/PolylineStyle.h"
#include "Feature/RectangleGeometry.h"

#include <memory>
#include <utility>
#include <vector>

namespace keo::scene {

namespace {

std::shared_ptr<Feature::LabelSymbol> shapeLabel() {
    auto label = std::make_shared<Feature::LabelSymbol>();
    label->setFont("sans-serif");
    label->setSize(14.0f);
    return label;
}

std::shared_ptr<Feature::ColorMaterial> colour(const Color& color) {
    return std::make_shared<Feature::ColorMaterial>(color);
}

std::vector<Cartographic> places(const std::vector<std::pair<double, double>>& offsets) {
    std::vector<Cartographic> positions;
    for (const auto& [east, north] : offsets) {
        positions.push_back(samplePlace(east, north, 0.0));
    }
    return positions;
}

std::shared_ptr<Feature::PolygonGeometry> island(double east, double north, double size) {
    Feature::PolygonGeometry::Hierarchy hierarchy;
    hierarchy.positions = places({{east, north},
                                  {east + size, north + size / 4.0},
                                  {east + size, north + size},
                                  {east + size / 4.0, north + size}});
    return std::make_shared<Feature::PolygonGeometry>(hierarchy);
}

} // namespace

GlobeRectangle stadiumExtent() {
    const Cartographic southWest = samplePlace(-0.045, -0.005, 0.0);
    const Cartographic northEast = samplePlace(-0.038, -0.0005, 0.0);
    return GlobeRectangle(southWest.longitude.value(), southWest.latitude.value(),
                          northEast.longitude.value(), northEast.latitude.value());
}

SceneFeature makeStadium(std::uint64_t id, const std::string& name) {
    auto stands = std::make_shared<Feature::PolygonSymbol>(colour(Color(0.6f, 0.6f, 0.65f, 1.0f)));
    auto extrusion = std::make_shared<Feature::ExtrusionSymbol>();
    extrusion->setHeight(25.0);
    extrusion->setBodySymbol(std::move(stands));
    auto style = std::make_shared<Feature::PolygonStyle>();
    style->setPolygonSymbol(
        std::make_shared<Feature::PolygonSymbol>(colour(Color(0.25f, 0.65f, 0.3f, 1.0f))));
    style->setExtrusionSymbol(std::move(extrusion));
    style->setLabelSymbol(shapeLabel());
    auto geometry = std::make_shared<Feature::RectangleGeometry>(stadiumExtent());
    geometry->setRotate(Radian(0.35));
    return assemble(id, name, std::move(geometry), std::move(style));
}

SceneFeature makeSearchArea(std::uint64_t id, const std::string& name) {
    auto style = std::make_shared<Feature::EllipseStyle>();
    style->setEllipseSymbol(
        std::make_shared<Feature::EllipseSymbol>(colour(Color(1.0f, 0.55f, 0.1f, 0.45f))));
    style->setLabelSymbol(shapeLabel());
    return assemble(
        id, name,
        std::make_shared<Feature::EllipseGeometry>(samplePlace(0.055, 0.045, 0.0), 900.0, 500.0),
        std::move(style));
}

Cartographic fleetBoat(std::size_t index) {
    return samplePlace(0.05 + 0.004 * static_cast<double>(index), 0.015, 0.0);
}

SceneFeature makeFleet(std::uint64_t id, const std::string& name) {
    auto boats = std::make_shared<Feature::MultiGeometry>();
    for (std::size_t i = 0; i < 5; ++i) {
        boats->add(std::make_shared<Feature::PointGeometry>(fleetBoat(i)));
    }
    auto dot = std::make_shared<Feature::PointSymbol>();
    dot->setPixelSize(8.0f);
    dot->setColor(Color(0.1f, 0.3f, 0.9f, 1.0f));
    auto style = std::make_shared<Feature::PointStyle>();
    style->setPointSymbol(std::move(dot));
    return assemble(id, name, std::move(boats), std::move(style));
}

SceneFeature makeRiver(std::uint64_t id, const std::string& name) {
    auto river = std::make_shared<Feature::MultiGeometry>();
    // The main stream, then two branches that leave it.
    river->add(std::make_shared<Feature::PolylineGeometry>(
        places({{-0.06, -0.06}, {-0.045, -0.055}, {-0.03, -0.05}, {0.0, -0.06}})));
    river->add(std::make_shared<Feature::PolylineGeometry>(
        places({{-0.03, -0.05}, {-0.025, -0.04}, {-0.02, -0.03}})));
    river->add(std::make_shared<Feature::PolylineGeometry>(
        places({{-0.045, -0.055}, {-0.05, -0.065}, {-0.052, -0.075}})));
    auto water = std::make_shared<Feature::LineSymbol>();
    water->setMaterial(colour(Color(0.2f, 0.45f, 0.85f, 1.0f)));
    water->setWidth(4.0f);
    auto style = std::make_shared<Feature::PolylineStyle>();
    style->setLineSymbol(std::move(water));
    return assemble(id, name, std::move(river), std::move(style));
}

std::shared_ptr<Feature::PolygonGeometry> makeIsland(std::size_t index) {
    static const double corners[][2] = {
        {0.045, -0.035}, {0.058, -0.047}, {0.07, -0.032}, {0.077, -0.05}};
    return island(corners[index][0], corners[index][1], 0.006);
}

SceneFeature makeIslands(std::uint64_t id, const std::string& name) {
    auto islands = std::make_shared<Feature::MultiGeometry>();
    for (std::size_t i = 0; i < 3; ++i) {
        islands->add(makeIsland(i));
    }
    auto sand = std::make_shared<Feature::PolygonSymbol>(colour(Color(0.85f, 0.78f, 0.5f, 1.0f)));
    auto shore = std::make_shared<Feature::LineSymbol>();
    shore->setMaterial(colour(Color(0.5f, 0.4f, 0.2f, 1.0f)));
    sand->setOutLineSymbol(std::move(shore));
    auto style = std::make_shared<Feature::PolygonStyle>();
    style->setPolygonSymbol(std::move(sand));
    style->setLabelSymbol(shapeLabel());
    return assemble(id, name, std::move(islands), std::move(style));
}

} // namespace keo::scene
